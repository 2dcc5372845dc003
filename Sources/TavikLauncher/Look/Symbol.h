// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

class QColor;
class QPainter;

namespace Tavik {

/// The drawn symbols of the small windows and of the ring.
enum class Symbol {
    cycle, ///< Two arrows that chase each other round a circle.
    checkmarkCircle, ///< A filled circle with a check mark cut out.
    keyboard,
    typing, ///< A pointer beside a text cursor.
    pin,
    sliders,
    keyboardBadge, ///< A keyboard with three dots in a badge.
    arrowSquare, ///< An arrow that leaves a square, up and to the right.
    warningTriangle, ///< A filled triangle with an exclamation mark cut out.
    drive,
    figure, ///< A person that waves.
    chevronRight,
    triangleDown,
};

/// Fills the middle square of `rect` with the symbol in `color`.
void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& rect, const QColor& color);

} // namespace Tavik
