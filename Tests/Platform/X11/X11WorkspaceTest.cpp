// SPDX-License-Identifier: MIT
#include "TestClient.h"
#include <TavikLauncherPlatform/Linux/Applications/ApplicationWorkspace.h>
#include <TavikLauncherPlatform/Linux/Applications/LinuxFileManager.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowTracker.h>
#include <TavikLauncherPlatform/QtMainQueue.h>
#include <TavikLauncherPlatform/QtWorkQueue.h>

#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QTest>

#include <Support/FileTree.h>
#include <Support/Table.h>
#include <signal.h>

#include <unistd.h>

namespace Tavik {

namespace {

using namespace Test;
using Policy = RunningApplication::ActivationPolicy;

} // namespace

class X11WorkspaceTest : public QObject
{
    Q_OBJECT

private:
    /// A workspace with two folders of desktop entries, and a record of what it tells.
    struct Desktop
    {
        explicit Desktop(const QList<std::pair<QString, QByteArray>>& entries)
        {
            for (const auto& [name, text] : entries) {
                write(name, text);
            }
            auto source = std::make_unique<X11WindowTracker>(mainQueue);
            windows = source.get();
            files.emplace(mainQueue, workQueue, QStringList{tree.path(u"applications"_qs)});
            workspace.emplace(mainQueue, workQueue, *files, std::move(source));
            for (const QStringView name : {Workspace::didLaunchApplication,
                                           Workspace::didTerminateApplication,
                                           Workspace::didActivateApplication}) {
                tokens.push_back(workspace->notificationCenter().addObserver(
                    name, [this](const NotificationCenter::Notification& notification) {
                        told.append(notification.name.section(u'.', 1).mid(3).chopped(11) + u' '
                                    + QFileInfo(notification.subject).completeBaseName());
                    }));
            }
            const bool areRead
                = entries.isEmpty() || QTest::qWaitFor([&] {
                      return workspace
                          ->pathForApplication(entries.first().first.section(u'.', 0, -2))
                          .has_value();
                  });
            QVERIFY(areRead);
        }
        [[nodiscard]] QString path(const QString& name) const
        {
            return tree.path(u"applications/"_qs + name);
        }
        void write(const QString& name, const QByteArray& text) const
        {
            tree.write(u"applications/"_qs + name,
                       "[Desktop Entry]\nType=Application\nName=X\n" + text);
        }
        /// Opens an application and waits for the word of it; empty when it is open.
        QString open(const QString& path)
        {
            std::optional<QString> outcome;
            workspace->openApplication(
                path, {.activates = true}, [&outcome](const std::optional<QString>& error) {
                    outcome = error.value_or(QString());
                });
            const bool isTold = QTest::qWaitFor([&outcome] { return outcome.has_value(); });
            return isTold ? *outcome : u"nothing was told"_qs;
        }
        /// The regular applications, by the base names of their bundles.
        [[nodiscard]] QStringList running() const
        {
            QStringList names;
            for (const RunningApplication& application : workspace->runningApplications()) {
                if (application.activationPolicy == Policy::regular) {
                    names.append(
                        QFileInfo(application.bundlePath.value_or(u"?"_qs)).completeBaseName());
                }
            }
            return names;
        }
        /// The identifier of the application that has the focus.
        [[nodiscard]] QString frontmost() const
        {
            const auto application = workspace->frontmostApplication();
            return application ? application->bundleIdentifier.value_or(QString()) : QString();
        }

        FileTree tree;
        QtMainQueue mainQueue;
        QtWorkQueue workQueue;
        std::optional<LinuxFileManager> files;
        QStringList told;
        std::optional<ApplicationWorkspace> workspace;
        X11WindowTracker* windows = nullptr; ///< The workspace's.
        std::vector<ObserverToken> tokens;
    };

    TestClient m_client;
    QList<xcb_window_t> m_windows;

    xcb_window_t show(const QByteArray& classes, qint64 processId = 0)
    {
        const xcb_window_t window = m_client.createWindow(classes, processId);
        m_client.map(window);
        m_windows.append(window);
        return window;
    }

private Q_SLOTS:
    /// A window manager says that it is there before it is: its first window may take it seconds.
    void initTestCase()
    {
        const xcb_window_t first = show(QByteArrayLiteral("first\0First\0"));
        QTRY_COMPARE_WITH_TIMEOUT(
            m_client.numbers(m_client.root(), "_NET_ACTIVE_WINDOW").value(0), first, 20'000);
        cleanup();
    }
    void cleanup()
    {
        for (const xcb_window_t window : std::exchange(m_windows, {})) {
            m_client.destroy(window);
        }
        QTRY_VERIFY(m_client.numbers(m_client.root(), "_NET_CLIENT_LIST").isEmpty());
    }

    void applicationsAreToldByTheirWindows()
    {
        const xcb_window_t early = show(QByteArrayLiteral("one\0One\0"));
        QTRY_COMPARE(m_client.numbers(m_client.root(), "_NET_ACTIVE_WINDOW").value(0), early);
        Desktop desktop({{u"one.desktop"_qs, "Exec=one\n"},
                         {u"org.two.desktop"_qs, "Exec=two\nStartupWMClass=TwoClass\n"}});
        QCOMPARE(desktop.told, (QStringList{u"Terminate "_qs, u"Launch one"_qs}));
        QCOMPARE(desktop.frontmost(), u"one"_qs);
        desktop.told.clear();
        const xcb_window_t first = show(QByteArrayLiteral("x\0TwoClass\0"));
        QTRY_COMPARE(desktop.told, (QStringList{u"Launch org.two"_qs, u"Activate org.two"_qs}));
        const xcb_window_t second = show(QByteArrayLiteral("x\0TwoClass\0"));
        QTRY_COMPARE(desktop.windows->activeWindow(), second);
        QCOMPARE(desktop.running(), (QStringList{u"one"_qs, u"org.two"_qs}));
        QCOMPARE(desktop.frontmost(), u"org.two"_qs);

        desktop.told.clear();
        m_client.destroy(first);
        QTRY_COMPARE(desktop.windows->windows().size(), 2);
        m_client.focus(early);
        QTRY_COMPARE(desktop.told, QStringList{u"Activate one"_qs});
        QCOMPARE(desktop.running(), (QStringList{u"one"_qs, u"org.two"_qs}));
        m_client.destroy(second);
        QTRY_COMPARE(desktop.told, (QStringList{u"Activate one"_qs, u"Terminate org.two"_qs}));
        QCOMPARE(desktop.running(), QStringList{u"one"_qs});
    }

    void windowsThatNoTaskbarShowsMakeNoRegularApplication_data()
    {
        const Table<QByteArray, QByteArray> row;
        row("skips the taskbar", "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR");
        for (const char* type : {"DOCK", "DESKTOP", "UTILITY", "SPLASH", "NOTIFICATION"}) {
            row(type, "_NET_WM_WINDOW_TYPE", QByteArray("_NET_WM_WINDOW_TYPE_") + type);
        }
    }

    void windowsThatNoTaskbarShowsMakeNoRegularApplication()
    {
        const auto [property, value] = fetch<QByteArray, QByteArray>();
        Desktop desktop({{u"one.desktop"_qs, "Exec=one\n"}});
        const xcb_window_t window = m_client.createWindow(QByteArrayLiteral("one\0One\0"));
        m_windows.append(window);
        m_client.setNumbers(
            window, property.constData(), {m_client.atom(value.constData())}, "ATOM");
        m_client.map(window);
        QTRY_COMPARE(desktop.workspace->runningApplications().size(), 1);
        QCOMPARE(desktop.workspace->runningApplications().first().activationPolicy,
                 Policy::accessory);
        QVERIFY(!desktop.told.contains(u"Launch one"_qs));
    }

    void nameThatComesLateIsTaken()
    {
        Desktop desktop({{u"late.desktop"_qs, "Exec=late\n"}});
        const xcb_window_t window = show({});
        QTRY_COMPARE(desktop.running(), QStringList{u"?"_qs});
        m_client.setText(window, "WM_CLASS", QByteArrayLiteral("late\0Late\0"), "STRING");
        QTRY_COMPARE(desktop.running(), QStringList{u"late"_qs});
        QVERIFY(desktop.told.contains(u"Launch late"_qs));
    }

    void hostileWindowsAreBorne()
    {
        Desktop desktop({{u"one.desktop"_qs, "Exec=one\n"}});
        const xcb_window_t huge = show(QByteArray(200'000, 'x'));
        m_client.setNumbers(huge, "_NET_WM_PID", {0xffffffff, 1, 2}, "CARDINAL");
        const xcb_window_t binary = show(QByteArray("\xff\xfe\0\xff", 4));
        m_client.setText(binary, "_NET_WM_PID", "not a number", "STRING");
        m_client.setText(binary, "_NET_WM_STATE", "odd", "ATOM");
        m_client.setNumbers(binary, "_GTK_APPLICATION_ID", {1, 2, 3}, "CARDINAL");
        m_client.setNumbers(
            binary, "_NET_WM_STRUT_PARTIAL", QList<uint32_t>(12, 0xffffffff), "CARDINAL");
        m_client.setText(show({}), "_GTK_APPLICATION_ID", "../../etc/passwd", "UTF8_STRING");
        m_client.setNumbers(m_client.root(), "_NET_ACTIVE_WINDOW", {0xdeadbeef, 1, 2, 3}, "WINDOW");
        m_client.setNumbers(m_client.root(), "_NET_WORKAREA", {0x7fffffff, 0, 0}, "CARDINAL");
        for (int i = 0; i < 50; ++i) {
            m_client.destroy(show(QByteArrayLiteral("gone\0Gone\0")));
        }
        show(QByteArrayLiteral("one\0One\0"));
        QTRY_VERIFY(desktop.running().contains(u"one"_qs));
        QCOMPARE(desktop.running().count(u"?"_qs), 3);
        for (const RunningApplication& application : desktop.workspace->runningApplications()) {
            QCOMPARE(application.processId, 0);
        }
        const QRect screen(0, 0, 1280, 800);
        QVERIFY(screen.contains(desktop.windows->availableArea(screen)));
    }

    void programOfAnApplicationFolderStandsOnItsOwn()
    {
        const FileTree out;
        const QString report = out.path(u"report"_qs);
        const QString script
            = out.write(u"Run.app/Contents/MacOS/program.sh"_qs,
                        "#!/bin/sh\ncd " + out.path().toUtf8()
                            + " && echo $$ $(ps -o sid= -p $$) $(readlink /proc/$$/fd/[012]) "
                              "$DESKTOP_STARTUP_ID > draft && mv draft report; exec sleep 30\n");
        QVERIFY(QFile::setPermissions(script, QFile::ReadOwner | QFile::ExeOwner));
        Desktop desktop({});
        const QString path = out.path(u"Run.app"_qs);
        out.write(u"Run.app/Contents/Info.plist"_qs,
                  "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>"
                  "<key>CFBundleExecutable</key><string>program.sh</string></dict></plist>");
        QCOMPARE(desktop.open(path), QString());
        QTRY_VERIFY(QFile::exists(report));
        QFile file(report);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArrayList facts = file.readAll().simplified().split(' ');
        QCOMPARE(facts.size(), 6);
        const qint64 processId = facts.first().toLongLong();
        QVERIFY(processId > 1);
        QCOMPARE(facts.at(1).toLongLong(), processId); // It leads a session.
        QCOMPARE(facts.mid(2, 3), QByteArrayList(3, "/dev/null"));
        QVERIFY(facts.last().contains("_TIME"));

        // A window of that process is the application's, whatever it says of itself.
        show(QByteArrayLiteral("any\0Any\0"), processId);
        QTRY_COMPARE(desktop.running(), QStringList{u"Run"_qs});
        kill(static_cast<pid_t>(processId), SIGTERM);
    }

    void runningApplicationIsRaisedAtItsLatestWindow()
    {
        Desktop desktop({{u"one.desktop"_qs, "Exec=/nonexistent/program\n"},
                         {u"two.desktop"_qs, "Exec=two\n"}});
        const xcb_window_t first = show(QByteArrayLiteral("one\0One\0"));
        QTRY_COMPARE(m_client.focused(), first);
        const xcb_window_t second = show(QByteArrayLiteral("one\0One\0"));
        QTRY_COMPARE(m_client.focused(), second);
        QTRY_VERIFY((m_client.focus(first), m_client.focused() == first));
        QTRY_COMPARE(desktop.windows->activeWindow(), first);
        const xcb_window_t other = show(QByteArrayLiteral("two\0Two\0"));
        QTRY_COMPARE(m_client.focused(), other);
        QTRY_COMPARE(desktop.frontmost(), u"two"_qs);

        // Minimised, it comes back all the same.
        sendToWindowManager(
            m_client.connection(), m_client.root(), first, m_client.atom("WM_CHANGE_STATE"), {3});
        QTRY_COMPARE(m_client.numbers(first, "WM_STATE").value(0), 3U);
        QCOMPARE(desktop.open(desktop.path(u"one.desktop"_qs)), QString());
        QTRY_COMPARE(m_client.focused(), first);
        QTRY_COMPARE(desktop.frontmost(), u"one"_qs);
    }
};

} // namespace Tavik

QTEST_MAIN(Tavik::X11WorkspaceTest)
#include "X11WorkspaceTest.moc"
