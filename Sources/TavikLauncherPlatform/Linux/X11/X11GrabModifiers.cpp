// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/X11/X11GrabModifiers.h>

#include <algorithm>
#include <initializer_list>

#include <xcb/xproto.h>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace Tavik {

namespace {

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
    result.option = modifierWith({XKB_KEY_Alt_L, XKB_KEY_Alt_R});
    if (result.option == 0) {
        result.option = modifierWith({XKB_KEY_Meta_L, XKB_KEY_Meta_R});
    }
    result.command = modifierWith({XKB_KEY_Super_L, XKB_KEY_Super_R});
    result.others = XCB_MOD_MASK_LOCK;
    for (std::size_t i = firstFreeModifier; i < keysOf.size(); ++i) {
        if (!keysOf.at(i).isEmpty()) {
            result.others |= static_cast<quint16>(1U << i);
        }
    }
    result.others &= static_cast<quint16>(~(result.option | result.command));
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

QList<quint16> X11GrabModifiers::variants() const
{
    QList<quint16> sets;
    quint16 set = 0;
    // Counts through the subsets of the bits in `others`.
    do {
        sets.append(set);
        set = static_cast<quint16>((set - others) & others);
    } while (set != 0);
    return sets;
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
