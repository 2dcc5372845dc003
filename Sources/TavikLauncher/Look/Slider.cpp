// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/Slider.h>

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace Tavik {

namespace {

constexpr double knobRadius = 9;
constexpr double lineWidth = 4;
/// From the widget's edge to the middle of the knob at an end.
constexpr double endMargin = knobRadius + focusMargin;

} // namespace

Slider::Slider(QWidget* parent)
    : QAbstractSlider(parent)
{
    setOrientation(Qt::Horizontal);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize Slider::sizeHint() const
{
    constexpr int comfortableWidth = 244;
    constexpr int usualFontHeight = 18;
    // Texts in a larger font need the room more.
    const int width = comfortableWidth * usualFontHeight / std::max(fontMetrics().height(), 1);
    return {std::clamp(width, minimumSizeHint().width(), comfortableWidth),
            qRound(2 * endMargin) + 4};
}

QSize Slider::minimumSizeHint() const
{
    constexpr int narrowest = 130;
    return {narrowest, qRound(2 * endMargin) + 4};
}

QPoint Slider::knobCenter(int value) const
{
    const double share
        = maximum() > minimum() ? double(value - minimum()) / double(maximum() - minimum()) : 0.0;
    const int x = qRound(endMargin + share * (width() - 2 * endMargin));
    // The keys of the arrows go the other way there, too.
    return {isRightToLeft() ? width() - x : x, height() / 2};
}

void Slider::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    const double y = height() / 2.0;
    const double x = knobCenter(sliderPosition()).x();
    const auto line = [&](double from, double to) {
        return QRectF(from, y - lineWidth / 2, to - from, lineWidth);
    };
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : 0.45);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.outline);
    painter.drawRoundedRect(line(focusMargin, width() - focusMargin), lineWidth / 2, lineWidth / 2);
    painter.setBrush(look.accent);
    painter.drawRoundedRect(isRightToLeft() ? line(x, width() - focusMargin) : line(focusMargin, x),
                            lineWidth / 2,
                            lineWidth / 2);

    const QRectF knob(x - knobRadius, y - knobRadius, 2 * knobRadius, 2 * knobRadius);
    painter.setBrush(withOpacity(Qt::black, 0.05));
    painter.drawEllipse(knob.adjusted(-1.5, -0.5, 1.5, 2.5));
    painter.setBrush(withOpacity(Qt::black, look.isDark ? 0.3 : 0.17));
    painter.drawEllipse(knob.adjusted(-0.7, -0.4, 0.7, 1.1));
    painter.setPen(look.isContrast ? QPen(look.outline, 1.5) : QPen(Qt::NoPen));
    painter.setBrush(look.knob);
    painter.drawEllipse(knob);
    painter.setOpacity(1);
    paintFocusRing(painter, *this, knob, knobRadius);
}

void Slider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    setSliderDown(true);
    const double x = event->position().x();
    const double aside = x - knobCenter(sliderPosition()).x();
    m_grip = std::abs(aside) <= knobRadius ? aside : 0;
    moveKnob(x);
}

void Slider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown()) {
        moveKnob(event->position().x());
    }
}

void Slider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        setSliderDown(false);
    }
}

void Slider::wheelEvent(QWheelEvent* event)
{
    if (hasFocus()) {
        QAbstractSlider::wheelEvent(event);
        // At an end the page must not scroll away under the pointer.
        event->accept();
    } else {
        event->ignore();
    }
}

void Slider::moveKnob(double x)
{
    const double share = std::clamp((x - m_grip - endMargin) / (width() - 2 * endMargin), 0.0, 1.0);
    const double way = isRightToLeft() ? 1 - share : share;
    setSliderPosition(minimum() + qRound(way * (maximum() - minimum())));
}

} // namespace Tavik
