// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/X11/X11GrabModifiers.h>

#include <algorithm>
#include <initializer_list>

#include <xcb/xproto.h>

namespace Tavik {

namespace {

// The key symbols of the X protocol that matter here.
constexpr quint32 numLock = 0xff7f;
constexpr quint32 scrollLock = 0xff14;
constexpr quint32 metaLeft = 0xffe7;
constexpr quint32 metaRight = 0xffe8;
constexpr quint32 altLeft = 0xffe9;
constexpr quint32 altRight = 0xffea;
constexpr quint32 superLeft = 0xffeb;
constexpr quint32 superRight = 0xffec;

constexpr std::size_t firstFreeModifier = 3; // After shift, lock and control.

constexpr qint64 latestPastMilliseconds = 60'000;
constexpr qint64 latestFutureMilliseconds = 1'000;

} // namespace

X11GrabModifiers X11GrabModifiers::fromMap(const std::array<QList<quint8>, 8>& keysOf,
                                           const std::function<QList<quint32>(quint8)>& symbolsOf)
{
    std::array<QList<quint32>, 8> symbols;
    for (std::size_t i = firstFreeModifier; i < keysOf.size(); ++i) {
        for (const quint8 key : keysOf.at(i)) {
            symbols.at(i) += symbolsOf(key);
        }
    }
    const auto modifierWith = [&symbols](std::initializer_list<quint32> wanted) -> quint16 {
        for (std::size_t i = firstFreeModifier; i < symbols.size(); ++i) {
            if (std::ranges::find_first_of(symbols.at(i), wanted) != symbols.at(i).end()) {
                return static_cast<quint16>(1U << i);
            }
        }
        return 0;
    };
    X11GrabModifiers result;
    result.option = modifierWith({altLeft, altRight});
    if (result.option == 0) {
        result.option = modifierWith({metaLeft, metaRight});
    }
    result.command = modifierWith({superLeft, superRight});
    result.locks = static_cast<quint16>(XCB_MOD_MASK_LOCK | modifierWith({numLock})
                                        | modifierWith({scrollLock}));
    // A keyboard may put a lock on a modifier that is wanted for itself.
    result.locks &= static_cast<quint16>(~(result.option | result.command));
    return result;
}

std::optional<quint16> X11GrabModifiers::maskFor(quint64 modifierFlags) const
{
    quint16 mask = 0;
    if (modifierFlags & ModifierFlags::shift) {
        mask |= XCB_MOD_MASK_SHIFT;
    }
    if (modifierFlags & ModifierFlags::control) {
        mask |= XCB_MOD_MASK_CONTROL;
    }
    if (modifierFlags & ModifierFlags::option) {
        if (option == 0) {
            return std::nullopt;
        }
        mask |= option;
    }
    if (modifierFlags & ModifierFlags::command) {
        if (command == 0) {
            return std::nullopt;
        }
        mask |= command;
    }
    return mask;
}

quint64 X11GrabModifiers::flagsFor(quint16 mask) const
{
    quint64 flags = 0;
    flags |= (mask & XCB_MOD_MASK_SHIFT) != 0 ? ModifierFlags::shift : 0;
    flags |= (mask & XCB_MOD_MASK_CONTROL) != 0 ? ModifierFlags::control : 0;
    flags |= (mask & option) != 0 ? ModifierFlags::option : 0;
    flags |= (mask & command) != 0 ? ModifierFlags::command : 0;
    return flags;
}

QList<quint16> X11GrabModifiers::lockVariants() const
{
    QList<quint16> variants;
    quint16 variant = 0;
    // Counts through the subsets of the bits in `locks`.
    do {
        variants.append(variant);
        variant = static_cast<quint16>((variant - locks) & locks);
    } while (variant != 0);
    return variants;
}

double uptimeOfServerTime(quint32 time, double now)
{
    const auto nowMilliseconds = static_cast<qint64>(now * 1000.0);
    const qint64 age = static_cast<qint32>(static_cast<quint32>(nowMilliseconds) - time);
    return age > latestPastMilliseconds || age < -latestFutureMilliseconds
        ? now
        : static_cast<double>(nowMilliseconds - age) / 1000.0;
}

} // namespace Tavik
