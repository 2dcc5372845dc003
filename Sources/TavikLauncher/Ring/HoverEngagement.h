// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>

#include <cmath>
#include <optional>

namespace Tavik {

/// Tells a resting pointer from a moving one: a ring summoned under a pointer selects nothing until
/// the pointer really moves. A value, new for every summon.
class HoverEngagement
{
public:
    /// Whether the pointer, now at `point` (in points), has moved since it was first seen.
    bool engages(QPointF point)
    {
        if (!m_hoverAnchor) {
            m_hoverAnchor = point;
        }
        const QPointF moved = point - *m_hoverAnchor;
        m_hoverEngaged = m_hoverEngaged || std::hypot(moved.x(), moved.y()) > threshold;
        return m_hoverEngaged;
    }

private:
    static constexpr double threshold = 6.0; // Points.

    std::optional<QPointF> m_hoverAnchor;
    bool m_hoverEngaged = false;
};

} // namespace Tavik
