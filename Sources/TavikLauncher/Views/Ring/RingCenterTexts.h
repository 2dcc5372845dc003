// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Ring/RingScene.h>

namespace Tavik {

class RingInteraction;

/// What the centre's texts depend on besides the ring itself.
struct RingCenterConditions
{
    bool showsAppNames = true;
    QString preedit; ///< What an input method is composing.
    double emptyFieldOpacity = 1; ///< 0 to 1.
    int spinnerStep = 0; ///< 0 to 11, for a spinner if one is shown.
};

/// What the ring's centre says now.
[[nodiscard]] RingCenter ringCenterTexts(const RingInteraction& ring,
                                         const RingCenterConditions& conditions);

} // namespace Tavik
