// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/ToldWindows.h>
#include <TavikLauncherPlatform/Linux/Wayland/WaylandConnection.h>

#include <memory>
#include <vector>

namespace Tavik {

/// The windows that a compositor on wlroots lists for taskbars, also those of its X server. It
/// tells their applications' names and which has the focus, but no process. On a connection of its
/// own, so that a quarrel about the list ends nothing else.
class ForeignToplevels final : public ToldWindows
{
public:
    /// Null where the compositor has no such list.
    [[nodiscard]] static std::unique_ptr<ForeignToplevels> make();
    ~ForeignToplevels() override;
    ForeignToplevels(const ForeignToplevels&) = delete;
    ForeignToplevels& operator=(const ForeignToplevels&) = delete;

    [[nodiscard]] Means runningMeans() const override;
    [[nodiscard]] Means raisingMeans() const override;

private:
    struct Toplevel;
    struct Listeners;

    ForeignToplevels();
    void raise(const QString& name) override;
    void tell();

    WaylandConnection m_connection;
    WaylandObject<zwlr_foreign_toplevel_manager_v1> m_manager;
    WaylandObject<wl_callback> m_first; ///< Answered when all have come that there were at first.
    std::vector<std::unique_ptr<Toplevel>> m_toplevels; ///< In the order in which they came.
    quint64 m_lastName = 0;
};

} // namespace Tavik
