// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/WindowSource.h>
#include <TavikLauncherPlatform/Texts.h>

namespace Tavik {

Means NoWindows::runningMeans() const
{
    return {.way = Texts::tr("Nobody tells of other programs' windows."),
            .lack = Texts::tr("Programs are seen to run only by their name on the session bus or "
                              "their systemd unit.")};
}

Means NoWindows::raisingMeans() const
{
    return {
        .way = Texts::tr("Nobody brings other programs' windows to the front."),
        .lack = Texts::tr(
            "A program that runs is started once more, unless it has a name on the session bus.")};
}

} // namespace Tavik
