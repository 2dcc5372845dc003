// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/LineSymbol.h>

#include <QAbstractButton>

#include <optional>

namespace Tavik {

/// A push button with a text or a symbol. A symbol button needs an accessible name.
class Button final : public QAbstractButton
{
    Q_OBJECT

public:
    explicit Button(const QString& text, QWidget* parent = nullptr);
    explicit Button(LineSymbol symbol, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<LineSymbol> m_symbol;
};

} // namespace Tavik
