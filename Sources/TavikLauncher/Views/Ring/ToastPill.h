// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

class QPainter;

namespace Tavik {

/// The rounded label behind a short text in the ring's centre: dark on every background, so that
/// white text on it is always readable.
struct ToastPill
{
    bool isProminent = true; ///< A quieter grey when false.
    double opacity = 1; ///< 0 to 1; at 0 the text is still readable.
    bool isOpaque = false; ///< Nothing would shine through, and the opacity does not count.
    bool hasHardEdge = false; ///< Its shape is cut out of what is painted.
    double cornerRadius = 0; ///< Points.

    void paint(QPainter& painter, const QRectF& rect) const;
};

} // namespace Tavik
