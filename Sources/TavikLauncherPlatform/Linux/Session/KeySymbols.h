// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// What the symbol stands for that a key has in the user's layout, in the numbers that all window
/// systems here share.
namespace Tavik::KeySymbols {

/// AltGr and the like, which only choose between the characters of another key.
[[nodiscard]] bool choosesLevel(quint32 symbol);
/// What it types; absent for no symbol, empty when it types nothing.
[[nodiscard]] std::optional<QString> text(quint32 symbol);

} // namespace Tavik::KeySymbols
