// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/PortalWishes.h>

#include <QDBusVariant>
#include <QLatin1String>

#include <array>

namespace Tavik {

namespace {

using Wish = PortalWishes::Wish;

bool isOne(const QVariant& value)
{
    return value.typeId() == QMetaType::UInt && value.toUInt() == 1;
}

bool isTrue(const QVariant& value)
{
    return value.typeId() == QMetaType::Bool && value.toBool();
}

bool isFalse(const QVariant& value)
{
    return value.typeId() == QMetaType::Bool && !value.toBool();
}

bool isNothing(const QVariant& value)
{
    bool isNumber = false;
    return value.toDouble(&isNumber) <= 0 && isNumber;
}

struct WatchedSetting
{
    QLatin1String group;
    QLatin1String key;
    Wish wish;
    bool (*asks)(const QVariant&);
};

/// What all desktops mean to tell, and what some tell instead.
constexpr auto watchedSettings = std::to_array<WatchedSetting>({
    {QLatin1String("org.freedesktop.appearance"),
     QLatin1String("reduced-motion"),
     Wish::lessMotion,
     isOne},
    {QLatin1String("org.gnome.desktop.interface"),
     QLatin1String("enable-animations"),
     Wish::lessMotion,
     isFalse},
    {QLatin1String("org.kde.kdeglobals.KDE"),
     QLatin1String("AnimationDurationFactor"),
     Wish::lessMotion,
     isNothing},
    {QLatin1String("org.freedesktop.appearance"),
     QLatin1String("contrast"),
     Wish::highContrast,
     isOne},
    {QLatin1String("org.gnome.desktop.a11y.interface"),
     QLatin1String("high-contrast"),
     Wish::highContrast,
     isTrue},
    {QLatin1String("org.freedesktop.appearance"),
     QLatin1String("color-scheme"),
     Wish::colorScheme,
     isOne},
});

/// The portal's older call wraps the value twice.
QVariant unwrapped(QVariant value)
{
    while (value.userType() == qMetaTypeId<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

ColorScheme colorSchemeOf(const QVariant& number)
{
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

} // namespace

PortalWishes::PortalWishes()
    : m_asks(static_cast<qsizetype>(watchedSettings.size()), false)
{ }

QList<std::pair<QString, QString>> PortalWishes::settings()
{
    QList<std::pair<QString, QString>> names;
    for (const WatchedSetting& setting : watchedSettings) {
        names.append({setting.group, setting.key});
    }
    return names;
}

void PortalWishes::take(const QString& group, const QString& key, const QVariant& value)
{
    const QVariant told = unwrapped(value);
    for (std::size_t i = 0; i < watchedSettings.size(); ++i) {
        const WatchedSetting& setting = watchedSettings.at(i);
        if (setting.group != group || setting.key != key) {
            continue;
        }
        m_asks[static_cast<qsizetype>(i)] = setting.asks(told);
        if (setting.wish == Wish::colorScheme) {
            m_colorScheme = colorSchemeOf(told);
        }
    }
}

bool PortalWishes::anyAsksFor(Wish wish) const
{
    for (std::size_t i = 0; i < watchedSettings.size(); ++i) {
        if (watchedSettings.at(i).wish == wish && m_asks.at(static_cast<qsizetype>(i))) {
            return true;
        }
    }
    return false;
}

bool PortalWishes::reduceMotion() const
{
    return anyAsksFor(Wish::lessMotion);
}

bool PortalWishes::wantHighContrast() const
{
    return anyAsksFor(Wish::highContrast);
}

} // namespace Tavik
