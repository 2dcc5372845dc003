// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/SettingsWindow/SettingsDependencies.h>

class QWidget;

/// The desktop's own file dialogs, over the window that `parent` names when they are opened.
namespace Tavik::SettingsFileDialogs {

[[nodiscard]] ChooseFile openFile(std::function<QWidget*()> parent);
[[nodiscard]] ChooseFile saveFile(std::function<QWidget*()> parent);

} // namespace Tavik::SettingsFileDialogs
