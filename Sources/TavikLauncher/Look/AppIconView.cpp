// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/AppIconView.h>
#include <TavikLauncher/Look/TavikIconFactory.h>

#include <QPainter>

namespace Tavik {

AppIconView::AppIconView(int side, QWidget* parent)
    : QWidget(parent)
    , m_icon(TavikIconFactory::appIcon(side))
{
    setFixedSize(side, side);
}

void AppIconView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_icon.paint(&painter, rect());
}

} // namespace Tavik
