// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QList>
#include <QMargins>
#include <QPalette>
#include <QRectF>

class QAbstractButton;
class QPainter;
class QWidget;

namespace Tavik {

/// The windows' colours, light or dark as the palette is, with the desktop's accent.
struct Look
{
    bool isDark = false;
    QColor window;
    QColor sidebar;
    QColor edge; ///< Between sidebar and page, and around cards.
    QColor card;
    QColor rowLine;
    QColor text;
    QColor secondaryText;
    QColor accent;
    QColor onAccent;
    QColor track; ///< Of sliders, switches and choices.
    QColor outline; ///< Around what can be used: three times as light or dark as what it lies on.
    QColor button;
    QColor buttonHovered;
    QColor buttonPressed;
    QColor knob;
    QColor warning;
    QColor success;
    bool isContrast = false; ///< The desktop asks for pure colours and hard edges.
    double disabledOpacity = 0.4; ///< Of texts and symbols that cannot be used now.

    [[nodiscard]] static Look of(const QPalette& palette);
    [[nodiscard]] static Look of(const QWidget& widget);

    /// These colours in the roles of a palette; of(palette()) is the same look again.
    [[nodiscard]] QPalette palette() const;
};

inline constexpr QColor systemBlue(0x0A, 0x84, 0xFF);
/// The desktop's accent.
[[nodiscard]] QColor accentColor(const QPalette& palette);
/// `color` with its alpha replaced by `opacity`, 0 to 1.
[[nodiscard]] QColor withOpacity(QColor color, double opacity);

/// How much larger than usual the desktop's texts are; sizes in points are multiplied by it.
[[nodiscard]] double textScale();
/// A part of what `widget` paints, given as for writing from left to right, where it belongs in the
/// direction in which the widget is written; `whole` is what it is a part of.
[[nodiscard]] QRectF placed(const QWidget& widget, const QRectF& part, const QRectF& whole);
/// A layout's margins, which layouts do not turn round where writing runs from right to left.
[[nodiscard]] QMargins margins(int leading, int top, int trailing, int bottom);
/// `font` scaled by `factor`, at `weight`.
[[nodiscard]] QFont scaledFont(QFont font, double factor, QFont::Weight weight = QFont::Normal);

/// Has Tab reach the chosen one of several buttons that exclude each other, and arrow keys the
/// others. The toolkit does that only after one of them has had the focus.
void stopTabAtChosen(const QList<QAbstractButton*>& buttons);

/// How far a focus ring reaches beyond its control.
inline constexpr int focusMargin = 4;

/// True when the control has the focus and the user got there by keyboard.
[[nodiscard]] bool showsFocus(const QWidget& control);
/// The ring around a control's `body`; nothing unless `control` shows the focus.
void paintFocusRing(QPainter& painter,
                    const QWidget& control,
                    const QRectF& body,
                    double cornerRadius);

} // namespace Tavik
