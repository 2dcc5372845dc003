// SPDX-License-Identifier: MIT
#pragma once

class QColor;
class QPainter;
class QRectF;

namespace Tavik {

/// The window's line symbols, drawn so that they are crisp at every size.
enum class LineSymbol {
    gear,
    keyboard,
    ring,
    palette,
    pin,
    bulb,
    refresh,
    archive,
    info,
    plus,
    minus,
    up,
    down,
    search,
    grip,
    warning,
    check,
    screen,
};

/// Draws `symbol` into the square in the middle of `rect`.
void paintSymbol(QPainter& painter, LineSymbol symbol, const QRectF& rect, const QColor& color);

} // namespace Tavik
