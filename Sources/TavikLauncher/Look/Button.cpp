// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/Look.h>

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace Tavik {

namespace {

constexpr double cornerRadius = 6;
constexpr int sidePadding = 14;
constexpr int verticalPadding = 7;
/// An imported shortcut may be called anything.
constexpr int widestText = 320;

QColor fill(const QAbstractButton& button, const Look& look)
{
    if (!button.isEnabled()) {
        return withOpacity(look.button, 0.5);
    }
    if (button.isDown()) {
        return look.buttonPressed;
    }
    return button.underMouse() ? look.buttonHovered : look.button;
}

} // namespace

Button::Button(const QString& text, QWidget* parent)
    : QAbstractButton(parent)
{
    setText(text);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

Button::Button(LineSymbol symbol, QWidget* parent)
    : Button(QString(), parent)
{
    m_symbol = symbol;
}

QSize Button::sizeHint() const
{
    const int height = fontMetrics().height() + 2 * verticalPadding;
    const int textWidth = std::min(fontMetrics().horizontalAdvance(text()), widestText);
    const int width = m_symbol ? height : textWidth + 2 * sidePadding;
    return QSize(width, height).grownBy({focusMargin, focusMargin, focusMargin, focusMargin});
}

bool Button::event(QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) {
        update();
    }
    return QAbstractButton::event(event);
}

void Button::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void Button::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    const QColor ink = palette().color(QPalette::ButtonText);
    const QRectF body
        = QRectF(rect()).adjusted(focusMargin, focusMargin, -focusMargin, -focusMargin);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill(*this, look));
    painter.drawRoundedRect(body, cornerRadius, cornerRadius);
    if (m_symbol) {
        constexpr double inset = 6;
        paintSymbol(painter, *m_symbol, body.adjusted(inset, inset, -inset, -inset), ink);
    } else {
        painter.setPen(ink);
        painter.drawText(
            body,
            Qt::AlignCenter,
            fontMetrics().elidedText(text(), Qt::ElideRight, width() - 2 * sidePadding));
    }
    paintFocusRing(painter, *this, body, cornerRadius);
}

} // namespace Tavik
