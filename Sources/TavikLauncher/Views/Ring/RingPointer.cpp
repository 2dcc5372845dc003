// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/RingGeometry.h>
#include <TavikLauncher/Ring/RingInteraction.h>
#include <TavikLauncher/Views/Ring/RingPointer.h>

#include <cmath>
#include <utility>

namespace Tavik {

namespace {
constexpr int wheelStep = 120;
}

RingPointer::RingPointer(RingInteraction& interaction, std::function<void()> onClose)
    : m_interaction(interaction)
    , m_onClose(std::move(onClose))
{ }

void RingPointer::press(QPointF position,
                        Qt::MouseButton button,
                        const RingGeometry& ring,
                        double scale)
{
    const QPointF offset = position - ring.center;
    m_pressedSlot
        = button == Qt::LeftButton ? ring.slotAt(ring.center + offset / scale) : std::nullopt;
    if (std::hypot(offset.x(), offset.y()) > ring.outerRadius) {
        // The panel's transparent corners look like what lies below: a click there is outside.
        m_onClose();
    }
}

void RingPointer::release(QPointF position, Qt::MouseButton button, const RingGeometry& ring)
{
    const std::optional<int> pressed = std::exchange(m_pressedSlot, std::nullopt);
    if (button == Qt::LeftButton && pressed && ring.slotAt(position) == pressed) {
        m_interaction.clickSlot(*pressed);
    }
}

void RingPointer::turnWheel(int angle)
{
    m_wheelAngle += angle;
    for (; m_wheelAngle >= wheelStep; m_wheelAngle -= wheelStep) {
        m_interaction.moveSelectionLeft();
    }
    for (; m_wheelAngle <= -wheelStep; m_wheelAngle += wheelStep) {
        m_interaction.moveSelectionRight();
    }
}

void RingPointer::reset()
{
    m_pressedSlot.reset();
    m_wheelAngle = 0;
}

} // namespace Tavik
