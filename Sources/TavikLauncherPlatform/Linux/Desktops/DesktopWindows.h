// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace Tavik {

class MainQueue;
class WindowSource;
class WorkQueue;

/// Who tells of all windows of the Wayland desktop that the environment names; null where nobody is
/// known to.
[[nodiscard]] std::unique_ptr<WindowSource> windowSourceOfDesktop(MainQueue& mainQueue,
                                                                  WorkQueue& workQueue);

} // namespace Tavik
