// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/KWinWindows.h>
#include <TavikLauncherPlatform/Linux/Desktops/KdeShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/NextBestWindows.h>

#include <QDBusMessage>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <Support/StepWorkQueue.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>
#include <atomic>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// The desktop's side, on a thread and a connection of its own: what it was asked, and what it
/// says.
class FakeService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.KGlobalAccel")

public:
    FakeService()
    {
        moveToThread(&m_thread);
        m_thread.start();
    }
    ~FakeService() override
    {
        m_thread.quit();
        m_thread.wait();
    }
    /// After all that it has been asked before.
    void onItsThread(const std::function<void(QDBusConnection&)>& act)
    {
        QMetaObject::invokeMethod(
            this, [&] { act(m_bus); }, Qt::BlockingQueuedConnection);
    }
    void tell(const QString& signal, const QString& component)
    {
        auto message = QDBusMessage::createSignal(
            u"/component/it"_s, u"org.kde.kglobalaccel.Component"_s, signal);
        message << component << u"summon"_s << qlonglong{0};
        onItsThread([&](QDBusConnection& bus) { bus.send(message); });
    }

    [[nodiscard]] QStringList asked()
    {
        QStringList all;
        onItsThread([&](QDBusConnection&) { all = m_asked; });
        return all;
    }
    [[nodiscard]] QString lastAsked() { return asked().join(u'|').section(u'|', -1); }
    void willAnswer(const QList<int>& answer, bool isFree)
    {
        onItsThread([&](QDBusConnection&) {
            m_asked.clear();
            m_answer = answer;
            m_isFree = isFree;
        });
    }

public Q_SLOTS:
    void doRegister(const QStringList&) { }
    QList<int> setShortcut(const QStringList& id, const QList<int>& keys, uint flags)
    {
        m_asked << u"%1 %2 %3"_s.arg(id.front()).arg(keys.value(0), 0, 16).arg(flags);
        return m_answer.isEmpty() ? keys : m_answer;
    }
    void setInactive(const QStringList&) { m_asked << u"inactive"_s; }
    bool isGlobalShortcutAvailable(int, const QString&) { return m_isFree; }

private:
    QStringList m_asked;
    QList<int> m_answer;
    bool m_isFree = true;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"fake"_s);
    QThread m_thread;
};

class FakeScript final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.kwin.Script")

public:
    std::atomic_bool isRunning = false;

public Q_SLOTS:
    void run() { isRunning = true; }
};

/// KWin as far as scripts are concerned.
class FakeKWin final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.kwin.Scripting")

public:
    QString reader; ///< The bus's name of whoever the script tells.
    bool takesScripts = true;

public Q_SLOTS:
    bool unloadScript(const QString&) { return true; }
    int loadScript(const QString& file, const QString&)
    {
        QFile script(file);
        if (script.open(QFile::ReadOnly)) {
            reader = QString::fromUtf8(script.readAll()).section(u'"', 1, 1);
        }
        return takesScripts ? 3 : -1;
    }
};

/// What would be taken next.
class OneWindow final : public ToldWindows
{
public:
    OneWindow() { take({{u"one"_s, {}}}, u"one"_s); }

private:
    void raise(const QString&) override { }
};

const KeyEvents::HotKey superK{
    .keyCode = quint16{40}, .modifierFlags = ModifierFlags::command, .label = u"k"_s};
const QString oneWindow
    = uR"({"windows":[{"id":"{a}","desktopFile":"alder","pid":7},4,{}],"active":"{a}"})"_s;

} // namespace

class KdeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder.path()));
        m_service.onItsThread([this](QDBusConnection& bus) {
            bus.registerObject(u"/kglobalaccel"_s, &m_service, QDBusConnection::ExportAllSlots);
            bus.registerObject(u"/Scripting"_s, &m_kwin, QDBusConnection::ExportAllSlots);
            bus.registerObject(u"/3"_s, &m_script, QDBusConnection::ExportAllSlots);
            QVERIFY(bus.registerService(u"org.kde.kglobalaccel"_s));
            QVERIFY(bus.registerService(u"org.kde.KWin"_s));
        });
        m_kwin.moveToThread(m_service.thread());
        m_script.moveToThread(m_service.thread());
    }
    void init() { m_script.isRunning = false; }

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
        m_service.willAnswer(answer, true);
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
        QTRY_COMPARE(m_service.asked(), QStringList{u"org.tavik.Launcher 1000004b 2"_s});
        QTRY_COMPARE(shortcuts.serves(), isServed);
        for (const QString& component : {u"another"_s, u"org.tavik.Launcher"_s}) {
            m_service.tell(u"globalShortcutPressed"_s, component);
            m_service.tell(u"globalShortcutReleased"_s, component);
        }
        QTRY_COMPARE(told.join(u' '), story);
        // What is recorded here later stands above what was chosen there before.
        m_service.willAnswer({}, !isServed);
        QCOMPARE(bind(superK), 0);
        QTRY_COMPARE(m_service.lastAsked(), u"org.tavik.Launcher 1000004b 6"_s);
        // It has only a moment to answer, which a busy machine may not give it.
        QTRY_COMPARE(shortcuts.status(superK) == 0, !isServed);
        m_service.willAnswer({}, true);
        shortcuts.unbind();
        QTRY_COMPARE(m_service.lastAsked(), u"inactive"_s);
    }

    void onlyKWinsOwnWordsCount()
    {
        VirtualMainQueue mainQueue;
        StepWorkQueue workQueue;
        KWinWindows windows(mainQueue, workQueue);
        workQueue.runAll();
        QTRY_VERIFY(m_script.isRunning);
        tell(u"{}"_s);
        QTRY_VERIFY(windows.isReady());
        auto liar = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"liar"_s);
        liar.call(words(oneWindow), QDBus::BlockWithGui);
        QVERIFY(windows.windows().isEmpty());
        tell(oneWindow);
        QTRY_COMPARE(windows.windows().size(), 1);
        QCOMPARE(windows.activeWindow(), windows.windows().value(0));
        QCOMPARE(windows.factsOf(windows.activeWindow()).clues.applicationId, u"alder"_s);
        tell(u"[{"_s);
        QTRY_VERIFY(windows.windows().isEmpty());
    }

    void whereItsScriptDoesNotRunTheNextListServes_data()
    {
        const Table<bool, bool> row; // It takes scripts, and ours speaks.
        row("it speaks", true, true);
        row("it is refused", false, false);
        row("it says nothing", true, false);
    }
    void whereItsScriptDoesNotRunTheNextListServes()
    {
        const auto [takesScripts, speaks] = fetch<bool, bool>();
        m_kwin.takesScripts = takesScripts;
        VirtualMainQueue mainQueue;
        StepWorkQueue workQueue;
        NextBestWindows windows(
            mainQueue,
            {[] { return nullptr; },
             [&] { return std::make_unique<KWinWindows>(mainQueue, workQueue); },
             [] {
                 return std::make_unique<OneWindow>();
             }});
        bool isTold = false;
        windows.onWindowsChanged = [&] {
            isTold = true;
        };
        if (!speaks) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^KWin runs no script.*"_s));
        }
        workQueue.runAll();
        QTRY_COMPARE(mainQueue.pendingTasks(), 1); // It is refused, or is given time to speak.
        QTRY_COMPARE(m_script.isRunning, takesScripts);
        if (speaks) {
            tell(u"{}"_s);
            QTRY_VERIFY(isTold);
        }
        mainQueue.advance(11);
        QVERIFY(isTold);
        QCOMPARE(windows.windows().size(), speaks ? 0 : 1);
    }

private:
    [[nodiscard]] QDBusMessage words(const QString& told) const
    {
        return QDBusMessage::createMethodCall(m_kwin.reader,
                                              u"/org/tavik/Launcher/Windows"_s,
                                              u"org.tavik.Launcher.Windows"_s,
                                              u"tellWindows"_s)
            << told;
    }
    void tell(const QString& told)
    {
        m_service.onItsThread([&](QDBusConnection& bus) { bus.send(words(told)); });
    }

    QTemporaryDir m_folder;
    FakeKWin m_kwin;
    FakeScript m_script;
    FakeService m_service;
};

QTEST_GUILESS_MAIN(KdeTest)
#include "KdeTest.moc"
