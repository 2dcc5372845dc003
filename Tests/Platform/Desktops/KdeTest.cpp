// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/KWinWindows.h>
#include <TavikLauncherPlatform/Linux/Desktops/KdeShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/NextBestWindows.h>

#include <QDBusArgument>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <Support/FakeBusService.h>
#include <Support/ShortcutStory.h>
#include <Support/StepWorkQueue.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// KDE's side: what it was asked, and what it says.
class FakeKde final : public FakeBusService
{
public:
    FakeKde()
        : FakeBusService({u"org.kde.kglobalaccel"_s, u"org.kde.KWin"_s})
    { }
    ~FakeKde() override { stop(); }
    void tellOfKey(const QString& signal, const QString& component)
    {
        send(QDBusMessage::createSignal(
                 u"/component/it"_s, u"org.kde.kglobalaccel.Component"_s, signal)
             << component << u"summon"_s << qlonglong{0});
    }
    void willAnswer(const QList<int>& keys, int script = 3)
    {
        onItsThread([&] {
            asked.clear();
            m_keys = keys;
            m_script = script;
        });
    }
    /// The last of its calls with that name; empty when there was none.
    [[nodiscard]] QString last(const QString& method) { return copyOf(asked).value(method); }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        const QVariantList given = message.arguments();
        QString words = u"called"_s;
        QVariantList answer;
        if (message.member() == u"setShortcut") {
            const auto keys = qdbus_cast<QList<int>>(given.value(1));
            words = u"%1 %2"_s.arg(keys.value(0), 0, 16).arg(given.value(2).toUInt());
            answer = {QVariant::fromValue(m_keys.isEmpty() ? keys : m_keys)};
        } else if (message.member() == u"isGlobalShortcutAvailable") {
            answer = {m_keys.isEmpty()};
        } else if (message.member() == u"loadScript") {
            QFile script(given.value(0).toString());
            words = script.open(QFile::ReadOnly) ? QString::fromUtf8(script.readAll()) : words;
            answer = {m_script};
        }
        asked.insert(message.member(), words);
        return bus.send(message.createReply(answer));
    }

    QHash<QString, QString> asked; ///< By the method.

private:
    QList<int> m_keys;
    int m_script = 3;
};

/// What would be taken next.
class OneWindow final : public ToldWindows
{
public:
    OneWindow() { take({{u"one"_s, {}}}, u"one"_s); }

private:
    void raise(const QString&) override { }
};

const QString oneWindow
    = uR"({"windows":[{"id":"{a}","desktopFile":"alder","pid":7},4,{}],"active":"{a}"})"_s;

} // namespace

class KdeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder.path())); }

    void theServiceIsAskedAndBelieved_data()
    {
        // Its answer, what comes of it, and still served.
        const Table<QList<int>, QString, bool> row;
        row("as asked", {}, u"PR"_s, true);
        row("as the user has set it", {0x01000030}, u"PR"_s, true);
        row("taken by another", {0}, u"L"_s, false);
    }
    void theServiceIsAskedAndBelieved()
    {
        const auto [answer, told, isServed] = fetch<QList<int>, QString, bool>();
        m_kde.willAnswer(answer);
        ShortcutStory story;
        StepWorkQueue workQueue;
        KdeShortcuts shortcuts(workQueue);
        QVERIFY(shortcuts.bind(chord, story.handlers()) != 0);
        QVERIFY(!shortcuts.serves()); // No chords.
        QCOMPARE(shortcuts.bind(superK, story.handlers()), 0);
        workQueue.runAll();
        QTRY_COMPARE(m_kde.last(u"setShortcut"_s), u"1000004b 2"_s);
        QTRY_COMPARE(shortcuts.serves(), isServed);
        for (const QString& component : {u"another"_s, u"org.tavik.Launcher"_s}) {
            m_kde.tellOfKey(u"globalShortcutPressed"_s, component);
            m_kde.tellOfKey(u"globalShortcutReleased"_s, component);
        }
        QTRY_COMPARE(story.told, told);
        // It has only a moment to answer, which a busy machine may not give it.
        m_kde.willAnswer(isServed ? QList<int>{1} : QList<int>{});
        QTRY_COMPARE(shortcuts.status(superK) == 0, !isServed);
        // What is recorded here later stands above what was chosen there before.
        QCOMPARE(shortcuts.bind(superK, story.handlers()), 0);
        QTRY_COMPARE(m_kde.last(u"setShortcut"_s), u"1000004b 6"_s);
        m_kde.willAnswer({});
        shortcuts.unbind();
        QTRY_COMPARE(m_kde.last(u"setInactive"_s), u"called"_s);
    }

    void onlyKWinsOwnWordsCount()
    {
        VirtualMainQueue mainQueue;
        StepWorkQueue workQueue;
        KWinWindows windows(mainQueue, workQueue);
        workQueue.runAll();
        QTRY_VERIFY(!m_kde.last(u"run"_s).isEmpty());
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
        m_kde.willAnswer({}, takesScripts ? 3 : -1);
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
        QTRY_COMPARE(!m_kde.last(u"run"_s).isEmpty(), takesScripts);
        if (speaks) {
            tell(u"{}"_s);
            QTRY_VERIFY(isTold);
        }
        mainQueue.advance(11);
        QVERIFY(isTold);
        QCOMPARE(windows.windows().size(), speaks ? 0 : 1);
    }

private:
    [[nodiscard]] QDBusMessage words(const QString& told)
    {
        const QString reader = m_kde.last(u"loadScript"_s).section(u'"', 1, 1);
        return QDBusMessage::createMethodCall(reader,
                                              u"/org/tavik/Launcher/Windows"_s,
                                              u"org.tavik.Launcher.Windows"_s,
                                              u"tellWindows"_s)
            << told;
    }
    void tell(const QString& told) { m_kde.send(words(told)); }

    QTemporaryDir m_folder;
    FakeKde m_kde;
};

QTEST_GUILESS_MAIN(KdeTest)
#include "KdeTest.moc"
