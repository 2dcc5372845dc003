// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/AppRequest.h>

#include <functional>

namespace Tavik {

class ScreenGuard;
class WindowServer;

/// Does what other programs ask for, and has the window that answers marked as the outcome. A ring
/// waits for a free screen. Main thread only.
class RequestPerformer
{
public:
    struct Dependencies
    {
        WindowServer& windowServer;
        ScreenGuard& screenGuard;
    };
    struct Actions
    {
        std::function<bool()> isRingVisible;
        std::function<void()> pressTrigger;
        std::function<void()> showRing; ///< At the pointer.
        std::function<void()> hideRing;
        std::function<void(const QString& section)> showSettings;
        std::function<void()> showReindex;
        std::function<void()> showTour;
        std::function<void()> checkForUpdates;
        std::function<void()> quit;
    };

    RequestPerformer(const Dependencies& dependencies, Actions actions);

    void perform(const AppRequest& request);

private:
    [[nodiscard]] bool bringsUpRing(AppAction action) const;
    void carryOut(const AppRequest& request);

    Dependencies m_dependencies;
    Actions m_actions;
};

} // namespace Tavik
