// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace Tavik {

/// Whether the screens are the user's: nothing of ours belongs on those of a locked session. Main
/// thread only.
class SessionLock
{
public:
    virtual ~SessionLock() = default;

    /// Whether the session has said that it is locked; answered from what was heard.
    [[nodiscard]] virtual bool isLocked() const = 0;
    /// Whether another program has keyboard and pointer all to itself, as a locker that tells
    /// nobody; so has an open menu. At most one round trip to the window system.
    [[nodiscard]] virtual bool isInputTaken() const = 0;

    /// Called when the session says that it is locked now.
    std::function<void()> onLocked;
};

} // namespace Tavik
