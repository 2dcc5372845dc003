// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/Label.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/Slider.h>
#include <TavikLauncher/Look/Switch.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Settings/ThemePreset.h>
#include <TavikLauncher/Views/SettingsWindow/ColorField.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncher/Views/SettingsWindow/ThemeTile.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QGridLayout>
#include <QLineEdit>

#include <algorithm>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

QString explanation()
{
    return Texts::tr("Apply a pre-made color theme to the ring; choosing Custom lets you set each "
                     "color individually.");
}

ThemePreset customTheme(const LauncherSettings& settings)
{
    return {.id = u"custom"_s,
            .name = Texts::tr("Custom"),
            .ringColorHex = settings.ringColorHex(),
            .ringOpacity = settings.ringOpacity(),
            .highlightColorHex = settings.highlightColorHex(),
            .highlightOpacity = settings.highlightOpacity(),
            .pillOpacity = settings.pillOpacity()};
}

/// The preset whose five values are in force; null when they are the user's own.
const ThemePreset* presetInForce(const LauncherSettings& settings)
{
    const auto& presets = ThemePreset::presets();
    const auto found = std::ranges::find_if(presets, [&](const ThemePreset& preset) {
        ThemePreset current = customTheme(settings);
        current.id = preset.id;
        current.name = preset.name;
        return current == preset;
    });
    return found == presets.end() ? nullptr : &*found;
}

/// The presets and the user's own colours, one of which is in force.
class ThemePicker final : public QWidget
{
public:
    explicit ThemePicker(SettingsPage& page)
        : m_settings(page.settings())
    {
        auto* grid = new QGridLayout(this);
        grid->setContentsMargins(12, 12, 12, 12);
        grid->setHorizontalSpacing(6);
        grid->setVerticalSpacing(8);
        const int columns = columnsForNames();
        const auto add = [&](const ThemePreset& theme) {
            auto* tile = new ThemeTile(theme, this);
            const int position = grid->count();
            grid->addWidget(tile, position / columns, position % columns);
            page.describe(*tile, {.title = theme.name, .help = explanation()});
            return tile;
        };
        for (const ThemePreset& preset : ThemePreset::presets()) {
            ThemeTile* tile = add(preset);
            m_tiles.append(tile);
            connect(tile, &QAbstractButton::clicked, this, [this, &preset] { apply(preset); });
        }
        m_customTile = add(customTheme(m_settings));
        connect(m_customTile, &QAbstractButton::clicked, this, [this] {
            m_wantsCustom = true;
            if (onCustom) {
                onCustom();
            }
        });
        page.follow({u"ringColorHex"_s,
                     u"ringOpacity"_s,
                     u"highlightColorHex"_s,
                     u"highlightOpacity"_s,
                     u"pillOpacity"_s},
                    [this] { refresh(); });
    }

    void apply(const ThemePreset& preset)
    {
        m_wantsCustom = false;
        m_settings.applyTheme(preset);
    }

    std::function<void()> onCustom;

private:
    /// As many as find room for their names in the narrowest window.
    [[nodiscard]] int columnsForNames() const
    {
        int widest = 1;
        for (const ThemePreset& preset : ThemePreset::presets()) {
            widest = std::max(widest, fontMetrics().horizontalAdvance(preset.name));
        }
        constexpr int room = 520;
        constexpr int mostColumns = 4;
        return std::clamp(room / (widest + 8), 2, mostColumns);
    }

    void refresh()
    {
        const ThemePreset* preset = m_wantsCustom ? nullptr : presetInForce(m_settings);
        m_customTile->setTheme(customTheme(m_settings));
        const auto& presets = ThemePreset::presets();
        for (qsizetype i = 0; i < presets.size(); ++i) {
            if (preset && *preset == presets.at(i)) {
                m_tiles.at(i)->setChecked(true);
            }
        }
        if (!preset) {
            m_customTile->setChecked(true);
        }
        QList<QAbstractButton*> buttons(m_tiles.begin(), m_tiles.end());
        buttons.append(m_customTile);
        stopTabAtChosen(buttons);
    }

    LauncherSettings& m_settings;
    QList<ThemeTile*> m_tiles;
    ThemeTile* m_customTile = nullptr;
    bool m_wantsCustom = false; ///< Custom was chosen while a preset is still in force.
};

void addColors(SettingsPage& page)
{
    LauncherSettings& settings = page.settings();
    const SettingsPage::Scale percent{.stepsPerUnit = 100, .leap = 10, .unit = u" %"_s};
    Card& colors = page.addCard(Texts::tr("Colors"));
    page.addColor(colors,
                  {.title = Texts::tr("Ring color"),
                   .help = Texts::tr("The band behind the icons"),
                   .tooltip = Texts::tr("Six hexadecimal digits, or a ready color from the well.")},
                  settings.ringColorHex);
    page.addColor(
        colors,
        {.title = Texts::tr("Highlight color"), .help = Texts::tr("The wedge under the selection")},
        settings.highlightColorHex);

    Card& opacity = page.addCard(Texts::tr("Opacity"));
    page.addSlider(opacity,
                   {.title = Texts::tr("Ring"), .help = Texts::tr("How solid the band is")},
                   settings.ringOpacity,
                   percent);
    page.addSlider(opacity,
                   {.title = Texts::tr("Highlight"), .help = Texts::tr("Strength of the wedge")},
                   settings.highlightOpacity,
                   percent);
    page.addSlider(
        opacity,
        {.title = Texts::tr("Name label"), .help = Texts::tr("Background of names and hints")},
        settings.pillOpacity,
        percent);

    Card& dot = page.addCard(Texts::tr("Running applications"));
    page.addSwitch(dot,
                   {.title = Texts::tr("Mark running applications"),
                    .help = Texts::tr("A dot beside the icon of each")},
                   settings.showsRunningDot);
    ColorField& dotColor = page.addColor(
        dot,
        {.title = Texts::tr("Dot color"), .help = Texts::tr("Themes leave it as it is")},
        settings.runningDotColorHex);
    page.follow({settings.showsRunningDot.name()},
                [&settings, &dotColor] { dotColor.setEnabled(settings.showsRunningDot()); });
}

} // namespace

std::unique_ptr<SettingsPage> SettingsPages::makeTheme(const SettingsDependencies& dependencies)
{
    auto page = std::make_unique<SettingsPage>(
        dependencies, Texts::tr("Theme"), Texts::tr("Colors and opacity of the ring."));

    auto* picker = new ThemePicker(*page);
    Card& themes = page->addCard(Texts::tr("Themes"));
    themes.addWidget(picker);
    auto* help = new Label(Label::Role::help, explanation());
    help->setContentsMargins(16, 10, 16, 10);
    themes.addWidget(help);
    addColors(*page);
    picker->onCustom = [page = page.get()] {
        if (auto* first = page->findChild<ColorField*>(u"ringColorHex"_s)) {
            page->ensureWidgetVisible(first);
        }
    };

    auto* reset = new Button(Texts::tr("Restore Default Theme"));
    reset->setObjectName(u"restoreDefaultTheme"_s);
    page->addWidget(reset, Qt::AlignRight);
    page->describe(
        *reset,
        {.title = reset->text(),
         .tooltip = Texts::tr("Restore all colors and opacity values to the default Tavik Classic "
                              "theme.")});
    QObject::connect(reset, &QAbstractButton::clicked, picker, [picker] {
        picker->apply(ThemePreset::presets().constFirst());
    });
    return page;
}

} // namespace Tavik
