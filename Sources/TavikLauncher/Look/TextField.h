// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/LineSymbol.h>

#include <QLineEdit>

#include <optional>

namespace Tavik {

/// A line of text to type into, with an optional symbol before it.
class TextField final : public QLineEdit
{
    Q_OBJECT

public:
    explicit TextField(std::optional<LineSymbol> symbol = {}, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<LineSymbol> m_symbol;
};

} // namespace Tavik
