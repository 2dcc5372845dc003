// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>

namespace Tavik::TavikIconFactory {

struct StatusIcon
{
    double size = 18; ///< Points; the drawing scales with it.
    bool showsUpdateBadge = false;
    QColor labelColor{}; ///< The panel's colour for symbols; invalid: see `statusIcon`.
};

/// The wheel of dots for the status item, drawn anew at whatever size it is asked for. Without the
/// badge it is a mask, black unless a label colour is given, that the panel may tint. With the
/// badge it is none: the wheel takes the label colour, or else the text colour in force when it is
/// drawn, and carries a dot in the middle and a red one in the corner.
[[nodiscard]] QIcon statusIcon(const StatusIcon& options);

/// The application's own icon, drawn anew at every size; `size` is what it is first asked for.
[[nodiscard]] QIcon appIcon(int size);

} // namespace Tavik::TavikIconFactory
