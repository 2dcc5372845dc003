// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/KeyNames.h>
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>

#include <algorithm>
#include <array>

#include <xkbcommon/xkbcommon.h>

namespace Tavik::KeyNames {

using namespace Qt::StringLiterals;

namespace {

struct Key
{
    quint16 code;
    int toolkit;
    const char16_t* name;
};
/// Those that are the same in every layout.
constexpr auto keys = std::to_array<Key>({
    {36, Qt::Key_Return, u"Return"}, {48, Qt::Key_Tab, u"Tab"},
    {49, Qt::Key_Space, u"space"},   {51, Qt::Key_Backspace, u"BackSpace"},
    {53, Qt::Key_Escape, u"Escape"}, {96, Qt::Key_F5, u"F5"},
    {97, Qt::Key_F6, u"F6"},         {98, Qt::Key_F7, u"F7"},
    {99, Qt::Key_F3, u"F3"},         {100, Qt::Key_F8, u"F8"},
    {101, Qt::Key_F9, u"F9"},        {103, Qt::Key_F11, u"F11"},
    {109, Qt::Key_F10, u"F10"},      {111, Qt::Key_F12, u"F12"},
    {118, Qt::Key_F4, u"F4"},        {120, Qt::Key_F2, u"F2"},
    {122, Qt::Key_F1, u"F1"},        {123, Qt::Key_Left, u"Left"},
    {124, Qt::Key_Right, u"Right"},  {125, Qt::Key_Down, u"Down"},
    {126, Qt::Key_Up, u"Up"},
});

const Key* keyOf(quint16 code)
{
    const auto* found = std::ranges::find(keys, code, &Key::code);
    return found == keys.end() ? nullptr : found;
}

} // namespace

std::optional<int> toolkitKey(quint16 virtualKeyCode, const QString& label)
{
    if (const Key* key = keyOf(virtualKeyCode)) {
        return key->toolkit;
    }
    const QString character = label.toUpper();
    return character.size() == 1 && character.front().isPrint()
        ? std::optional<int>(character.front().unicode())
        : std::nullopt;
}

std::optional<QString> acceleratorKey(quint16 virtualKeyCode)
{
    if (const Key* key = keyOf(virtualKeyCode)) {
        return QString::fromUtf16(key->name);
    }
    const std::optional<quint16> place = KeyCodes::evdevCode(virtualKeyCode);
    return place ? std::optional(u"0x%1"_s.arg(*place + KeyCodes::x11Offset, 0, 16)) : std::nullopt;
}

std::optional<QString> symbolName(quint16 virtualKeyCode, const QString& label)
{
    if (const Key* key = keyOf(virtualKeyCode)) {
        return QString::fromUtf16(key->name);
    }
    const QString character = label.toLower();
    std::array<char, 32> name{};
    const bool isNamed = character.size() == 1
        && xkb_keysym_get_name(
               xkb_utf32_to_keysym(character.front().unicode()), name.data(), name.size())
            > 0;
    return isNamed && character.front().isPrint() ? std::optional(QString::fromUtf8(name.data()))
                                                  : std::nullopt;
}

} // namespace Tavik::KeyNames
