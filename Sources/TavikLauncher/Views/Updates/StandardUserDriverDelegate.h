// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Updater.h>

namespace Tavik {

/// Has a say in how updates are shown. Every call comes on the main thread.
class StandardUserDriverDelegate
{
public:
    virtual ~StandardUserDriverDelegate() = default;

    /// True when an update found by schedule may be left for the delegate to hint at.
    [[nodiscard]] virtual bool supportsGentleScheduledUpdateReminders() const = 0;
    /// Whether a window is to show an update found by schedule. `andInImmediateFocus`: the user is
    /// at one of our windows anyway.
    [[nodiscard]] virtual bool
    standardUserDriverShouldHandleShowingScheduledUpdate(const UpdateItem& update,
                                                         bool andInImmediateFocus)
        = 0;
    /// Before an update is shown, or left to the delegate when `handleShowingUpdate` is false.
    virtual void standardUserDriverWillHandleShowingUpdate(bool handleShowingUpdate,
                                                           const UpdateItem& forUpdate,
                                                           const UpdateUserState& state)
        = 0;
    /// The user has seen the update for the first time.
    virtual void standardUserDriverDidReceiveUserAttention(const UpdateItem& forUpdate) = 0;
    virtual void standardUserDriverWillFinishUpdateSession() = 0;
    virtual void standardUserDriverWillShowModalAlert() = 0;
};

} // namespace Tavik
