// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>

#include <functional>

class QObject;

namespace Tavik {

class WorkQueue;

/// The message buses, opened off the main thread, because the greeting waits for the bus.
namespace SessionBus {

using Opened = std::function<void(const QDBusConnection&)>;

/// Whether the session has a bus. Without one, connecting would start one that nobody asked for.
[[nodiscard]] bool isOffered();

/// Greets the session bus and waits a second for its answer. One that takes connections and says
/// nothing would hold up everything that asks it: for this process and from here on there is none
/// then. Where there is none to begin with, nobody here tries to start one. To be called before
/// anything else uses the bus.
void forgetIfMute();

/// Calls `opened` on the main thread unless there is no session bus or `context` is gone by then.
void open(WorkQueue& workQueue, QObject* context, Opened opened);
/// The same for the bus of the whole machine.
void openSystemBus(WorkQueue& workQueue, QObject* context, Opened opened);

} // namespace SessionBus

} // namespace Tavik
