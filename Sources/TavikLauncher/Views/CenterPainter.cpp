// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/CenterPainter.h>
#include <TavikLauncher/Views/ToastPill.h>

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Tavik::CenterPainter {

namespace {

constexpr double gap = 7.0;
constexpr double fieldHeight = 30.0;
constexpr double fieldWidth = 130.0;
constexpr double fieldPadding = 14.0;
constexpr double nameHeight = 32.0;
constexpr double namePadding = 13.0;
constexpr double indicatorHeight = 19.0;
constexpr double spinnerHeight = 24.0;
constexpr double nameCornerRadius = 10.0;
constexpr double hintCornerRadius = 12.0;
constexpr double clearance = 3.0; // Between a label and the band.
constexpr QColor dimText(255, 255, 255, 150);

QFont textFont(double size, QFont::Weight weight = QFont::Normal)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(static_cast<int>(std::lround(size)));
    font.setWeight(weight);
    return font;
}

QFont fieldFont()
{
    return textFont(13);
}
QFont nameFont()
{
    return textFont(14, QFont::DemiBold);
}
QFont indicatorFont()
{
    return textFont(11, QFont::DemiBold);
}

enum class Row {
    indicator,
    name,
    field,
    message,
    spinner,
    launchHint,
};

struct PlacedRow
{
    Row row;
    QRectF rect;
};

double cornerRadius(const PlacedRow& placed)
{
    switch (placed.row) {
    case Row::name:
    case Row::message:
        return nameCornerRadius;
    case Row::launchHint:
        return hintCornerRadius;
    case Row::indicator:
    case Row::field:
    case Row::spinner:
        break;
    }
    return placed.rect.height() / 2;
}

QList<Row> rows(const RingCenter& center)
{
    if (!center.launchHint.isEmpty() && center.query.isEmpty()) {
        return {Row::launchHint};
    }
    QList<Row> result;
    if (!center.indicator.isEmpty()) {
        result << Row::indicator;
    }
    // While a filter is typed the field stands first, else what is selected does.
    if (center.query.isEmpty() && !center.selectedName.isEmpty()) {
        result << Row::name;
    }
    result << Row::field;
    if (center.spinnerStep >= 0) {
        result << Row::spinner;
    } else if (!center.message.isEmpty()) {
        result << Row::message;
    } else if (!center.query.isEmpty() && !center.selectedName.isEmpty()) {
        result << Row::name;
    }
    return result;
}

double height(Row row)
{
    switch (row) {
    case Row::indicator:
        return indicatorHeight;
    case Row::field:
        return fieldHeight;
    case Row::spinner:
        return spinnerHeight;
    case Row::name:
    case Row::message:
        return nameHeight;
    case Row::launchHint:
        break;
    }
    return 0;
}

/// The widest label that stays inside the hole at this height: its corners must not touch the band.
double widthInHole(const RingGeometry& ring, double top, double bottom, double cornerRadius)
{
    const double radius = ring.innerRadius - clearance;
    const double farthest
        = std::max(std::abs(top - ring.center.y()), std::abs(bottom - ring.center.y()));
    // The rounding lets the corner's own circle touch instead of the corner.
    const double y = std::max(farthest - cornerRadius, 0.0);
    const double reach = radius - cornerRadius;
    const double x = std::sqrt(std::max(reach * reach - y * y, 0.0)) + cornerRadius;
    return 2 * x;
}

double wantedWidth(Row row, const RingCenter& center)
{
    const auto textWidth = [](const QFont& font, const QString& text) {
        return std::ceil(QFontMetricsF(font).horizontalAdvance(text));
    };
    switch (row) {
    case Row::indicator:
        return textWidth(indicatorFont(), center.indicator) + 33;
    case Row::field:
        return std::max(fieldWidth, textWidth(fieldFont(), center.query) + 2 * fieldPadding);
    case Row::name:
        return textWidth(nameFont(), center.selectedName) + 2 * namePadding;
    case Row::message:
        return textWidth(fieldFont(), center.message) + 2 * namePadding;
    case Row::spinner:
        return spinnerHeight;
    case Row::launchHint:
        break;
    }
    return 0;
}

struct HintLayout
{
    QFont font;
    QRectF rect;
};

/// The hint's label for one font and width, as high as its text needs.
HintLayout hintLayout(const RingScene& scene, const QFont& font, double width)
{
    constexpr double padding = 10;
    const QPointF center = scene.geometry.center;
    const QRectF text = QFontMetricsF(font).boundingRect(QRectF(0, 0, width - 2 * padding, 1000),
                                                         Qt::AlignCenter | Qt::TextWordWrap,
                                                         scene.center.launchHint);
    const QSizeF size(std::ceil(text.width()) + 2 * padding, std::ceil(text.height()) + padding);
    return {font,
            QRectF(center.x() - size.width() / 2,
                   center.y() - size.height() / 2,
                   size.width(),
                   size.height())};
}

/// The largest text whose label fits into the hole and is wider than high.
HintLayout hintLayout(const RingScene& scene)
{
    constexpr int largestText = 13;
    constexpr int smallestText = 9;
    const RingGeometry& ring = scene.geometry;
    HintLayout layout;
    for (int size = largestText; size >= smallestText; --size) {
        for (double width = 2 * ring.innerRadius - 8; width > ring.innerRadius; width -= 4) {
            layout = hintLayout(scene, textFont(size), width);
            const QRectF& rect = layout.rect;
            if (rect.width() > rect.height()
                && rect.width() <= widthInHole(ring, rect.top(), rect.bottom(), hintCornerRadius)) {
                return layout;
            }
        }
    }
    return layout;
}

QList<PlacedRow> placedRows(const RingScene& scene)
{
    const RingGeometry& ring = scene.geometry;
    const QList<Row> shown = rows(scene.center);
    if (shown == QList<Row>{Row::launchHint}) {
        return {{Row::launchHint, hintLayout(scene).rect}};
    }
    double total = -gap;
    for (const Row row : shown) {
        total += height(row) + gap;
    }
    QList<PlacedRow> placed;
    double top = ring.center.y() - total / 2;
    for (const Row row : shown) {
        const double rowHeight = height(row);
        const double available = widthInHole(ring, top, top + rowHeight, rowHeight / 2);
        const double width = std::min(wantedWidth(row, scene.center), available);
        placed << PlacedRow{row, QRectF(ring.center.x() - width / 2, top, width, rowHeight)};
        top += rowHeight + gap;
    }
    return placed;
}

void drawText(
    QPainter& painter, const QRectF& rect, const QFont& font, const QString& text, QColor color)
{
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine, text);
}

QString elided(const QFont& font, const QString& text, double width, Qt::TextElideMode mode)
{
    return QFontMetricsF(font).elidedText(text, mode, width);
}

/// A drawing pin, leaning, in a square of `side` points about `center`.
void drawPin(QPainter& painter, QPointF center, double side)
{
    painter.save();
    painter.translate(center);
    painter.scale(side / 16, side / 16);
    QPainterPath pin;
    pin.addRoundedRect(QRectF(-3.4, -7, 6.8, 2.2), 1, 1);
    pin.addRect(QRectF(-2.2, -5.2, 4.4, 4.6));
    pin.addRoundedRect(QRectF(-4.8, -1.2, 9.6, 2.4), 1.2, 1.2);
    pin.addRoundedRect(QRectF(-0.7, 0.6, 1.4, 6.6), 0.7, 0.7);
    pin.setFillRule(Qt::WindingFill);
    painter.fillPath(pin, Qt::white);
    painter.restore();
}

void paintIndicator(QPainter& painter, const RingScene& scene, const QRectF& rect)
{
    const ToastPill pill{.isProminent = false,
                         .opacity = scene.style.pillOpacity,
                         .cornerRadius = rect.height() / 2};
    pill.paint(painter, rect, scene.isOpaque);
    drawPin(painter, QPointF(rect.left() + 12, rect.center().y()), 10);
    drawText(
        painter, rect.adjusted(15, 0, 0, 0), indicatorFont(), scene.center.indicator, Qt::white);
}

void paintField(QPainter& painter, const RingScene& scene, const QRectF& rect)
{
    const RingCenter& center = scene.center;
    const double outerOpacity = painter.opacity();
    painter.setOpacity(outerOpacity * center.fieldOpacity);
    const ToastPill pill{
        .isProminent = true, .opacity = scene.style.pillOpacity, .cornerRadius = rect.height() / 2};
    pill.paint(painter, rect, scene.isOpaque);
    const QRectF inner = rect.adjusted(fieldPadding, 0, -fieldPadding, 0);
    if (center.query.isEmpty()) {
        const QString hint = elided(fieldFont(), center.hint, inner.width(), Qt::ElideRight);
        drawText(painter, inner, fieldFont(), hint, dimText);
    } else {
        const QString text = elided(fieldFont(), center.query, inner.width(), Qt::ElideLeft);
        drawText(painter, inner, fieldFont(), text, Qt::white);
        const QFontMetricsF metrics(fieldFont());
        const double reach = metrics.horizontalAdvance(text) / 2 + 1;
        const double caret = inner.center().x() + (text.isRightToLeft() ? -reach - 1 : reach);
        painter.fillRect(
            QRectF(caret, rect.center().y() - metrics.height() / 2, 1.5, metrics.height()),
            scene.style.accent);
    }
    painter.setOpacity(outerOpacity);
}

void paintLabel(QPainter& painter, const RingScene& scene, const PlacedRow& placed)
{
    const bool isName = placed.row == Row::name;
    const QFont font = isName ? nameFont() : fieldFont();
    const QString& text = isName ? scene.center.selectedName : scene.center.message;
    const ToastPill pill{.isProminent = true,
                         .opacity = scene.style.pillOpacity,
                         .cornerRadius = cornerRadius(placed)};
    pill.paint(painter, placed.rect, scene.isOpaque);
    const QRectF inner = placed.rect.adjusted(namePadding, 0, -namePadding, 0);
    drawText(painter,
             inner,
             font,
             elided(font, text, inner.width() + 1, Qt::ElideRight),
             isName ? QColor(Qt::white) : dimText);
}

void paintLaunchHint(QPainter& painter, const RingScene& scene)
{
    const HintLayout layout = hintLayout(scene);
    const ToastPill pill{
        .isProminent = true, .opacity = scene.style.pillOpacity, .cornerRadius = hintCornerRadius};
    pill.paint(painter, layout.rect, scene.isOpaque);
    painter.setFont(layout.font);
    painter.setPen(Qt::white);
    painter.drawText(layout.rect.adjusted(8, 3, -8, -3),
                     Qt::AlignCenter | Qt::TextWordWrap,
                     scene.center.launchHint);
}

void paintSpinner(QPainter& painter, const RingScene& scene, const QRectF& rect)
{
    constexpr int spokes = 12;
    const ToastPill pill{.isProminent = false,
                         .opacity = scene.style.pillOpacity,
                         .cornerRadius = rect.height() / 2};
    pill.paint(painter, rect, scene.isOpaque);
    painter.setBrush(Qt::NoBrush);
    for (int i = 0; i < spokes; ++i) {
        const double angle = 2 * std::numbers::pi * i / spokes;
        const QPointF direction(std::sin(angle), -std::cos(angle));
        const int age = (scene.center.spinnerStep - i + spokes) % spokes;
        painter.setPen(
            QPen(withOpacity(Qt::white, 1.0 - 0.07 * age), 1.6, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(rect.center() + direction * 4, rect.center() + direction * 7.5);
    }
}

} // namespace

void paint(QPainter& painter, const RingScene& scene)
{
    for (const PlacedRow& placed : placedRows(scene)) {
        switch (placed.row) {
        case Row::indicator:
            paintIndicator(painter, scene, placed.rect);
            break;
        case Row::field:
            paintField(painter, scene, placed.rect);
            break;
        case Row::name:
        case Row::message:
            paintLabel(painter, scene, placed);
            break;
        case Row::spinner:
            paintSpinner(painter, scene, placed.rect);
            break;
        case Row::launchHint:
            paintLaunchHint(painter, scene);
            break;
        }
    }
}

QRectF fieldRect(const RingScene& scene)
{
    for (const PlacedRow& placed : placedRows(scene)) {
        if (placed.row == Row::field) {
            return placed.rect;
        }
    }
    const QPointF center = scene.geometry.center;
    return {center.x() - fieldWidth / 2, center.y() - fieldHeight / 2, fieldWidth, fieldHeight};
}

QList<Pill> pills(const RingScene& scene)
{
    QList<Pill> shown;
    for (const PlacedRow& placed : placedRows(scene)) {
        if (placed.row != Row::field || scene.center.fieldOpacity > 0) {
            shown << Pill{placed.rect, cornerRadius(placed)};
        }
    }
    return shown;
}

} // namespace Tavik::CenterPainter
