// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/Slider.h>
#include <TavikLauncher/Look/Switch.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>

namespace Tavik {

using namespace Qt::StringLiterals;

std::unique_ptr<SettingsPage>
SettingsPages::makeAppearance(const SettingsDependencies& dependencies)
{
    auto page = std::make_unique<SettingsPage>(
        dependencies,
        u"Appearance"_s,
        u"Size and content of the ring. Every change shows at once in the ring beside this window."_s);
    LauncherSettings& settings = page->settings();

    Card& ring = page->addCard(u"Ring"_s);
    const QString points = u" pt"_s;
    page->addSlider(ring,
                    {.title = u"Diameter"_s, .help = u"The ring's outer size"_s},
                    settings.ringDiameter,
                    {.unit = points});
    page->addSlider(ring,
                    {.title = u"Thickness"_s, .help = u"Width of the band"_s},
                    settings.ringThickness,
                    {.unit = points});
    page->addSlider(ring,
                    {.title = u"Icon size"_s, .help = u"Limited by thickness and slots"_s},
                    settings.iconSize,
                    {.leap = 4, .unit = points});
    page->addSlider(ring,
                    {.title = u"Maximum applications"_s, .help = u"Slots around the ring"_s},
                    settings.maxVisibleApps,
                    {.leap = 4});

    Card& labels = page->addCard(u"Labels"_s);
    page->addSwitch(labels,
                    {.title = u"Show application names"_s,
                     .help = u"The selected application's name in the center"_s},
                    settings.showsAppNames);
    page->previewWith(page->addSwitch(labels,
                                      {.title = u"Keep the center hint visible"_s,
                                       .help = u"Hints from the rotation are then not shown"_s},
                                      settings.keepsCenterHintVisible));

    auto* reset = new Button(u"Reset Layout"_s);
    reset->setObjectName(u"resetRingLayout"_s);
    page->addWidget(reset, Qt::AlignRight);
    page->describe(*reset,
                   {.title = reset->text(),
                    .tooltip = u"Restore size, thickness, icon size and number of slots."_s});
    QObject::connect(
        reset, &QAbstractButton::clicked, page.get(), [&settings] { settings.resetRingLayout(); });
    return page;
}

} // namespace Tavik
