// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherKeys.h>

#include <QList>

#include <algorithm>
#include <array>
#include <functional>

namespace Tavik {

namespace {

struct KeyCommand
{
    quint16 keyCode;
    std::function<void()> LauncherCommands::*command;
    bool repeats;
};

constexpr std::array<KeyCommand, 8> keyCommands{{
    {LauncherKeyCode::returnKey, &LauncherCommands::activate, false},
    {LauncherKeyCode::deleteKey, &LauncherCommands::deleteBackward, true},
    {LauncherKeyCode::forwardDelete, &LauncherCommands::deleteBackward, true},
    {LauncherKeyCode::escape, &LauncherCommands::close, false},
    {LauncherKeyCode::leftArrow, &LauncherCommands::moveSelectionLeft, true},
    {LauncherKeyCode::rightArrow, &LauncherCommands::moveSelectionRight, true},
    {LauncherKeyCode::downArrow, &LauncherCommands::moveSelectionDown, true},
    {LauncherKeyCode::upArrow, &LauncherCommands::moveSelectionUp, true},
}};

/// The digit 1 to 9 that the characters spell, in any script's decimal digits; a raised or circled
/// one is a character of its own.
std::optional<int> quickLaunchDigit(const QString& characters)
{
    if (characters.size() != 1 || characters.front().category() != QChar::Number_DecimalDigit) {
        return std::nullopt;
    }
    const int digit = characters.front().digitValue();
    return digit >= 1 && digit <= 9 ? std::optional(digit) : std::nullopt;
}

bool isOnePrintableCharacter(const QString& characters)
{
    const QList<uint> scalars = characters.toUcs4();
    // A base letter with its combining marks is still one character.
    const bool isOne
        = !scalars.isEmpty() && std::all_of(scalars.begin() + 1, scalars.end(), [](uint scalar) {
              return QChar::isMark(scalar);
          });
    return isOne && std::ranges::none_of(scalars, [](uint scalar) {
               return QChar::category(scalar) == QChar::Other_Control;
           });
}

} // namespace

bool dispatchLauncherKey(const LauncherKey& key, const LauncherCommands& commands)
{
    const auto mapped = std::ranges::find_if(
        keyCommands, [&](const KeyCommand& entry) { return entry.keyCode == key.keyCode; });
    if (mapped != keyCommands.end()) {
        const std::function<void()>& command = commands.*(mapped->command);
        if (command && (mapped->repeats || !key.isAutoRepeat)) {
            command();
        }
        return true;
    }
    const std::optional<int> digit = quickLaunchDigit(key.charactersIgnoringModifiers);
    if (key.hasCommand && digit) {
        if (commands.quickLaunchAtIndex && !key.isAutoRepeat) {
            commands.quickLaunchAtIndex(*digit);
        }
        return true;
    }
    if (isOnePrintableCharacter(key.charactersIgnoringModifiers)) {
        if (commands.insertText) {
            commands.insertText(key.charactersIgnoringModifiers);
        }
        return true;
    }
    return false;
}

} // namespace Tavik
