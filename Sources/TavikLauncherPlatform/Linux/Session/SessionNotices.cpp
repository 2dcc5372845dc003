// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>
#include <TavikLauncherPlatform/Linux/Session/SessionNotices.h>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
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

} // namespace

SessionNotices::SessionNotices(WorkQueue& workQueue)
    : m_workQueue(workQueue)
{ }

SessionNotices::~SessionNotices()
{
    close(); // Nobody would be there to answer.
}

void SessionNotices::show(const QString& text, std::function<void()> chosen)
{
    m_text = text;
    m_chosen = std::move(chosen);
    if (m_bus) {
        send();
        return;
    }
    SessionBus::open(m_workQueue, this, [this](const QDBusConnection& bus) {
        listen(bus);
        if (!m_text.isEmpty()) {
            send();
        }
    });
}

void SessionNotices::listen(const QDBusConnection& bus)
{
    if (m_bus) {
        return;
    }
    m_bus = bus;
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

void SessionNotices::send()
{
    QDBusMessage message
        = QDBusMessage::createMethodCall(service, path, interfaceName, u"Notify"_s);
    // The text is the summary, because a body may be read as markup.
    message.setArguments({u"Tavik Launcher"_s,
                          m_shown,
                          applicationId,
                          m_text,
                          QString(),
                          QStringList{defaultAction, m_text},
                          QVariantMap{{u"desktop-entry"_s, applicationId}},
                          asLongAsUsual});
    auto* watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<uint> reply = *watcher;
        if (reply.isError()) {
            qCWarning(
                log, "The desktop shows no notices: %ls", qUtf16Printable(reply.error().message()));
            return;
        }
        m_shown = reply.value();
        if (m_text.isEmpty()) {
            close();
        }
    });
}

void SessionNotices::withdraw()
{
    m_text.clear();
    m_chosen = {};
    close();
}

void SessionNotices::close()
{
    if (const uint shown = std::exchange(m_shown, 0); shown != 0) {
        QDBusMessage message
            = QDBusMessage::createMethodCall(service, path, interfaceName, u"CloseNotification"_s);
        message.setArguments({shown});
        m_bus->send(message);
    }
}

void SessionNotices::actionInvoked(uint id, const QString& action)
{
    if (id != 0 && id == m_shown && action == defaultAction) {
        // Copied, because whoever is told may withdraw the notice.
        if (const auto chosen = m_chosen) {
            chosen();
        }
    }
}

void SessionNotices::notificationClosed(uint id, uint)
{
    if (id == m_shown) {
        m_shown = 0;
    }
}

} // namespace Tavik
