// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Views/Windows/OnboardingTour.h>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

TourRow shortcutRow(const HotKeyConfig& hotKey)
{
    // The name is the user's own text: it is joined, not put into a pattern.
    if (hotKey.keyCode) {
        return {
            .symbol = Symbol::keyboard,
            .title = u"Press the shortcut"_s,
            .detail = u"Press "_s + hotKey.displayName
                + u" to toggle the ring at the pointer. Press it again or hit Esc to dismiss. Go ahead — try it right now!"_s};
    }
    QString name = hotKey.displayName;
    name.remove(u" (hold)"_s);
    return {
        .symbol = Symbol::keyboard,
        .title = u"Hold the shortcut"_s,
        .detail = u"Press and hold "_s + name
            + u" to open the ring at the pointer. Release to dismiss unless search mode is active. Go ahead — try it right now!"_s};
}

} // namespace

QList<TourRow> tourRows(const HotKeyConfig& hotKey)
{
    return {
        shortcutRow(hotKey),
        {.symbol = Symbol::typing,
         .title = u"Move or type"_s,
         .detail
         = u"Hover an app slice to select it, or type to filter. Typing pins the ring until you launch, press Esc, or click away."_s},
        {.symbol = Symbol::pin,
         .title = u"Pin your favorites"_s,
         .detail
         = u"Add permanent apps in Settings, then drag pinned apps to lock their clockwise ring order."_s},
        {.symbol = Symbol::sliders,
         .title = u"Tune the look"_s,
         .detail
         = u"Adjust size, spacing, colors, opacity, themes, and the global shortcut whenever you want."_s},
    };
}

} // namespace Tavik
