// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>
#include <TavikLauncherPlatform/Linux/Session/SessionLockMonitor.h>

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QLoggingCategory>

#include <array>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.session")

/// A screen saver's name on the bus is also that of its interface.
struct ScreenSaver
{
    QLatin1String name;
    QLatin1String path;
};

constexpr std::array screenSavers{
    ScreenSaver{QLatin1String("org.freedesktop.ScreenSaver"),
                QLatin1String("/org/freedesktop/ScreenSaver")},
    ScreenSaver{QLatin1String("org.gnome.ScreenSaver"), QLatin1String("/org/gnome/ScreenSaver")},
    ScreenSaver{QLatin1String("org.cinnamon.ScreenSaver"),
                QLatin1String("/org/cinnamon/ScreenSaver")},
    ScreenSaver{QLatin1String("org.mate.ScreenSaver"), QLatin1String("/org/mate/ScreenSaver")},
    ScreenSaver{QLatin1String("org.xfce.ScreenSaver"), QLatin1String("/org/xfce/ScreenSaver")},
};

constexpr QLatin1String loginManager("org.freedesktop.login1");
constexpr QLatin1String loginSession("org.freedesktop.login1.Session");
constexpr QLatin1String properties("org.freedesktop.DBus.Properties");
/// The login manager's word for the caller's session, or else for the one that the user sees.
const QString& ownSession()
{
    static const QString id = u"auto"_s;
    return id;
}

/// Calls without starting what does not run, and hands over the answer unless `context` has gone.
void ask(const QDBusConnection& bus,
         QDBusMessage call,
         QObject* context,
         std::function<void(const QDBusMessage&)> answered)
{
    call.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), context);
    QObject::connect(watcher,
                     &QDBusPendingCallWatcher::finished,
                     context,
                     [watcher, answered = std::move(answered)] {
                         watcher->deleteLater();
                         answered(watcher->reply());
                     });
}

} // namespace

SessionLockMonitor::SessionLockMonitor(WorkQueue& workQueue, std::function<bool()> isInputTaken)
    : m_isInputTaken(std::move(isInputTaken))
{
    m_senders.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&m_senders,
            &QDBusServiceWatcher::serviceUnregistered,
            this,
            [this](const QString& sender) { setScreenSaverActive(sender, false); });
    SessionBus::open(
        workQueue, this, [this](const QDBusConnection& bus) { followScreenSavers(bus); });
    SessionBus::openSystemBus(workQueue, this, [this](const QDBusConnection& bus) {
        const QString id = qEnvironmentVariable("XDG_SESSION_ID");
        followLoginSession(bus, id.isEmpty() ? ownSession() : id);
    });
}

bool SessionLockMonitor::isLocked() const
{
    return m_lockedHint || !m_activeScreenSavers.isEmpty();
}

void SessionLockMonitor::followScreenSavers(const QDBusConnection& bus)
{
    QDBusConnection connection = bus;
    m_senders.setConnection(connection);
    for (const auto& [name, path] : screenSavers) {
        // No service name in the match: with one the toolkit would wait for the bus to name its
        // owner. No path either, as some desktops use a shorter one.
        connection.connect(QString(),
                           QString(),
                           name,
                           u"ActiveChanged"_s,
                           this,
                           SLOT(screenSaverChanged(bool, QDBusMessage)));
        QDBusMessage call = QDBusMessage::createMethodCall(name, path, name, u"GetActive"_s);
        call.setAutoStartService(false);
        // A slot is called in the order in which the bus speaks; a pending call may be told of
        // after a later change.
        connection.callWithCallback(call, this, SLOT(screenSaverChanged(bool, QDBusMessage)));
    }
}

void SessionLockMonitor::screenSaverChanged(bool isActive, const QDBusMessage& message)
{
    setScreenSaverActive(message.service(), isActive);
}

void SessionLockMonitor::setScreenSaverActive(const QString& sender, bool isActive)
{
    if (!isActive) {
        m_senders.removeWatchedService(sender);
        change([&] { m_activeScreenSavers.remove(sender); });
        return;
    }
    if (m_activeScreenSavers.contains(sender)) {
        return;
    }
    change([&] { m_activeScreenSavers.insert(sender); });
    // What one has said counts for as long as it is there to take it back. It may have gone before
    // it could be watched.
    m_senders.addWatchedService(sender);
    QDBusMessage call = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s, u"NameHasOwner"_s);
    call.setArguments({sender});
    ask(m_senders.connection(), call, this, [this, sender](const QDBusMessage& reply) {
        const QDBusPendingReply<bool> isThere = QDBusPendingReply<bool>(reply);
        if (isThere.isValid() && !isThere.value()) {
            setScreenSaverActive(sender, false);
        }
    });
}

void SessionLockMonitor::followLoginSession(const QDBusConnection& bus, const QString& id)
{
    QDBusMessage call = QDBusMessage::createMethodCall(loginManager,
                                                       u"/org/freedesktop/login1"_s,
                                                       u"org.freedesktop.login1.Manager"_s,
                                                       u"GetSession"_s);
    call.setArguments({id});
    ask(bus, call, this, [this, bus, id](const QDBusMessage& reply) {
        const QDBusPendingReply<QDBusObjectPath> session(reply);
        if (session.isValid()) {
            const QString path = session.value().path();
            QDBusConnection(bus).connect(QString(),
                                         path,
                                         properties,
                                         u"PropertiesChanged"_s,
                                         {QString(loginSession)},
                                         QString(),
                                         this,
                                         SLOT(sessionChanged(QDBusMessage)));
            askLockedHint(bus, path);
        } else if (id != ownSession()) {
            followLoginSession(bus, ownSession());
        }
    });
}

void SessionLockMonitor::sessionChanged(const QDBusMessage& message)
{
    // Anybody may send such a signal on this bus, so it only gives cause to ask.
    askLockedHint(QDBusConnection::systemBus(), message.path());
}

void SessionLockMonitor::askLockedHint(const QDBusConnection& bus, const QString& path)
{
    QDBusMessage call = QDBusMessage::createMethodCall(loginManager, path, properties, u"Get"_s);
    call.setArguments({QString(loginSession), u"LockedHint"_s});
    ask(bus, call, this, [this](const QDBusMessage& reply) {
        const QDBusPendingReply<QDBusVariant> hint(reply);
        if (hint.isValid()) {
            change([&] { m_lockedHint = hint.value().variant().toBool(); });
        }
    });
}

void SessionLockMonitor::change(const std::function<void()>& step)
{
    const bool wasLocked = isLocked();
    step();
    if (isLocked() == wasLocked) {
        return;
    }
    // For whoever wonders why no ring comes.
    qCInfo(log,
           "The session is %s; login manager: %s, screen savers: %d",
           wasLocked ? "open again" : "locked",
           m_lockedHint ? "locked" : "open",
           static_cast<int>(m_activeScreenSavers.size()));
    if (!wasLocked && onLocked) {
        onLocked();
    }
}

} // namespace Tavik
