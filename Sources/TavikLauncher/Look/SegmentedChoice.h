// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QWidget>

class QAbstractButton;

namespace Tavik {

/// One of a few short choices side by side. Tab reaches the chosen one, arrow keys choose.
class SegmentedChoice final : public QWidget
{
    Q_OBJECT

public:
    explicit SegmentedChoice(const QStringList& titles, QWidget* parent = nullptr);

    [[nodiscard]] int current() const;
    [[nodiscard]] const QList<QAbstractButton*>& segments() const { return m_segments; }
    /// Names the whole choice; each segment is called by it and its own title.
    void setName(const QString& name);
    /// Shows `position` as chosen without telling; none when it is out of range.
    void setCurrent(int position);

Q_SIGNALS:
    /// The user's choice.
    void chosen(int position);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<QAbstractButton*> m_segments;
};

} // namespace Tavik
