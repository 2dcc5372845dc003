// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/SettingsPreviewLayout.h>

#include <algorithm>

namespace Tavik::SettingsPreviewLayout {

namespace {

constexpr double ringCap = 550;
constexpr double gap = 40;
/// What the screen must have beyond the window's width for the window itself to be centred.
constexpr double centringThreshold = 1180;

double maxX(const QRectF& rect)
{
    return rect.x() + rect.width();
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
    return std::min(raised, visible.y() + visible.height() - diameter / 2);
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

} // namespace Tavik::SettingsPreviewLayout
