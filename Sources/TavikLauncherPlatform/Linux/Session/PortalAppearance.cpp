// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/PortalAppearance.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace Tavik {

namespace {

constexpr QLatin1String service("org.freedesktop.portal.Desktop");
constexpr QLatin1String path("/org/freedesktop/portal/desktop");
constexpr QLatin1String interface("org.freedesktop.portal.Settings");

} // namespace

PortalAppearance::PortalAppearance(WorkQueue& workQueue)
{
    SessionBus::open(workQueue, this, [this](const QDBusConnection& bus) { listen(bus); });
}

void PortalAppearance::settingChanged(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    constexpr qsizetype expected = 3;
    if (arguments.size() == expected) {
        const QString group = arguments.at(0).toString();
        const QString key = arguments.at(1).toString();
        delete m_questions.take({group, key}); // Its answer may be older, and yet come later.
        take(group, key, arguments.at(2));
    }
}

void PortalAppearance::listen(const QDBusConnection& bus)
{
    QDBusConnection connection = bus;
    // A slot with the arguments themselves cannot be connected before the toolkit has met a
    // variant. No service name in the match: with one the toolkit would wait for the bus to name
    // its owner.
    connection.connect(QString(),
                       path,
                       interface,
                       QStringLiteral("SettingChanged"),
                       this,
                       SLOT(settingChanged(QDBusMessage)));
    for (const auto& [group, key] : PortalWishes::settings()) {
        QDBusMessage call
            = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
        call.setArguments({group, key});
        auto* watcher = new QDBusPendingCallWatcher(connection.asyncCall(call), this);
        m_questions.insert({group, key}, watcher);
        connect(watcher,
                &QDBusPendingCallWatcher::finished,
                this,
                [this, group = group, key = key, watcher] {
                    const QDBusPendingReply<QDBusVariant> reply = *watcher;
                    if (reply.isValid()) {
                        take(group, key, reply.value().variant());
                    }
                    m_questions.take({group, key})->deleteLater();
                });
    }
}

void PortalAppearance::take(const QString& group, const QString& key, const QVariant& value)
{
    const PortalWishes before = m_wishes;
    m_wishes.take(group, key, value);
    if (m_wishes != before && onChanged) {
        onChanged();
    }
}

} // namespace Tavik
