// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Settings/ColorText.h>
#include <TavikLauncher/Views/SettingsWindow/ThemeTile.h>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace Tavik {

namespace {

constexpr double cornerRadius = 9;
constexpr double pictureHeight = 92;
constexpr double outerRadius = 36;
constexpr double innerRadius = 19;

/// Something to shine through, as a desktop would.
QLinearGradient backdrop(const QRectF& rect)
{
    QLinearGradient gradient(rect.topLeft(), rect.bottomRight());
    gradient.setColorAt(0, QColor(0x2E, 0x5E, 0x8F));
    gradient.setColorAt(0.55, QColor(0x86, 0x60, 0x93));
    gradient.setColorAt(1, QColor(0xD9, 0x8B, 0x6A));
    return gradient;
}

QPainterPath ringPath(const QPointF& middle)
{
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    path.addEllipse(middle, outerRadius, outerRadius);
    path.addEllipse(middle, innerRadius, innerRadius);
    return path;
}

QPainterPath wedgePath(const QPointF& middle)
{
    constexpr double start = 67.5;
    constexpr double sweep = 45;
    const auto square = [&](double radius) {
        return QRectF(middle.x() - radius, middle.y() - radius, 2 * radius, 2 * radius);
    };
    QPainterPath path;
    path.arcMoveTo(square(outerRadius), start);
    path.arcTo(square(outerRadius), start, sweep);
    path.arcTo(square(innerRadius), start + sweep, -sweep);
    path.closeSubpath();
    return path;
}

void paintRing(QPainter& painter, const QPointF& middle, const ThemePreset& theme)
{
    const QColor band = ColorText::color(theme.ringColorHex, Qt::black);
    painter.setPen(QPen(withOpacity(Qt::white, 0.22), 1));
    painter.setBrush(withOpacity(band, theme.ringOpacity));
    painter.drawPath(ringPath(middle));
    const QColor highlight = ColorText::color(theme.highlightColorHex, QColor(0x0A, 0x84, 0xFF));
    painter.setPen(Qt::NoPen);
    painter.setBrush(withOpacity(highlight, theme.highlightOpacity));
    painter.drawPath(wedgePath(middle));
    constexpr QRectF pill(-11, -4.5, 22, 9);
    constexpr QColor pillColor(28, 28, 30);
    painter.setBrush(withOpacity(pillColor, theme.pillOpacity));
    painter.drawRoundedRect(pill.translated(middle), 4.5, 4.5);
    painter.setBrush(withOpacity(Qt::white, 0.85));
    painter.drawRoundedRect(QRectF(-6.5, -1, 13, 2).translated(middle), 1, 1);
}

} // namespace

ThemeTile::ThemeTile(const ThemePreset& theme, QWidget* parent)
    : Pressable(parent)
    , m_theme(theme)
{
    setText(theme.name);
    setObjectName(theme.id);
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ThemeTile::setTheme(const ThemePreset& theme)
{
    m_theme = theme;
    update();
}

QSize ThemeTile::sizeHint() const
{
    constexpr int narrowest = 104;
    const int height = qRound(pictureHeight) + 2 * focusMargin + 6 + fontMetrics().height();
    return {narrowest, height};
}

void ThemeTile::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    const QRectF picture(focusMargin, focusMargin, width() - 2 * focusMargin, pictureHeight);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(backdrop(picture));
    painter.drawRoundedRect(picture, cornerRadius, cornerRadius);
    paintRing(painter, picture.center(), m_theme);
    if (isChecked()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(look.accent, 2.5));
        painter.drawRoundedRect(
            picture.adjusted(-1.25, -1.25, 1.25, 1.25), cornerRadius + 1.25, cornerRadius + 1.25);
    }
    painter.setFont(scaledFont(font(), 0.92, isChecked() ? QFont::DemiBold : QFont::Normal));
    painter.setPen(isChecked() ? look.text : look.secondaryText);
    const QRectF label(0, picture.bottom() + 5, width(), height() - picture.bottom() - 5);
    painter.drawText(label,
                     Qt::AlignHCenter | Qt::AlignTop,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, width()));
    paintFocusRing(painter, *this, picture.adjusted(1, 1, -1, -1), cornerRadius);
}

} // namespace Tavik
