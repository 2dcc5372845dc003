// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/OutcomeMessage.h>
#include <TavikLauncher/Look/Switch.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncherPlatform/Texts.h>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

void addLaunchAtLogin(SettingsPage& page, Card& card)
{
    LauncherSettings& settings = page.settings();
    const RowText text{.title = Texts::tr("Launch at login"),
                       .help = Texts::tr("Start Tavik Launcher quietly when you log in"),
                       .tooltip = Texts::tr("The ring is then ready as soon as you are.")};
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
        dependencies,
        Texts::tr("General"),
        Texts::tr("How the launcher starts and what the ring offers."));
    LauncherSettings& settings = page->settings();
    settings.refreshLaunchAtLoginStatus();
    // The message sends the user to the desktop's own settings, and back.
    page->whenBroughtBack([&settings] { settings.refreshLaunchAtLoginStatus(); });

    Card& system = page->addCard(Texts::tr("System"));
    addLaunchAtLogin(*page, system);
    page->addSwitch(system,
                    {.title = Texts::tr("Show in the Dock"),
                     .help = Texts::tr("Windows of the launcher appear in the taskbar"),
                     .tooltip = Texts::tr("The ring itself is never listed there.")},
                    settings.showInDock);

    Card& ring = page->addCard(Texts::tr("Ring"));
    page->addSwitch(
        ring,
        {.title = Texts::tr("Double-tap pins the ring"),
         .help = Texts::tr("Tap a held shortcut twice and the ring stays open"),
         .tooltip = Texts::tr("A pinned ring stays until you launch something, press Escape, "
                              "or click away.")},
        settings.doubleTapModifiersPinsLauncher);
    page->previewWith(page->addSwitch(
        ring,
        {.title = Texts::tr("Fill with recent applications"),
         .help = Texts::tr("Empty slots show what you used last"),
         .tooltip = Texts::tr("Pinned and running applications always come first.")},
        settings.fillsRingWithRecentApps));
    page->addSwitch(ring,
                    {.title = Texts::tr("Search all applications"),
                     .help = Texts::tr("Typing also finds applications beyond the ring"),
                     .tooltip = Texts::tr("Otherwise only what the ring shows is searched.")},
                    settings.searchesAllApps);
    return page;
}

} // namespace Tavik
