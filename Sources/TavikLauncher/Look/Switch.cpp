// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/Switch.h>

#include <QKeyEvent>
#include <QPainter>

namespace Tavik {

namespace {

constexpr QSize bodySize(42, 24);

} // namespace

Switch::Switch(QWidget* parent)
    : QAbstractButton(parent)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Switch::sizeHint() const
{
    return bodySize.grownBy({focusMargin, focusMargin, focusMargin, focusMargin});
}

void Switch::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
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
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? look.accent : look.track);
    painter.drawRoundedRect(body, radius, radius);

    constexpr double inset = 2;
    const double side = body.height() - 2 * inset;
    const double left = isChecked() ? body.right() - inset - side : body.left() + inset;
    const QRectF knob(left, body.top() + inset, side, side);
    painter.setBrush(withOpacity(Qt::black, 0.14));
    painter.drawEllipse(knob.translated(0, 0.8));
    painter.setBrush(look.knob);
    painter.drawEllipse(knob);
    painter.setOpacity(1);
    paintFocusRing(painter, *this, body, radius);
}

} // namespace Tavik
