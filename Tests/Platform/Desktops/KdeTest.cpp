// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/KWinWindows.h>
#include <TavikLauncherPlatform/Linux/Desktops/KdeShortcuts.h>

#include <QDBusMessage>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <QThread>

#include <Support/StepWorkQueue.h>
#include <Support/Table.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// The desktop's side, on a thread and a connection of its own: what it was asked, and what it
/// says.
class FakeService final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.KGlobalAccel")

public:
    void start()
    {
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"fake"_s);
        bus.registerObject(u"/kglobalaccel"_s, this, QDBusConnection::ExportAllSlots);
        bus.registerService(u"org.kde.kglobalaccel"_s);
    }
    static void tell(const QString& signal, const QString& component)
    {
        auto message = QDBusMessage::createSignal(
            u"/component/it"_s, u"org.kde.kglobalaccel.Component"_s, signal);
        message << component << u"summon"_s << qlonglong{0};
        QDBusConnection(u"fake"_s).send(message);
    }

    QStringList asked;
    QList<int> answer;
    bool isFree = true;

public Q_SLOTS:
    void doRegister(const QStringList&) { }
    QList<int> setShortcut(const QStringList& id, const QList<int>& keys, uint flags)
    {
        asked << u"%1 %2 %3"_s.arg(id.front()).arg(keys.value(0), 0, 16).arg(flags);
        return answer.isEmpty() ? keys : answer;
    }
    void setInactive(const QStringList&) { asked << u"inactive"_s; }
    bool isGlobalShortcutAvailable(int, const QString&) { return isFree; }
};

/// KWin as far as scripts are concerned.
class FakeKWin final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.kwin.Scripting")

public:
    QString script;
    QString reader; ///< The bus's name of whoever the script tells.

public Q_SLOTS:
    bool unloadScript(const QString&) { return true; }
    int loadScript(const QString& file, const QString&)
    {
        QFile read(file);
        script = read.open(QFile::ReadOnly) ? QString::fromUtf8(read.readAll()) : QString();
        reader = script.section(u'"', 1, 1);
        return script.isEmpty() ? -1 : 3;
    }
};

const KeyEvents::HotKey superK{
    .keyCode = quint16{40}, .modifierFlags = ModifierFlags::command, .label = u"k"_s};

} // namespace

class KdeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        QVERIFY(m_daemon.waitForStarted() && m_daemon.waitForReadyRead());
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_daemon.readLine().trimmed());
        m_service.moveToThread(&m_thread);
        m_thread.start();
        QMetaObject::invokeMethod(
            &m_service, [this] { m_service.start(); }, Qt::BlockingQueuedConnection);
    }
    void cleanupTestCase()
    {
        m_thread.quit();
        m_thread.wait();
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    void theServiceIsAskedAndBelieved_data()
    {
        const Table<QList<int>, QString, bool>
            row; // Its answer, what comes of it, and still served.
        row("as asked", {}, u"P R"_s, true);
        row("as the user has set it", {0x01000030}, u"P R"_s, true);
        row("taken by another", {0}, u"lost"_s, false);
    }
    void theServiceIsAskedAndBelieved()
    {
        const auto [answer, story, isServed] = fetch<QList<int>, QString, bool>();
        m_service.asked.clear();
        m_service.answer = answer;
        QStringList told;
        StepWorkQueue workQueue;
        KdeShortcuts shortcuts(workQueue);
        const auto bind = [&](const KeyEvents::HotKey& hotKey) {
            return shortcuts.bind(hotKey,
                                  {.pressed = [&] { told << u"P"_s; },
                                   .released = [&] { told << u"R"_s; },
                                   .joined = {},
                                   .lost =
                                       [&](int) {
                                           told << u"lost"_s;
                                       }});
        };
        QVERIFY(bind({.keyCode = {}, .modifierFlags = ModifierFlags::command}) != 0);
        QVERIFY(!shortcuts.serves()); // No chords.
        QCOMPARE(bind(superK), 0);
        workQueue.runAll();
        QTRY_COMPARE(m_service.asked, QStringList{u"org.tavik.Launcher 1000004b 2"_s});
        QTest::qWait(50);
        for (const QString& component : {u"org.tavik.Launcher"_s, u"another"_s}) {
            FakeService::tell(u"globalShortcutPressed"_s, component);
            FakeService::tell(u"globalShortcutReleased"_s, component);
        }
        QTRY_COMPARE(told.join(u' '), story);
        QCOMPARE(shortcuts.serves(), isServed);
        // What is recorded here later stands above what was chosen there before.
        m_service.answer.clear();
        QCOMPARE(bind(superK), 0);
        QTRY_COMPARE(m_service.asked.last(), u"org.tavik.Launcher 1000004b 6"_s);
        m_service.isFree = !isServed;
        QCOMPARE(shortcuts.status(superK) == 0, !isServed);
        shortcuts.unbind();
        QTRY_COMPARE(m_service.asked.last(), u"inactive"_s);
    }

    void onlyKWinsOwnWordsCount()
    {
        FakeKWin kwin;
        QMetaObject::invokeMethod(
            &m_service,
            [&] {
                auto bus = QDBusConnection(u"fake"_s);
                bus.registerObject(u"/Scripting"_s, &kwin, QDBusConnection::ExportAllSlots);
                bus.registerService(u"org.kde.KWin"_s);
            },
            Qt::BlockingQueuedConnection);
        kwin.moveToThread(&m_thread);
        const auto liar = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"liar"_s);
        StepWorkQueue workQueue;
        KWinWindows windows(workQueue);
        workQueue.runAll();
        QTRY_VERIFY(!kwin.reader.isEmpty());
        QTest::qWait(150); // Until it has the answer, of which nobody else hears.
        const auto tell = [&](const QDBusConnection& from, const QString& words) {
            auto message = QDBusMessage::createMethodCall(kwin.reader,
                                                          u"/org/tavik/Launcher/Windows"_s,
                                                          u"org.tavik.Launcher.Windows"_s,
                                                          u"tellWindows"_s);
            from.call(message << words, QDBus::BlockWithGui);
        };
        const QString one
            = uR"({"windows":[{"id":"{a}","desktopFile":"alder","pid":7},4,{}],"active":"{a}"})"_s;
        tell(liar, one);
        QVERIFY(!windows.isReady());
        tell(QDBusConnection(u"fake"_s), one);
        QCOMPARE(windows.windows().size(), 1);
        QCOMPARE(windows.activeWindow(), windows.windows().value(0));
        QCOMPARE(windows.factsOf(windows.activeWindow()).clues.applicationId, u"alder"_s);
        tell(QDBusConnection(u"fake"_s), u"[{"_s);
        QVERIFY(windows.windows().isEmpty());
        QDBusConnection(u"fake"_s).unregisterObject(u"/Scripting"_s);
    }

private:
    QProcess m_daemon;
    QThread m_thread;
    FakeService m_service;
};

QTEST_GUILESS_MAIN(KdeTest)
#include "KdeTest.moc"
