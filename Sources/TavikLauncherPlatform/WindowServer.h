// SPDX-License-Identifier: MIT
#pragma once

#include <QRegion>
#include <QtGui/qwindowdefs.h>

#include <functional>

namespace Tavik {

/// What the panel needs of the window system beyond the toolkit's window. Main thread only.
class WindowServer
{
public:
    virtual ~WindowServer() = default;

    /// Marks the not yet shown window as a panel: above others, on every desktop, in no taskbar or
    /// pager. Must be repeated before each showing. Also remembers who has the keyboard now.
    virtual void preparePanel(WId window) = 0;
    /// Keeps a window of ours out of taskbar and pager, or brings it back.
    virtual void setSkipsTaskbar(WId window, bool skips) = 0;
    /// Gives the keyboard to the shown window, also against focus-stealing prevention.
    virtual void takeKeyboardFocus(WId window) = 0;
    /// Gives the keyboard back to the window that had it when the panel was prepared, unless
    /// another window has taken it since.
    virtual void returnKeyboardFocus(WId window) = 0;
    /// True while the keyboard belongs to the window. A grab by another program (a volume key held
    /// down) does not change that, though the toolkit reports a deactivation.
    [[nodiscard]] virtual bool hasKeyboardFocus(WId window) const = 0;
    /// True while the window is mapped and not wholly covered.
    [[nodiscard]] virtual bool isOnScreen(WId window) const = 0;
    /// True while translucent windows are blended.
    [[nodiscard]] virtual bool isCompositing() const = 0;

    /// Called when a compositor comes or goes.
    std::function<void()> onCompositingChanged;
};

} // namespace Tavik
