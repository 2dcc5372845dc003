// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/DesktopAppearance.h>

#include <QPalette>

#include <optional>

namespace Tavik {

/// Gives all windows light, dark or pure colours as the desktop asks, at once when it changes its
/// mind.
/// Where the toolkit already takes its colours from the desktop, those stay. The one listener of
/// the appearance it is given. Main thread only.
class DesktopPalette final
{
public:
    explicit DesktopPalette(DesktopAppearance& appearance);
    ~DesktopPalette();
    DesktopPalette(const DesktopPalette&) = delete;
    DesktopPalette& operator=(const DesktopPalette&) = delete;

    /// What a desktop may ask for.
    struct Wanted
    {
        ColorScheme scheme = ColorScheme::noPreference;
        bool highContrast = false;

        bool operator==(const Wanted&) const = default;
    };
    /// The colours to show in place of the toolkit's own; absent when those are what is asked for.
    [[nodiscard]] static std::optional<QPalette> replacing(const QPalette& toolkits, Wanted wanted);

private:
    void apply();

    DesktopAppearance& m_appearance;
    Wanted m_applied;
    bool m_replaces = false; ///< Colours of ours are shown.
};

} // namespace Tavik
