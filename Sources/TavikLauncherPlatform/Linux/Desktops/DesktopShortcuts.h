// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Desktops/ShortcutSource.h>

#include <memory>

namespace Tavik {

class MainQueue;
class UserDefaults;
class WorkQueue;

/// What listens for the trigger on the Wayland desktop that the environment names; null where
/// nothing is known to. `program` is how ours is started.
[[nodiscard]] std::unique_ptr<ShortcutSource> shortcutSourceOfSession(MainQueue& mainQueue,
                                                                      WorkQueue& workQueue,
                                                                      UserDefaults& userDefaults,
                                                                      const QString& program);

} // namespace Tavik
