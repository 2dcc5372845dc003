// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <span>

namespace Tavik {

/// A ready colour: its text as it is stored, and its name for those who cannot see it.
struct Swatch
{
    QStringView hex;
    const char* name; ///< For `Texts::tr`.
};

/// Quiet colours for the ring's band.
[[nodiscard]] std::span<const Swatch> darkSwatches();
/// Strong colours for highlight and dots.
[[nodiscard]] std::span<const Swatch> accentSwatches();

} // namespace Tavik
