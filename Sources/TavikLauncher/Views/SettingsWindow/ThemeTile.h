// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/Pressable.h>
#include <TavikLauncher/Settings/ThemePreset.h>

namespace Tavik {

/// A theme as a small ring with its name. One of several exclusive tiles of the same parent.
class ThemeTile final : public Pressable
{
    Q_OBJECT

public:
    /// Without an id the tile stands for the user's own colours.
    explicit ThemeTile(const ThemePreset& theme, QWidget* parent = nullptr);

    void setTheme(const ThemePreset& theme);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ThemePreset m_theme;
};

} // namespace Tavik
