// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/DesktopCheck.h>

namespace Tavik {

struct Platform;

/// Asks each part of the platform how it does its work in this session. Takes a few round trips on
/// X11, and reads the entry in the autostart folder. What concerns the shortcut is left to who has
/// it.
[[nodiscard]] DesktopCheck::Facts surveyDesktop(const Platform& platform);
/// The same with the trigger as it is.
[[nodiscard]] DesktopCheck::Facts surveyDesktop(const Platform& platform,
                                                const HotKeyConfig& shortcut,
                                                DesktopCheck::Trigger trigger);

/// What the command prints, and the exit code that goes with it, as one text and back: both pass
/// between the launcher that runs and the one that asks.
namespace DesktopReport {

struct Report
{
    QString text;
    int exitCode = 0;
};

[[nodiscard]] Report of(const DesktopCheck::Facts& facts);
[[nodiscard]] QString toText(const Report& report);
[[nodiscard]] Report fromText(const QString& text);

} // namespace DesktopReport

} // namespace Tavik
