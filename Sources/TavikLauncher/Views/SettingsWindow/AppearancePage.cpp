// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/Slider.h>
#include <TavikLauncher/Look/Switch.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncherPlatform/Texts.h>

namespace Tavik {

using namespace Qt::StringLiterals;

std::unique_ptr<SettingsPage>
SettingsPages::makeAppearance(const SettingsDependencies& dependencies)
{
    auto page = std::make_unique<SettingsPage>(
        dependencies,
        Texts::tr("Appearance"),
        Texts::tr("Size and content of the ring. Every change shows at once in the ring beside "
                  "this window."));
    LauncherSettings& settings = page->settings();

    Card& ring = page->addCard(Texts::tr("Ring"));
    const QString points = u" pt"_s;
    page->addSlider(ring,
                    {.title = Texts::tr("Diameter"), .help = Texts::tr("The ring's outer size")},
                    settings.ringDiameter,
                    {.unit = points});
    page->addSlider(ring,
                    {.title = Texts::tr("Thickness"), .help = Texts::tr("Width of the band")},
                    settings.ringThickness,
                    {.unit = points});
    page->addSlider(ring,
                    {.title = Texts::tr("Icon size"), .help = Texts::tr("Limited by thickness")},
                    settings.iconSize,
                    {.leap = 4, .unit = points});
    page->addSlider(
        ring,
        {.title = Texts::tr("Maximum applications"), .help = Texts::tr("Slots around the ring")},
        settings.maxVisibleApps,
        {.leap = 4});

    Card& labels = page->addCard(Texts::tr("Labels"));
    page->addSwitch(labels,
                    {.title = Texts::tr("Show application names"),
                     .help = Texts::tr("The selected application's name in the center")},
                    settings.showsAppNames);
    page->previewWith(
        page->addSwitch(labels,
                        {.title = Texts::tr("Keep the center hint visible"),
                         .help = Texts::tr("Hints from the rotation are then not shown")},
                        settings.keepsCenterHintVisible));

    auto* reset = new Button(Texts::tr("Reset Layout"));
    reset->setObjectName(u"resetRingLayout"_s);
    page->addWidget(reset, Qt::AlignRight);
    page->describe(
        *reset,
        {.title = reset->text(),
         .tooltip = Texts::tr("Restore size, thickness, icon size and number of slots.")});
    QObject::connect(
        reset, &QAbstractButton::clicked, page.get(), [&settings] { settings.resetRingLayout(); });
    return page;
}

} // namespace Tavik
