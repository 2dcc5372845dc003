// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

class QVBoxLayout;

namespace Tavik {

class Label;

/// What a row says; the tooltip repeats the help where there is nothing more to say.
struct RowText
{
    QString title;
    QString help;
    QString tooltip;
};

/// One preference: its name and help at the left, its control at the right.
class CardRow final : public QWidget
{
    Q_OBJECT

public:
    /// Takes the control over.
    CardRow(const RowText& text, QWidget* control, QWidget* parent = nullptr);

    /// An empty text leaves no gap.
    void setHelp(const QString& help);

private:
    Label* m_help;
};

/// Rows in a rounded card, with lines between them.
class Card final : public QWidget
{
    Q_OBJECT

public:
    explicit Card(QWidget* parent = nullptr);

    CardRow& addRow(const RowText& text, QWidget* control);
    /// Takes over a row that fills the whole width.
    void addWidget(QWidget* row);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_rows;
};

} // namespace Tavik
