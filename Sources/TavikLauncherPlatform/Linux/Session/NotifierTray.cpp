// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/NotifierTray.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <utility>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

constexpr QLatin1String service("org.kde.StatusNotifierWatcher");
constexpr QLatin1String path("/StatusNotifierWatcher");
constexpr QLatin1String interface("org.kde.StatusNotifierWatcher");

} // namespace

NotifierTray::NotifierTray(WorkQueue& workQueue)
{
    SessionBus::open(workQueue, this, [this](const QDBusConnection& bus) { listen(bus); });
}

NotifierTray::~NotifierTray() = default;

void NotifierTray::listen(const QDBusConnection& bus)
{
    m_bus = bus;
    m_owner = std::make_unique<QDBusServiceWatcher>(
        service, bus, QDBusServiceWatcher::WatchForOwnerChange);
    connect(m_owner.get(), &QDBusServiceWatcher::serviceOwnerChanged, this, &NotifierTray::ask);
    // No service name in the match: with one the toolkit would wait for the bus to name its owner.
    for (const QString& signal :
         {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s}) {
        m_bus->connect(QString(), path, interface, signal, this, SLOT(ask()));
    }
    ask();
}

void NotifierTray::ask()
{
    // Whoever floods the bus gets one question under way and one to follow.
    if (m_question) {
        m_asksAgain = true;
        return;
    }
    m_asksAgain = false;
    QDBusMessage call = QDBusMessage::createMethodCall(
        service, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call.setArguments({QString(interface), u"IsStatusNotifierHostRegistered"_s});
    call.setAutoStartService(false);
    m_question = std::make_unique<QDBusPendingCallWatcher>(m_bus->asyncCall(call));
    connect(m_question.get(), &QDBusPendingCallWatcher::finished, this, [this] {
        const QDBusPendingReply<QDBusVariant> reply = *m_question;
        const QVariant value = reply.isValid() ? reply.value().variant() : QVariant();
        // It is the sender of the signal that is being delivered.
        m_question.release()->deleteLater();
        if (m_asksAgain) {
            ask();
        }
        take(value.typeId() == QMetaType::Bool && value.toBool());
    });
}

void NotifierTray::take(bool hasHost)
{
    if (std::exchange(m_hasHost, hasHost) != hasHost && onChanged) {
        onChanged();
    }
}

} // namespace Tavik
