// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationUnits.h>
#include <TavikLauncherPlatform/Linux/Applications/ApplicationWorkspace.h>
#include <TavikLauncherPlatform/Linux/Applications/LinuxFileManager.h>

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QTest>

#include <Support/FakeBusService.h>
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

const QString systemdName = u"org.freedesktop.systemd1"_s;

struct Unit
{
    QString name;
    QString state; ///< As "active running".

    friend QDBusArgument& operator<<(QDBusArgument& list, const Unit& unit)
    {
        const QDBusObjectPath path("/unit");
        list.beginStructure();
        list << unit.name << u"X"_s << u"loaded"_s << unit.state.section(u' ', 0, 0)
             << unit.state.section(u' ', 1) << QString() << path << 0U << QString() << path;
        list.endStructure();
        return list;
    }
    friend const QDBusArgument& operator>>(const QDBusArgument& list, Unit&) { return list; }
};

/// systemd with one unit, which tells of changes when somebody has subscribed.
class FakeSystemd final : public FakeBusService
{
public:
    using FakeBusService::FakeBusService;
    using FakeBusService::m_bus;
    ~FakeSystemd() override { stop(); }
    void put(const Unit& unit)
    {
        onItsThread([&] {
            auto news = QDBusMessage::createSignal(
                u"/org/freedesktop/systemd1"_s, systemdName + u".Manager"_s, u"UnitNew"_s);
            if (!units.isEmpty()) {
                news = QDBusMessage::createSignal(
                    u"/unit"_s, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
            }
            news << (news.path() == "/unit"_L1 ? systemdName + u".Unit"_s : unit.name) << true;
            units = {unit};
            isHeard = isHeard && m_bus.send(news);
        });
    }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        qDBusRegisterMetaType<Unit>();
        qDBusRegisterMetaType<QList<Unit>>();
        isHeard |= message.member() == u"Subscribe";
        return bus.send(message.createReply(QVariant::fromValue(units)));
    }

    QList<Unit> units;
    bool isHeard = false;
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
        open(m_path);
        open(m_path);
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

    void whatHasANameOrAUnitRunsWhereNotAllWindowsAreTold_data()
    {
        // Its ID, its unit and its state, whether windows are told of, how often it is seen by its
        // name and by its unit.
        const Table<QString, QString, QString, bool, int, int> row;
        // clang-format off
        row("not told", u"org.example.Fir"_s, u"app-gnome-org.example.Fir-1.scope"_s, u"active running"_s, false, 1, 1);
        row("all windows are told", u"org.example.Fir"_s, u"app-gnome-org.example.Fir-1.scope"_s, u"active running"_s, true, 0, 0);
        row("no name", u"fähre"_s, u"app-tavik-f\\xc3\\xa4hre-1.scope"_s, u"reloading reload"_s, false, 0, 1);
        row("no process", u"fir"_s, u"app-fir@1.service"_s, u"active exited"_s, false, 0, 0);
        row("another's unit", u"fir"_s, u"app-elm@1.service"_s, u"active running"_s, false, 0, 0);
        row("kept out of menus", u"org.example.Hidden"_s, u"app-org.example.Hidden@1.service"_s, u"active running"_s, false, 0, 0);
        // clang-format on
    }
    void whatHasANameOrAUnitRunsWhereNotAllWindowsAreTold()
    {
        const auto [id, unit, state, isComplete, byName, byUnit]
            = fetch<QString, QString, QString, bool, int, int>();
        FakeSystemd systemd({systemdName});
        const QString path = u"apps/%1.desktop"_s.arg(id);
        m_tree.write(path,
                     entry + "Exec=slow\n" + (id.endsWith("Hidden"_L1) ? "NoDisplay=true\n" : ""));
        auto windows = std::make_unique<FakeWindows>();
        windows->isComplete = isComplete;
        m_workspace.emplace(m_queue, m_work, m_files, std::move(windows));
        ApplicationUnits ownUnit(m_queue, m_work, unit);
        ownUnit.follow({id});
        m_work.runAll();
        const auto seen = [&] {
            QTest::qWait(20); // For what should not come.
            m_queue.advance(0.1);
            m_work.runAll();
            return m_workspace->runningApplications().size();
        };
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"fir"_s);
        bus.registerService(id);
        QTRY_COMPARE(seen(), byName);
        QVERIFY(!m_workspace->frontmostApplication());
        systemd.put({unit, u"inactive dead"_s});
        QTRY_COMPARE(seen(), byName);
        systemd.put({unit, state});
        QTRY_COMPARE(seen(), byUnit);
        bus.unregisterService(id);
        QTest::qWait(100);
        QCOMPARE(seen(), byUnit);
        open(m_tree.path(path));
        QCOMPARE(m_work.waiting(), 1U); // Nobody is there to be asked, so it is started.
        systemd.m_bus.unregisterService(systemdName);
        QTRY_COMPARE(seen(), 0);
        systemd.onItsThread([&] { systemd.isHeard = !systemd.m_bus.registerService(systemdName); });
        QTRY_VERIFY(systemd.copyOf(systemd.isHeard));
        QTRY_COMPARE(seen(), byUnit);
        QVERIFY(ownUnit.running().isEmpty());
        systemd.put({unit, u"inactive dead"_s});
        QTRY_COMPARE(seen(), 0);
    }

    void whatMenusDoNotShowIsNotListed()
    {
        m_windows->show(1, u"slow"_s);
        m_windows->show(2, u"agent"_s);
        const QList<RunningApplication> running = m_workspace->runningApplications();
        QVERIFY(running.at(0).isListed && !running.at(1).isListed);
    }

private:
    void open(const QString& path)
    {
        m_workspace->openApplication(
            path, {.activates = true}, [](const std::optional<QString>&) {});
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
