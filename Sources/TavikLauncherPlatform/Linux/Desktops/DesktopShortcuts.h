// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Desktops/ShortcutSource.h>

#include <memory>

namespace Tavik {

class MainQueue;
class UserDefaults;
class WorkQueue;

/// What listens for the trigger on the Wayland desktop that the environment names; null where
/// it has no interface of its own that we know. `program` is how ours is started.
[[nodiscard]] std::unique_ptr<ShortcutSource> shortcutSourceOfDesktop(MainQueue& mainQueue,
                                                                      WorkQueue& workQueue,
                                                                      UserDefaults& userDefaults,
                                                                      const QString& program);

} // namespace Tavik
