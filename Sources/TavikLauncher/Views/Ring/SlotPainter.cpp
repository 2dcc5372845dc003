// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Views/Ring/SlotPainter.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tavik::SlotPainter {

namespace {

constexpr double emphasisScale = RingGeometry::selectedScale - 1;
constexpr double dimmedOpacity = 0.72;
constexpr double spriteMargin = 8; // Room for an icon's shadow.
constexpr double iconCorner = 12;
constexpr double dotRadius = 3.0;
constexpr double dotRim = 1.5;
constexpr double dotGap = 2.5;

/// At device resolution. The one drawn last is remembered: while a highlight moves two are painted
/// in every frame, and they are the same.
const QImage& haloImage(const RingScene& scene)
{
    static struct
    {
        double size = 0;
        double ratio = 0;
        QColor color;
        QImage image;
    } last;
    const double size = scene.geometry.drawnHaloSize();
    const double ratio = scene.devicePixelRatio;
    if (last.size == size && last.ratio == ratio && last.color == scene.style.accent) {
        return last.image;
    }
    const int side = static_cast<int>(std::ceil(size * ratio)) + 2;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr double lineWidth = 2;
    const double radius = (size - lineWidth) / 2 * ratio;
    painter.setPen(QPen(withOpacity(scene.style.accent, 0.35), lineWidth * ratio));
    painter.setBrush(withOpacity(scene.style.accent, 0.22));
    painter.drawEllipse(QPointF(side, side) / 2, radius, radius);
    painter.end();
    image.setDevicePixelRatio(ratio);
    last = {.size = size, .ratio = ratio, .color = scene.style.accent, .image = image};
    return last.image;
}

/// Puts an image that is already at its final size exactly on the device's pixels.
void drawOnPixels(QPainter& painter, QPointF center, const QImage& image, double ratio)
{
    const QPointF origin = painter.transform().map(center) * ratio;
    const QPointF corner(std::round(origin.x() - image.width() / 2.0),
                         std::round(origin.y() - image.height() / 2.0));
    const QTransform inverse = painter.transform().inverted();
    painter.drawImage(inverse.map(corner / ratio), image);
}

void paintHalo(QPainter& painter, const RingScene& scene, const RingIcon& icon)
{
    const double strength = std::clamp(icon.emphasis, 0.0, 1.0);
    if (strength <= 0) {
        return;
    }
    const double outerOpacity = painter.opacity();
    painter.setOpacity(outerOpacity * strength);
    drawOnPixels(painter, icon.center, haloImage(scene), scene.devicePixelRatio);
    painter.setOpacity(outerOpacity);
}

void paintIcon(QPainter& painter, const RingScene& scene, const RingIcon& icon)
{
    const double strength = std::clamp(icon.emphasis, 0.0, 1.0);
    const bool dims = !icon.isRunning && icon.dimsWhenNotRunning;
    const double opacity = dims ? dimmedOpacity + (1 - dimmedOpacity) * strength : 1.0;
    const double outerOpacity = painter.opacity();
    painter.setOpacity(outerOpacity * opacity);

    if (icon.icon.isNull()) {
        const double side = scene.geometry.drawnIconSize() * 0.8;
        painter.setPen(Qt::NoPen);
        painter.setBrush(withOpacity(Qt::white, 0.10));
        painter.drawRoundedRect(
            QRectF(icon.center.x() - side / 2, icon.center.y() - side / 2, side, side),
            iconCorner,
            iconCorner);
    } else if (icon.emphasis == 0) {
        drawOnPixels(painter, icon.center, icon.icon, scene.devicePixelRatio);
    } else if (icon.emphasis == 1 && !icon.emphasizedIcon.isNull()) {
        drawOnPixels(painter, icon.center, icon.emphasizedIcon, scene.devicePixelRatio);
    } else {
        const bool isSharp = !icon.emphasizedIcon.isNull();
        const QImage& source = isSharp ? icon.emphasizedIcon : icon.icon;
        const double scale
            = (1 + emphasisScale * icon.emphasis) / (isSharp ? 1 + emphasisScale : 1.0);
        const QSizeF size = source.deviceIndependentSize() * scale;
        const QPointF corner = icon.center - QPointF(size.width(), size.height()) / 2;
        painter.drawImage(QRectF(corner, size), source);
    }
    painter.setOpacity(outerOpacity);
}

double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

QColor over(const QColor& upper, const QColor& lower)
{
    const float part = upper.alphaF();
    const auto mix = [part](float above, float below) {
        return above * part + below * (1 - part);
    };
    return QColor::fromRgbF(mix(upper.redF(), lower.redF()),
                            mix(upper.greenF(), lower.greenF()),
                            mix(upper.blueF(), lower.blueF()));
}

/// What lies below the mark, on a desktop that is neither light nor dark.
QColor groundOf(const RingScene& scene, const RingIcon& icon)
{
    constexpr QColor desktop(110, 110, 110);
    const QColor band = over(scene.style.bandTop, desktop);
    const QPointF out = icon.center - scene.geometry.center;
    const double degrees = std::atan2(out.y(), out.x()) * 180 / M_PI;
    const double aside = std::abs(std::remainder(scene.wedgeDegrees - degrees, 360.0));
    const bool isHighlighted = scene.showsWedge && aside < scene.geometry.sectorDegrees() / 2;
    return isHighlighted ? over(scene.style.highlightTop, band) : band;
}

/// A rim keeps the mark visible where its colour is that of the ground, as on the highlight. It is
/// hollow for what is still starting.
void paintDot(QPainter& painter, const RingScene& scene, const RingIcon& icon)
{
    if (!scene.style.showsRunningDot || !(icon.isRunning || icon.isStarting)) {
        return;
    }
    const double ground = luminance(groundOf(scene, icon)) + 0.05;
    const double dot = luminance(scene.style.dot) + 0.05;
    constexpr double enough = 2.4;
    const bool stands = std::max(ground, dot) / std::min(ground, dot) >= enough;
    const QColor contrast = ground < 0.35 ? Qt::white : Qt::black;
    painter.setPen(Qt::NoPen);
    painter.setBrush(stands ? withOpacity(Qt::black, 0.35) : withOpacity(contrast, 0.95));
    const QPointF place = dotCenter(scene, icon);
    const double rim = stands ? dotRadius + 0.8 : dotRadius + dotRim;
    painter.drawEllipse(place, rim, rim);
    painter.setBrush(scene.style.dot);
    painter.drawEllipse(place, dotRadius, dotRadius);
    if (!icon.isRunning) {
        painter.setBrush(groundOf(scene, icon));
        painter.drawEllipse(place, dotRadius - 1, dotRadius - 1);
    }
}

} // namespace

QPointF dotCenter(const RingScene& scene, const RingIcon& icon)
{
    const RingGeometry& ring = scene.geometry;
    const QPointF offset = icon.center - ring.center;
    const double length = std::hypot(offset.x(), offset.y());
    const QPointF out = length > 0 ? offset / length : QPointF(0, -1);
    // How far the icon with its rounded corners reaches in this direction.
    const double half = ring.drawnIconSize() / 2 * (1 + emphasisScale * icon.emphasis);
    const double corner = std::min(iconCorner, half);
    const double reach = (half - corner) * (std::abs(out.x()) + std::abs(out.y())) + corner;
    const double wanted = length + reach + dotGap + dotRadius;
    return ring.center + out * std::min(wanted, ring.outerRadius - dotRadius - dotRim);
}

QRectF bounds(const RingScene& scene, const RingIcon& icon)
{
    const RingGeometry& ring = scene.geometry;
    constexpr double overshoot = 1.05 * RingGeometry::selectedScale;
    const double reach = std::max(ring.drawnHaloSize() / 2 + 1,
                                  (ring.drawnIconSize() / 2 + spriteMargin) * overshoot);
    const QRectF square(icon.center.x() - reach, icon.center.y() - reach, 2 * reach, 2 * reach);
    const QPointF dot = dotCenter(scene, icon);
    constexpr double rim = dotRadius + dotRim + 2;
    return square.united(QRectF(dot.x() - rim, dot.y() - rim, 2 * rim, 2 * rim));
}

void paintSlots(QPainter& painter, const RingScene& scene, const IsDirty& isDirty)
{
    const RingIcon* selected = nullptr;
    QList<const RingIcon*> others;
    for (qsizetype slot = 0; slot < scene.icons.size(); ++slot) {
        const RingIcon& icon = scene.icons.at(slot);
        if (!isDirty(bounds(scene, icon))) {
            continue;
        }
        if (slot == scene.selectedSlot) {
            selected = &icon;
        } else {
            others.append(&icon);
        }
    }
    for (const RingIcon* icon : others) {
        paintHalo(painter, scene, *icon);
        paintIcon(painter, scene, *icon);
    }
    for (const RingIcon* icon : others) {
        paintDot(painter, scene, *icon);
    }
    if (selected) {
        paintHalo(painter, scene, *selected);
        paintIcon(painter, scene, *selected);
        paintDot(painter, scene, *selected);
    }
}

} // namespace Tavik::SlotPainter
