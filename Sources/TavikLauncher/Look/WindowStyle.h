// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/Button.h>

#include <QColor>
#include <QFont>

class QKeyEvent;
class QLabel;
class QPalette;
class QWidget;

namespace Tavik::WindowStyle {

/// What the small windows have in common, derived from the desktop's palette and font so that they
/// look at home in light and dark.

[[nodiscard]] bool isDark(const QPalette& palette);
/// Quieter than the text, and still readable.
[[nodiscard]] QColor secondaryText(const QPalette& palette);
[[nodiscard]] QColor hairline(const QPalette& palette);
/// The desktop's accent, for symbols.
[[nodiscard]] QColor tint(const QPalette& palette);
[[nodiscard]] QColor success(const QPalette& palette);

/// The desktop's font at `size` points, larger or smaller as the desktop's own texts are.
[[nodiscard]] QFont font(double size, QFont::Weight weight = QFont::Normal);

enum class TextRole {
    primary,
    secondary,
};
struct TextStyle
{
    double size = 13;
    QFont::Weight weight = QFont::Normal;
    TextRole role = TextRole::primary;
};
/// A label that wraps, whose text can be read and selected by assistive technology, and whose
/// colour follows the palette.
[[nodiscard]] QLabel* makeLabel(const QString& text, const TextStyle& style, QWidget* parent);

[[nodiscard]] bool isReturn(const QKeyEvent& event);
[[nodiscard]] Button* makeButton(const QString& text, QWidget* parent);

/// The same for what a window is there for, filled with the desktop's accent.
[[nodiscard]] Button* makeProminentButton(const QString& text, QWidget* parent);

/// Gives `window` that width, or a larger one where a button needs it in large texts or in a
/// language of long words, and the least height at which its layout cuts nothing off.
void fit(QWidget& window, int usualWidth);

} // namespace Tavik::WindowStyle
