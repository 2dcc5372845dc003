// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/HoverTooltip.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/WindowStyle.h>
#include <TavikLauncher/Look/WrappedLabel.h>

#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {

constexpr double textSize = 12;
constexpr int horizontalPadding = 10;
constexpr int verticalPadding = 7;
constexpr double cornerRadius = 7;
constexpr int gap = 6; // Between the control and the label.
constexpr int edge = 4; // Between the label and the window's edge.
constexpr int widest = 300;

/// Lies in the window itself, so that it needs neither a place on the screen nor a compositor.
class TooltipLabel final : public QLabel
{
public:
    explicit TooltipLabel(QWidget* window)
        : QLabel(window)
    {
        setObjectName(QStringLiteral("hoverTooltip"));
        setTextFormat(Qt::PlainText);
        setFont(WindowStyle::font(textSize));
        setContentsMargins(horizontalPadding, verticalPadding, horizontalPadding, verticalPadding);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

    void setWrappedText(const QString& text)
    {
        setText(text);
        // No wider than its lines need, or it would cover the row's own text.
        const int width
            = WrappedLabel::narrowestWidth(text, font(), widest - 2 * horizontalPadding);
        const QRect room(0, 0, width, QWIDGETSIZE_MAX);
        const QRect needed
            = QFontMetrics(font()).boundingRect(room, Qt::AlignLeading | Qt::TextWordWrap, text);
        resize(width + 2 * horizontalPadding, needed.height() + 2 * verticalPadding);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        // Lifted off the window: lighter than it in the dark, white in the light.
        const Look look = Look::of(*this);
        painter.setPen(QPen(look.outline, 1));
        painter.setBrush(look.isDark ? look.buttonHovered : look.card);
        painter.drawRoundedRect(
            QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
        painter.setPen(look.text);
        painter.drawText(
            contentsRect(), Qt::AlignVCenter | Qt::AlignLeading | Qt::TextWordWrap, text());
    }
};

} // namespace

HoverTooltip::HoverTooltip(MainQueue& mainQueue, QWidget& control, Options options)
    : QObject(&control)
    , m_mainQueue(mainQueue)
    , m_control(control)
    , m_options(std::move(options))
{
    m_control.setAccessibleDescription(m_options.text);
    m_control.installEventFilter(this);
}

HoverTooltip::~HoverTooltip()
{
    hide();
}

void HoverTooltip::setText(const QString& text)
{
    m_options.text = text;
    m_control.setAccessibleDescription(text);
    if (m_isShowing) {
        show();
    }
}

QWidget* HoverTooltip::label() const
{
    return m_isShowing ? m_label.data() : nullptr;
}

QRect HoverTooltip::placement(const QRect& control, QSize label, const QRect& window)
{
    const QRect room = window.adjusted(edge, edge, -edge, -edge);
    QRect frame(QPoint(), label);
    frame.moveCenter(control.center());
    // On the control's own line, where no neighbour has a text.
    const int left = control.left() - gap - label.width();
    const int right = control.right() + 1 + gap;
    if (left >= room.left() || right + label.width() <= room.right() + 1) {
        frame.moveLeft(left >= room.left() ? left : right);
        frame.moveTop(std::clamp(
            frame.top(), room.top(), std::max(room.top(), room.bottom() + 1 - label.height())));
        return frame;
    }
    frame.moveTop(control.bottom() + 1 + gap);
    if (frame.bottom() > room.bottom()) {
        const int above = control.top() - gap - label.height();
        frame.moveTop(above >= room.top() ? above : room.bottom() + 1 - label.height());
    }
    frame.moveLeft(std::clamp(
        frame.left(), room.left(), std::max(room.left(), room.right() + 1 - label.width())));
    frame.moveTop(std::max(frame.top(), room.top()));
    return frame;
}

bool HoverTooltip::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Enter:
        if (watched == &m_control) {
            hoverChanged(true);
        }
        break;
    case QEvent::Leave:
    case QEvent::Hide:
        if (watched == &m_control) {
            hoverChanged(false);
        }
        break;
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
    case QEvent::Wheel:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked:
        // Who does something, wherever, has read enough; what a wheel has moved away is no longer
        // meant, and a dialog that closes brings no pointer back.
        if (watched->isWidgetType()) {
            hoverChanged(false);
        }
        break;
    default:
        break;
    }
    return false;
}

void HoverTooltip::hoverChanged(bool isHovering)
{
    m_isHovering = isHovering;
    m_showTask.cancel();
    // Only while there is something to take back.
    qApp->removeEventFilter(this);
    if (isHovering) {
        qApp->installEventFilter(this);
        m_showTask = m_mainQueue.after(m_options.delay, [this] {
            if (m_isHovering) {
                show();
            }
        });
    } else {
        hide();
    }
}

void HoverTooltip::show()
{
    if (m_options.text.isEmpty()) {
        hide();
        return;
    }
    QWidget* window = m_control.window();
    if (!m_label) {
        m_label = new TooltipLabel(window);
    }
    auto* label = static_cast<TooltipLabel*>(m_label.data());
    label->setWrappedText(m_options.text);
    const QRect control(m_control.mapTo(window, QPoint()), m_control.size());
    label->setGeometry(placement(control, label->size(), window->rect()));
    label->raise();
    label->show();
    m_isShowing = true;
}

void HoverTooltip::hide()
{
    m_isShowing = false;
    if (m_label) {
        m_label->hide();
        m_label->deleteLater();
        m_label.clear();
    }
}

} // namespace Tavik
