// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/WindowStyle.h>

#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QPalette>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <cmath>

namespace Tavik::WindowStyle {

namespace {

QColor mixed(const QColor& from, const QColor& to, float part)
{
    return QColor::fromRgbF(from.redF() + (to.redF() - from.redF()) * part,
                            from.greenF() + (to.greenF() - from.greenF()) * part,
                            from.blueF() + (to.blueF() - from.blueF()) * part);
}

class TextLabel final : public QLabel
{
public:
    TextLabel(const QString& text, const TextStyle& style, QWidget* parent)
        : QLabel(text, parent)
        , m_style(style)
    {
        setTextFormat(Qt::PlainText);
        setWordWrap(true);
        setFont(WindowStyle::font(style.size, style.weight));
        applyColor();
    }

protected:
    void changeEvent(QEvent* event) override
    {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::PaletteChange
            || event->type() == QEvent::ApplicationPaletteChange) {
            applyColor();
        }
    }

private:
    void applyColor()
    {
        if (m_style.role == TextRole::primary) {
            return;
        }
        const QPalette& surroundings
            = parentWidget() ? parentWidget()->palette() : QGuiApplication::palette();
        const QColor color = secondaryText(surroundings);
        if (palette().color(QPalette::WindowText) != color) {
            QPalette own;
            own.setColor(QPalette::WindowText, color);
            setPalette(own);
        }
    }

    TextStyle m_style;
};

/// Left to itself a button takes Return only while it is a default one, but then also from a key
/// that is held down.
class PushButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (!isReturn(*event)) {
            QPushButton::keyPressEvent(event);
        } else if (!event->isAutoRepeat()) {
            click();
        }
    }
};

class ProminentButton final : public PushButton
{
public:
    using PushButton::PushButton;

protected:
    void paintEvent(QPaintEvent*) override
    {
        constexpr double cornerRadius = 6;
        constexpr double ringInset = 3.5;
        const Look look = Look::of(*this);
        QColor fill = look.accent;
        if (isDown()) {
            fill = fill.darker(118);
        } else if (underMouse()) {
            fill = fill.lighter(108);
        }
        QStylePainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
        QStyleOptionButton option;
        initStyleOption(&option);
        option.palette.setColor(QPalette::ButtonText, look.onAccent);
        painter.drawControl(QStyle::CE_PushButtonLabel, option);
        if (showsFocus(*this)) {
            painter.setPen(QPen(look.onAccent, 1));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(
                QRectF(rect()).adjusted(ringInset, ringInset, -ringInset, -ringInset),
                cornerRadius - 2,
                cornerRadius - 2);
        }
    }
};

QPushButton* withRoom(QPushButton* button)
{
    constexpr QSize room(20, 4);
    button->setMinimumSize(button->sizeHint() + room);
    return button;
}

} // namespace

bool isReturn(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness()
        < palette.color(QPalette::WindowText).lightness();
}

QColor secondaryText(const QPalette& palette)
{
    return mixed(palette.color(QPalette::WindowText),
                 palette.color(QPalette::Window),
                 isDark(palette) ? 0.28F : 0.36F);
}

QColor hairline(const QPalette& palette)
{
    return mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.14F);
}

QColor tint(const QPalette& palette)
{
    // An accent that is too close to the window's colour would hide the symbol.
    constexpr int leastDifference = 40;
    const QColor accent = accentColor(palette);
    const QColor window = palette.color(QPalette::Window);
    const bool isVisible = std::abs(accent.lightness() - window.lightness()) >= leastDifference
        || accent.hsvSaturation() > 2 * leastDifference;
    return isVisible ? accent : palette.color(QPalette::WindowText);
}

QColor success(const QPalette& palette)
{
    return isDark(palette) ? QColor(0x30, 0xD1, 0x58) : QColor(0x24, 0xA1, 0x48);
}

QFont font(double size, QFont::Weight weight)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(static_cast<int>(std::lround(size)));
    font.setWeight(weight);
    return font;
}

QLabel* makeLabel(const QString& text, const TextStyle& style, QWidget* parent)
{
    return new TextLabel(text, style, parent);
}

QPushButton* makeButton(const QString& text, QWidget* parent)
{
    return withRoom(new PushButton(text, parent));
}

QPushButton* makeProminentButton(const QString& text, QWidget* parent)
{
    return withRoom(new ProminentButton(text, parent));
}

void fitHeight(QWidget& window)
{
    QLayout* layout = window.layout();
    layout->activate();
    window.setMinimumHeight(layout->totalHeightForWidth(window.width()));
}

} // namespace Tavik::WindowStyle
