// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Platform.h>

namespace Tavik {

/// What this program was built with. Defined by the program, not by a library: the one for the
/// tests has updates and a permission of its own.
[[nodiscard]] PlatformOptions buildOptions();

} // namespace Tavik
