// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>

#include <QAbstractButton>
#include <QFontInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace Tavik {

namespace {

QColor mixed(const QColor& from, const QColor& to, float part)
{
    return QColor::fromRgbF(from.redF() + (to.redF() - from.redF()) * part,
                            from.greenF() + (to.greenF() - from.greenF()) * part,
                            from.blueF() + (to.blueF() - from.blueF()) * part);
}

constexpr int darkest = 128; ///< Of 255: below it a window is a dark one.

Look lightLook()
{
    Look look;
    look.window = QColor(0xF4, 0xF5, 0xF7);
    look.sidebar = QColor(0xE9, 0xEA, 0xEE);
    look.edge = QColor(0xDF, 0xE0, 0xE5);
    look.card = Qt::white;
    look.rowLine = QColor(0xEC, 0xED, 0xF0);
    look.text = QColor(0x1C, 0x1C, 0x1F);
    look.secondaryText = QColor(0x62, 0x63, 0x6A);
    look.track = QColor(0xDF, 0xDF, 0xE6);
    look.button = QColor(0xE5, 0xE5, 0xEA);
    look.buttonHovered = QColor(0xDC, 0xDC, 0xE2);
    look.buttonPressed = QColor(0xCF, 0xCF, 0xD6);
    look.knob = Qt::white;
    look.warning = QColor(0xB3, 0x5C, 0x00);
    look.outline = QColor(0x86, 0x87, 0x90);
    look.success = QColor(0x1B, 0x87, 0x3A);
    return look;
}

Look darkLook()
{
    Look look;
    look.isDark = true;
    look.window = QColor(0x1E, 0x1F, 0x22);
    look.sidebar = QColor(0x26, 0x27, 0x2B);
    look.edge = QColor(0x39, 0x3A, 0x3F);
    look.card = QColor(0x2B, 0x2C, 0x30);
    look.rowLine = QColor(0x39, 0x3A, 0x3F);
    look.text = QColor(0xF2, 0xF2, 0xF4);
    look.secondaryText = QColor(0x9C, 0x9D, 0xA4);
    look.track = QColor(0x45, 0x46, 0x4C);
    look.button = QColor(0x3C, 0x3D, 0x42);
    look.buttonHovered = QColor(0x47, 0x48, 0x4E);
    look.buttonPressed = QColor(0x54, 0x55, 0x5C);
    look.knob = Qt::white;
    look.warning = QColor(0xFF, 0xB3, 0x40);
    look.outline = QColor(0x83, 0x84, 0x8C);
    look.success = QColor(0x30, 0xD1, 0x58);
    return look;
}

/// A desktop for poor eyesight has nothing between its two colours, and neither have we.
Look contrastLook(const QPalette& palette)
{
    const QColor paper = palette.color(QPalette::Window);
    const QColor ink = palette.color(QPalette::WindowText);
    Look look;
    look.isContrast = true;
    look.isDark = paper.lightness() < ink.lightness();
    look.window = look.sidebar = look.card = look.button = look.track = look.knob = paper;
    look.text = look.secondaryText = look.edge = look.rowLine = look.outline = ink;
    look.warning = look.success = ink;
    look.buttonHovered = mixed(paper, ink, 0.2F);
    look.buttonPressed = mixed(paper, ink, 0.35F);
    look.disabledOpacity = 0.6;
    return look;
}

bool asksForContrast(const QPalette& palette)
{
    const auto isPure = [](const QColor& color) {
        return color.lightness() == 0 || color.lightness() == 255;
    };
    return isPure(palette.color(QPalette::Window)) && isPure(palette.color(QPalette::WindowText));
}

} // namespace

Look Look::of(const QPalette& palette)
{
    const bool isDark = palette.color(QPalette::Window).lightness() < darkest;
    Look look = asksForContrast(palette) ? contrastLook(palette)
        : isDark                         ? darkLook()
                                         : lightLook();
    look.accent = accentColor(palette);
    constexpr int brightest = 170;
    look.onAccent = qGray(look.accent.rgb()) < brightest ? Qt::white : QColor(0x1C, 0x1C, 0x1F);
    return look;
}

Look Look::of(const QWidget& widget)
{
    return of(widget.palette());
}

QPalette Look::palette() const
{
    QPalette palette(button, window);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const bool isOff = group == QPalette::Disabled;
        const QColor ink = isOff ? withOpacity(text, disabledOpacity) : text;
        palette.setColor(group, QPalette::Window, window);
        palette.setColor(group, QPalette::Base, card);
        palette.setColor(group, QPalette::Button, button);
        palette.setColor(group, QPalette::WindowText, ink);
        palette.setColor(group, QPalette::Text, ink);
        palette.setColor(group, QPalette::ButtonText, ink);
        palette.setColor(group,
                         QPalette::PlaceholderText,
                         isOff ? withOpacity(secondaryText, 0.5) : secondaryText);
        palette.setColor(group, QPalette::Highlight, accent);
        palette.setColor(group, QPalette::HighlightedText, onAccent);
    }
    return palette;
}

/// The palette's highlight is the desktop's accent, unless no desktop has set one and the toolkit's
/// built-in default shows through.
QColor accentColor(const QPalette& palette)
{
    constexpr QColor toolkitDefault(48, 140, 198);
    const QColor highlight = palette.color(QPalette::Highlight);
    return highlight.rgb() == toolkitDefault.rgb() ? systemBlue : highlight;
}

QColor withOpacity(QColor color, double opacity)
{
    color.setAlphaF(static_cast<float>(std::clamp(opacity, 0.0, 1.0)));
    return color;
}

QRectF placed(const QWidget& widget, const QRectF& part, const QRectF& whole)
{
    return widget.layoutDirection() == Qt::LeftToRight
        ? part
        : part.translated(whole.left() + whole.right() - part.left() - part.right(), 0);
}

QMargins margins(int leading, int top, int trailing, int bottom)
{
    return QGuiApplication::isLeftToRight() ? QMargins(leading, top, trailing, bottom)
                                            : QMargins(trailing, top, leading, bottom);
}

double textScale()
{
    constexpr double usualSize = 12; // Of a desktop that nobody has set up, in pixels.
    constexpr double smallest = 0.9;
    constexpr double largest = 3;
    const double size = QFontInfo(QGuiApplication::font()).pixelSize();
    return std::clamp(size / usualSize, smallest, largest);
}

QFont scaledFont(QFont font, double factor, QFont::Weight weight)
{
    if (font.pixelSize() > 0) {
        font.setPixelSize(qRound(font.pixelSize() * factor));
    } else {
        font.setPointSizeF(font.pointSizeF() * factor);
    }
    font.setWeight(weight);
    return font;
}

void stopTabAtChosen(const QList<QAbstractButton*>& buttons)
{
    const bool hasChosen = std::ranges::any_of(buttons, &QAbstractButton::isChecked);
    for (QAbstractButton* button : buttons) {
        button->setFocusPolicy(button->isChecked() || !hasChosen ? Qt::StrongFocus
                                                                 : Qt::ClickFocus);
    }
}

bool showsFocus(const QWidget& control)
{
    return control.hasFocus() && control.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void paintFocusRing(QPainter& painter,
                    const QWidget& control,
                    const QRectF& body,
                    double cornerRadius)
{
    if (!showsFocus(control)) {
        return;
    }
    constexpr double width = 2;
    constexpr double gap = focusMargin - width / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Look::of(control).accent, width));
    painter.drawRoundedRect(
        body.adjusted(-gap, -gap, gap, gap), cornerRadius + gap, cornerRadius + gap);
    painter.restore();
}

} // namespace Tavik
