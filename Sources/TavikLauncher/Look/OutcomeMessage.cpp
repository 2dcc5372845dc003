// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/LineSymbol.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/OutcomeMessage.h>

#include <QHBoxLayout>
#include <QPainter>
#include <QScrollArea>

namespace Tavik {

namespace {

constexpr int symbolSide = 18;
constexpr int padding = 16;

} // namespace

OutcomeMessage::OutcomeMessage(QWidget* parent)
    : QWidget(parent)
    , m_label(new Label(Label::Role::help, {}, this))
{
    m_label->setForegroundRole(QPalette::WindowText);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(padding + symbolSide + 8, 9, padding, 9);
    row->addWidget(m_label);
    hide();
}

QString OutcomeMessage::text() const
{
    return m_label->text();
}

void OutcomeMessage::say(Kind kind, const QString& text)
{
    m_kind = kind;
    m_label->setText(text);
    setAccessibleName(text);
    show();
    update();
    // Wherever the page has been scrolled to. Its place is known once the page is laid out anew.
    QMetaObject::invokeMethod(
        this,
        [this] {
            for (QWidget* above = parentWidget(); above; above = above->parentWidget()) {
                if (auto* page = qobject_cast<QScrollArea*>(above)) {
                    page->ensureWidgetVisible(this);
                }
            }
        },
        Qt::QueuedConnection);
    m_announcement.say(text);
}

void OutcomeMessage::clear()
{
    m_label->clear();
    hide();
}

void OutcomeMessage::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    const bool isWarning = m_kind == Kind::warning;
    QPainter painter(this);
    paintSymbol(painter,
                isWarning ? LineSymbol::warning : LineSymbol::check,
                QRectF(padding, (height() - symbolSide) / 2.0, symbolSide, symbolSide),
                isWarning ? look.warning : look.accent);
}

} // namespace Tavik
