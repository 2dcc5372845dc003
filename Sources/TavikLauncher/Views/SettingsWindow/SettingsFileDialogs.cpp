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
        auto* dialog = new QFileDialog(parent(), request.title, {}, request.nameFilter);
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
