// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/OutcomeMessage.h>
#include <TavikLauncher/Look/Switch.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

void addLaunchAtLogin(SettingsPage& page, Card& card)
{
    LauncherSettings& settings = page.settings();
    const RowText text{.title = u"Launch at login"_s,
                       .help = u"Start Tavik Launcher quietly when you log in"_s,
                       .tooltip = u"The ring is then ready as soon as you are."_s};
    auto* control = new Switch;
    control->setObjectName(u"launchesAtLogin"_s);
    card.addRow(text, control);
    page.describe(*control, text);
    QObject::connect(control, &QAbstractButton::clicked, &page, [&settings](bool isOn) {
        settings.setLaunchesAtLogin(isOn);
    });
    auto* message = new OutcomeMessage(&card);
    message->setObjectName(u"launchAtLoginMessage"_s);
    card.addWidget(message);
    page.follow({u"launchesAtLogin"_s, u"launchAtLoginMessage"_s}, [&settings, control, message] {
        control->setChecked(settings.launchesAtLogin());
        if (const auto& words = settings.launchAtLoginMessage()) {
            message->say(OutcomeMessage::Kind::warning, *words);
        } else {
            message->clear();
        }
    });
}

} // namespace

std::unique_ptr<SettingsPage> SettingsPages::makeGeneral(const SettingsDependencies& dependencies)
{
    auto page = std::make_unique<SettingsPage>(
        dependencies, u"General"_s, u"How the launcher starts and what the ring offers."_s);
    LauncherSettings& settings = page->settings();
    settings.refreshLaunchAtLoginStatus();
    // The message sends the user to the desktop's own settings, and back.
    page->whenBroughtBack([&settings] { settings.refreshLaunchAtLoginStatus(); });

    Card& system = page->addCard(u"System"_s);
    addLaunchAtLogin(*page, system);
    page->addSwitch(system,
                    {.title = u"Show in the Dock"_s,
                     .help = u"Windows of the launcher appear in the taskbar"_s,
                     .tooltip = u"The ring itself is never listed there."_s},
                    settings.showInDock);

    Card& ring = page->addCard(u"Ring"_s);
    page->addSwitch(ring,
                    {.title = u"Double-tap pins the ring"_s,
                     .help = u"Tap a held shortcut twice and the ring stays open"_s,
                     .tooltip = u"A pinned ring stays until you launch something, press Escape, "
                                "or click away."_s},
                    settings.doubleTapModifiersPinsLauncher);
    page->previewWith(
        page->addSwitch(ring,
                        {.title = u"Fill with recent applications"_s,
                         .help = u"Empty slots show what you used last"_s,
                         .tooltip = u"Pinned and running applications always come first."_s},
                        settings.fillsRingWithRecentApps));
    page->addSwitch(ring,
                    {.title = u"Search all applications"_s,
                     .help = u"Typing also finds applications beyond the ring"_s,
                     .tooltip = u"Otherwise only what the ring shows is searched."_s},
                    settings.searchesAllApps);
    return page;
}

} // namespace Tavik
