// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace Tavik {

/// A ready-made look of the ring: its colours as colour text, its opacities from 0 to 1. The colour
/// of the running dot is no part of it.
struct ThemePreset
{
    QString id;
    QString name;
    QString ringColorHex;
    double ringOpacity = 0;
    QString highlightColorHex;
    double highlightOpacity = 0;
    double pillOpacity = 0;

    bool operator==(const ThemePreset&) const = default;

    /// All presets in the order of the picker; the first is the default look.
    [[nodiscard]] static const QList<ThemePreset>& presets();
};

} // namespace Tavik
