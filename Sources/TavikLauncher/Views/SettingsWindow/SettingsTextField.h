// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/SettingsWindow/SettingsSymbol.h>

#include <QLineEdit>

#include <optional>

namespace Tavik {

/// A line of text to type into, with an optional symbol before it.
class SettingsTextField final : public QLineEdit
{
    Q_OBJECT

public:
    explicit SettingsTextField(std::optional<SettingsSymbol> symbol = {},
                               QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<SettingsSymbol> m_symbol;
};

} // namespace Tavik
