// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>

/// Colours as text: "#" and six hexadecimal digits, sRGB.
namespace Tavik::ColorText {

/// The opaque colour that `hex` names, with or without "#" around it and in either case;
/// `fallback` when it names none.
[[nodiscard]] QColor color(const QString& hex, const QColor& fallback);

/// `color` as "#" and six upper-case digits; its alpha is left out.
[[nodiscard]] QString hexString(const QColor& color);

} // namespace Tavik::ColorText
