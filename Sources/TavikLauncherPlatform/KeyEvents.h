// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Means.h>

#include <QString>
#include <QtGlobal>

#include <functional>
#include <memory>
#include <optional>

namespace Tavik {

/// Device-independent modifier bits of the shortcut records.
namespace ModifierFlags {
inline constexpr quint64 shift = 0x20000;
inline constexpr quint64 control = 0x40000;
inline constexpr quint64 option = 0x80000;
inline constexpr quint64 command = 0x100000;
inline constexpr quint64 all = shift | control | option | command;
} // namespace ModifierFlags

/// A system-wide key combination; destroying it gives the combination back.
class HotKeyRegistration
{
public:
    virtual ~HotKeyRegistration() = default;
};

/// A source of key events; destroying it, also from inside its own handler, ends the delivery.
class KeyMonitor
{
public:
    virtual ~KeyMonitor() = default;
};

/// A source that sees every key event of the session, and that the system can switch off.
class EventTap : public KeyMonitor
{
public:
    [[nodiscard]] virtual bool isEnabled() const = 0;
    /// Switches it on again; returns whether that was possible.
    virtual bool enable() = 0;
};

/// The keyboard, in our own windows and beyond. Nothing of it is kept: only modifiers and what was
/// asked for is looked at. Main thread only.
class KeyEvents
{
public:
    struct HotKey
    {
        /// Virtual key code of the standard layout; without one it is a chord of modifiers.
        std::optional<quint16> keyCode;
        quint64 modifierFlags = 0; ///< Bits of ModifierFlags.
        QString label{}; ///< What people call the key, for who cannot ask for its place.
    };
    struct HotKeyResult
    {
        std::unique_ptr<HotKeyRegistration> registration; ///< Null when the key could not be had.
        int status = 0; ///< 0 on success, else the system's error code.
    };

    enum class Kind {
        modifiersChanged, ///< A modifier key went down or up.
        keyDown, ///< Any other key went down.
        /// Any other key went down with modifiers held, and it was not the ring that got it: the
        /// desktop or another program has asked for it. Tells not which. Only from a tap.
        takenElsewhere,
    };
    struct Event
    {
        Kind kind = Kind::modifiersChanged;
        quint16 keyCode = 0; ///< Of a key that went down: virtual key code of the standard layout.
        /// What is in effect after the event, in bits of ModifierFlags.
        quint64 modifierFlags = 0;
        bool isRepeat = false;
        double time = 0; ///< Seconds of system uptime; sources may differ by a few milliseconds.
    };
    using Observer = std::function<void(const Event&)>;
    struct HotKeyHandlers
    {
        /// Receives the time of the press in seconds of system uptime, once per press: auto-repeat
        /// is not reported. Keys that follow are held back until it returns, so that a window which
        /// it shows gets them.
        std::function<void(double)> pressed;
        /// Of a chord only, and only where the desktop tells it. It may be lost.
        std::function<void(double)> released;
        /// Likewise: the desktop has run something else at a key that joined the chord.
        std::function<void(double)> joined;
        /// The key had to be given up when the keyboard changed; receives the system's error code.
        std::function<void(int)> lost;
    };
    /// Returns whether the event ends here.
    using Filter = std::function<bool(const Event&)>;

    /// A key press in one of our windows, as the toolkit hands it over from the window system.
    struct NativeKey
    {
        quint32 scanCode = 0;
        quint32 symbol = 0;
        quint32 modifiers = 0; ///< The window system's own bits.
    };
    /// What AltGr and the like, which choose between the characters of a key, have to do with it.
    enum class LevelUse {
        none,
        chosen, ///< One of them is in effect.
        chooser, ///< It is one of them.
    };

    virtual ~KeyEvents() = default;

    /// Asks for `hotKey` system-wide. A chord can be had where the desktop listens for it in our
    /// place; elsewhere it is refused, and the monitors tell of it.
    [[nodiscard]] virtual HotKeyResult registerHotKey(const HotKey& hotKey, HotKeyHandlers handlers)
        = 0;
    /// The status with which `registerHotKey` would end now; what we hold ourselves can be had.
    [[nodiscard]] virtual int hotKeyStatus(const HotKey& hotKey) = 0;
    /// False where modifiers without a key can be no shortcut, because nobody tells of them.
    [[nodiscard]] virtual bool hearsChords() const { return true; }
    /// How a shortcut that was asked for is heard now, and how it is known that a chord was let go.
    [[nodiscard]] virtual Means triggerMeans(bool /*isChord*/) const { return {}; }
    [[nodiscard]] virtual Means releaseMeans() const { return {}; }
    /// Whether the keyboard has all of these modifiers and, when one is given, the key.
    [[nodiscard]] virtual bool hasKeys(quint64 modifierFlags,
                                       std::optional<quint16> keyCode) const = 0;

    // Each of these three is null where the system has no such source. What they tell of the
    // modifiers is the keyboard's true state, and all of them together tell it in the order in
    // which it changed: the same state may come several times, an old one never after a newer.

    /// Events in our own windows, before they are handled there.
    [[nodiscard]] virtual std::unique_ptr<KeyMonitor> addLocalMonitor(Kind kind, Filter filter) = 0;
    /// Events anywhere, as long as the session lets us watch.
    [[nodiscard]] virtual std::unique_ptr<KeyMonitor> addGlobalMonitor(Kind kind, Observer observer)
        = 0;
    /// Events anywhere; `disabled` is told when the system has switched the tap off.
    [[nodiscard]] virtual std::unique_ptr<EventTap>
    createEventTap(Kind kind, Observer observer, std::function<void()> disabled) = 0;

    /// The modifiers in effect right now, asked from the system; absent when it cannot say.
    [[nodiscard]] virtual std::optional<quint64> heldModifiers() = 0;

    /// The virtual key code of the standard layout for the place of a key; absent without one.
    [[nodiscard]] virtual std::optional<quint16> keyCode(const NativeKey& key) const = 0;
    /// What a key types without Control, Option and Command in the user's layout; absent when the
    /// system cannot say, empty when it types nothing.
    [[nodiscard]] virtual std::optional<QString> characters(const NativeKey& key) const = 0;
    [[nodiscard]] virtual LevelUse levelUse(const NativeKey& key) const = 0;

    /// Called after the keyboard has changed: another layout, other modifiers, a keyboard plugged
    /// in. Registrations follow by themselves; what was impossible may be possible now.
    std::function<void()> onKeyboardChanged;
};

} // namespace Tavik
