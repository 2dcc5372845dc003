// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/AppIconArtwork.h>
#include <TavikLauncher/Look/TavikIconFactory.h>

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <utility>

namespace Tavik::TavikIconFactory {

namespace {

constexpr QColor systemRed(0xFF, 0x3B, 0x30);

void fillDot(QPainter& painter, const QColor& color, QPointF center, double radius)
{
    painter.setBrush(color);
    painter.drawEllipse(center, radius, radius);
}

/// Draws in a plane whose y grows upwards.
void drawTavikWheel(QPainter& painter, double size, const QColor& color, bool centerDot)
{
    constexpr std::array angles{90.0, 150.0, 210.0, 270.0, 330.0, 30.0};
    const QPointF center(size * 0.5, size * 0.5);
    const double circle = size * 0.36;
    const double dot = std::max(size * 0.115, 1.8);
    for (const double degrees : angles) {
        const double angle = degrees * std::numbers::pi / 180;
        fillDot(painter,
                color,
                center + QPointF(circle * std::cos(angle), circle * std::sin(angle)),
                dot);
    }
    if (centerDot) {
        fillDot(painter, color, center, 1.1 * dot);
    }
}

void drawStatusIcon(QPainter& painter, const StatusIcon& options)
{
    const double size = options.size;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.translate(0, size);
    painter.scale(1, -1);
    if (!options.showsUpdateBadge) {
        drawTavikWheel(
            painter, size, options.labelColor.isValid() ? options.labelColor : Qt::black, false);
        return;
    }
    const QColor label = options.labelColor.isValid()
        ? options.labelColor
        : QGuiApplication::palette().color(QPalette::WindowText);
    drawTavikWheel(painter, size, label, true);
    const double radius = 0.19 * size;
    fillDot(painter, systemRed, QPointF(size - radius, size - radius), radius);
}

/// An icon that is drawn whenever it is needed, so that it is crisp at every size and follows the
/// colours in force. `draw` fills a square of the given side.
class DrawnIconEngine final : public QIconEngine
{
public:
    using Draw = std::function<void(QPainter&, double side)>;

    DrawnIconEngine(Draw draw, int size)
        : m_draw(std::move(draw))
        , m_size(size)
    { }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        const int side = std::min(rect.width(), rect.height());
        painter->save();
        painter->translate(rect.x() + (rect.width() - side) / 2.0,
                           rect.y() + (rect.height() - side) / 2.0);
        m_draw(*painter, side);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap image(size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return image;
    }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        QList<int> sides{16, 22, 24, 32, m_size};
        std::ranges::sort(sides);
        QList<QSize> sizes;
        for (const int side : sides) {
            if (sizes.isEmpty() || sizes.last().width() != side) {
                sizes << QSize(side, side);
            }
        }
        return sizes;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new DrawnIconEngine(*this); }

private:
    Draw m_draw;
    int m_size;
};

} // namespace

QIcon statusIcon(const StatusIcon& options)
{
    const auto draw = [options](QPainter& painter, double side) {
        drawStatusIcon(painter,
                       {.size = side,
                        .showsUpdateBadge = options.showsUpdateBadge,
                        .labelColor = options.labelColor});
    };
    QIcon icon(new DrawnIconEngine(draw, static_cast<int>(std::lround(options.size))));
    icon.setIsMask(!options.showsUpdateBadge);
    return icon;
}

QIcon appIcon(int size)
{
    return QIcon(new DrawnIconEngine(&AppIconArtwork::paint, size));
}

} // namespace Tavik::TavikIconFactory
