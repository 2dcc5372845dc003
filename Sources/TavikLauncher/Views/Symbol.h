// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

class QColor;
class QPainter;

namespace Tavik {

/// The drawn symbols of the small windows.
enum class Symbol {
    cycle, ///< Two arrows that chase each other round a circle.
    checkmarkCircle, ///< A filled circle with a check mark cut out.
    keyboard,
    typing, ///< A pointer beside a text cursor.
    pin,
    sliders,
};

/// Fills the middle square of `rect` with the symbol in `color`.
void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& rect, const QColor& color);

} // namespace Tavik
