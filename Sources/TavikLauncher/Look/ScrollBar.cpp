// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/ScrollBar.h>

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace Tavik {

ScrollBar::ScrollBar(QWidget* parent)
    : QScrollBar(Qt::Vertical, parent)
{
    setFixedWidth(breadth);
}

QRectF ScrollBar::thumb() const
{
    constexpr double shortest = 28;
    constexpr double inset = 3;
    const double whole = maximum() - minimum() + pageStep();
    const double length = std::min(std::max(shortest, height() * pageStep() / std::max(whole, 1.0)),
                                   height() * 1.0);
    const double share
        = maximum() > minimum() ? double(value() - minimum()) / (maximum() - minimum()) : 0;
    return QRectF(0, share * (height() - length), width(), length)
        .adjusted(inset, inset, -inset, -inset);
}

void ScrollBar::paintEvent(QPaintEvent*)
{
    if (maximum() <= minimum()) {
        return;
    }
    const Look look = Look::of(*this);
    const QRectF body = thumb();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(withOpacity(look.secondaryText, m_grip >= 0 || underMouse() ? 0.75 : 0.45));
    painter.drawRoundedRect(body, body.width() / 2, body.width() / 2);
}

void ScrollBar::mousePressEvent(QMouseEvent* event)
{
    const double y = event->position().y();
    const QRectF body = thumb();
    // A press beside the thumb brings its middle there.
    m_grip = y >= body.top() && y <= body.bottom() ? y - body.top() : body.height() / 2;
    mouseMoveEvent(event);
}

void ScrollBar::mouseMoveEvent(QMouseEvent* event)
{
    const double room = height() - thumb().height();
    if (m_grip >= 0 && room > 0) {
        const double share = (event->position().y() - m_grip) / room;
        setValue(minimum() + qRound(std::clamp(share, 0.0, 1.0) * (maximum() - minimum())));
    }
}

void ScrollBar::mouseReleaseEvent(QMouseEvent*)
{
    m_grip = -1;
    update();
}

} // namespace Tavik
