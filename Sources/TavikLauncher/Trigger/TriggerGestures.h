// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Trigger/GlobalHotKey.h>

#include <functional>
#include <optional>

namespace Tavik {

/// Decides what a press or a release of the trigger does to the panel: a shortcut with a key
/// toggles it; a chord of modifiers shows it while held, and pressed again soon after a short tap
/// pins it open. A command that was run at some other key leaves the ring open for the next. Knows
/// only the times of the events, in seconds of system uptime.
class TriggerGestures
{
public:
    enum class Shortcut {
        keyed,
        modifierOnly
    };
    /// What the gestures can see and do.
    struct Panel
    {
        std::function<bool()> isVisible;
        std::function<bool()> isPinned;
        std::function<bool()> doubleTapPins; ///< The user's setting.
        std::function<void()> showAtPointer;
        std::function<void()> hide;
        std::function<void()> pin;
    };

    explicit TriggerGestures(Panel panel);

    void press(Shortcut shortcut, double time);
    void release(Shortcut shortcut, ReleaseReason reason, double time);
    /// The chord whose release was told is still held: its press, at `time`, was no tap.
    void heldAfterAll(double time);
    /// The chord turns out to be part of somebody else's shortcut: until it is let go it shows
    /// nothing more, and it is no tap.
    void otherKey(OtherKey key);
    void letGo();
    /// A tap before the system sleeps pairs with nothing after it.
    void systemWillSleep();

private:
    /// Uses up the tap before.
    [[nodiscard]] bool isSecondTap(double pressedAt);
    void recordRelease(ReleaseReason reason, double time);

    Panel m_panel;
    bool m_isShortcut = false; ///< The chord that is held has been joined by another key.
    bool m_hasPinned
        = false; ///< The press that is not released yet was the second of a double tap.
    bool m_staysOpen = false; ///< A command has shown the ring, so a command hides it.
    std::optional<double> m_lastPressTime; ///< Of a press whose release is still to come.
    std::optional<double> m_lastReleaseTime; ///< Of a short tap: half of a double tap.
};

} // namespace Tavik
