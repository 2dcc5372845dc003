// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Updater.h>

namespace Tavik {

/// What this program was built with. Defined by the program, not by a library: the one that the
/// tests update has a source of its own.
[[nodiscard]] UpdateSource buildUpdateSource();

} // namespace Tavik
