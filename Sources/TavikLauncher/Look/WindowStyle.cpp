// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/WindowStyle.h>
#include <TavikLauncher/Look/WrappedLabel.h>

#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QPalette>

#include <cmath>

namespace Tavik::WindowStyle {

namespace {

class TextLabel final : public WrappedLabel
{
public:
    TextLabel(const QString& text, const TextStyle& style, QWidget* parent)
        : WrappedLabel(text, parent)
        , m_role(style.role)
    {
        setFont(WindowStyle::font(style.size, style.weight));
        applyColor();
    }

protected:
    void changeEvent(QEvent* event) override
    {
        WrappedLabel::changeEvent(event);
        if (event->type() == QEvent::PaletteChange
            || event->type() == QEvent::ApplicationPaletteChange) {
            applyColor();
        }
    }

private:
    void applyColor()
    {
        if (m_role == TextRole::primary) {
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

    TextRole m_role;
};

} // namespace

bool isReturn(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool isDark(const QPalette& palette)
{
    return Look::of(palette).isDark;
}

QColor secondaryText(const QPalette& palette)
{
    return Look::of(palette).secondaryText;
}

QColor hairline(const QPalette& palette)
{
    return Look::of(palette).edge;
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
    return Look::of(palette).success;
}

QFont font(double size, QFont::Weight weight)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(static_cast<int>(std::lround(size * textScale())));
    font.setWeight(weight);
    return font;
}

QLabel* makeLabel(const QString& text, const TextStyle& style, QWidget* parent)
{
    return new TextLabel(text, style, parent);
}

Button* makeButton(const QString& text, QWidget* parent)
{
    auto* button = new Button(text, parent);
    button->setFont(font(TextStyle().size));
    return button;
}

Button* makeProminentButton(const QString& text, QWidget* parent)
{
    Button* button = makeButton(text, parent);
    button->setDefault(true);
    return button;
}

void fit(QWidget& window, int usualWidth)
{
    QLayout* layout = window.layout();
    layout->activate();
    window.setFixedWidth(std::max(usualWidth, layout->totalMinimumSize().width()));
    window.setMinimumHeight(layout->totalHeightForWidth(window.width()));
}

} // namespace Tavik::WindowStyle
