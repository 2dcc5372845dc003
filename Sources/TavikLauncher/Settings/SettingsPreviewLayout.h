// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

/// Where the settings window and the live ring beside it, at its right, go on a screen. Points in
/// screen coordinates with y growing upwards: a rectangle's top() is its smallest y.
namespace Tavik::SettingsPreviewLayout {

enum class Tier {
    big, ///< The window is centred and the full ring fits at its right.
    tight, ///< Window and full ring fit as a group only, perhaps with a narrower window.
    tooTight, ///< The ring is smaller than the full one, or there is no room for it at all.
};

struct Request
{
    QRectF visibleFrame; ///< The screen without panels and docks.
    QSizeF dialogSize; ///< The window's preferred size.
    double dialogMinWidth = 0;
};

struct Result
{
    Tier tier = Tier::big;
    QRectF dialogFrame;
    QPointF ringCenter;
    double ringDiameterCap = 0; ///< The largest diameter the ring may be drawn at.

    bool operator==(const Result&) const = default;
};

[[nodiscard]] Result compute(const Request& request);

/// `window` is the settings window's present frame, wherever the user has moved it; the ring keeps
/// its distance to it. Without room at the right for a ring of `ringDiameter` it goes to the left,
/// above or below, smaller where it must. A cap of 0 means that the window leaves no room for a
/// ring that could be made out.
[[nodiscard]] Result following(const Request& request, const QRectF& window, double ringDiameter);

} // namespace Tavik::SettingsPreviewLayout
