// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Views/Ring/RingStyle.h>
#include <TavikLauncher/Views/Ring/ToastPill.h>

#include <QPainter>

namespace Tavik {

void ToastPill::paint(QPainter& painter, const QRectF& rect) const
{
    constexpr QColor prominentFill(28, 28, 30);
    constexpr QColor quietFill(44, 44, 46);
    // At less than this white text is lost on a white desktop.
    constexpr double leastOpacity = 0.66;
    const QColor fill = isProminent ? prominentFill : quietFill;
    if (hasHardEdge) {
        // Past the smooth edge: a pixel that is only half the label's would turn black.
        painter.fillRect(rect.adjusted(-1, -1, 1, 1), fill);
    }
    painter.setPen(QPen(withOpacity(Qt::white, 0.18), 1));
    painter.setBrush(
        withOpacity(fill, isOpaque ? 1.0 : leastOpacity + (1 - leastOpacity) * opacity));
    // Half a point in, so that the line lies inside and on whole pixels.
    const QRectF line = rect.adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(line, cornerRadius - 0.5, cornerRadius - 0.5);
}

} // namespace Tavik
