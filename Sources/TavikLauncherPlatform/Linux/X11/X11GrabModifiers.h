// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QtGlobal>

#include <array>
#include <functional>
#include <optional>

namespace Tavik {

/// Which of the server's eight modifiers mean what on this keyboard. A value.
struct X11GrabModifiers
{
    quint16 option = 0; ///< 0 when no key of the keyboard has it.
    quint16 command = 0;
    /// All others together: the lock keys, and what is latched or locked to reach further levels
    /// of the layout.
    quint16 others = 0;

    /// Reads the modifier map: `keysOf[i]` are the X key codes behind modifier i, `symbolsOf` tells
    /// the key symbols of a key.
    [[nodiscard]] static X11GrabModifiers
    fromMap(const std::array<QList<quint8>, 8>& keysOf,
            const std::function<QList<quint32>(quint8)>& symbolsOf);

    /// The server's mask for bits of ModifierFlags; absent when the keyboard lacks one of them.
    [[nodiscard]] std::optional<quint16> maskFor(quint64 modifierFlags) const;
    /// Bits of ModifierFlags for what the server says is held.
    [[nodiscard]] quint64 flagsFor(quint16 mask) const;
    /// Every set of the others, the empty one first.
    [[nodiscard]] QList<quint16> variants() const;

    bool operator==(const X11GrabModifiers&) const = default;
};

/// Turns the server's time of an event, 32 bits of milliseconds that wrap, into seconds of system
/// uptime, given the uptime `now`. The same time always gives the same result, so that reports of
/// one event can be told to be that. A time that cannot be of this machine becomes `now`.
[[nodiscard]] double uptimeOfServerTime(quint32 time, double now);

} // namespace Tavik
