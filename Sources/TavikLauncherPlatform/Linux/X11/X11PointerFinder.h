// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11EventPump.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QPoint>

#include <functional>
#include <optional>

namespace Tavik {

/// Finds the pointer under Xwayland, which hears of it only over windows of its own programs: a
/// transparent window over all screens has the compositor tell where it is. Main thread only, and
/// never waits for the compositor.
class X11PointerFinder
{
public:
    struct Place
    {
        QPoint pixel; ///< Where the server believes the pointer to be.
        bool isSure = false;
    };

    /// `connection` is one of our own, whose events `pump` hands to `handle`. All must outlive
    /// this.
    X11PointerFinder(const X11Connection& connection,
                     const X11Atoms& atoms,
                     X11EventPump& pump,
                     MainQueue& mainQueue);
    ~X11PointerFinder() { end(); }
    Q_DISABLE_COPY_MOVE(X11PointerFinder)

    /// What the server knows without a search; absent when it does not answer.
    [[nodiscard]] std::optional<Place> ask() const;
    /// Shows the transparent window until the compositor has told, or a second has passed. `done`
    /// is called afterwards, when the server knows as much as it ever will; not after `end`.
    void search(std::function<void()> done);
    [[nodiscard]] bool isSearching() const { return m_window != XCB_NONE; }
    void end();
    /// A window of ours is about to go from under the pointer: what the server knows now is old
    /// from here on.
    void forget();

    /// Any event of the connection.
    void handle(const xcb_generic_event_t& event);

private:
    void finish();

    const X11Connection& m_connection;
    const X11Atoms& m_atoms;
    X11EventPump& m_pump;
    MainQueue& m_mainQueue;
    xcb_visualid_t m_visual; ///< Of windows that are seen through; none without.
    std::optional<QPoint> m_oldPlace;
    xcb_window_t m_window = XCB_NONE;
    xcb_colormap_t m_colormap = XCB_NONE;
    std::function<void()> m_done;
    Task m_limitTask;
};

} // namespace Tavik
