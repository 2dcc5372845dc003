// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/PortalAppearance.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {

struct WatchedSetting
{
    QLatin1String group;
    QLatin1String key;
    bool (*asksForLessMotion)(const QVariant&); ///< Null for the colour scheme.
};

constexpr auto watchedSettings = std::to_array<WatchedSetting>({
    {QLatin1String("org.freedesktop.appearance"),
     QLatin1String("reduced-motion"),
     [](const QVariant& value) {
         return value.toUInt() == 1;
     }},
    {QLatin1String("org.gnome.desktop.interface"),
     QLatin1String("enable-animations"),
     [](const QVariant& value) {
         return value.typeId() == QMetaType::Bool && !value.toBool();
     }},
    {QLatin1String("org.kde.kdeglobals.KDE"),
     QLatin1String("AnimationDurationFactor"),
     [](const QVariant& value) {
         bool isNumber = false;
         return value.toDouble(&isNumber) <= 0 && isNumber;
     }},
    {QLatin1String("org.freedesktop.appearance"), QLatin1String("color-scheme"), nullptr},
});

constexpr QLatin1String service("org.freedesktop.portal.Desktop");
constexpr QLatin1String path("/org/freedesktop/portal/desktop");
constexpr QLatin1String interface("org.freedesktop.portal.Settings");

std::optional<std::size_t> positionOf(const QString& group, const QString& key)
{
    const auto* found = std::ranges::find_if(watchedSettings, [&](const WatchedSetting& setting) {
        return setting.group == group && setting.key == key;
    });
    if (found == watchedSettings.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - watchedSettings.begin());
}

/// The portal's older call wraps the value twice.
QVariant unwrapped(QVariant value)
{
    while (value.userType() == qMetaTypeId<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

PortalAppearance::PortalAppearance(WorkQueue& workQueue)
{
    SessionBus::open(workQueue, this, [this](const QDBusConnection& bus) { listen(bus); });
}

bool PortalAppearance::asksForLessMotion(const QString& group,
                                         const QString& key,
                                         const QVariant& value)
{
    const auto setting = positionOf(group, key);
    const auto asks = setting ? watchedSettings.at(*setting).asksForLessMotion : nullptr;
    return asks && asks(unwrapped(value));
}

ColorScheme PortalAppearance::colorScheme(const QVariant& value)
{
    const QVariant number = unwrapped(value);
    if (number.typeId() != QMetaType::UInt) {
        return ColorScheme::noPreference;
    }
    switch (number.toUInt()) {
    case 1:
        return ColorScheme::dark;
    case 2:
        return ColorScheme::light;
    default:
        return ColorScheme::noPreference;
    }
}

bool PortalAppearance::reducesMotion() const
{
    return std::ranges::find(m_asks, true) != m_asks.end();
}

void PortalAppearance::settingChanged(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    constexpr qsizetype expected = 3;
    if (arguments.size() != expected) {
        return;
    }
    if (const auto setting = positionOf(arguments.at(0).toString(), arguments.at(1).toString())) {
        take(*setting, arguments.at(2));
    }
}

void PortalAppearance::listen(const QDBusConnection& bus)
{
    static_assert(watchedSettings.size() == std::tuple_size_v<decltype(m_asks)> + 1);
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
    for (std::size_t i = 0; i < watchedSettings.size(); ++i) {
        QDBusMessage call
            = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
        call.setArguments(
            {QString(watchedSettings.at(i).group), QString(watchedSettings.at(i).key)});
        auto* watcher = new QDBusPendingCallWatcher(connection.asyncCall(call), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, i, watcher] {
            const QDBusPendingReply<QDBusVariant> reply = *watcher;
            if (reply.isValid()) {
                take(i, reply.value().variant());
            }
            watcher->deleteLater();
        });
    }
}

void PortalAppearance::take(std::size_t setting, const QVariant& value)
{
    const auto before = std::pair(reducesMotion(), m_colorScheme);
    if (const auto asks = watchedSettings.at(setting).asksForLessMotion) {
        m_asks.at(setting) = asks(unwrapped(value));
    } else {
        m_colorScheme = colorScheme(value);
    }
    if (std::pair(reducesMotion(), m_colorScheme) != before && onChanged) {
        onChanged();
    }
}

} // namespace Tavik
