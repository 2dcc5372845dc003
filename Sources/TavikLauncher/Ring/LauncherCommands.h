// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace Tavik {

/// The table through which the panel and the application reach the ring. It is created empty by
/// the application; an empty entry means "ignore". The ring fills all entries but `close` and
/// `pinForSearch`, which belong to the panel controller. Main thread only.
struct LauncherCommands
{
    std::function<void()> moveSelectionUp;
    std::function<void()> moveSelectionDown;
    std::function<void()> close; ///< Escape.
    std::function<void()> moveSelectionLeft;
    std::function<void()> moveSelectionRight;
    std::function<void()> activate; ///< Return.
    std::function<void(int)> quickLaunchAtIndex; ///< Command+digit; the argument is 1 to 9.
    std::function<void(const QString&)> insertText; ///< One character for the filter.
    std::function<void()> deleteBackward;
    std::function<void()> pinForSearch; ///< Keeps the panel open when a held chord is released.
    std::function<void()> showPinnedIndicator;
    std::function<void(bool isUserSummon)> prepareForShow; ///< Before the panel appears.
};

} // namespace Tavik
