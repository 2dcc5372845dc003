// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/AppIconView.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/WindowStyle.h>
#include <TavikLauncher/Views/Updates/UpdateView.h>

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tavik {

using WindowStyle::makeLabel;

namespace {

constexpr int padding = 20;
constexpr int iconSide = 64;
constexpr int iconGap = 18;
constexpr double titleSize = 15;
constexpr double textSize = 13;
constexpr double quietTextSize = 12;

} // namespace

UpdateView::UpdateView()
{
    setFocusPolicy(Qt::StrongFocus);
    auto* layout = new QVBoxLayout(this);
    // The buttons have a margin of their own, for the ring around the focused one.
    layout->setContentsMargins(
        margins(padding, padding, padding - focusMargin, padding - focusMargin));
    layout->setSpacing(padding);

    auto* head = new QHBoxLayout;
    head->setContentsMargins(margins(0, 0, focusMargin, 0));
    head->setSpacing(iconGap);
    head->addWidget(new AppIconView(iconSide, this), 0, Qt::AlignTop);
    m_column = new QVBoxLayout;
    m_column->setContentsMargins(0, 2, 0, 0);
    m_column->setSpacing(6);
    m_title = makeLabel({}, {.size = titleSize, .weight = QFont::DemiBold}, this);
    m_column->addWidget(m_title);
    head->addLayout(m_column, 1);
    layout->addLayout(head, 1);

    m_buttons = new QHBoxLayout;
    m_buttons->setSpacing(8);
    m_buttons->addStretch(1);
    layout->addLayout(m_buttons);
}

int UpdateView::scaled(double length)
{
    return static_cast<int>(std::lround(length * textScale()));
}

void UpdateView::setTitle(const QString& title)
{
    m_title->setText(title);
}

QLabel* UpdateView::addText(const QString& text)
{
    QLabel* label = makeLabel(text, {.size = textSize}, this);
    m_column->addWidget(label);
    return label;
}

QLabel* UpdateView::addQuietText(const QString& text)
{
    QLabel* label
        = makeLabel(text, {.size = quietTextSize, .role = WindowStyle::TextRole::secondary}, this);
    m_column->addWidget(label);
    return label;
}

QPushButton* UpdateView::addButton(const QString& text, Side side, std::function<void()> clicked)
{
    QPushButton* button = WindowStyle::makeButton(text, this);
    connect(button, &QPushButton::clicked, this, std::move(clicked));
    if (side == Side::left) {
        m_buttons->insertWidget(m_leftButtons++, button);
    } else {
        m_buttons->addWidget(button);
    }
    return button;
}

void UpdateView::setDefaultButton(QPushButton* button)
{
    if (m_defaultButton) {
        m_defaultButton->setDefault(false);
    }
    m_defaultButton = button;
    if (button) {
        button->setDefault(true);
    }
    focusFirst();
}

void UpdateView::focusFirst()
{
    (m_defaultButton ? static_cast<QWidget*>(m_defaultButton) : this)->setFocus();
}

void UpdateView::keyPressEvent(QKeyEvent* event)
{
    // A key that is still held down from elsewhere was not meant for this window.
    const bool isPlain = !event->isAutoRepeat() && !(event->modifiers() & ~Qt::KeypadModifier);
    if (isPlain && event->key() == Qt::Key_Escape) {
        dismiss();
    } else if (isPlain && WindowStyle::isReturn(*event) && m_defaultButton) {
        m_defaultButton->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void UpdateView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    focusFirst();
}

} // namespace Tavik
