// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/SettingsWindow/SettingsFileDialogs.h>

#include <QFileDialog>
#include <QFileInfo>

#include <utility>

namespace Tavik::SettingsFileDialogs {

using namespace Qt::StringLiterals;

namespace {

/// Takes a folder that is an application like a file, instead of going into it.
class ApplicationDialog final : public QFileDialog
{
public:
    using QFileDialog::QFileDialog;

protected:
    void accept() override
    {
        const QStringList chosen = selectedFiles();
        const bool isBundle = chosen.size() == 1 && chosen.front().endsWith(u".app"_s)
            && QFileInfo(chosen.front()).isDir();
        if (!isBundle) {
            QFileDialog::accept();
            return;
        }
        QDialog::accept(); // NOLINT(bugprone-parent-virtual-call)
        Q_EMIT fileSelected(chosen.front());
    }
};

ChooseFile chooser(std::function<QWidget*()> parent, QFileDialog::AcceptMode mode)
{
    return [parent = std::move(parent), mode](const FileRequest& request,
                                              std::function<void(const QString&)> chosen) {
        // Deletes itself when it is closed.
        QWidget* window = parent();
        QFileDialog* dialog = nullptr;
        if (request.alsoTakesFolders) {
            dialog = new ApplicationDialog(window, request.title, {}, request.nameFilter);
            // The desktop's own dialogs offer either files or folders.
            dialog->setOption(QFileDialog::DontUseNativeDialog);
        } else {
            dialog = new QFileDialog(window, request.title, {}, request.nameFilter);
        }
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setAcceptMode(mode);
        if (mode == QFileDialog::AcceptOpen) {
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
