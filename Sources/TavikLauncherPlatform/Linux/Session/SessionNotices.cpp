// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>
#include <TavikLauncherPlatform/Linux/Session/SessionNotices.h>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QLoggingCategory>
#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(log, "tavik.platform.session")

const QString service = u"org.freedesktop.Notifications"_s;
const QString path = u"/org/freedesktop/Notifications"_s;
const QString interfaceName = service;
/// What a click on the notice itself is called.
const QString defaultAction = u"default"_s;
const QString applicationId = u"org.tavik.Launcher"_s;
constexpr int asLongAsUsual = -1;
constexpr int untilItIsClosed = 0;

} // namespace

SessionNotices::SessionNotices(WorkQueue& workQueue)
    : m_workQueue(workQueue)
{ }

SessionNotices::~SessionNotices()
{
    for (auto& [subject, place] : m_places) {
        close(place); // Nobody would be there to answer.
    }
}

void SessionNotices::show(Subject subject, const Notice& notice)
{
    Place& place = m_places[subject];
    place.wanted = notice;
    if (m_bus) {
        send(place);
        return;
    }
    SessionBus::open(m_workQueue, this, [this, &place](const QDBusConnection& bus) {
        listen(bus);
        send(place);
    });
}

void SessionNotices::listen(const QDBusConnection& bus)
{
    if (m_bus) {
        return;
    }
    m_bus = bus;
    auto* desktop
        = new QDBusServiceWatcher(service, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(
        desktop, &QDBusServiceWatcher::serviceOwnerChanged, this, &SessionNotices::desktopChanged);
    // No service name in the match: with one the toolkit would wait for the bus to name its owner.
    m_bus->connect(QString(),
                   path,
                   interfaceName,
                   u"ActionInvoked"_s,
                   this,
                   SLOT(actionInvoked(uint, QString)));
    m_bus->connect(QString(),
                   path,
                   interfaceName,
                   u"NotificationClosed"_s,
                   this,
                   SLOT(notificationClosed(uint, uint)));
}

void SessionNotices::send(Place& place)
{
    // Only the number in the answer lets another notice take its place.
    if (place.isAwaited || !place.wanted) {
        return;
    }
    const QString title = place.wanted->title;
    const QString text = place.wanted->text;
    QDBusMessage message
        = QDBusMessage::createMethodCall(service, path, interfaceName, u"Notify"_s);
    message.setArguments({u"Tavik Launcher"_s,
                          place.shown,
                          applicationId,
                          title,
                          text,
                          QStringList{defaultAction, title},
                          QVariantMap{{u"desktop-entry"_s, applicationId}},
                          place.wanted->stays ? untilItIsClosed : asLongAsUsual});
    place.isAwaited = true;
    auto* watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [=, this, &place] {
        watcher->deleteLater();
        const QDBusPendingReply<uint> reply = *watcher;
        place.isAwaited = false;
        const bool isLost = std::exchange(place.isLost, false);
        if (reply.isError()) {
            place.shown = 0;
            qCWarning(
                log, "The desktop shows no notices: %ls", qUtf16Printable(reply.error().message()));
        } else if (!isLost) {
            place.shown = reply.value();
        }
        if (!place.wanted) {
            close(place);
        } else if (isLost || place.wanted->title != title || place.wanted->text != text) {
            send(place);
        }
    });
}

void SessionNotices::withdraw(Subject subject)
{
    Place& place = m_places[subject];
    place.wanted.reset();
    if (!place.isAwaited) {
        close(place);
    }
}

void SessionNotices::close(Place& place)
{
    if (const uint shown = std::exchange(place.shown, 0); shown != 0) {
        QDBusMessage message
            = QDBusMessage::createMethodCall(service, path, interfaceName, u"CloseNotification"_s);
        message.setArguments({shown});
        m_bus->send(message);
    }
}

/// Whoever shows notices from now on has none of ours, and gives our numbers to others.
void SessionNotices::desktopChanged(const QString&, const QString& before, const QString& now)
{
    for (auto& [subject, place] : m_places) {
        place.shown = 0;
        place.isLost |= place.isAwaited && !before.isEmpty();
        if (!now.isEmpty()) {
            send(place);
        }
    }
}

void SessionNotices::actionInvoked(uint id, const QString& action)
{
    for (const auto& [subject, place] : m_places) {
        if (id != 0 && id == place.shown && action == defaultAction && place.wanted) {
            // Copied, because whoever is told may withdraw the notice.
            if (const auto chosen = place.wanted->chosen) {
                chosen();
            }
            return;
        }
    }
}

void SessionNotices::notificationClosed(uint id, uint)
{
    for (auto& [subject, place] : m_places) {
        if (id != 0 && id == place.shown) {
            place.shown = 0;
            if (!place.isAwaited) {
                place.wanted.reset();
            }
        }
    }
}

} // namespace Tavik
