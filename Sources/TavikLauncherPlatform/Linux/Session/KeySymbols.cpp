// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/KeySymbols.h>

#include <algorithm>
#include <array>

#include <xkbcommon/xkbcommon.h>

namespace Tavik::KeySymbols {

bool choosesLevel(quint32 symbol)
{
    static constexpr std::array<quint32, 7> choosers{XKB_KEY_Mode_switch,
                                                     XKB_KEY_ISO_Level3_Shift,
                                                     XKB_KEY_ISO_Level3_Latch,
                                                     XKB_KEY_ISO_Level3_Lock,
                                                     XKB_KEY_ISO_Level5_Shift,
                                                     XKB_KEY_ISO_Level5_Latch,
                                                     XKB_KEY_ISO_Level5_Lock};
    return std::ranges::find(choosers, symbol) != choosers.end();
}

std::optional<QString> text(quint32 symbol)
{
    if (symbol == XKB_KEY_NoSymbol) {
        return std::nullopt;
    }
    std::array<char, 8> bytes{};
    xkb_keysym_to_utf8(symbol, bytes.data(), bytes.size());
    const QString characters = QString::fromUtf8(bytes.data());
    return characters.isEmpty() || !characters.front().isPrint() ? QString() : characters;
}

} // namespace Tavik::KeySymbols
