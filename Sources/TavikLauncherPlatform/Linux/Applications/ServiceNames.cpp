// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ServiceCalls.h>
#include <TavikLauncherPlatform/Linux/Applications/ServiceNames.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>

#include <QDBusMessage>
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
    // After the watching has begun, so that no change falls between the two. A slot is called in
    // the order in which the bus speaks; a pending call may be told of after a later change.
    m_bus->callWithCallback(QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s,
                                                           u"/org/freedesktop/DBus"_s,
                                                           u"org.freedesktop.DBus"_s,
                                                           u"ListNames"_s),
                            this,
                            SLOT(takeAll(QStringList)));
}

void ServiceNames::takeAll(const QStringList& names)
{
    take(QSet<QString>(names.begin(), names.end()) & m_ids);
}

void ServiceNames::take(const QSet<QString>& owned)
{
    if (std::exchange(m_owned, owned) != owned) {
        Q_EMIT changed();
    }
}

} // namespace Tavik
