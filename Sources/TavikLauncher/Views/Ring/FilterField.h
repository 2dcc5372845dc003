// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace Tavik {

/// The text field in the ring's centre. It takes what input methods compose and speaks for the
/// filter to assistive technology; the ring paints its text, and keys pass on to the panel.
class FilterField final : public QLineEdit
{
    Q_OBJECT

public:
    explicit FilterField(QWidget* parent);

    /// What an input method is composing and has not committed yet.
    [[nodiscard]] const QString& preedit() const { return m_preedit; }

Q_SIGNALS:
    void preeditChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    QString m_preedit;
};

} // namespace Tavik
