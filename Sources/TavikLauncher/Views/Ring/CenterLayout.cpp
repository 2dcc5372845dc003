// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Ring/CenterLayout.h>

#include <QFontMetricsF>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace Tavik::CenterLayout {

namespace {

constexpr double gap = 7.0;
constexpr QSizeF leastField(130.0, 30.0);
constexpr double clearance = 3.0; // Between a label and the band.

QFont textFont(int size, QFont::Weight weight = QFont::Normal)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(size);
    font.setWeight(weight);
    return font;
}

QList<Row> rows(const RingCenter& center)
{
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

/// A label of the size that its text asks for, about the origin.
Label wanted(Row row, const RingCenter& center)
{
    Label label{.row = row, .text = {}, .font = textFont(13), .rect = {}};
    QSizeF least;
    switch (row) {
    case Row::indicator:
        label.text = center.indicator;
        label.font = textFont(11, QFont::DemiBold);
        label.padding = 16.5;
        least.setHeight(19);
        break;
    case Row::name:
        label.text = center.selectedName;
        label.font = textFont(14, QFont::DemiBold);
        label.padding = 13;
        label.cornerRadius = 10;
        least.setHeight(32);
        break;
    case Row::field:
        label.text = center.query;
        label.padding = 14;
        least = leastField;
        break;
    case Row::message:
        label.text = center.message;
        label.padding = 13;
        label.cornerRadius = 10;
        least.setHeight(32);
        break;
    case Row::spinner:
    case Row::launchHint:
        least = {24, 24};
        break;
    }
    const double textWidth = std::ceil(QFontMetricsF(label.font).horizontalAdvance(label.text));
    const double width = std::max(least.width(), textWidth + 2 * label.padding);
    label.rect = QRectF(-width / 2, -least.height() / 2, width, least.height());
    if (label.cornerRadius == 0) {
        label.cornerRadius = least.height() / 2;
    }
    return label;
}

/// The widest label that stays inside the hole at this height: its corners must not touch the band.
double widthInHole(const RingGeometry& ring, const QRectF& rect, double cornerRadius)
{
    const double farthest = std::max(std::abs(rect.top() - ring.center.y()),
                                     std::abs(rect.bottom() - ring.center.y()));
    // The rounding lets the corner's own circle touch instead of the corner.
    const double y = std::max(farthest - cornerRadius, 0.0);
    const double reach = ring.innerRadius - clearance - cornerRadius;
    return 2 * (std::sqrt(std::max(reach * reach - y * y, 0.0)) + cornerRadius);
}

/// The hint's label for one size of text and one width, as high as its text needs.
Label hintLabel(const RingScene& scene, int textSize, double width)
{
    Label label{.row = Row::launchHint,
                .text = scene.center.launchHint,
                .font = textFont(textSize),
                .padding = 10,
                .cornerRadius = 12,
                .rect = {}};
    const QRectF text = QFontMetricsF(label.font)
                            .boundingRect(QRectF(0, 0, width - 2 * label.padding, 1000),
                                          Qt::AlignCenter | Qt::TextWordWrap,
                                          label.text);
    label.rect.setSize(
        {std::ceil(text.width()) + 2 * label.padding, std::ceil(text.height()) + label.padding});
    label.rect.moveCenter(scene.geometry.center);
    return label;
}

/// The largest text whose label fits into the hole and is wider than high.
Label hintLabel(const RingScene& scene)
{
    constexpr int largestText = 13;
    constexpr int smallestText = 9;
    const RingGeometry& ring = scene.geometry;
    Label label;
    for (int size = largestText; size >= smallestText; --size) {
        const double widest = 2 * ring.innerRadius - 8;
        for (int narrower = 0; widest - narrower > ring.innerRadius; narrower += 4) {
            label = hintLabel(scene, size, widest - narrower);
            const QRectF& rect = label.rect;
            if (rect.width() > rect.height()
                && rect.width() <= widthInHole(ring, rect, label.cornerRadius)) {
                return label;
            }
        }
    }
    return label;
}

} // namespace

QList<Label> labels(const RingScene& scene)
{
    if (!scene.center.launchHint.isEmpty() && scene.center.query.isEmpty()) {
        return {hintLabel(scene)};
    }
    QList<Label> placed;
    double height = -gap;
    for (const Row row : rows(scene.center)) {
        placed << wanted(row, scene.center);
        height += placed.last().rect.height() + gap;
    }
    const RingGeometry& ring = scene.geometry;
    double top = ring.center.y() - height / 2;
    for (Label& label : placed) {
        label.rect.moveTop(top);
        label.rect.setWidth(
            std::min(label.rect.width(), widthInHole(ring, label.rect, label.cornerRadius)));
        label.rect.moveLeft(ring.center.x() - label.rect.width() / 2);
        top += label.rect.height() + gap;
    }
    return placed;
}

QList<Label> visibleLabels(const RingScene& scene)
{
    QList<Label> visible = labels(scene);
    visible.removeIf([&scene](const Label& label) {
        return label.row == Row::field && scene.center.fieldOpacity <= 0;
    });
    return visible;
}

QRectF fieldRect(const RingScene& scene)
{
    const QList<Label> placed = labels(scene);
    const auto field = std::ranges::find(placed, Row::field, &Label::row);
    if (field != placed.end()) {
        return field->rect;
    }
    QRectF rect({}, leastField);
    rect.moveCenter(scene.geometry.center);
    return rect;
}

} // namespace Tavik::CenterLayout
