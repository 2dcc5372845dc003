// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Means.h>

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QtGui/qwindowdefs.h>

#include <functional>
#include <optional>

namespace Tavik {

/// What a desktop gives along with a user's action, so that the program that carries it out may
/// come to the front. Both come from other programs and may be empty.
struct Activation
{
    QByteArray startupId; ///< Of start-up notification.
    QByteArray token; ///< What took its place.

    bool operator==(const Activation&) const = default;
};

/// What our windows need of the window system beyond the toolkit. Main thread only.
class WindowServer
{
public:
    virtual ~WindowServer() = default;

    /// How it is known where the pointer is, and what puts the ring above other windows.
    [[nodiscard]] virtual Means pointerMeans() const { return {}; }
    [[nodiscard]] virtual Means overlayMeans() const { return {}; }
    /// Whether the panel is a window like others to the desktop. Where it is not, nothing but this
    /// gives it the keyboard and keeps it there.
    [[nodiscard]] virtual bool isPanelManaged() const = 0;
    /// Makes ready for showing the panel: above others, on every desktop, in no taskbar or pager.
    /// Must be repeated before each showing.
    virtual void preparePanel(WId window) = 0;
    /// Moves the panel's corner to a pixel of the desktop, which the toolkit's whole points may not
    /// name. Not for a panel that is managed.
    virtual void movePanel(WId, QPoint) { }
    /// The panel has a place in the toolkit's plane, in points; for a window system that does not
    /// learn it from the toolkit.
    virtual void placePanel(WId, const QRect&) { }
    /// The panel has just been shown. Returns whether it may be painted; else `onPanelPlaced` tells
    /// when.
    [[nodiscard]] virtual bool panelShown(WId) { return true; }
    /// The panel will be hidden next.
    virtual void panelHides(WId) { }
    /// Lets the pointer reach a window only there; device pixels, y growing downwards.
    virtual void setInputRegion(WId window, const QRegion& region) = 0;
    /// Cuts away all else of the window, likewise; an empty region cuts away nothing. The toolkit's
    /// own masks cut its painting too, and not by quite the same pixels.
    virtual void setShape(WId, const QRegion&) { }
    /// Keeps a window of ours out of taskbar and pager, or brings it back.
    virtual void setSkipsTaskbar(WId window, bool skips) = 0;
    /// Asks a compositor that can to blur what is seen through this part of the window, in device
    /// pixels of the window; elsewhere nothing happens. An empty region asks for none.
    virtual void setBlurBehind(WId, const QRegion&) { }
    /// Asks compositors to put no shadow around the square of an unmanaged window that is seen
    /// through, and to blur nothing behind it but what was asked for.
    virtual void declineShadow(WId) { }
    /// Has the toolkit hear of every step in which the user moves the window, also where it would
    /// hear only of the last one, and us of its virtual desktop; see `onDesktopChanged`. May be
    /// repeated.
    virtual void reportMoves(WId window) = 0;
    /// False where the toolkit cannot know where our windows are; then `placeOf` may.
    [[nodiscard]] virtual bool toolkitKnowsPlaces() const { return true; }
    /// Where a window of ours with that title is, with its frame, in points of the toolkit's plane;
    /// absent where nobody tells. What has not been told yet comes by `onPlacesChanged`.
    [[nodiscard]] virtual std::optional<QRect> placeOf(const QString&) { return std::nullopt; }
    /// False while the window is on a virtual desktop that the user has turned away from.
    [[nodiscard]] virtual bool isOnCurrentDesktop(WId) const { return true; }
    /// Gives the keyboard to the shown window, also against focus-stealing prevention.
    virtual void takeKeyboardFocus(WId window) = 0;
    /// Remembers who has the keyboard, gives it to the shown panel and watches over it; see
    /// `onPanelLeft`.
    virtual void takeKeyboardFocusForPanel() = 0;
    /// Gives the keyboard back to the window that had it before the panel, unless
    /// another window has taken it since. To be called before the panel is hidden.
    virtual void returnKeyboardFocus() = 0;
    /// True while the keyboard belongs to the window. A grab by another program (a volume key held
    /// down) does not change that, though the toolkit reports a deactivation.
    [[nodiscard]] virtual bool hasKeyboardFocus(WId window) const = 0;
    /// True while the window is mapped and not wholly covered.
    [[nodiscard]] virtual bool isOnScreen(WId window) const = 0;
    /// What the screen shows at the window's place, in device pixels; null where that cannot be
    /// had.
    [[nodiscard]] virtual QImage pictureAt(WId) const { return {}; }
    /// True while translucent windows are blended.
    [[nodiscard]] virtual bool isCompositing() const = 0;

    /// What is done until `endActivation` is done for this action: the window that takes the
    /// keyboard is marked as its outcome.
    virtual void beginActivation(const Activation& activation) = 0;
    /// Tells the desktop that the action has been carried out, so that nobody waits for a window.
    virtual void endActivation() = 0;

    /// Called before `onPanelPlaced` when only the waiting has told where the pointer is: a panel
    /// that was shown at it belongs where `Screens` knows it now.
    std::function<void()> onPointerFound;
    /// Called when a shown panel that had to wait for its place has got it.
    std::function<void()> onPanelPlaced;
    /// Called while the panel has taken the keyboard, when the user has turned to something else:
    /// has clicked elsewhere or given the keyboard to another window. Also when it could not be
    /// had.
    std::function<void()> onPanelLeft;
    /// Called when the user turns to another virtual desktop, or takes a window there whose moves
    /// are reported.
    std::function<void()> onDesktopChanged;
    /// Called when `placeOf` has another answer.
    std::function<void()> onPlacesChanged;
    /// Called when a compositor comes or goes.
    std::function<void()> onCompositingChanged;
};

} // namespace Tavik
