// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Views/Windows/OnboardingTour.h>
#include <TavikLauncherPlatform/Texts.h>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

TourRow shortcutRow(const HotKeyConfig& hotKey)
{
    if (hotKey.keyCode) {
        return {.symbol = Symbol::keyboard,
                .title = Texts::tr("Press the shortcut"),
                .detail = Texts::tr("Press %1 to toggle the ring at the pointer. Press it again or "
                                    "hit Esc to dismiss. Go ahead — try it right now!")
                              .arg(hotKey.displayName)};
    }
    QString name = hotKey.displayName;
    name.remove(u" (hold)"_s);
    return {.symbol = Symbol::keyboard,
            .title = Texts::tr("Hold the shortcut"),
            .detail
            = Texts::tr("Press and hold %1 to open the ring at the pointer. Release to dismiss "
                        "unless search mode is active. Go ahead — try it right now!")
                  .arg(name)};
}

} // namespace

QList<TourRow> tourRows(const HotKeyConfig& hotKey)
{
    return {
        shortcutRow(hotKey),
        {.symbol = Symbol::typing,
         .title = Texts::tr("Move or type"),
         .detail = Texts::tr("Hover an app slice to select it, or type to filter. Typing pins the "
                             "ring until you launch, press Esc, or click away.")},
        {.symbol = Symbol::pin,
         .title = Texts::tr("Pin your favorites"),
         .detail = Texts::tr("Add permanent apps in Settings, then drag pinned apps to lock their "
                             "clockwise ring order.")},
        {.symbol = Symbol::sliders,
         .title = Texts::tr("Tune the look"),
         .detail = Texts::tr("Adjust size, spacing, colors, opacity, themes, and the global "
                             "shortcut whenever you want.")},
    };
}

} // namespace Tavik
