// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ServiceCalls.h>
#include <TavikLauncherPlatform/Linux/Applications/ServiceNames.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

ServiceNames::ServiceNames(WorkQueue& workQueue)
    : m_watcher(new QDBusServiceWatcher(this))
{
    connect(m_watcher,
            &QDBusServiceWatcher::serviceOwnerChanged,
            this,
            [this](const QString& name, const QString&, const QString& owner) {
                QSet<QString> owned = m_owned;
                if (owner.isEmpty()) {
                    owned.remove(name);
                } else if (m_ids.contains(name)) {
                    owned.insert(name);
                }
                take(owned);
            });
    SessionBus::open(workQueue, this, [this](const QDBusConnection& bus) {
        m_bus = bus;
        m_watcher->setConnection(bus);
        watch();
    });
}

ServiceNames::~ServiceNames() = default;

void ServiceNames::follow(const QSet<QString>& ids)
{
    QSet<QString> names;
    for (const QString& id : ids) {
        if (ServiceCalls::isBusName(id)) {
            names.insert(id);
        }
    }
    if (std::exchange(m_ids, names) != names) {
        watch();
    }
}

void ServiceNames::watch()
{
    if (!m_bus) {
        return;
    }
    m_watcher->setWatchedServices(m_ids.values());
    // After the watching has begun, so that no change falls between the two.
    auto* call = new QDBusPendingCallWatcher(
        m_bus->asyncCall(QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s,
                                                        u"/org/freedesktop/DBus"_s,
                                                        u"org.freedesktop.DBus"_s,
                                                        u"ListNames"_s)),
        this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        const QDBusPendingReply<QStringList> names = *call;
        if (!names.isError()) {
            const QStringList all = names.value();
            take(QSet<QString>(all.begin(), all.end()) & m_ids);
        }
    });
}

void ServiceNames::take(const QSet<QString>& owned)
{
    if (std::exchange(m_owned, owned) != owned) {
        Q_EMIT changed();
    }
}

} // namespace Tavik
