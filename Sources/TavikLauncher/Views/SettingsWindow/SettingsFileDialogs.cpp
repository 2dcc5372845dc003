// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/SettingsWindow/SettingsFileDialogs.h>

#include <QFileDialog>

#include <utility>

namespace Tavik::SettingsFileDialogs {

namespace {

ChooseFile chooser(std::function<QWidget*()> parent, QFileDialog::AcceptMode mode)
{
    return [parent = std::move(parent), mode](const FileRequest& request,
                                              std::function<void(const QString&)> chosen) {
        // Deletes itself when it is closed.
        QWidget* window = parent();
        auto* dialog = new QFileDialog(window, request.title, {}, request.nameFilter);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setAcceptMode(mode);
        if (request.wantsFolder) {
            dialog->setFileMode(QFileDialog::Directory);
            dialog->setOption(QFileDialog::ShowDirsOnly);
        } else if (mode == QFileDialog::AcceptOpen) {
            dialog->setFileMode(QFileDialog::ExistingFile);
        } else {
            dialog->setFileMode(QFileDialog::AnyFile);
            dialog->setDefaultSuffix(QStringLiteral("json"));
        }
        if (!request.suggestedName.isEmpty()) {
            dialog->selectFile(request.suggestedName);
        }
        QObject::connect(dialog, &QFileDialog::fileSelected, dialog, std::move(chosen));
        // Some window managers give the keyboard to nobody rather than to a window that is in no
        // taskbar.
        QObject::connect(
            dialog, &QDialog::finished, window, [window] { window->activateWindow(); });
        dialog->open();
    };
}

} // namespace

ChooseFile openFile(std::function<QWidget*()> parent)
{
    return chooser(std::move(parent), QFileDialog::AcceptOpen);
}

ChooseFile saveFile(std::function<QWidget*()> parent)
{
    return chooser(std::move(parent), QFileDialog::AcceptSave);
}

} // namespace Tavik::SettingsFileDialogs
