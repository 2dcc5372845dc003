// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/LineSymbol.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/Pressable.h>
#include <TavikLauncher/Settings/ColorText.h>
#include <TavikLauncher/Views/SettingsWindow/SwatchColors.h>
#include <TavikLauncher/Views/SettingsWindow/SwatchPopover.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int columns = 6;
constexpr int shadow = 10;
constexpr double cornerRadius = 10;

class SwatchButton final : public Pressable
{
public:
    SwatchButton(const Swatch& swatch, QWidget* parent)
        : Pressable(parent)
        , m_color(ColorText::color(swatch.hex.toString(), Qt::black))
    {
        setCheckable(true);
        setAutoExclusive(true);
        setAccessibleName(Texts::tr(swatch.name));
        constexpr int side = 26 + 2 * focusMargin;
        setFixedSize(side, side);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const Look look = Look::of(*this);
        const QRectF body
            = QRectF(rect()).adjusted(focusMargin, focusMargin, -focusMargin, -focusMargin);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(withOpacity(look.text, 0.2), 1));
        painter.setBrush(m_color);
        painter.drawEllipse(body.adjusted(0.5, 0.5, -0.5, -0.5));
        if (isChecked()) {
            const QColor ink = m_color.lightness() > 140 ? Qt::black : Qt::white;
            paintSymbol(painter, LineSymbol::check, body.adjusted(6, 6, -6, -6), ink);
        }
        paintFocusRing(painter, *this, body, body.width() / 2);
    }

private:
    QColor m_color;
};

} // namespace

SwatchPopover* SwatchPopover::open(QWidget& anchor,
                                   const QString& hex,
                                   std::function<void(const QString& hex)> picked)
{
    auto* popover = new SwatchPopover(anchor, hex, std::move(picked));
    popover->placeBeside(anchor);
    popover->show();
    popover->raise();
    return popover;
}

SwatchPopover::SwatchPopover(QWidget& anchor,
                             const QString& hex,
                             std::function<void(const QString& hex)> picked)
    : QWidget(anchor.window())
    , m_anchor(&anchor)
    , m_original(hex)
    , m_shown(hex)
    , m_picked(std::move(picked))
{
    setAccessibleName(Texts::tr("Ready colors"));
    setFocusPolicy(Qt::StrongFocus);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(shadow + 14, shadow + 12, shadow + 14, shadow + 12);
    column->setSpacing(6);
    QAbstractButton* chosen = nullptr;
    const auto addList = [&](const QString& heading, std::span<const Swatch> swatches) {
        column->addWidget(new Label(Label::Role::heading, heading, this));
        auto* grid = new QGridLayout;
        grid->setSpacing(2);
        int position = 0;
        for (const Swatch& swatch : swatches) {
            auto* button = new SwatchButton(swatch, this);
            const QString text = swatch.hex.toString();
            grid->addWidget(button, position / columns, position % columns);
            connect(button, &QAbstractButton::clicked, this, [this, text] {
                m_shown = text;
                m_picked(text);
            });
            if (text.compare(hex, Qt::CaseInsensitive) == 0) {
                button->setChecked(true);
                chosen = button;
            }
            ++position;
        }
        column->addLayout(grid);
    };
    addList(Texts::tr("Dark Backgrounds"), darkSwatches());
    column->addSpacing(6);
    addList(Texts::tr("Accents"), accentSwatches());
    column->addSpacing(6);
    auto* last = new QHBoxLayout;
    m_name = new Label(Label::Role::help, {}, this);
    m_name->setWordWrap(false);
    auto* more = new Button(Texts::tr("More Colors…"), this);
    more->setObjectName(u"moreColors"_s);
    connect(more, &QAbstractButton::clicked, this, [this] { openDialog(); });
    last->addWidget(m_name, 1);
    last->addWidget(more);
    column->addLayout(last);
    if (!chosen) {
        chosen = findChild<QAbstractButton*>();
    }
    chosen->setFocus(Qt::PopupFocusReason);
    connect(&anchor, &QObject::destroyed, this, &QObject::deleteLater);
    qApp->installEventFilter(this);
}

void SwatchPopover::placeBeside(const QWidget& anchor)
{
    adjustSize();
    const QWidget& window = *parentWidget();
    const QRect around(anchor.mapTo(&window, QPoint()), anchor.size());
    const int x = std::clamp(around.right() - width() + shadow, 0, window.width() - width());
    const bool fitsBelow = around.bottom() + height() <= window.height();
    const int y = fitsBelow ? around.bottom() - shadow / 2 : around.top() - height() + shadow / 2;
    move(x, std::max(0, y));
}

void SwatchPopover::openDialog()
{
    // The popover goes, and so must nothing of it be asked afterwards.
    auto* dialog = new QColorDialog(ColorText::color(m_original, Qt::black), parentWidget());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QColorDialog::colorSelected, dialog, [picked = m_picked](const QColor& color) {
        picked(ColorText::hexString(color));
    });
    dismiss();
    dialog->open();
}

bool SwatchPopover::focusNextPrevChild(bool isNext)
{
    // Tab stays inside: the page behind is covered.
    const QList<QAbstractButton*> buttons = findChildren<QAbstractButton*>();
    const auto at = buttons.indexOf(qobject_cast<QAbstractButton*>(focusWidget()));
    const auto target = (at + (isNext ? 1 : -1) + buttons.size()) % buttons.size();
    buttons.at(target)->setFocus(isNext ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void SwatchPopover::dismiss()
{
    qApp->removeEventFilter(this);
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    hide();
    if (hadFocus && m_anchor) {
        m_anchor->setFocus(Qt::PopupFocusReason);
    }
    deleteLater();
}

bool SwatchPopover::eventFilter(QObject* watched, QEvent* event)
{
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget && isAncestorOf(widget) && m_name
        && (event->type() == QEvent::Enter || event->type() == QEvent::FocusIn)) {
        m_name->setText(widget->accessibleName());
    }
    const bool isElsewhere = widget && widget != this && !isAncestorOf(widget);
    if (isVisible() && isElsewhere) {
        const QEvent::Type type = event->type();
        const bool isPress
            = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
        // A press gives the anchor the focus before it arrives.
        const bool isFocused = type == QEvent::FocusIn && widget != m_anchor;
        const bool isWindowResized = type == QEvent::Resize && widget == parentWidget();
        const bool isAnchorHidden = type == QEvent::Hide && widget == m_anchor;
        if (isPress || isFocused || type == QEvent::Wheel || isWindowResized || isAnchorHidden) {
            dismiss();
        }
        if (isPress && widget == m_anchor) {
            return true; // It would only open the popover again.
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SwatchPopover::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) {
            button->click();
        }
        dismiss();
        break;
    case Qt::Key_Escape:
        if (m_original != m_shown) {
            m_picked(m_original);
        }
        dismiss();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void SwatchPopover::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    const QRectF body = QRectF(rect()).adjusted(shadow, shadow, -shadow, -shadow);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int step = shadow; step > 0; --step) {
        painter.setBrush(withOpacity(Qt::black, look.isDark ? 0.03 : 0.012));
        painter.drawRoundedRect(body.adjusted(-step, -step + 2, step, step - 1),
                                cornerRadius + step,
                                cornerRadius + step);
    }
    painter.setBrush(look.card);
    painter.setPen(QPen(look.edge, 1));
    painter.drawRoundedRect(body.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
}

} // namespace Tavik
