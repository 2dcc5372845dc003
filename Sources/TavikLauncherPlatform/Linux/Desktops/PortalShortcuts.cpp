// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/KeyNames.h>
#include <TavikLauncherPlatform/Linux/Desktops/PortalShortcuts.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>
#include <TavikLauncherPlatform/Texts.h>
#include <TavikLauncherPlatform/UserDefaults.h>

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.desktops")

const QString service = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString interfaceName = u"org.freedesktop.portal.GlobalShortcuts"_s;
const QString sessionInterface = u"org.freedesktop.portal.Session"_s;
/// The same at each start: some portals know by it what they gave to a program without a name.
const QString sessionToken = u"tavik_launcher"_s;
/// In the user defaults.
const QString consentKey = u"PortalShortcutsAllowed"_s;
constexpr double longestAnswerSeconds = 10;
constexpr double restartSeconds = 1;
constexpr int mostRestarts = 3;
constexpr qsizetype longestDescription = 40; // Of what people read.

/// What the portal says of the keys of one shortcut; absent where it does not list it.
std::optional<QString> descriptionIn(const QVariant& list, const QString& id)
{
    if (list.userType() != qMetaTypeId<QDBusArgument>()
        || list.value<QDBusArgument>().currentSignature() != u"a(sa{sv})") {
        return std::nullopt;
    }
    const auto shortcuts = qdbus_cast<QList<PortalShortcut>>(list);
    const auto found = std::ranges::find(shortcuts, id, &PortalShortcut::id);
    return found == shortcuts.end()
        ? std::nullopt
        : std::optional(found->properties.value(u"trigger_description"_s).toString());
}

/// In the words of the portal, which knows no chord; empty for a key that it has no name for.
QString keysOf(const KeyEvents::HotKey& hotKey)
{
    const std::optional<QString> key = KeyNames::symbolName(*hotKey.keyCode, hotKey.label);
    const auto held = [&hotKey](quint64 flag, QLatin1String name) {
        return (hotKey.modifierFlags & flag) != 0 ? QString(name) : QString();
    };
    return key ? held(ModifierFlags::control, QLatin1String("CTRL+"))
            + held(ModifierFlags::option, QLatin1String("ALT+"))
            + held(ModifierFlags::shift, QLatin1String("SHIFT+"))
            + held(ModifierFlags::command, QLatin1String("LOGO+")) + *key
               : QString();
}

} // namespace

PortalShortcuts::PortalShortcuts(const Dependencies& dependencies)
    : m_dependencies(dependencies)
    , m_isExpected(SessionBus::isOffered() && isAllowed())
{
    SessionBus::open(
        dependencies.workQueue, this, [this](const QDBusConnection& bus) { opened(bus); });
}

PortalShortcuts::~PortalShortcuts()
{
    endSession();
}

bool PortalShortcuts::isAllowed() const
{
    return m_dependencies.userDefaults.boolValue(consentKey).value_or(false);
}

bool PortalShortcuts::serves() const
{
    return m_phase == Phase::bound || m_isExpected;
}

bool PortalShortcuts::awaitsConsent() const
{
    return m_isOffered && !serves() && m_phase == Phase::idle;
}

Means PortalShortcuts::means() const
{
    return {.way = m_description.isEmpty()
                ? Texts::tr("A global shortcut that the desktop gives.")
                : Texts::tr("A global shortcut that the desktop gives: %1.").arg(m_description)};
}

QString PortalShortcuts::request() const
{
    if (!m_isOffered) {
        return {};
    }
    if (m_hasFailed) {
        return Texts::tr("The desktop was asked for a shortcut and has given none. Check My "
                         "Desktop in the settings can ask again.");
    }
    const QString ask
        = Texts::tr("This desktop gives a program a shortcut after it has asked you.");
    return m_wanted ? ask
                    : ask + u' '
            + Texts::tr("It knows none of modifiers alone, so the same modifiers with Space are "
                        "proposed.");
}

void PortalShortcuts::opened(const QDBusConnection& bus)
{
    m_bus = bus;
    m_calls.emplace(bus);
    // Without a service name, as the toolkit would wait for it; without a path, as portals differ.
    for (const auto& [signal, slot] :
         {std::pair(u"Activated"_s, SLOT(activated(QDBusMessage))),
          std::pair(u"Deactivated"_s, SLOT(deactivated(QDBusMessage))),
          std::pair(u"ShortcutsChanged"_s, SLOT(changed(QDBusMessage)))}) {
        m_bus->connect({}, {}, interfaceName, signal, this, slot);
    }
    m_bus->connect({}, session(), sessionInterface, u"Closed"_s, this, SLOT(closed(QDBusMessage)));
    auto* watcher
        = new QDBusServiceWatcher(service, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher,
            &QDBusServiceWatcher::serviceOwnerChanged,
            this,
            [this](const QString&, const QString&, const QString& owner) { ownerChanged(owner); });
    lookForPortal();
}

void PortalShortcuts::ownerChanged(const QString& owner)
{
    if (owner == m_calls->portal) {
        return;
    }
    const bool hadSession = std::exchange(m_phase, Phase::idle) != Phase::idle;
    m_calls->forget();
    m_calls->portal.clear();
    if (hadSession) {
        qCWarning(log, "The portal for shortcuts has gone");
    }
    if (!owner.isEmpty()) {
        lookForPortal();
    } else if (hadSession && m_restarts++ < mostRestarts) {
        // To be asked starts it.
        m_restart = m_dependencies.mainQueue.after(restartSeconds, [this] { lookForPortal(); });
    } else if (hadSession) {
        fail(QLatin1String("it goes again and again"));
    }
}

void PortalShortcuts::lookForPortal()
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        service, portalPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    message << interfaceName << u"version"_s;
    auto* watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        m_isOffered = !watcher->isError();
        m_calls->portal = m_isOffered ? watcher->reply().service() : QString();
        if (m_isOffered) {
            beginSession();
        } else if (m_isExpected) {
            m_dependencies.userDefaults.setObject(consentKey, {}); // It was another desktop's.
            fail(watcher->error().message());
        }
    });
}

int PortalShortcuts::bind(const KeyEvents::HotKey& hotKey, Handlers handlers)
{
    unbind();
    const int fault = status(hotKey);
    const std::optional<Wanted> before = m_wanted;
    if (fault != 0) {
        m_wanted.reset();
    } else {
        m_wanted = {u"summon-%1-%2"_s.arg(hotKey.modifierFlags, 0, 16).arg(*hotKey.keyCode),
                    keysOf(hotKey)};
    }
    if (m_wanted != before) {
        m_hasFailed = false;
        endSession();
    }
    if (!m_wanted || !isAllowed() || m_hasFailed) {
        return m_wanted ? statusGone : fault;
    }
    m_handlers = std::move(handlers);
    beginSession();
    return 0;
}

int PortalShortcuts::status(const KeyEvents::HotKey& hotKey)
{
    return hotKey.keyCode ? 0 : statusNoSuchKey;
}

void PortalShortcuts::allow()
{
    if (!m_isOffered) {
        return;
    }
    m_dependencies.userDefaults.setObject(consentKey, true);
    m_hasFailed = false;
    beginSession();
}

QString PortalShortcuts::session() const
{
    return m_calls->pathOf(u"session"_s, sessionToken);
}

void PortalShortcuts::beginSession()
{
    if (!m_isOffered || !m_wanted || m_phase != Phase::idle || !isAllowed() || m_hasFailed) {
        return;
    }
    m_phase = Phase::beginning;
    m_patience = m_dependencies.mainQueue.after(longestAnswerSeconds, [this] {
        m_isExpected = false; // The user may be asked, and take their time.
        if (m_phase == Phase::beginning) {
            fail(QLatin1String("it does not answer"));
        }
    });
    // The first portals took the shortcuts with the session; later ones overlook them there.
    m_calls->ask(interfaceName,
                 u"CreateSession"_s,
                 {},
                 {{u"session_handle_token"_s, sessionToken}, {u"shortcuts"_s, wantedList()}},
                 [this](const PortalCalls::Answer& answer) {
                     if (answer.outcome == PortalCalls::Outcome::done) {
                         lookForShortcut();
                     } else {
                         fail(answer.error);
                     }
                 });
}

QVariant PortalShortcuts::wantedList() const
{
    QVariantMap properties{{u"description"_s, Texts::tr("Summon the ring")}};
    if (!m_wanted->keys.isEmpty()) {
        properties.insert(u"preferred_trigger"_s, m_wanted->keys);
    }
    return QVariant::fromValue(QList<PortalShortcut>{{m_wanted->id, properties}});
}

void PortalShortcuts::lookForShortcut()
{
    m_calls->ask(interfaceName,
                 u"ListShortcuts"_s,
                 {QVariant::fromValue(QDBusObjectPath(session()))},
                 {},
                 [this](const PortalCalls::Answer& answer) {
                     const auto had = descriptionIn(answer.results[u"shortcuts"_s], m_wanted->id);
                     if (answer.outcome == PortalCalls::Outcome::done && had) {
                         bound(*had);
                     } else {
                         askForShortcut();
                     }
                 });
}

void PortalShortcuts::askForShortcut()
{
    m_phase = Phase::asking;
    const auto answered = [this](const PortalCalls::Answer& answer) {
        const auto given = descriptionIn(answer.results[u"shortcuts"_s], m_wanted->id);
        if (answer.outcome == PortalCalls::Outcome::done && given) {
            bound(*given);
            return;
        }
        if (answer.outcome != PortalCalls::Outcome::failed) {
            // Who has said no is not asked at the next start.
            m_dependencies.userDefaults.setObject(consentKey, {});
        }
        fail(answer.error);
    };
    constexpr const char* noWindow = "";
    m_calls->ask(interfaceName,
                 u"BindShortcuts"_s,
                 {QVariant::fromValue(QDBusObjectPath(session())),
                  wantedList(),
                  QString::fromLatin1(noWindow)},
                 {},
                 answered);
}

void PortalShortcuts::endSession()
{
    if (m_phase == Phase::idle || m_phase == Phase::ending) {
        return;
    }
    m_phase = Phase::ending;
    m_patience.cancel();
    m_calls->forget();
    const QDBusMessage message
        = QDBusMessage::createMethodCall(service, session(), sessionInterface, u"Close"_s);
    auto* watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        // The next one has the same name.
        if (m_phase == Phase::ending) {
            m_phase = Phase::idle;
            beginSession();
        }
    });
}

void PortalShortcuts::bound(const QString& description)
{
    m_phase = Phase::bound;
    m_description = description.simplified().left(longestDescription);
    m_patience.cancel();
    m_restarts = 0;
    m_isExpected = true;
}

void PortalShortcuts::fail(const QString& reason)
{
    qCWarning(log, "The portal gives no shortcut: %ls", qUtf16Printable(reason.left(80)));
    endSession();
    m_isExpected = false;
    m_hasFailed = true;
    if (const Handlers handlers = std::exchange(m_handlers, {}); handlers.lost) {
        handlers.lost(statusGone);
    }
}

bool PortalShortcuts::isOurs(const QDBusMessage& message) const
{
    const QVariantList told = message.arguments();
    return m_phase == Phase::bound && message.service() == m_calls->portal
        && message.signature() == u"osta{sv}"
        && told.value(0).value<QDBusObjectPath>().path() == session()
        && told.value(1).toString() == m_wanted->id;
}

void PortalShortcuts::activated(const QDBusMessage& message)
{
    if (const auto tell = m_handlers.pressed; isOurs(message) && tell) {
        tell();
    }
}

void PortalShortcuts::deactivated(const QDBusMessage& message)
{
    if (const auto tell = m_handlers.released; isOurs(message) && tell) {
        tell();
    }
}

void PortalShortcuts::changed(const QDBusMessage& message)
{
    const QVariantList told = message.arguments();
    if (m_phase != Phase::bound || message.service() != m_calls->portal
        || message.signature() != u"oa(sa{sv})"
        || told.value(0).value<QDBusObjectPath>().path() != session()) {
        return;
    }
    if (const auto description = descriptionIn(told.value(1), m_wanted->id)) {
        bound(*description);
    } else {
        fail(QLatin1String("it has been taken back"));
    }
}

void PortalShortcuts::closed(const QDBusMessage& message)
{
    const bool isOpen = m_phase != Phase::idle && m_phase != Phase::ending;
    if (isOpen && message.service() == m_calls->portal) {
        m_phase = Phase::idle;
        m_calls->forget();
        fail(QLatin1String("its session has been closed"));
    }
}

} // namespace Tavik
