// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/SegmentedChoice.h>
#include <TavikLauncher/Look/Switch.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QAbstractButton>

#include <algorithm>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView promise = u"New versions are never installed without asking you.";

void addFrequency(SettingsPage& page, Card& card)
{
    LauncherSettings& settings = page.settings();
    const RowText text{.title = u"Frequency"_s, .help = u"How often to look for a new version"_s};
    auto* choice = new SegmentedChoice({u"Daily"_s, u"Weekly"_s, u"Monthly"_s});
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
    auto page = std::make_unique<SettingsPage>(dependencies, u"Updates"_s, promise.toString());
    LauncherSettings& settings = page->settings();

    if (dependencies.whyNotUpdating) {
        Card& notice = page->addCard();
        notice.addRow({.title = u"This build is not updated by itself."_s,
                       .help = *dependencies.whyNotUpdating},
                      nullptr);
        notice.addRow({.title = u"This version"_s, .help = dependencies.version}, nullptr);
        return page;
    }
    Card& automatic = page->addCard();
    page->addSwitch(automatic,
                    {.title = u"Check for updates automatically"_s,
                     .help = u"A dot in the wheel's symbol tells of a new version"_s},
                    settings.autoUpdatesEnabled);
    addFrequency(*page, automatic);

    Card& now = page->addCard();
    QAbstractButton& check
        = page->addButton(now,
                          {.title = u"This version"_s,
                           .help = dependencies.version,
                           .tooltip = u"Look for a new version at once."_s},
                          u"Check Now"_s,
                          [&notifications = dependencies.notifications] {
                              notifications.post(LauncherSettings::checkForUpdatesNow);
                          });
    check.setObjectName(u"checkForUpdatesNow"_s);
    return page;
}

} // namespace Tavik
