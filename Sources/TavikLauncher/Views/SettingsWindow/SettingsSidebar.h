// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QScrollArea>
#include <QString>

class QAbstractButton;

namespace Tavik {

/// The list of sections. Tab reaches the shown one, arrow keys go through them.
class SettingsSidebar final : public QScrollArea
{
    Q_OBJECT

public:
    explicit SettingsSidebar(QWidget* parent = nullptr);

    /// Marks a section without telling.
    void setCurrent(const QString& id);

Q_SIGNALS:
    void chosen(const QString& id);

protected:
    void changeEvent(QEvent* event) override;

private:
    /// As wide as the section titles need in the present font.
    void fitWidth();

    QHash<QString, QAbstractButton*> m_buttons;
};

} // namespace Tavik
