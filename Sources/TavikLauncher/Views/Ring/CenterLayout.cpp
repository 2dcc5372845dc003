// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Views/Ring/CenterLayout.h>

#include <QFontMetricsF>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace Tavik::CenterLayout {

namespace {

constexpr double gap = 7.0;
constexpr double leastFieldWidth = 130.0;
constexpr double clearance = 3.0; // Between a label and the band.
constexpr double leastNameScale = 0.85;
constexpr double leastPadding = 8.0;

QFont textFont(double size, double scale, QFont::Weight weight = QFont::Normal)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(qRound(size * scale));
    font.setWeight(weight);
    return font;
}

double widthOf(const QFont& font, const QString& text)
{
    return std::ceil(QFontMetricsF(font).horizontalAdvance(text));
}

QList<Row> rows(const RingCenter& center)
{
    QList<Row> result;
    if (!center.indicator.isEmpty()) {
        result << Row::indicator;
    }
    if (!center.launchHint.isEmpty() && center.query.isEmpty()) {
        result << Row::launchHint;
    } else if (center.query.isEmpty() && !center.selectedName.isEmpty()) {
        // While a filter is typed the field stands first, else what is selected does.
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
Label wanted(Row row, const RingCenter& center, double scale)
{
    Label label{.row = row, .text = {}, .font = textFont(13, scale), .rect = {}};
    double room = 15; // Above and below the text together.
    double leastWidth = 0;
    switch (row) {
    case Row::indicator:
        label.text = center.indicator;
        label.font = textFont(11, scale, QFont::DemiBold);
        label.padding = 16.5;
        room = 6;
        break;
    case Row::name:
        label.text = center.selectedName;
        label.font = textFont(14, scale, QFont::DemiBold);
        label.padding = 13;
        label.cornerRadius = 10;
        break;
    case Row::field:
        label.text = center.query;
        label.padding = 14;
        leastWidth
            = std::max(leastFieldWidth, widthOf(label.font, center.hint) + 2 * label.padding);
        break;
    case Row::message:
        label.text = center.message;
        label.padding = 13;
        label.cornerRadius = 10;
        break;
    case Row::spinner:
    case Row::launchHint:
        leastWidth = 24;
        room = 9;
        break;
    }
    const double height = std::ceil(QFontMetricsF(label.font).height()) + room;
    const double width = std::max(leastWidth, widthOf(label.font, label.text) + 2 * label.padding);
    label.rect = QRectF(-width / 2, -height / 2, width, height);
    if (label.cornerRadius == 0) {
        label.cornerRadius = height / 2;
    }
    return label;
}

/// The widest label that stays inside the hole at this height: its corners must not touch the band.
double widthInHole(const RingGeometry& ring, const Label& label)
{
    const double farthest = std::max(std::abs(label.rect.top() - ring.center.y()),
                                     std::abs(label.rect.bottom() - ring.center.y()));
    // The rounding lets the corner's own circle touch instead of the corner.
    const double y = std::max(farthest - label.cornerRadius, 0.0);
    const double reach = ring.innerRadius - clearance - label.cornerRadius;
    return 2 * (std::sqrt(std::max(reach * reach - y * y, 0.0)) + label.cornerRadius);
}

/// Puts the labels one below the other about the centre. A field that fades gives up its place.
void stack(QList<Label>& labels, const RingScene& scene)
{
    const auto shareOf = [&](const Label& label) {
        return label.row == Row::field ? std::clamp(scene.center.fieldOpacity, 0.0, 1.0) : 1.0;
    };
    double height = -gap;
    for (const Label& label : labels) {
        height += shareOf(label) * (label.rect.height() + gap);
    }
    const QPointF center = scene.geometry.center;
    double top = center.y() - std::max(height, 0.0) / 2;
    for (Label& label : labels) {
        const double share = shareOf(label);
        label.rect.moveCenter({center.x(), top + share * label.rect.height() / 2});
        top += share * (label.rect.height() + gap);
    }
}

Label* find(QList<Label>& labels, Row row)
{
    const auto found = std::ranges::find(labels, row, &Label::row);
    return found == labels.end() ? nullptr : &*found;
}

void resize(Label& label, double width, double height)
{
    const QPointF center = label.rect.center();
    label.rect.setSize({width, height});
    label.rect.moveCenter(center);
}

/// Where `text` parts best into two lines of much the same width; 0 when it is a single word.
qsizetype middleSpace(const QString& text, const QFont& font)
{
    qsizetype best = 0;
    double least = 0;
    for (qsizetype at = text.indexOf(u' '); at > 0; at = text.indexOf(u' ', at + 1)) {
        const double width
            = std::max(widthOf(font, text.left(at)), widthOf(font, text.mid(at + 1)));
        if (best == 0 || width < least) {
            best = at;
            least = width;
        }
    }
    return best;
}

/// Has a long name shrink a little, then take a second line, then lose its middle: what tells two
/// applications of one maker apart is mostly the last word.
void fitName(QList<Label>& labels, const RingScene& scene)
{
    Label* name = find(labels, Row::name);
    if (!name) {
        return;
    }
    const QFont full = name->font;
    const QString text = name->text;
    const double lineHeight = name->rect.height();
    const auto room = [&] {
        return widthInHole(scene.geometry, *name) - 2 * leastPadding;
    };
    for (int size = full.pixelSize(); size >= qRound(full.pixelSize() * leastNameScale); --size) {
        name->font.setPixelSize(size);
        const double width = widthOf(name->font, text);
        if (width <= room()) {
            resize(
                *name, std::min(width + 2 * name->padding, room() + 2 * leastPadding), lineHeight);
            name->padding = (name->rect.width() - width) / 2;
            return;
        }
    }
    const double smallLine = std::ceil(QFontMetricsF(name->font).height());
    const qsizetype space = middleSpace(text, name->font);
    const QFontMetricsF metrics(name->font);
    if (space > 0) {
        resize(*name, name->rect.width(), smallLine * 2 + 10);
        stack(labels, scene);
        name->text = metrics.elidedText(text.left(space), Qt::ElideRight, room()) + u'\n'
            + metrics.elidedText(text.mid(space + 1), Qt::ElideLeft, room());
    } else {
        name->text = metrics.elidedText(text, Qt::ElideMiddle, room());
    }
    double widest = 0;
    for (const QString& line : name->text.split(u'\n')) {
        widest = std::max(widest, widthOf(name->font, line));
    }
    resize(*name,
           std::min(widest + 2 * name->padding, room() + 2 * leastPadding),
           name->rect.height());
    name->padding = leastPadding;
}

/// What the label is to show uncut; a query may be of any length.
const QString& textIn(const Label& label, const RingScene& scene)
{
    return label.row == Row::field ? scene.center.hint : label.text;
}

/// The pin stands where others have nothing.
double leastPaddingOf(const Label& label)
{
    return label.row == Row::indicator ? label.padding : leastPadding;
}

bool fits(const Label& label, const RingScene& scene)
{
    const double room = widthInHole(scene.geometry, label);
    if (label.row == Row::launchHint) {
        return label.rect.width() <= room && label.rect.width() > label.rect.height();
    }
    return widthOf(label.font, textIn(label, scene)) + 2 * leastPaddingOf(label) <= room;
}

/// Finds the largest text and the best width for the hint, beside whatever else is shown.
void fitHint(QList<Label>& labels, const RingScene& scene, double scale)
{
    Label* hint = find(labels, Row::launchHint);
    if (!hint) {
        return;
    }
    constexpr int largestText = 13;
    constexpr int smallestText = 9;
    hint->text = scene.center.launchHint;
    hint->padding = 10;
    hint->cornerRadius = 12;
    const double widest = 2 * scene.geometry.innerRadius - 8;
    for (int size = qRound(largestText * scale); size >= smallestText; --size) {
        hint->font.setPixelSize(size);
        const QFontMetricsF metrics(hint->font);
        for (double width = widest; width > widest / 2; width -= 4) {
            const QRectF text = metrics.boundingRect(QRectF(0, 0, width - 2 * hint->padding, 1000),
                                                     Qt::AlignCenter | Qt::TextWordWrap,
                                                     hint->text);
            resize(*hint,
                   std::ceil(text.width()) + 2 * hint->padding,
                   std::ceil(text.height()) + hint->padding);
            stack(labels, scene);
            if (std::ranges::all_of(labels, [&](const Label& each) { return fits(each, scene); })) {
                return;
            }
        }
    }
}

/// With texts of one scale; whether all of them have room.
bool layOut(QList<Label>& placed, const RingScene& scene, double scale)
{
    placed.clear();
    for (const Row row : rows(scene.center)) {
        placed << wanted(row, scene.center, scale);
    }
    stack(placed, scene);
    fitHint(placed, scene, scale);
    fitName(placed, scene);
    const bool haveRoom = std::ranges::all_of(
        placed, [&](const Label& label) { return label.row == Row::name || fits(label, scene); });
    for (Label& label : placed) {
        const double width = std::min(label.rect.width(), widthInHole(scene.geometry, label));
        resize(label, width, label.rect.height());
        if (label.row == Row::field || label.row == Row::message) {
            const double spare = (width - widthOf(label.font, textIn(label, scene))) / 2;
            label.padding = std::clamp(spare, leastPadding, label.padding);
        }
    }
    // Better all texts a little smaller than this one tiny beside large ones.
    constexpr int readable = 11;
    const Label* hint = find(placed, Row::launchHint);
    return haveRoom && (!hint || hint->font.pixelSize() >= readable);
}

/// As large as the desktop's texts, unless the hole is too small for them.
QList<Label> layOut(const RingScene& scene)
{
    constexpr double usualScale = 1;
    constexpr double step = 0.1;
    QList<Label> placed;
    double scale = textScale();
    while (!layOut(placed, scene, scale) && scale > usualScale) {
        scale = std::max(scale - step, usualScale);
    }
    return placed;
}

/// What the last layout was made from. A frame asks for it several times, and the next frame mostly
/// for the same again.
struct Remembered
{
    RingCenter center;
    RingGeometry geometry;
    QFont font;
    QList<Label> labels;
};

} // namespace

QList<Label> labels(const RingScene& scene)
{
    static Remembered last; // Painting is the main thread's.
    const QFont font = QGuiApplication::font();
    RingGeometry geometry = scene.geometry;
    geometry.slotCount = 0;
    if (last.labels.isEmpty() || !(last.center == scene.center) || !(last.geometry == geometry)
        || last.font != font) {
        last = {scene.center, geometry, font, layOut(scene)};
    }
    return last.labels;
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
    return std::ranges::find(placed, Row::field, &Label::row)->rect;
}

} // namespace Tavik::CenterLayout
