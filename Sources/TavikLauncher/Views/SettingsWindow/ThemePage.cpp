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

#include <QGridLayout>
#include <QLineEdit>

#include <algorithm>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

const QString explanation
    = u"Apply a pre-made color theme to the ring; choosing Custom lets you set each color individually."_s;

ThemePreset customTheme(const LauncherSettings& settings)
{
    return {.id = u"custom"_s,
            .name = u"Custom"_s,
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
            page.describe(*tile, {.title = theme.name, .help = explanation});
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
    Card& colors = page.addCard(u"Colors"_s);
    page.addColor(colors,
                  {.title = u"Ring color"_s,
                   .help = u"The band behind the icons"_s,
                   .tooltip = u"Six hexadecimal digits, or a ready color from the well."_s},
                  settings.ringColorHex);
    page.addColor(colors,
                  {.title = u"Highlight color"_s, .help = u"The wedge under the selection"_s},
                  settings.highlightColorHex);

    Card& opacity = page.addCard(u"Opacity"_s);
    page.addSlider(opacity,
                   {.title = u"Ring"_s, .help = u"How solid the band is"_s},
                   settings.ringOpacity,
                   percent);
    page.addSlider(opacity,
                   {.title = u"Highlight"_s, .help = u"Strength of the wedge"_s},
                   settings.highlightOpacity,
                   percent);
    page.addSlider(opacity,
                   {.title = u"Name label"_s, .help = u"Background of names and hints"_s},
                   settings.pillOpacity,
                   percent);

    Card& dot = page.addCard(u"Running applications"_s);
    page.addSwitch(
        dot,
        {.title = u"Mark running applications"_s, .help = u"A dot beside the icon of each"_s},
        settings.showsRunningDot);
    ColorField& dotColor
        = page.addColor(dot,
                        {.title = u"Dot color"_s, .help = u"Themes leave it as it is"_s},
                        settings.runningDotColorHex);
    page.follow({settings.showsRunningDot.name()},
                [&settings, &dotColor] { dotColor.setEnabled(settings.showsRunningDot()); });
}

} // namespace

std::unique_ptr<SettingsPage> SettingsPages::makeTheme(const SettingsDependencies& dependencies)
{
    auto page = std::make_unique<SettingsPage>(
        dependencies, u"Theme"_s, u"Colors and opacity of the ring."_s);

    auto* picker = new ThemePicker(*page);
    Card& themes = page->addCard(u"Themes"_s);
    themes.addWidget(picker);
    auto* help = new Label(Label::Role::help, explanation);
    help->setContentsMargins(16, 10, 16, 10);
    themes.addWidget(help);
    addColors(*page);
    picker->onCustom = [page = page.get()] {
        if (auto* first = page->findChild<ColorField*>(u"ringColorHex"_s)) {
            page->ensureWidgetVisible(first);
        }
    };

    auto* reset = new Button(u"Restore Default Theme"_s);
    reset->setObjectName(u"restoreDefaultTheme"_s);
    page->addWidget(reset, Qt::AlignRight);
    page->describe(*reset,
                   {.title = reset->text(),
                    .tooltip
                    = u"Restore all colors and opacity values to the default Tavik Classic "
                      "theme."_s});
    QObject::connect(reset, &QAbstractButton::clicked, picker, [picker] {
        picker->apply(ThemePreset::presets().constFirst());
    });
    return page;
}

} // namespace Tavik
