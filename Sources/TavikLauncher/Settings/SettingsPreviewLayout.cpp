// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/SettingsPreviewLayout.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace Tavik::SettingsPreviewLayout {

namespace {

constexpr double ringCap = 550;
constexpr double gap = 40;
/// What the screen must have beyond the window's width for the window itself to be centred.
constexpr double centringThreshold = 1180;
/// The settings allow no smaller ring: rather than shrink below it at a side of the window, the
/// preview goes above or below, if there is more room.
constexpr double smallestRing = 250;
/// What is smaller has no room for a band around its middle.
constexpr double smallestDrawable = 180;
/// The ring's window is larger than the ring by this factor.
constexpr double panelShare = 1.1;

double maxX(const QRectF& rect)
{
    return rect.x() + rect.width();
}

double maxY(const QRectF& rect)
{
    return rect.y() + rect.height();
}

double midX(const QRectF& rect)
{
    return rect.x() + rect.width() / 2;
}

double midY(const QRectF& rect)
{
    return rect.y() + rect.height() / 2;
}

double ringCenterY(const QRectF& visible, const QRectF& dialog, double diameter)
{
    if (visible.height() < diameter) {
        return midY(visible);
    }
    const double raised = std::max(midY(dialog), visible.y() + diameter / 2);
    return std::min(raised, maxY(visible) - diameter / 2);
}

double ringCenterX(const QRectF& visible, const QRectF& dialog, double diameter)
{
    if (visible.width() < diameter) {
        return midX(visible);
    }
    return std::min(std::max(midX(dialog), visible.x() + diameter / 2),
                    maxX(visible) - diameter / 2);
}

/// A place for a ring, and the largest that fits there.
struct Place
{
    QPointF center;
    double diameter = 0;
};

/// What a place takes of the room between the gap at the window and the screen's edge.
struct Room
{
    double side = 0; ///< The ring stands in its middle.
    double diameter = 0; ///< With this the ring's own window mostly stays on the screen.
};

Room roomIn(double space)
{
    const double room = std::max(space - gap, 0.0);
    const double side = std::min(room, ringCap);
    const double whole = std::min(side, 2 * (room - side / 2) / panelShare);
    // Rather than no ring, one whose shadow leaves the screen.
    return {.side = side, .diameter = whole < smallestDrawable ? side : whole};
}

Place rightOf(const QRectF& window, const QRectF& visible)
{
    const auto [side, diameter] = roomIn(maxX(visible) - maxX(window));
    return {{maxX(window) + gap + side / 2, ringCenterY(visible, window, side)}, diameter};
}

Place leftOf(const QRectF& window, const QRectF& visible)
{
    const auto [side, diameter] = roomIn(window.x() - visible.x());
    return {{window.x() - gap - side / 2, ringCenterY(visible, window, side)}, diameter};
}

Place above(const QRectF& window, const QRectF& visible)
{
    const auto [side, diameter] = roomIn(maxY(visible) - maxY(window));
    return {{ringCenterX(visible, window, side), maxY(window) + gap + side / 2}, diameter};
}

Place below(const QRectF& window, const QRectF& visible)
{
    const auto [side, diameter] = roomIn(window.y() - visible.y());
    return {{ringCenterX(visible, window, side), window.y() - gap - side / 2}, diameter};
}

Place besideWindow(const QRectF& window, const QRectF& visible, double wanted)
{
    const std::array sides{rightOf(window, visible), leftOf(window, visible)};
    const auto* large = std::ranges::find_if(
        sides, [&](const Place& place) { return place.diameter >= std::min(wanted, ringCap); });
    if (large != sides.end()) {
        return *large;
    }
    const Place side = std::ranges::max(sides, {}, &Place::diameter);
    if (side.diameter >= smallestRing) {
        return side;
    }
    // Of equally large places the first wins.
    return std::ranges::max(
        std::array{side, above(window, visible), below(window, visible)}, {}, &Place::diameter);
}

/// Whether the window still stands where it was put, but for the rounding to whole pixels.
bool standsAt(const QRectF& dialog, const QRectF& window)
{
    constexpr double tolerance = 2;
    return std::abs(window.x() - dialog.x()) <= tolerance
        && std::abs(maxX(window) - maxX(dialog)) <= tolerance
        && std::abs(midY(window) - midY(dialog)) <= tolerance;
}

Result withFullRing(Tier tier, const QRectF& visible, const QRectF& dialog)
{
    return {.tier = tier,
            .dialogFrame = dialog,
            .ringCenter = {maxX(dialog) + gap + ringCap / 2, ringCenterY(visible, dialog, ringCap)},
            .ringDiameterCap = ringCap};
}

Result withSmallerRing(const QRectF& visible, const QRectF& dialog)
{
    const double ringMinX = maxX(dialog) + gap;
    const double space = std::max(0.0, maxX(visible) - ringMinX);
    const double cap = std::min(space, ringCap);
    // The centre of the whole free space, also where the ring does not fill it.
    return {.tier = Tier::tooTight,
            .dialogFrame = dialog,
            .ringCenter = {ringMinX + space / 2, ringCenterY(visible, dialog, cap)},
            .ringDiameterCap = cap};
}

} // namespace

Result compute(const Request& request)
{
    const QRectF& visible = request.visibleFrame;
    const double width = request.dialogSize.width();
    const double height = request.dialogSize.height();
    const auto dialogAt = [&](double x, double dialogWidth) {
        return QRectF(x, midY(visible) - height / 2, dialogWidth, height);
    };
    if (width + centringThreshold <= visible.width()) {
        return withFullRing(Tier::big, visible, dialogAt(midX(visible) - width / 2, width));
    }
    const double groupWidth = width + gap + ringCap;
    if (groupWidth <= visible.width()) {
        return withFullRing(Tier::tight, visible, dialogAt(midX(visible) - groupWidth / 2, width));
    }
    const double shrunkWidth = visible.width() - gap - ringCap;
    if (request.dialogMinWidth <= shrunkWidth) {
        return withFullRing(Tier::tight, visible, dialogAt(visible.x(), shrunkWidth));
    }
    return withSmallerRing(visible, dialogAt(visible.x(), request.dialogMinWidth));
}

Result following(const Request& request, const QRectF& window, double ringDiameter)
{
    Result result = compute(request);
    if (!standsAt(result.dialogFrame, window) || result.ringDiameterCap < smallestRing) {
        const Place place = besideWindow(window, request.visibleFrame, ringDiameter);
        result.ringCenter = place.center;
        result.ringDiameterCap = place.diameter < smallestDrawable ? 0 : place.diameter;
    }
    return result;
}

} // namespace Tavik::SettingsPreviewLayout
