// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/SessionNotices.h>

#include <QTest>

#include <Support/FakeBusService.h>
#include <Support/StepWorkQueue.h>
#include <Support/Table.h>
#include <utility>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using enum Notices::Subject;

namespace {

const QString notificationsName = u"org.freedesktop.Notifications"_s;
const QString notificationsPath = u"/org/freedesktop/Notifications"_s;

/// Answers as the specification of notices has it, and may take its time over that.
class FakeNoticeDaemon final : public FakeBusService
{
public:
    FakeNoticeDaemon()
        : FakeBusService({notificationsName})
    { }
    ~FakeNoticeDaemon() override { stop(); }
    void holdAnswers(bool holds)
    {
        onItsThread([&] {
            m_holds = holds;
            for (const QDBusMessage& answer : std::exchange(m_held, {})) {
                m_bus.send(answer);
            }
        });
    }
    void startAnew()
    {
        onItsThread([&] {
            m_bus.unregisterService(notificationsName);
            m_shown.clear();
            m_lastId = 0;
            m_bus.registerService(notificationsName);
        });
    }
    void closeByUser(const QString& text)
    {
        const uint id = copyOf(m_shown).key(text);
        onItsThread([&] { m_shown.remove(id); });
        send(QDBusMessage::createSignal(
                 notificationsPath, notificationsName, u"NotificationClosed"_s)
             << id << 2U);
    }
    [[nodiscard]] int heldAnswers() { return int(copyOf(m_held).size()); }
    /// The texts that are shown, oldest first.
    [[nodiscard]] QStringList shown() { return copyOf(m_shown).values(); }
    void choose(const QString& text)
    {
        send(QDBusMessage::createSignal(notificationsPath, notificationsName, u"ActionInvoked"_s)
             << copyOf(m_shown).key(text) << u"default"_s);
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        const QVariantList arguments = message.arguments();
        if (message.member() == u"CloseNotification") {
            m_shown.remove(arguments.at(0).toUInt());
        }
        if (message.member() != u"Notify") {
            return bus.send(message.createReply());
        }
        const uint replaced = arguments.at(1).toUInt();
        const uint id = replaced != 0 ? replaced : ++m_lastId;
        m_shown[id] = arguments.at(3).toString() + arguments.at(4).toString();
        const QDBusMessage answer = message.createReply(id);
        if (m_holds) {
            m_held << answer;
            return true;
        }
        return bus.send(answer);
    }

private:
    uint m_lastId = 0;
    QMap<uint, QString> m_shown;
    bool m_holds = false;
    QList<QDBusMessage> m_held;
};

/// Until the daemon has been asked all, and what it has answered has been heard.
void settle()
{
    QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
        notificationsName, notificationsPath, notificationsName, u"GetCapabilities"_s));
    for (int turn = 0; turn < 2; ++turn) { // The toolkit may pass an answer on twice.
        QCoreApplication::processEvents();
    }
}

} // namespace

class SessionNoticesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNoticeTakesTheOldOnesPlaceHoweverLateTheDesktopAnswers_data()
    {
        // What is asked for, update or shortcut by its first letter and "" to withdraw it.
        const Table<QStringList, QStringList> row;
        row("another follows", {u"u1"_s, u"u2"_s}, {u"u2"_s});
        row("two follow", {u"u1"_s, u"u2"_s, u"u3"_s}, {u"u3"_s});
        row("withdrawn", {u"u1"_s, u"u"_s}, {});
        row("withdrawn and another", {u"u1"_s, u"u"_s, u"u2"_s}, {u"u2"_s});
        row("of two subjects", {u"u1"_s, u"s1"_s, u"u2"_s}, {u"u2"_s, u"s1"_s});
        row("one of two withdrawn", {u"u1"_s, u"s1"_s, u"s"_s}, {u"u1"_s});
    }
    void aNoticeTakesTheOldOnesPlaceHoweverLateTheDesktopAnswers()
    {
        const auto [asked, expected] = fetch<QStringList, QStringList>();
        for (const bool isFirst : {true, false}) { // The bus has yet to be opened; or is open.
            StepWorkQueue workQueue;
            QStringList chosen;
            SessionNotices notices(workQueue);
            const auto ask = [&](const QString& title) {
                const auto subject = title.startsWith(u's') ? shortcut : update;
                if (title.size() > 1) {
                    notices.show(subject, {.title = title, .chosen = [&, title] {
                                               chosen << title;
                                           }});
                } else {
                    notices.withdraw(subject);
                }
                workQueue.runAll();
            };
            if (!isFirst) {
                ask(u"u0"_s);
                QTRY_COMPARE(m_daemon.shown(), QStringList{u"u0"_s});
                settle();
            }
            m_daemon.holdAnswers(true);
            for (const QString& title : asked) {
                ask(title);
            }
            settle();
            QVERIFY(m_daemon.heldAnswers() > 0);
            m_daemon.holdAnswers(false);
            QTRY_COMPARE(m_daemon.shown(), expected);
            settle();
            for (const QString& title : expected) {
                m_daemon.choose(title);
            }
            QTRY_COMPARE(chosen, expected);
        }
    }

    void whoeverShowsNoticesNextIsAskedAgainButNotForWhatTheUserHasClosed()
    {
        StepWorkQueue workQueue;
        int chosen = 0;
        SessionNotices notices(workQueue);
        notices.show(update, {.title = u"u"_s, .chosen = [&chosen] {
                                  ++chosen;
                              }});
        workQueue.runAll();
        notices.show(shortcut, {.title = u"s"_s});
        const QStringList both{u"u"_s, u"s"_s};
        QTRY_COMPARE(m_daemon.shown(), both);
        settle();
        m_daemon.closeByUser(u"s"_s);
        settle();
        m_daemon.startAnew();
        QTRY_COMPARE(m_daemon.shown(), QStringList{u"u"_s});
        settle();
        m_daemon.holdAnswers(true);
        notices.show(update, {.title = u"u2"_s});
        QTRY_COMPARE(m_daemon.heldAnswers(), 1);
        m_daemon.startAnew();
        m_daemon.holdAnswers(false); // The answer of the one that has gone.
        QTRY_COMPARE(m_daemon.shown(), QStringList{u"u2"_s});
        settle();
        notices.withdraw(update);
        QTRY_COMPARE(m_daemon.shown(), QStringList());
        QCOMPARE(chosen, 0);
    }

    void whatIsShownGoesWithUs()
    {
        StepWorkQueue workQueue;
        {
            SessionNotices notices(workQueue);
            notices.show(update, {.title = u"first"_s});
            workQueue.runAll();
            notices.show(shortcut, {.title = u"second"_s, .text = u", more"_s});
            const QStringList both{u"first"_s, u"second, more"_s};
            QTRY_COMPARE(m_daemon.shown(), both);
            settle();
        }
        QTRY_COMPARE(m_daemon.shown(), QStringList());
    }

private:
    FakeNoticeDaemon m_daemon;
};

QTEST_GUILESS_MAIN(SessionNoticesTest)
#include "SessionNoticesTest.moc"
