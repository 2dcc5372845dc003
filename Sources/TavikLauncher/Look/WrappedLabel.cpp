// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/WrappedLabel.h>

#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <algorithm>

namespace Tavik {

namespace {

struct Lines
{
    int count = 0;
    double last = 0; ///< The length of the last one, in points.
    double longest = 0;
};

Lines linesAt(int width, QTextLayout& layout)
{
    Lines lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines.last = line.naturalTextWidth();
        lines.longest = std::max(lines.longest, lines.last);
        ++lines.count;
    }
    layout.endLayout();
    return lines;
}

/// The width to set `text` in where there is room for `width`.
int wellFilledWidth(const QString& text, const QFont& font, int width)
{
    QTextLayout layout(text, font);
    const Lines widest = linesAt(width, layout);
    constexpr double leastShare = 0.6;
    const auto isFilled = [](const Lines& lines, int inWidth) {
        return lines.count < 2 || lines.last > leastShare * inWidth;
    };
    if (isFilled(widest, width)) {
        return width;
    }
    // As little narrower as does: even lines all through would leave much of the room empty.
    const int narrowest = WrappedLabel::narrowestWidth(text, font, width);
    constexpr int steps = 8;
    for (int step = 1; step < steps; ++step) {
        const int narrower = width - (width - narrowest) * step / steps;
        const Lines lines = linesAt(narrower, layout);
        if (lines.count == widest.count && isFilled(lines, narrower)) {
            return narrower;
        }
    }
    return narrowest;
}

} // namespace

int WrappedLabel::narrowestWidth(const QString& text, const QFont& font, int width)
{
    QTextLayout layout(text, font);
    const int count = linesAt(width, layout).count;
    int low = 0;
    int high = width;
    while (high - low > 1) {
        const int middle = (low + high) / 2;
        const Lines lines = linesAt(middle, layout);
        (lines.count == count && lines.longest <= middle ? high : low) = middle;
    }
    return high;
}

WrappedLabel::WrappedLabel(const QString& text, QWidget* parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void WrappedLabel::paintEvent(QPaintEvent* event)
{
    if (!wordWrap() || textInteractionFlags().testFlag(Qt::TextSelectableByMouse)) {
        QLabel::paintEvent(event);
        return;
    }
    const Qt::Alignment shown = QStyle::visualAlignment(layoutDirection(), alignment());
    const QRect room = contentsRect();
    // Of the same count of lines, so that the height which the layout gave is the right one.
    const int width = wellFilledWidth(text(), font(), room.width());
    const QRect filled = QStyle::alignedRect(
        Qt::LeftToRight, shown & Qt::AlignHorizontal_Mask, QSize(width, room.height()), room);
    QPainter painter(this);
    // A text is set as its own language is written, whatever the window's.
    painter.setLayoutDirection(text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    style()->drawItemText(&painter,
                          filled,
                          static_cast<int>(shown) | Qt::AlignAbsolute | Qt::TextWordWrap,
                          palette(),
                          isEnabled(),
                          text(),
                          foregroundRole());
}

} // namespace Tavik
