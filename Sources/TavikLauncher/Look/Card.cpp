// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Card.h>
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/Look.h>

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace Tavik {

namespace {

constexpr double cornerRadius = 10;
constexpr int sidePadding = 16;
constexpr int verticalPadding = 8;
constexpr int textPadding = 3; ///< More above and below texts, which have no frame of their own.
constexpr int lowestRow = 54;

} // namespace

CardRow::CardRow(const RowText& text, QWidget* control, QWidget* parent)
    : QWidget(parent)
    , m_help(new Label(Label::Role::help, {}, this))
{
    auto* row = new QHBoxLayout(this);
    // A control's focus ring may reach into the padding.
    row->setContentsMargins(
        margins(sidePadding, verticalPadding, sidePadding - focusMargin, verticalPadding));
    row->setSpacing(sidePadding);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->setContentsMargins(0, textPadding, 0, textPadding);
    texts->addStretch();
    texts->addWidget(new Label(Label::Role::body, text.title, this));
    texts->addWidget(m_help);
    texts->addStretch();
    row->addLayout(texts, 1);
    if (control) {
        row->addWidget(control, 0, Qt::AlignVCenter);
    }
    setMinimumHeight(lowestRow);
    setHelp(text.help);
}

void CardRow::setHelp(const QString& help)
{
    m_help->setText(help);
    m_help->setVisible(!help.isEmpty());
}

Card::Card(QWidget* parent)
    : QWidget(parent)
    , m_rows(new QVBoxLayout(this))
{
    m_rows->setContentsMargins(1, 1, 1, 1);
    m_rows->setSpacing(1);
}

CardRow& Card::addRow(const RowText& text, QWidget* control)
{
    auto* row = new CardRow(text, control, this);
    m_rows->addWidget(row);
    return *row;
}

void Card::addWidget(QWidget* row)
{
    m_rows->addWidget(row);
}

void Card::paintEvent(QPaintEvent*)
{
    const Look look = Look::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look.edge, 1));
    painter.setBrush(look.card);
    painter.drawRoundedRect(
        QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    bool isFirst = true;
    for (int i = 0; i < m_rows->count(); ++i) {
        const QWidget* row = m_rows->itemAt(i)->widget();
        if (!row || row->isHidden()) {
            continue;
        }
        if (!isFirst) {
            painter.fillRect(QRectF(1, row->y() - 1, width() - 2, 1), look.rowLine);
        }
        isFirst = false;
    }
}

} // namespace Tavik
