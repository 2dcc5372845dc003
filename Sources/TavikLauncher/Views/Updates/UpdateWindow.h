// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/AuxiliaryWindow.h>

namespace Tavik {

class UpdateView;

/// A window of the updater's. Closing it does what its view says; the driver that made it forgets
/// it then.
class UpdateWindow final : public AuxiliaryWindow
{
    Q_OBJECT

public:
    /// Takes `view`.
    UpdateWindow(WindowServer& windowServer, const Options& options, UpdateView* view);

    [[nodiscard]] UpdateView& view() { return *m_view; }

    /// Called whenever the user comes to this window.
    std::function<void()> onActivated;

protected:
    bool event(QEvent* event) override;

private:
    UpdateView* m_view;
};

} // namespace Tavik
