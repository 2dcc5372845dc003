// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace Tavik {

enum class ColorScheme {
    noPreference,
    dark,
    light,
};

/// The user's wishes about looks that the toolkit does not tell. Main thread only; answers from
/// memory.
class DesktopAppearance
{
public:
    virtual ~DesktopAppearance() = default;

    /// True when the desktop asks for less animation.
    [[nodiscard]] virtual bool reducesMotion() const = 0;
    /// Whether the desktop asks for light or dark windows.
    [[nodiscard]] virtual ColorScheme colorScheme() const = 0;
    /// True when the desktop asks for what poor eyesight can read.
    [[nodiscard]] virtual bool wantsHighContrast() const = 0;

    /// Called when an answer has changed.
    std::function<void()> onChanged;
};

} // namespace Tavik
