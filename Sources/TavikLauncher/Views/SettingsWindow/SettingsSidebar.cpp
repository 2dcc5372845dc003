// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/Pressable.h>
#include <TavikLauncher/Look/ScrollBar.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSidebar.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace Tavik {

namespace {

constexpr int symbolSide = 18;
constexpr int padding = 10;
constexpr double cornerRadius = 7;

class SectionButton final : public Pressable
{
public:
    SectionButton(const SettingsSection& section, QWidget* parent)
        : Pressable(parent)
        , m_symbol(section.symbol)
    {
        setText(Texts::tr(section.title));
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::StrongFocus);
        setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
        setAttribute(Qt::WA_Hover);
    }

    [[nodiscard]] QSize sizeHint() const override
    {
        const QFontMetrics metrics(scaledFont(font(), 1, QFont::DemiBold));
        return {4 * padding + symbolSide + metrics.horizontalAdvance(text()) + 2 * focusMargin,
                metrics.height() + 16};
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const Look look = Look::of(*this);
        const QRectF body = QRectF(rect()).adjusted(focusMargin, 0, -focusMargin, 0);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        if (isChecked()) {
            painter.setBrush(look.accent);
            painter.drawRoundedRect(body, cornerRadius, cornerRadius);
        } else if (underMouse()) {
            painter.setBrush(withOpacity(look.text, 0.06));
            painter.drawRoundedRect(body, cornerRadius, cornerRadius);
        }
        const QColor ink = isChecked() ? look.onAccent : look.text;
        const QRectF place(
            body.left() + padding, body.center().y() - symbolSide / 2.0, symbolSide, symbolSide);
        paintSymbol(painter, m_symbol, placed(*this, place, body), ink);
        painter.setFont(scaledFont(font(), 1, isChecked() ? QFont::DemiBold : QFont::Normal));
        painter.setPen(ink);
        const QRectF room(QPointF(place.right() + padding, body.top()), body.bottomRight());
        painter.drawText(placed(*this, room, body), Qt::AlignVCenter | Qt::AlignLeft, text());
        if (showsFocus(*this)) {
            // Inside, in the text's colour: around it there is no room for a ring.
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(isChecked() ? look.onAccent : look.accent, 1.5));
            painter.drawRoundedRect(
                body.adjusted(2.5, 2.5, -2.5, -2.5), cornerRadius - 2, cornerRadius - 2);
        }
    }

private:
    LineSymbol m_symbol;
};

} // namespace

SettingsSidebar::SettingsSidebar(QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setVerticalScrollBar(new ScrollBar(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(Texts::tr("Sections"));
    auto* list = new QWidget;
    auto* column = new QVBoxLayout(list);
    column->setContentsMargins(padding - focusMargin, 14, padding - focusMargin, 14);
    column->setSpacing(2);
    for (const SettingsSection& section : allSettingsSections) {
        auto* button = new SectionButton(section, list);
        const QString id = section.id.toString();
        button->setObjectName(id);
        column->addWidget(button);
        m_buttons.insert(id, button);
        connect(button, &QAbstractButton::clicked, this, [this, id] { Q_EMIT chosen(id); });
    }
    column->addStretch();
    setWidget(list);
    list->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    fitWidth();
}

void SettingsSidebar::changeEvent(QEvent* event)
{
    QScrollArea::changeEvent(event);
    const bool isFont
        = event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange;
    if (isFont && widget()) {
        fitWidth();
    }
}

void SettingsSidebar::fitWidth()
{
    constexpr int usualWidth = 208;
    int widest = 0;
    for (QAbstractButton* button : m_buttons) {
        // Its layout may remember the size from before.
        button->updateGeometry();
        widest = std::max(widest, button->sizeHint().width());
    }
    const QMargins margins = widget()->layout()->contentsMargins();
    setFixedWidth(std::max(usualWidth, widest + margins.left() + margins.right()));
}

void SettingsSidebar::setCurrent(const QString& id)
{
    if (QAbstractButton* button = m_buttons.value(id)) {
        const bool hadFocus = isAncestorOf(QApplication::focusWidget());
        button->setChecked(true);
        stopTabAtChosen(m_buttons.values());
        if (hadFocus) {
            button->setFocus();
        }
    }
}

} // namespace Tavik
