// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/SettingsWindow/SettingsLabel.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsLook.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsMessage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSymbol.h>

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>

namespace Tavik {

namespace {

constexpr int symbolSide = 18;
constexpr int padding = 16;

} // namespace

SettingsMessage::SettingsMessage(QWidget* parent)
    : QWidget(parent)
    , m_label(new SettingsLabel(SettingsLabel::Role::help, {}, this))
{
    m_label->setForegroundRole(QPalette::WindowText);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(padding + symbolSide + 8, 9, padding, 9);
    row->addWidget(m_label);
    hide();
}

QString SettingsMessage::text() const
{
    return m_label->text();
}

void SettingsMessage::say(Kind kind, const QString& text)
{
    m_kind = kind;
    m_label->setText(text);
    setAccessibleName(text);
    show();
    update();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void SettingsMessage::clear()
{
    m_label->clear();
    hide();
}

void SettingsMessage::paintEvent(QPaintEvent*)
{
    const SettingsLook look = SettingsLook::of(*this);
    const bool isWarning = m_kind == Kind::warning;
    QPainter painter(this);
    paintSymbol(painter,
                isWarning ? SettingsSymbol::warning : SettingsSymbol::check,
                QRectF(padding, (height() - symbolSide) / 2.0, symbolSide, symbolSide),
                isWarning ? look.warning : look.accent);
}

} // namespace Tavik
