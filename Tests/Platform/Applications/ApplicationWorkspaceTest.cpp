// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationWorkspace.h>
#include <TavikLauncherPlatform/Linux/Applications/LinuxFileManager.h>

#include <QDBusConnection>
#include <QTest>

#include <Support/FileTree.h>
#include <Support/StepWorkQueue.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// Windows as a test says they are; each start gets the ID "start".
class FakeWindows final : public WindowSource
{
public:
    [[nodiscard]] bool tellsOfAll() const override { return isComplete; }
    [[nodiscard]] QList<WindowId> windows() const override { return facts.keys(); }
    [[nodiscard]] Facts factsOf(WindowId window) const override { return facts.value(window); }
    [[nodiscard]] WindowId activeWindow() const override { return 0; }
    [[nodiscard]] WindowId mostRecent(const QList<WindowId>& all) const override
    {
        return all.last();
    }
    void activate(WindowId window) override { raised.append(window); }
    [[nodiscard]] LaunchTokens beginStart(const DesktopEntry&) override
    {
        return {.startupId = "start", .activationToken = {}};
    }
    void describeStart(const LaunchTokens&, qint64) override { }
    void endStart(const LaunchTokens&) override { ++ended; }

    void show(WindowId window, const QString& className, const QByteArray& startupId = {})
    {
        facts[window].clues = {.className = className, .startupId = startupId};
        facts[window].isOnTaskbar = true;
        onWindowsChanged();
    }

    QMap<WindowId, Facts> facts;
    QList<WindowId> raised;
    int ended = 0;
    bool isComplete = true;
};

} // namespace

class ApplicationWorkspaceTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_tree.write(u"apps/slow.desktop"_s, entry + "Exec=slow\n");
        m_tree.write(u"apps/agent.desktop"_s, entry + "Exec=agent\nNoDisplay=true\n");
        auto windows = std::make_unique<FakeWindows>();
        m_windows = windows.get();
        m_workspace.emplace(m_queue, m_work, m_files, std::move(windows));
        m_work.runAll();
    }

    void whatStartsIsStartedOnceUntilThatIsOver_data()
    {
        const Table<QString, bool> row;
        row("almost too long", u"9.9"_s, false);
        row("too long", u"10"_s, true);
        row("another's window", u"agent"_s, false);
        row("its window", u"slow"_s, true);
        row("a window that names the start", u"odd start"_s, true);
        row("it cannot be started", u"failure"_s, true);
    }

    void whatStartsIsStartedOnceUntilThatIsOver()
    {
        const auto [event, isOver] = fetch<QString, bool>();
        open();
        open();
        QCOMPARE(m_work.waiting(), 1U);
        QCOMPARE(m_workspace->startingApplications(), QStringList{m_path});
        if (event == "failure"_L1) {
            m_work.runAll();
        } else if (event.at(0).isDigit()) {
            m_queue.advance(event.toDouble());
        } else {
            m_windows->show(1, event.section(u' ', 0, 0), event.section(u' ', 1).toUtf8());
        }
        QCOMPARE(m_workspace->startingApplications().isEmpty(), isOver);
        QCOMPARE(m_windows->ended, isOver ? 1 : 0);
    }

    void whatHasItsNameOnTheBusRunsWhereNotAllWindowsAreTold_data()
    {
        const Table<QByteArray, bool, bool> row; // Its ID, whether windows are told of, it is seen.
        row("not told", "org.example.Fir", false, true);
        row("all windows are told", "org.example.Fir", true, false);
        row("no name", "fir", false, false);
        row("kept out of menus", "org.example.Hidden", false, false);
    }
    void whatHasItsNameOnTheBusRunsWhereNotAllWindowsAreTold()
    {
        const auto [id, isComplete, isSeen] = fetch<QByteArray, bool, bool>();
        const QString name = QString::fromLatin1(id);
        const QString path = u"apps/%1.desktop"_s.arg(name);
        m_tree.write(path,
                     entry + "Exec=slow\n" + (id.endsWith("Hidden") ? "NoDisplay=true\n" : ""));
        auto windows = std::make_unique<FakeWindows>();
        windows->isComplete = isComplete;
        m_workspace.emplace(m_queue, m_work, m_files, std::move(windows));
        m_work.runAll();
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"fir"_s);
        bus.registerService(name);
        QTest::qWait(60); // For what should not come.
        QTRY_COMPARE(m_workspace->runningApplications().size(), isSeen ? 1 : 0);
        QVERIFY(!m_workspace->frontmostApplication());
        bus.unregisterService(name);
        QTRY_VERIFY(m_workspace->runningApplications().isEmpty());
    }

    void whatMenusDoNotShowIsNotListed()
    {
        m_windows->show(1, u"slow"_s);
        m_windows->show(2, u"agent"_s);
        const QList<RunningApplication> running = m_workspace->runningApplications();
        QVERIFY(running.at(0).isListed && !running.at(1).isListed);
    }

private:
    void open()
    {
        m_workspace->openApplication(
            m_path, {.activates = true}, [](const std::optional<QString>&) {});
    }

    const QByteArray entry = "[Desktop Entry]\nType=Application\nName=X\n";
    FileTree m_tree;
    const QString m_path = m_tree.path(u"apps/slow.desktop"_s);
    VirtualMainQueue m_queue;
    StepWorkQueue m_work;
    LinuxFileManager m_files{m_queue, m_work, {m_tree.path(u"apps"_s)}};
    std::optional<ApplicationWorkspace> m_workspace;
    FakeWindows* m_windows = nullptr; ///< The workspace's.
};

QTEST_GUILESS_MAIN(ApplicationWorkspaceTest)
#include "ApplicationWorkspaceTest.moc"
