// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/BusyIndicator.h>

#include <QPainter>

namespace Tavik {

namespace {
constexpr int spokes = 8;
constexpr double turnSeconds = 0.8;
} // namespace

BusyIndicator::BusyIndicator(MainQueue& mainQueue, QWidget* parent)
    : QWidget(parent)
    , m_mainQueue(mainQueue)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void BusyIndicator::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    QColor color = palette().color(QPalette::WindowText);
    for (int spoke = 0; spoke < spokes; ++spoke) {
        // The spoke at the current step is the strongest, those it has left fade behind it.
        const int age = (m_step - spoke + spokes) % spokes;
        color.setAlphaF(0.75F - 0.08F * static_cast<float>(age));
        painter.save();
        painter.rotate(360.0 * spoke / spokes);
        painter.setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -3.6), QPointF(0, -6.6));
        painter.restore();
    }
}

void BusyIndicator::showEvent(QShowEvent*)
{
    m_turns = m_mainQueue.every(turnSeconds / spokes, [this] {
        m_step = (m_step + 1) % spokes;
        update();
    });
}

void BusyIndicator::hideEvent(QHideEvent*)
{
    m_turns.cancel();
}

} // namespace Tavik
