// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace Tavik {

/// What a key does to a button of ours, the same in every window: Return and Space press it, once
/// for each press of the key however long it is held. True when the key was the button's.
bool pressByKey(QAbstractButton& button, const QKeyEvent& event);

/// A control that is pressed. What it looks like is its own affair.
class Pressable : public QAbstractButton
{
    Q_OBJECT

public:
    explicit Pressable(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
};

} // namespace Tavik
