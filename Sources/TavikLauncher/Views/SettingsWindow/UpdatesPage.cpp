// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/SegmentedChoice.h>
#include <TavikLauncher/Look/Switch.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncherPlatform/NotificationCenter.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QAbstractButton>

#include <algorithm>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

void addFrequency(SettingsPage& page, Card& card)
{
    LauncherSettings& settings = page.settings();
    const RowText text{.title = Texts::tr("Frequency"),
                       .help = Texts::tr("How often to look for a new version")};
    auto* choice
        = new SegmentedChoice({Texts::tr("Daily"), Texts::tr("Weekly"), Texts::tr("Monthly")});
    choice->setObjectName(settings.updateCheckFrequency.name());
    card.addRow(text, choice);
    choice->setName(text.title);
    page.describe(*choice, text);
    QObject::connect(choice, &SegmentedChoice::chosen, &page, [&settings](int position) {
        settings.updateCheckFrequency.set(
            allUpdateCheckFrequencies.at(static_cast<std::size_t>(position)));
    });
    page.follow({settings.updateCheckFrequency.name(), settings.autoUpdatesEnabled.name()},
                [&settings, choice] {
                    choice->setCurrent(static_cast<int>(settings.updateCheckFrequency()));
                    choice->setEnabled(settings.autoUpdatesEnabled());
                });
}

} // namespace

std::unique_ptr<SettingsPage> SettingsPages::makeUpdates(const SettingsDependencies& dependencies)
{
    auto page = std::make_unique<SettingsPage>(
        dependencies,
        Texts::tr("Updates"),
        Texts::tr("New versions are never installed without asking you."));
    LauncherSettings& settings = page->settings();

    if (dependencies.whyNotUpdating) {
        Card& notice = page->addCard();
        notice.addRow({.title = Texts::tr("This build is not updated by itself."),
                       .help = *dependencies.whyNotUpdating},
                      nullptr);
        notice.addRow({.title = Texts::tr("This version"), .help = dependencies.version}, nullptr);
        return page;
    }
    Card& automatic = page->addCard();
    page->addSwitch(automatic,
                    {.title = Texts::tr("Check for updates automatically"),
                     .help = Texts::tr("A dot in the wheel's symbol or a notification tells of a "
                                       "new version")},
                    settings.autoUpdatesEnabled);
    addFrequency(*page, automatic);

    Card& now = page->addCard();
    QAbstractButton& check
        = page->addButton(now,
                          {.title = Texts::tr("This version"),
                           .help = dependencies.version,
                           .tooltip = Texts::tr("Look for a new version at once.")},
                          Texts::tr("Check Now"),
                          [&notifications = dependencies.notifications] {
                              notifications.post(LauncherSettings::checkForUpdatesNow);
                          });
    check.setObjectName(u"checkForUpdatesNow"_s);
    return page;
}

} // namespace Tavik
