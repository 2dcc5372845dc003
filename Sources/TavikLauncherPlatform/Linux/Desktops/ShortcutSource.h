// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/KeyEvents.h>

#include <QString>

#include <functional>

namespace Tavik {

/// A desktop that listens for the trigger in our place, because it lets no program listen itself.
/// It has one shortcut of ours at a time. Main thread only.
class ShortcutSource
{
public:
    struct Handlers
    {
        std::function<void()> pressed;
        std::function<void()> released; ///< Where the desktop tells it; it may be lost.
        /// The desktop has run something else at a key that was pressed while the chord was held.
        std::function<void()> joined;
        std::function<void(int)> lost; ///< The shortcut could not be had or kept; with a status.
    };

    /// Statuses other than 0.
    static constexpr int statusNoSuchKey = 2; ///< Or no chords, where they are none's.
    static constexpr int statusTaken = 10;
    static constexpr int statusGone = -1; ///< The desktop does not answer, or not yet.

    virtual ~ShortcutSource() = default;

    /// Whether the desktop has what this asks, as far as is known; else this is as good as none.
    [[nodiscard]] virtual bool isThere() const { return true; }
    /// Whether modifiers without a key can be had.
    [[nodiscard]] virtual bool hearsChords() const = 0;
    /// Whether programs never get to hear of keys that make a shortcut.
    [[nodiscard]] virtual bool hidesKeys() const = 0;
    /// Whether what was asked for last is had, as far as is known, or could be if nothing was.
    /// Cheap.
    [[nodiscard]] virtual bool serves() const = 0;
    /// How the desktop gives the shortcut.
    [[nodiscard]] virtual Means means() const { return {}; }
    /// Whether the desktop tells that a chord was let go; our own windows' keys do in any case.
    [[nodiscard]] virtual bool tellsReleases() const { return false; }
    /// Whether what was asked for last is missing for want of `allow`, or of a key in it.
    [[nodiscard]] virtual bool awaitsConsent() const { return false; }
    /// Whether the desktop is there and has refused what was asked for last.
    [[nodiscard]] virtual bool isRefused() const { return false; }
    /// What the desktop is asked for, as a sentence for people; empty when it needs no telling.
    [[nodiscard]] virtual QString request() const { return {}; }
    /// The line with which the desktop's own configuration gives the shortcut; empty where it needs
    /// none.
    [[nodiscard]] virtual QString line() const { return {}; }
    /// The user agrees to `request`.
    virtual void allow() { }

    /// Asks for a shortcut in the place of the one before. Returns 0, or why not; what the desktop
    /// says later comes by `lost`.
    virtual int bind(const KeyEvents::HotKey& hotKey, Handlers handlers) = 0;
    virtual void unbind() = 0;
    /// The status that `bind` would come to.
    [[nodiscard]] virtual int status(const KeyEvents::HotKey& hotKey) = 0;
};

} // namespace Tavik
