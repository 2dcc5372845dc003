// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include <functional>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace Tavik {

/// What the content of every update window has in common: the program's icon, beside it a title and
/// what belongs to it, below a row of buttons, and their keys. Texts grow with the desktop's font.
class UpdateView : public QWidget
{
    Q_OBJECT

public:
    /// Does what Escape and closing the window mean.
    virtual void dismiss() = 0;

protected:
    UpdateView();

    /// `length` is in points at the usual font size; the result grows with the desktop's font.
    [[nodiscard]] static int scaled(double length);

    void setTitle(const QString& title);
    /// What is beside the icon, below the title.
    [[nodiscard]] QVBoxLayout& column() { return *m_column; }
    QLabel* addText(const QString& text = {});
    QLabel* addQuietText(const QString& text = {});

    enum class Side {
        left,
        right,
    };
    /// Each at the right of those before it on its side.
    QPushButton* addButton(const QString& text, Side side, std::function<void()> clicked);
    /// What Return presses while no other button has the focus. Null for nothing: then no button
    /// has the focus either until the user turns to one, so that a key which was meant for
    /// something else does nothing.
    void setDefaultButton(QPushButton* button);

    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// Gives the keyboard to the default button, or to nothing that acts.
    void focusFirst();

    QLabel* m_title = nullptr;
    QVBoxLayout* m_column = nullptr;
    QHBoxLayout* m_buttons = nullptr;
    QPushButton* m_defaultButton = nullptr;
    int m_leftButtons = 0;
};

} // namespace Tavik
