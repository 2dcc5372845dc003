// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>
#include <memory>

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

/// The keyboard beyond our own windows. Main thread only.
class KeyEvents
{
public:
    struct HotKey
    {
        quint16 keyCode = 0; ///< Virtual key code of the standard layout.
        quint64 modifierFlags = 0; ///< Bits of ModifierFlags.
    };
    struct HotKeyResult
    {
        std::unique_ptr<HotKeyRegistration> registration; ///< Null when the key could not be had.
        int status = 0; ///< 0 on success, else the system's error code.
    };

    virtual ~KeyEvents() = default;

    /// Asks for `hotKey` system-wide. `pressed` receives the time of the press in seconds of system
    /// uptime, once per press: auto-repeat is not reported.
    [[nodiscard]] virtual HotKeyResult registerHotKey(const HotKey& hotKey,
                                                      std::function<void(double)> pressed)
        = 0;
};

} // namespace Tavik
