// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/LineSymbol.h>
#include <TavikLauncher/Look/Symbol.h>

#include <QPushButton>

#include <optional>

namespace Tavik {

/// A push button with a text, a text after a symbol, or a symbol alone, which then needs an
/// accessible name. The default button carries the accent, a flat one only its text.
class Button final : public QPushButton
{
    Q_OBJECT

public:
    explicit Button(const QString& text, QWidget* parent = nullptr);
    explicit Button(LineSymbol symbol, QWidget* parent = nullptr);

    /// Stands before the text; none by itself.
    void setSymbol(std::optional<Symbol> symbol);
    /// Like `setEnabled`, but a button that has the focus keeps it: the keyboard's user stays where
    /// they are.
    void setAvailable(bool isAvailable);
    [[nodiscard]] bool isAvailable() const { return m_isAvailable; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] double symbolSide() const;

    std::optional<LineSymbol> m_lineSymbol;
    std::optional<Symbol> m_symbol;
    bool m_isAvailable = true;
};

} // namespace Tavik
