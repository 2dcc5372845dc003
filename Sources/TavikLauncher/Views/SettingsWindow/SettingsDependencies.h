// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/DesktopCheck.h>

#include <QString>

#include <functional>
#include <optional>

namespace Tavik {

class AppCatalog;
class FileManager;
class IconDecoder;
class KeyEvents;
class LauncherSettings;
class MainQueue;
class NotificationCenter;
class SettingsSnapshot;
class WorkQueue;

/// What a file dialog is to ask for.
struct FileRequest
{
    QString title;
    QString suggestedName; ///< Empty for none.
    QString nameFilter; ///< As the toolkit writes it: "Settings (*.json)".
    bool alsoTakesFolders = false; ///< Those that the filter names.
};
/// Asks the user for a file or a folder, and calls `chosen` with its path unless the user thinks
/// better of it.
using ChooseFile
    = std::function<void(const FileRequest& request, std::function<void(const QString&)> chosen)>;

/// What the settings window works on; all of it outlives the window.
struct SettingsDependencies
{
    LauncherSettings& settings;
    AppCatalog& catalog;
    FileManager& fileManager;
    IconDecoder& iconDecoder;
    WorkQueue& workQueue;
    MainQueue& mainQueue;
    NotificationCenter& notifications;
    KeyEvents& keyEvents;
    QString version; ///< The program's, for the About section.
    QString display; ///< How the session's screen is reached, likewise; a name.
    /// Why this build is not updated by itself, in whole sentences; absent when it is.
    std::optional<QString> whyNotUpdating;

    ChooseFile openFile;
    ChooseFile saveFile;
    /// How the desktop serves now; cheap enough for once a second.
    std::function<QList<DesktopCheck::Finding>()> desktopFindings;
    /// Returns what went wrong, if it was told at once.
    std::function<std::optional<QString>(DesktopCheck::Repair)> repairDesktop;
    /// Whether a shortcut can be had: nothing when it can, else the reason why not.
    std::function<std::optional<QString>(const HotKeyConfig&)> tryShortcut;
    /// A shortcut is being recorded: its keys are not to trigger anything meanwhile.
    std::function<void(bool isRecording)> shortcutRecordingChanged;
    std::function<void()> showPreview; ///< The ring beside the window.
    std::function<void()> repeatTour;
    std::function<void()> openSupportPage;
    /// The settings before the first import since the window opened. Given by the view, whose pages
    /// may be made anew meanwhile.
    std::optional<SettingsSnapshot>* beforeImport = nullptr;
};

} // namespace Tavik
