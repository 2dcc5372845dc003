// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/WindowStyle.h>
#include <TavikLauncher/Views/Windows/SettingsDiagram.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <array>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr double diagramWidth = 300;
constexpr double largestGrowth = 4.0 / 3; // More than that has no room in the window.
constexpr double headHeight = 30;
constexpr double rowHeight = 30;
constexpr double inset = 12;
constexpr double iconSide = 14;
constexpr double rowText = 12;
constexpr double headText = 13;
constexpr double calloutText = 10;
constexpr double dimming = 0.62; // Less could not be read on white.
constexpr double panelRadius = 10;
constexpr double bottomRoom = 6;

QColor faded(QColor color, double opacity)
{
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

double growth()
{
    return std::clamp(textScale(), 1.0, largestGrowth);
}

} // namespace

SettingsDiagram::SettingsDiagram(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SettingsDiagram::sizeHint() const
{
    return {static_cast<int>(diagramWidth * growth()),
            static_cast<int>(headHeight + 3 * rowHeight + bottomRoom)};
}

void SettingsDiagram::paintEvent(QPaintEvent*)
{
    const std::array rows{DiagramRow{Texts::tr("Input Monitoring"), Symbol::keyboard, false},
                          DiagramRow{Texts::tr("Full Disk Access"), Symbol::drive, false},
                          DiagramRow{Texts::tr("Accessibility"), Symbol::figure, true}};
    QPainter painter(this);
    painter.setLayoutDirection(Qt::LeftToRight); // As it is drawn, wherever it stands.
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF panel = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(WindowStyle::hairline(palette()), 1));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(panel, panelRadius, panelRadius);

    const QRectF head(panel.left() + inset, panel.top(), panel.width() - 2 * inset, headHeight);
    painter.setFont(WindowStyle::font(headText, QFont::DemiBold));
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(head, Qt::AlignVCenter | Qt::AlignLeft, Texts::tr("Privacy & Security"));

    QRectF place(panel.left(), head.bottom(), panel.width(), rowHeight);
    for (const DiagramRow& row : rows) {
        paintRow(painter, row, place);
        if (row.highlighted) {
            paintCallout(painter, place);
        }
        place.translate(0, rowHeight);
    }
}

void SettingsDiagram::paintRow(QPainter& painter, const DiagramRow& row, const QRectF& place) const
{
    const QColor tint = WindowStyle::tint(palette());
    painter.save();
    if (row.highlighted) {
        constexpr double radius = 7;
        painter.setPen(Qt::NoPen);
        painter.setBrush(faded(tint, 0.16));
        painter.drawRoundedRect(place.adjusted(5, 1, -5, -1), radius, radius);
    } else {
        painter.setOpacity(dimming);
    }
    const QColor ink = palette().color(QPalette::Text);
    const double middle = place.center().y();
    const auto square = [middle](double left, double side) {
        return QRectF(left, middle - side / 2, side, side);
    };
    paintSymbol(painter,
                row.icon,
                square(place.left() + inset, iconSide + 2),
                row.highlighted ? tint : ink);
    constexpr double textLeft = inset + iconSide + 10;
    painter.setFont(WindowStyle::font(rowText, row.highlighted ? QFont::DemiBold : QFont::Normal));
    painter.setPen(ink);
    painter.drawText(
        place.adjusted(textLeft, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, row.label);
    constexpr double chevronSide = 9;
    paintSymbol(painter,
                Symbol::chevronRight,
                square(place.right() - inset - chevronSide, chevronSide),
                ink);
    painter.restore();
}

void SettingsDiagram::paintCallout(QPainter& painter, const QRectF& row) const
{
    const QString text = Texts::tr("Enable here");
    const QFont font = WindowStyle::font(calloutText, QFont::DemiBold);
    const double textWidth = QFontMetricsF(font).horizontalAdvance(text);
    // Above the row, near its chevron, where the neighbours' labels have ended.
    const double height = 17 * growth();
    constexpr double pointer = 8;
    QRectF pill(0, 0, textWidth + 16, height);
    pill.moveBottomRight(QPointF(row.right() - 26, row.top() - pointer + 3));
    const QColor tint = WindowStyle::tint(palette());
    painter.setPen(Qt::NoPen);
    painter.setBrush(tint);
    painter.drawRoundedRect(pill, height / 2, height / 2);
    paintSymbol(painter,
                Symbol::triangleDown,
                QRectF(pill.center().x() - pointer / 2, pill.bottom() - 2, pointer, pointer),
                tint);
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(pill, Qt::AlignCenter, text);
}

} // namespace Tavik
