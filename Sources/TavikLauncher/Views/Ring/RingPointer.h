// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>

#include <functional>
#include <optional>

namespace Tavik {

class RingInteraction;
struct RingGeometry;

/// What buttons and the wheel do on the ring. Positions are in the ring's own plane.
class RingPointer
{
public:
    /// `onClose` dismisses the ring.
    RingPointer(RingInteraction& interaction, std::function<void()> onClose);

    /// `scale` is the ring's in the opening animation: what it has not reached yet cannot be meant.
    void
    press(QPointF position, Qt::MouseButton button, const RingGeometry& ring, double scale = 1);
    /// Launches the slot on which the same button was pressed.
    void release(QPointF position, Qt::MouseButton button, const RingGeometry& ring);
    /// `angle` in eighths of a degree, positive away from the user.
    void turnWheel(int angle);
    /// Forgets what has been half done.
    void reset();

private:
    RingInteraction& m_interaction;
    std::function<void()> m_onClose;
    std::optional<int> m_pressedSlot;
    int m_wheelAngle = 0; ///< Not enough for a step yet.
};

} // namespace Tavik
