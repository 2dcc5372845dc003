// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/TextField.h>

#include <QPainter>

namespace Tavik {

namespace {

constexpr double cornerRadius = 6;
constexpr int padding = 8;
constexpr int symbolSide = 16;

} // namespace

TextField::TextField(std::optional<LineSymbol> symbol, QWidget* parent)
    : QLineEdit(parent)
    , m_symbol(symbol)
{
    setFrame(false);
    const int first = focusMargin + padding + (symbol ? symbolSide + padding / 2 : 0);
    const int last = focusMargin + padding;
    setTextMargins(
        isRightToLeft() ? last : first, focusMargin, isRightToLeft() ? first : last, focusMargin);
    // The field paints its own background; the style would fill the whole widget.
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    setPalette(palette);
}

QSize TextField::sizeHint() const
{
    return {QLineEdit::sizeHint().width(), fontMetrics().height() + 12 + 2 * focusMargin};
}

QSize TextField::minimumSizeHint() const
{
    return {QLineEdit::minimumSizeHint().width(), sizeHint().height()};
}

void TextField::paintEvent(QPaintEvent* event)
{
    const Look look = Look::of(*this);
    const QRectF body
        = QRectF(rect()).adjusted(focusMargin, focusMargin, -focusMargin, -focusMargin);
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(look.outline, 1));
        painter.setBrush(look.isDark ? look.window : look.card);
        painter.drawRoundedRect(body.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
        if (m_symbol) {
            const QRectF place(body.left() + padding,
                               body.center().y() - symbolSide / 2.0,
                               symbolSide,
                               symbolSide);
            paintSymbol(painter, *m_symbol, placed(*this, place, body), look.secondaryText);
        }
        // A field that is typed into always shows the focus.
        if (hasFocus()) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(look.accent, 2));
            painter.drawRoundedRect(body, cornerRadius, cornerRadius);
        }
    }
    QLineEdit::paintEvent(event);
}

} // namespace Tavik
