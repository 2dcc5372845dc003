// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/SymbolView.h>

#include <QPainter>

#include <cmath>

namespace Tavik {

SymbolView::SymbolView(Symbol symbol, double side, ColorOf colorOf, QWidget* parent)
    : QWidget(parent)
    , m_symbol(symbol)
    , m_side(side)
    , m_colorOf(colorOf)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setScale(double scale)
{
    if (scale != m_scale) {
        m_scale = scale;
        update();
    }
}

QSize SymbolView::sizeHint() const
{
    const int side = static_cast<int>(std::ceil(m_side));
    return {side, side};
}

void SymbolView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const double side = m_side * m_scale;
    QRectF square(0, 0, side, side);
    square.moveCenter(QRectF(rect()).center());
    paintSymbol(painter, m_symbol, square, m_colorOf(palette()));
}

} // namespace Tavik
