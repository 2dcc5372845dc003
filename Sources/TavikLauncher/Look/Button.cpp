// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/Pressable.h>

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace Tavik {

namespace {

constexpr double cornerRadius = 6;
constexpr int sidePadding = 14;
constexpr int verticalPadding = 7;
constexpr int symbolGap = 8;
/// An imported shortcut may be called anything.
constexpr int widestText = 420;

QColor fill(const Button& button, const Look& look, bool isActive)
{
    const bool isHovered = button.underMouse() && isActive;
    if (button.isDefault() && isActive) {
        return button.isDown() ? look.accent.darker(125)
            : isHovered        ? look.accent.darker(110)
                               : look.accent;
    }
    if (!isActive) {
        return button.isFlat() ? QColor(Qt::transparent) : withOpacity(look.button, 0.5);
    }
    if (button.isDown()) {
        return look.buttonPressed;
    }
    if (button.isFlat() && !isHovered) {
        return Qt::transparent;
    }
    return isHovered ? look.buttonHovered : look.button;
}

} // namespace

Button::Button(const QString& text, QWidget* parent)
    : QPushButton(text, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

Button::Button(LineSymbol symbol, QWidget* parent)
    : Button(QString(), parent)
{
    m_lineSymbol = symbol;
}

void Button::setSymbol(std::optional<Symbol> symbol)
{
    m_symbol = symbol;
    updateGeometry();
    update();
}

void Button::setAvailable(bool isAvailable)
{
    m_isAvailable = isAvailable;
    if (isAvailable || !hasFocus()) {
        setEnabled(isAvailable);
    }
    update();
}

double Button::symbolSide() const
{
    return fontMetrics().height();
}

QSize Button::sizeHint() const
{
    const int height = fontMetrics().height() + 2 * verticalPadding;
    const int textWidth = std::min(fontMetrics().horizontalAdvance(text()), widestText);
    const int symbolWidth = m_symbol ? qRound(symbolSide()) + symbolGap : 0;
    const int width = m_lineSymbol ? height : textWidth + symbolWidth + 2 * sidePadding;
    return QSize(width, height).grownBy({focusMargin, focusMargin, focusMargin, focusMargin});
}

bool Button::event(QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) {
        update();
    }
    return QPushButton::event(event);
}

void Button::keyPressEvent(QKeyEvent* event)
{
    const bool wouldPress = event->key() == Qt::Key_Space;
    if ((!m_isAvailable && wouldPress) || (m_isAvailable && pressByKey(*this, *event))) {
        return;
    }
    // What the toolkit makes of Return depends on dialogs, which our windows are not.
    QAbstractButton::keyPressEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void Button::mousePressEvent(QMouseEvent* event)
{
    if (m_isAvailable) {
        QPushButton::mousePressEvent(event);
    }
}

void Button::focusOutEvent(QFocusEvent* event)
{
    QPushButton::focusOutEvent(event);
    setEnabled(m_isAvailable && isEnabled());
}

void Button::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    const bool isActive = isEnabled() && m_isAvailable;
    const bool isAccented = isDefault() && isActive;
    const QColor ink = isAccented ? look.onAccent
                                  : withOpacity(look.text, isActive ? 1.0 : look.disabledOpacity);
    const QRectF body
        = QRectF(rect()).adjusted(focusMargin, focusMargin, -focusMargin, -focusMargin);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(look.isContrast && !isFlat() ? QPen(look.outline, 1) : QPen(Qt::NoPen));
    painter.setBrush(fill(*this, look, isActive));
    painter.drawRoundedRect(body, cornerRadius, cornerRadius);
    if (m_lineSymbol) {
        constexpr double inset = 6;
        paintSymbol(painter, *m_lineSymbol, body.adjusted(inset, inset, -inset, -inset), ink);
    } else {
        const double symbolWidth = m_symbol ? symbolSide() + symbolGap : 0;
        const QString shown = fontMetrics().elidedText(
            text(), Qt::ElideRight, qRound(body.width() - symbolWidth) - sidePadding);
        const double textWidth = fontMetrics().horizontalAdvance(shown);
        const double left = body.center().x() - (textWidth + symbolWidth) / 2;
        if (m_symbol) {
            const double side = symbolSide();
            const QRectF symbol(left, body.center().y() - side / 2, side, side);
            paintSymbol(painter, *m_symbol, placed(*this, symbol, body), ink);
        }
        painter.setFont(font());
        painter.setPen(ink);
        const QRectF room(left + symbolWidth, body.top(), textWidth + 2, body.height());
        painter.drawText(placed(*this, room, body), Qt::AlignVCenter | Qt::AlignLeft, shown);
    }
    paintFocusRing(painter, *this, body, cornerRadius);
}

} // namespace Tavik
