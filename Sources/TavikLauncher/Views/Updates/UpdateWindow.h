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

    /// True when the user was at this window and went on to something else.
    [[nodiscard]] bool isLeft() const { return m_isLeft; }

    /// Called whenever the user comes to this window.
    std::function<void()> onActivated;

protected:
    bool event(QEvent* event) override;

private:
    UpdateView* m_view;
    bool m_isLeft = false;
};

} // namespace Tavik
