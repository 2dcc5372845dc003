// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

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

} // namespace Tavik
