// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/RingInteraction.h>
#include <TavikLauncher/Views/Ring/RingCenterTexts.h>
#include <TavikLauncherPlatform/Texts.h>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestDrawnText = 256; // A bundle may call itself anything.

} // namespace

RingCenter ringCenterTexts(const RingInteraction& ring, const RingCenterConditions& conditions)
{
    const QList<IndexedApp>& apps = ring.ringApps();
    RingCenter center;
    center.query = (ring.query() + conditions.preedit).left(longestDrawnText);
    center.hint = Texts::tr("Type to filter...");
    center.fieldOpacity = center.query.isEmpty() ? conditions.emptyFieldOpacity : 1.0;
    if (ring.isPinnedForSearch()) {
        center.indicator = center.query.isEmpty() ? Texts::tr("Pinned") : Texts::tr("Search mode");
    }
    if (conditions.showsAppNames && ring.hasActiveSelection()
        && ring.selectedIndex() < apps.size()) {
        center.selectedName = apps.at(ring.selectedIndex()).name().left(longestDrawnText);
    }
    if (ring.isFiltering() && apps.isEmpty()) {
        if (ring.isIndexing()) {
            center.spinnerStep = conditions.spinnerStep;
        } else {
            center.message = Texts::tr("No matches");
        }
    }
    center.launchHint = ring.launchHint().value_or(QString());
    if (!ring.isFiltering() && apps.isEmpty()) {
        center.launchHint
            = Texts::tr("Nothing here yet. Click to add apps in Settings → Permanent Apps.");
        center.isInvitation = true;
    }
    return center;
}

} // namespace Tavik
