// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/PortalShortcuts.h>

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QTest>

#include <Support/FakeBusService.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/ShortcutStory.h>
#include <Support/StepWorkQueue.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

const QString portalName = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString consentKey = u"PortalShortcutsAllowed"_s;
const QString ours = u"summon-100000-40"_s; ///< Of Super and the key of K.

/// How the portal answers.
struct Manner
{
    uint toBind = 0; ///< The response.
    QString has{}; ///< The shortcut that it lists before it is asked.
    bool gives = true; ///< Lists what it was asked for.
    QString refuses{}; ///< A method that ends with an error.
    QString ignores{}; ///< A method that comes to no end.
};

class FakePortal final : public FakeBusService
{
public:
    FakePortal()
        : FakeBusService({})
    { }
    ~FakePortal() override { stop(); }
    void is(bool isThere, const Manner& manner = {})
    {
        onItsThread([&] {
            m_asked.clear();
            m_manner = manner;
            isThere ? m_bus.registerService(portalName) : m_bus.unregisterService(portalName);
        });
    }
    [[nodiscard]] QString asked() { return copyOf(m_asked).join(u' '); }
    /// Of the shortcut with that id, in the session of that path or the last one.
    QDBusMessage signal(const QString& name, const QString& id, const QString& path = {})
    {
        const QDBusObjectPath session(path.isEmpty() ? copyOf(m_session) : path);
        QDBusMessage message = QDBusMessage::createSignal(
            portalPath, u"org.freedesktop.portal.GlobalShortcuts"_s, name);
        message << QVariant::fromValue(session);
        return name == u"ShortcutsChanged" ? message << listOf(id)
                                           : message << id << qulonglong{0} << QVariantMap();
    }
    QDBusMessage closing()
    {
        return QDBusMessage::createSignal(
            copyOf(m_session), u"org.freedesktop.portal.Session"_s, u"Closed"_s);
    }
    /// To what it was asked last.
    QDBusMessage answer(uint response, const QString& listed)
    {
        return QDBusMessage::createSignal(
                   m_request, u"org.freedesktop.portal.Request"_s, u"Response"_s)
            << response << QVariantMap{{u"shortcuts"_s, listOf(listed)}};
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        const QString method = message.member();
        m_asked << method;
        if (method == m_manner.refuses) {
            return bus.send(message.createErrorReply(QDBusError::AccessDenied, u"No."_s));
        }
        if (method == u"Get" || method == u"Close") {
            return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(1U))));
        }
        const auto options = qdbus_cast<QVariantMap>(message.arguments().constLast());
        const auto path = [&](const QString& kind, const QString& option) {
            const QString sender = message.service().mid(1).replace(u'.', u'_');
            return u"%1/%2/%3/%4"_s.arg(portalPath, kind, sender, options[option].toString());
        };
        QString listed = m_manner.has;
        if (method == u"CreateSession") {
            m_session = path(u"session"_s, u"session_handle_token"_s);
        } else if (method == u"BindShortcuts") {
            const auto wanted
                = qdbus_cast<QList<PortalShortcut>>(message.arguments().at(1)).value(0);
            m_asked << wanted.properties[u"preferred_trigger"_s].toString();
            listed = m_manner.gives ? wanted.id : QString();
        }
        m_request = path(u"request"_s, u"handle_token"_s);
        bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(m_request))));
        return method == m_manner.ignores
            || bus.send(answer(method == u"BindShortcuts" ? m_manner.toBind : 0, listed));
    }

private:
    static QVariant listOf(const QString& id)
    {
        return QVariant::fromValue(
            QList<PortalShortcut>{{id, {{u"trigger_description"_s, u"Super+K"_s}}}});
    }

    QStringList m_asked; ///< The methods.
    Manner m_manner;
    QString m_session;
    QString m_request;
};

/// The shortcut of one run of the program, and what it was told of it.
struct Run
{
    explicit Run(MemoryUserDefaults& userDefaults)
        : shortcuts({mainQueue, workQueue, userDefaults})
    {
        workQueue.runAll();
    }
    int bind(const KeyEvents::HotKey& hotKey = superK)
    {
        return shortcuts.bind(hotKey, story.handlers());
    }

    VirtualMainQueue mainQueue;
    StepWorkQueue workQueue;
    PortalShortcuts shortcuts;
    ShortcutStory story;
};

/// Returns when what somebody else has said has been heard.
void lie(const QDBusMessage& message)
{
    auto liar = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"liar"_s);
    liar.send(message);
    const QString bus = u"org.freedesktop.DBus"_s;
    for (const QDBusConnection& each : {liar, QDBusConnection::sessionBus()}) {
        each.call(QDBusMessage::createMethodCall(bus, u"/"_s, bus, u"GetId"_s));
    }
    QCoreApplication::processEvents();
}

} // namespace

class PortalTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_portal.is(false); }

    void theUserIsAskedOnceAndOnlyThePortalIsBelieved()
    {
        m_portal.is(true);
        MemoryUserDefaults userDefaults;
        std::optional<Run> run(std::in_place, userDefaults);
        run->shortcuts.allow(); // Too soon: there may be no portal.
        QVERIFY(userDefaults.values.isEmpty() && run->shortcuts.request().isEmpty());
        QTRY_VERIFY(run->shortcuts.awaitsConsent());
        const QString unasked = run->shortcuts.request();
        QVERIFY(run->bind(chord) != 0);
        QVERIFY(run->bind() != 0);
        QVERIFY(run->shortcuts.request() != unasked); // No word of chords any more.
        QCOMPARE(m_portal.asked(), u"Get"_s);
        run->shortcuts.allow();
        QTRY_VERIFY(run->shortcuts.serves());
        QCOMPARE(m_portal.asked(), u"Get CreateSession ListShortcuts BindShortcuts LOGO+k"_s);
        QCOMPARE(run->bind(), 0);
        QVERIFY(run->shortcuts.means().way.contains(u"Super+K"_s));

        lie(m_portal.signal(u"Activated"_s, ours));
        lie(m_portal.signal(u"ShortcutsChanged"_s, u"another"_s));
        lie(m_portal.closing());
        m_portal.send(m_portal.signal(u"Activated"_s, ours, u"/another"_s));
        m_portal.send(m_portal.signal(u"Activated"_s, u"another"_s));
        m_portal.send(m_portal.signal(u"Activated"_s, ours) << 4);
        m_portal.send(m_portal.signal(u"Activated"_s, ours));
        m_portal.send(m_portal.signal(u"Deactivated"_s, ours));
        QTRY_COMPARE(run->story.told, u"PR"_s);

        run.reset();
        QTRY_VERIFY(m_portal.asked().endsWith(u"Close"_s));
        m_portal.is(true, {.has = ours});
        Run next(userDefaults);
        QVERIFY(next.shortcuts.serves());
        QCOMPARE(next.bind(), 0);
        QTRY_VERIFY(next.shortcuts.means().way.contains(u"Super+K"_s));
        QCOMPARE(m_portal.asked(), u"Get CreateSession ListShortcuts"_s);
        // It ends, and when it is there again it is asked again.
        QTest::ignoreMessage(QtWarningMsg, "The portal for shortcuts has gone");
        m_portal.is(false);
        QTRY_COMPARE(next.mainQueue.pendingTasks(), 1);
        m_portal.is(true, {.has = ours});
        QTRY_COMPARE(m_portal.asked(), u"Get CreateSession ListShortcuts"_s);
        // Other keys are another shortcut, of another session.
        QCOMPARE(next.bind({quint16{37}, ModifierFlags::all, u"L"_s}), 0);
        QTRY_VERIFY(m_portal.asked().endsWith(
            u"Close CreateSession ListShortcuts BindShortcuts CTRL+ALT+SHIFT+LOGO+l"_s));
    }

    void whatIsNotGivenOrTakenBackIsTold_data()
    {
        // How it answers, what happens then, and whether the next start asks again.
        const Table<Manner, QString, bool> row;
        row("there is none", {.refuses = u"Get"_s}, {}, false);
        row("the user says no", {.toBind = 1}, {}, false);
        row("the user leaves it out", {.gives = false}, {}, false);
        row("it fails", {.toBind = 2}, {}, true);
        row("it knows no such program", {.refuses = u"CreateSession"_s}, {}, true);
        row("it says nothing, and another lies", {.ignores = u"ListShortcuts"_s}, u"time"_s, true);
        row("its session is closed", {.has = ours}, u"Closed"_s, true);
        row("others get the keys", {.has = ours}, u"ShortcutsChanged"_s, true);
    }
    void whatIsNotGivenOrTakenBackIsTold()
    {
        const auto [manner, happens, isKept] = fetch<Manner, QString, bool>();
        m_portal.is(true, manner);
        MemoryUserDefaults userDefaults;
        userDefaults.values.insert(consentKey, true);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^The portal gives no.*"_s));
        Run run(userDefaults);
        QCOMPARE(run.bind(), 0);
        QVERIFY(run.shortcuts.serves());
        if (!happens.isEmpty()) {
            QTRY_COMPARE(m_portal.asked(), u"Get CreateSession ListShortcuts"_s);
            lie(m_portal.answer(0, ours));
            QTRY_COMPARE(run.shortcuts.means().way.contains(u"Super+K"_s), !manner.has.isEmpty());
        }
        if (happens == u"time") {
            run.mainQueue.advance(11);
        } else if (happens == u"Closed") {
            m_portal.send(m_portal.closing());
        } else if (!happens.isEmpty()) {
            m_portal.send(m_portal.signal(happens, u"another"_s));
        }
        QTRY_COMPARE(run.story.told, u"L"_s);
        QVERIFY(!run.shortcuts.serves() && run.bind() != 0);
        QCOMPARE(userDefaults.values.contains(consentKey), isKept);
        QTRY_COMPARE(run.shortcuts.awaitsConsent(), run.shortcuts.isThere());
        QCOMPARE(run.shortcuts.hearsChords(), !run.shortcuts.isThere());
        if (run.shortcuts.isThere()) {
            m_portal.is(true);
            run.shortcuts.allow();
            QTRY_VERIFY(run.shortcuts.serves());
        }
    }

private:
    FakePortal m_portal;
};

QTEST_GUILESS_MAIN(PortalTest)
#include "PortalTest.moc"
