// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/DesktopAppearance.h>

#include <QList>
#include <QString>
#include <QVariant>

#include <utility>

namespace Tavik {

/// What the settings of the desktop's portal mean for us, whatever desktop tells them. Until one is
/// told it asks for nothing.
class PortalWishes
{
public:
    enum class Wish {
        lessMotion,
        highContrast,
        colorScheme,
    };

    PortalWishes();

    /// Group and key of what there is to ask for; `take` ignores all else.
    [[nodiscard]] static QList<std::pair<QString, QString>> settings();
    void take(const QString& group, const QString& key, const QVariant& value);

    [[nodiscard]] bool reduceMotion() const;
    [[nodiscard]] bool wantHighContrast() const;
    [[nodiscard]] ColorScheme colorScheme() const { return m_colorScheme; }

    bool operator==(const PortalWishes&) const = default;

private:
    [[nodiscard]] bool anyAsksFor(Wish wish) const;

    QList<bool> m_asks; ///< One for each setting.
    ColorScheme m_colorScheme = ColorScheme::noPreference;
};

} // namespace Tavik
