// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/OutcomeMessage.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Settings/SettingsBackup.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QFileInfo>
#include <QPointer>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

/// Export and import with their outcome. An import can be undone until the window closes.
class BackupPage final : public SettingsPage
{
public:
    explicit BackupPage(const SettingsDependencies& dependencies)
        : SettingsPage(dependencies,
                       Texts::tr("Backup"),
                       Texts::tr("Keep your settings in a file, or carry them to another machine."))
        , m_beforeImport(*dependencies.beforeImport)
    {
        Card& card = addCard();
        addButton(card,
                  {.title = Texts::tr("Export"), .help = Texts::tr("Write all settings to a file")},
                  Texts::tr("Export Settings…"),
                  [this] { askForExport(); })
            .setObjectName(u"exportSettings"_s);
        addButton(
            card,
            {.title = Texts::tr("Import"),
             .help = Texts::tr("Take over the settings of a file"),
             .tooltip = Texts::tr("Settings that the file does not mention stay as they are.")},
            Texts::tr("Import Settings…"),
            [this] { askForImport(); })
            .setObjectName(u"importSettings"_s);
        m_message = new OutcomeMessage(&card);
        m_message->setObjectName(u"backupMessage"_s);
        card.addWidget(m_message);

        m_undo = new Button(Texts::tr("Undo Import"));
        m_undo->setObjectName(u"undoImport"_s);
        m_undo->setVisible(m_beforeImport.has_value());
        addWidget(m_undo, Qt::AlignRight);
        describe(*m_undo,
                 {.title = m_undo->text(),
                  .tooltip = Texts::tr(
                      "Go back to the settings before the import; possible until this window "
                      "closes.")});
        connect(m_undo, &QAbstractButton::clicked, this, [this] { undoImport(); });
    }

private:
    void askForExport()
    {
        dependencies().saveFile({.title = Texts::tr("Export Tavik Launcher Settings"),
                                 .suggestedName = u"Tavik Launcher Settings.json"_s,
                                 .nameFilter = Texts::tr("Settings (*.json)")},
                                [page = QPointer(this)](const QString& path) {
                                    if (page) {
                                        page->exportTo(path);
                                    }
                                });
    }

    void exportTo(const QString& path)
    {
        const auto error
            = dependencies().fileManager.writeFileAtomically(path, settings().exportBackup());
        if (error) {
            m_message->say(OutcomeMessage::Kind::warning,
                           SettingsBackup::exportFailedMessage(*error));
        } else {
            m_message->say(OutcomeMessage::Kind::done,
                           Texts::tr("Settings exported to %1.").arg(QFileInfo(path).fileName()));
        }
    }

    void askForImport()
    {
        dependencies().openFile({.title = Texts::tr("Import Tavik Launcher Settings"),
                                 .suggestedName = {},
                                 .nameFilter = Texts::tr("Settings (*.json);;All files (*)")},
                                [page = QPointer(this)](const QString& path) {
                                    if (page) {
                                        page->importFrom(path);
                                    }
                                });
    }

    void importFrom(const QString& path)
    {
        const QString fileName = QFileInfo(path).fileName();
        const SettingsSnapshot before(settings());
        const FileManager& fileManager = dependencies().fileManager;
        const auto contents = fileManager.readFile(path, SettingsBackup::mostBytes);
        const auto summary
            = contents ? settings().applyBackup(*contents, fileManager) : std::nullopt;
        if (!summary) {
            m_message->say(OutcomeMessage::Kind::warning,
                           SettingsBackup::importFailedMessage(fileName));
            return;
        }
        // Several imports are undone together, to what the user had set.
        if (!m_beforeImport) {
            m_beforeImport = before;
        }
        m_undo->show();
        m_message->say(summary->missing > 0 ? OutcomeMessage::Kind::warning
                                            : OutcomeMessage::Kind::done,
                       SettingsBackup::importedMessage(fileName, *summary));
    }

    void undoImport()
    {
        if (m_beforeImport) {
            m_beforeImport->restore(settings());
            m_beforeImport.reset();
        }
        m_undo->hide();
        m_message->say(OutcomeMessage::Kind::done, Texts::tr("The import was undone."));
    }

    OutcomeMessage* m_message = nullptr;
    Button* m_undo = nullptr;
    std::optional<SettingsSnapshot>& m_beforeImport;
};

} // namespace

std::unique_ptr<SettingsPage> SettingsPages::makeBackup(const SettingsDependencies& dependencies)
{
    return std::make_unique<BackupPage>(dependencies);
}

} // namespace Tavik
