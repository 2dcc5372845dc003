// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

class QPalette;

namespace Tavik {

class LauncherSettings;

/// The ring's colours as the user's theme and the desktop's palette give them.
struct RingStyle
{
    QColor bandTop;
    QColor bandBottom;
    QColor highlightTop;
    QColor highlightBottom;
    QColor accent; ///< The desktop's own accent, for the halo.
    QColor dot; ///< Marks running applications.
    double pillOpacity = 0;
    bool showsRunningDot = true;

    [[nodiscard]] static RingStyle make(const LauncherSettings& settings);

    bool operator==(const RingStyle&) const = default;
};

/// The desktop's accent.
[[nodiscard]] QColor accentColor(const QPalette& palette);
/// `color` with its alpha replaced by `opacity`, 0 to 1.
[[nodiscard]] QColor withOpacity(QColor color, double opacity);

} // namespace Tavik
