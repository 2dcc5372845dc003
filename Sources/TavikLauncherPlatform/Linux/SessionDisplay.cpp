// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Platform.h>

namespace Tavik {

using namespace Qt::StringLiterals;

std::optional<QString> whyNoDisplay()
{
    // Who names the toolkit's platform knows what there is.
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        return std::nullopt;
    }
    const QString display = qEnvironmentVariable("DISPLAY");
    if (display.isEmpty()) {
        return u"there is no display; neither DISPLAY nor WAYLAND_DISPLAY is set"_s;
    }
    if (X11Connection().isBroken()) {
        return u"the display %1 cannot be opened"_s.arg(display);
    }
    return std::nullopt;
}

} // namespace Tavik
