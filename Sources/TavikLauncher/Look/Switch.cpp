// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/Switch.h>

#include <QPainter>

namespace Tavik {

namespace {

constexpr QSize bodySize(42, 24);

} // namespace

Switch::Switch(QWidget* parent)
    : Pressable(parent)
{
    setCheckable(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Switch::sizeHint() const
{
    return bodySize.grownBy({focusMargin, focusMargin, focusMargin, focusMargin});
}

void Switch::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    const QRectF body(
        QPointF((width() - bodySize.width()) / 2.0, (height() - bodySize.height()) / 2.0),
        QSizeF(bodySize));
    const double radius = body.height() / 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : 0.45);
    painter.setPen(isChecked() ? QPen(look.accent, 1) : QPen(look.outline, 1.2));
    painter.setBrush(isChecked() ? look.accent : look.track);
    painter.drawRoundedRect(body.adjusted(0.6, 0.6, -0.6, -0.6), radius, radius);
    painter.setPen(Qt::NoPen);

    constexpr double inset = 2;
    const double side = body.height() - 2 * inset;
    const double left = isChecked() ? body.right() - inset - side : body.left() + inset;
    const QRectF knob = placed(*this, QRectF(left, body.top() + inset, side, side), body);
    painter.setBrush(withOpacity(Qt::black, 0.14));
    painter.drawEllipse(knob.translated(0, 0.8));
    painter.setBrush(look.isContrast ? (isChecked() ? look.onAccent : look.text) : look.knob);
    painter.drawEllipse(knob);
    painter.setOpacity(1);
    paintFocusRing(painter, *this, body, radius);
}

} // namespace Tavik
