// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/DesktopCheck.h>

#include <QWidget>

namespace Tavik {

class Button;
class Label;

/// One finding in a card: a check mark or a warning sign, how the thing is had, and where something
/// is missing the advice, with a button that repairs it or copies the line to paste. The sign says
/// by its shape what its colour says; assistive technology hears it in words.
class FindingRow final : public QWidget
{
    Q_OBJECT

public:
    explicit FindingRow(QWidget* parent = nullptr);

    /// Shows another finding in place of the one before.
    void setFinding(const DesktopCheck::Finding& finding);

Q_SIGNALS:
    void repairWanted(DesktopCheck::Repair repair);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void press();
    void nameButton(const QString& text);

    DesktopCheck::Finding m_finding;
    Label* m_name;
    Label* m_mechanism;
    Label* m_advice;
    Label* m_line;
    Button* m_button;
};

} // namespace Tavik
