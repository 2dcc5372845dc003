// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/GenericIcon.h>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace Tavik::GenericIcon {

QImage draw(int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side, side);
    painter.setPen(Qt::NoPen);

    // A window with a title bar on a rounded tile, in the unit square.
    const QRectF tile(0.07, 0.07, 0.86, 0.86);
    QLinearGradient light(tile.topLeft(), tile.bottomLeft());
    light.setColorAt(0, QColor(0x8f, 0x9b, 0xb0));
    light.setColorAt(1, QColor(0x5d, 0x69, 0x80));
    painter.setBrush(light);
    painter.drawRoundedRect(tile, 0.19, 0.19);

    const QRectF window(0.24, 0.28, 0.52, 0.44);
    QPainterPath outline;
    outline.addRoundedRect(window, 0.06, 0.06);
    painter.setClipPath(outline);
    painter.fillRect(window, QColor(0xff, 0xff, 0xff, 0xf0));
    painter.fillRect(QRectF(window.topLeft(), QSizeF(window.width(), 0.12)),
                     QColor(0xd3, 0xd9, 0xe4));
    painter.setBrush(QColor(0x7c, 0x88, 0x9e));
    for (const double x : {0.295, 0.365, 0.435}) {
        painter.drawEllipse(QPointF(x, 0.34), 0.022, 0.022);
    }
    return image;
}

} // namespace Tavik::GenericIcon
