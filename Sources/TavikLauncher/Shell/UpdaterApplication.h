// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/UpdateActivation.h>

namespace Tavik {

class UpdateWindow;
class WindowServer;

/// The running application with the updater's windows in it.
class UpdaterApplication final : public UpdateActivation::Application
{
public:
    struct Dependencies
    {
        WindowServer& windowServer;
        std::function<std::optional<Screen>()> activeScreen;
    };
    explicit UpdaterApplication(Dependencies dependencies);

    [[nodiscard]] bool isActive() const override;
    /// Gives the keyboard to a window of the updater's, unless another one of ours has it.
    void activateIgnoringOtherApps() override;
    [[nodiscard]] QList<UpdateActivation::Window> updaterWindows() const override;
    void setFrameOrigin(quint64 window, const QPointF& origin) override;
    void orderFrontRegardless(quint64 window) override;
    void orderKeyWindowFrontRegardless() override;
    [[nodiscard]] std::optional<Screen> activeScreen() const override;

private:
    Dependencies m_dependencies;
};

} // namespace Tavik
