// SPDX-License-Identifier: MIT
#include "SettingsWindowFixture.h"
#include <TavikLauncher/Look/SegmentedChoice.h>
#include <TavikLauncher/Look/Slider.h>
#include <TavikLauncher/Look/Switch.h>
#include <TavikLauncher/Settings/ThemePreset.h>
#include <TavikLauncher/Views/SettingsWindow/ColorField.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <Support/Table.h>
#include <algorithm>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using Section = SettingsSection;

namespace {

/// Changes what a control shows as a user would with the keyboard, whatever its kind.
void changeByKeyboard(QWidget& control)
{
    if (auto* choice = qobject_cast<SegmentedChoice*>(&control)) {
        QWidget* segment = choice->segments().at(choice->current());
        segment->setFocus(Qt::TabFocusReason);
        QTest::keyClick(segment, choice->current() == 0 ? Qt::Key_Right : Qt::Key_Left);
    } else if (auto* color = qobject_cast<ColorField*>(&control)) {
        color->hexEntry().setFocus(Qt::TabFocusReason);
        color->hexEntry().selectAll();
        QTest::keyClicks(&color->hexEntry(), u"#12ab34"_s);
    } else {
        control.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&control, qobject_cast<Slider*>(&control) ? Qt::Key_Right : Qt::Key_Space);
    }
}

/// What a control shows, in the type its setting is stored in; sliders in their steps.
QVariant shown(const QWidget& control)
{
    if (const auto* choice = qobject_cast<const SegmentedChoice*>(&control)) {
        return choice->current();
    }
    if (const auto* color = qobject_cast<const ColorField*>(&control)) {
        return color->hexEntry().text();
    }
    if (const auto* slider = qobject_cast<const Slider*>(&control)) {
        return slider->value();
    }
    const auto* toggle = qobject_cast<const Switch*>(&control);
    return toggle && toggle->isChecked();
}

} // namespace

class SettingsBindingsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aControlAndItsSettingFollowEachOther_data()
    {
        // By setting: its section, what is stored after one step by keyboard and which
        // notifications that posts; what somebody else assigns then, and what the control shows of
        // it.
        const Table<QString, QVariant, QStringView, QVariant, QVariant> row;
        const auto general = Section::general.toString();
        const auto appearance = Section::appearance.toString();
        const auto theme = Section::theme.toString();
        const auto hints = Section::hints.toString();
        const auto updates = Section::updates.toString();
        constexpr QStringView nothing;
        constexpr QStringView preview = LauncherSettings::previewRequestNotification;
        constexpr QStringView update = LauncherSettings::updateSettingsChanged;
        row("showInDock", general, true, LauncherSettings::showInDockChanged, false, false);
        row("doubleTapModifiersPinsLauncher", general, false, nothing, true, true);
        row("fillsRingWithRecentApps", general, false, nothing, true, true);
        row("searchesAllApps", general, true, nothing, false, false);
        row("ringDiameter", appearance, 321.0, preview, 400.4, 400);
        row("ringThickness", appearance, 81.0, preview, 220.0, 220);
        row("iconSize", appearance, 51.0, preview, 36.0, 36);
        row("maxVisibleApps", appearance, 16LL, preview, 1LL, 1);
        row("showsAppNames", appearance, false, preview, true, true);
        row("keepsCenterHintVisible", appearance, true, nothing, false, false);
        row("ringColorHex", theme, u"#12AB34"_s, preview, u"#222222"_s, u"#222222"_s);
        row("highlightColorHex", theme, u"#12AB34"_s, preview, u"no color"_s, u"no color"_s);
        row("runningDotColorHex", theme, u"#12AB34"_s, preview, u"#FFFFFF"_s, u"#FFFFFF"_s);
        row("ringOpacity", theme, 0.83, preview, 0.2, 20);
        row("highlightOpacity", theme, 0.73, preview, 1.0, 100);
        row("pillOpacity", theme, 0.95, preview, 0.5, 50);
        row("showsRunningDot", theme, false, preview, true, true);
        row("showsLaunchHints", hints, false, nothing, true, true);
        row("launchHintInterval", hints, 5LL, nothing, 200LL, 4);
        row("autoUpdatesEnabled", updates, false, update, true, true);
        row("updateCheckFrequency", updates, u"weekly"_s, update, u"monthly"_s, 2);
    }

    void aControlAndItsSettingFollowEachOther()
    {
        const auto [section, stored, posted, elsewhere, shownThen]
            = fetch<QString, QVariant, QStringView, QVariant, QVariant>();
        const QString name = QString::fromUtf8(QTest::currentDataTag());
        SettingsWindowFixture fixture;
        fixture.open(section);
        auto& control = fixture.control<QWidget>(name);
        SettingRow& row = **std::ranges::find(fixture.settings.rows(), name, &SettingRow::name);

        changeByKeyboard(control);
        QCOMPARE(row.stored(), stored);
        QCOMPARE(fixture.defaults.values.value(row.key()), stored);
        QCOMPARE(fixture.changed, QStringList{name});
        QCOMPARE(fixture.posted.join(u' '), posted.toString());

        // A field that is being typed into keeps what is typed.
        fixture.view.setFocus();
        QVERIFY(row.restore(elsewhere));
        QCOMPARE(shown(control), shownThen);
        QCOMPARE(row.stored(), elsewhere);
    }

    void everyBackedUpSettingHasAControl()
    {
        SettingsWindowFixture fixture;
        QStringList missing;
        for (const SettingRow* row : fixture.settings.rows()) {
            missing.append(row->name());
        }
        for (const Section& section : allSettingsSections) {
            fixture.open(section.id);
            missing.removeIf([&](const QString& name) {
                const auto* control = fixture.view.findChild<QWidget*>(name);
                const auto* color = fixture.view.findChild<ColorField*>(name);
                const QWidget* named = color ? &color->hexEntry() : control;
                return named && !named->accessibleName().isEmpty();
            });
        }
        // The list of permanent applications shows both of its settings; the tour is a button.
        QCOMPARE(missing, QStringList({u"hasCompletedOnboarding"_s, u"pinnedPermanentAppPaths"_s}));
    }

    void slidersShowTheirValueWithItsUnit()
    {
        SettingsWindowFixture fixture(Section::appearance);
        QCOMPARE(fixture.control<QLabel>(u"ringDiameterValue"_s).text(), u"320 pt"_s);
        QCOMPARE(fixture.control<QLabel>(u"maxVisibleAppsValue"_s).text(), u"15"_s);
        fixture.open(Section::theme);
        fixture.settings.ringOpacity.set(0.567);
        QCOMPARE(fixture.control<QLabel>(u"ringOpacityValue"_s).text(), u"57 %"_s);
        // Showing a value between two steps does not round the setting.
        QCOMPARE(fixture.settings.ringOpacity(), 0.567);
    }

    void slidersAssignExactlyTheNumberTheyShow()
    {
        SettingsWindowFixture fixture(Section::theme);
        auto& slider = fixture.control<Slider>(u"ringOpacity"_s);
        for (int percent = 20; percent <= 100; ++percent) {
            slider.setValue(percent);
            QCOMPARE(QString::number(fixture.settings.ringOpacity(), 'g', 17).toDouble(),
                     QString::number(percent / 100.0, 'g', 17).toDouble());
        }
        // So a preset's own numbers, reached by hand, are the preset.
        fixture.settings.applyTheme(ThemePreset::presets().at(1));
        slider.setValue(20);
        slider.setValue(88);
        QVERIFY(fixture.control<QAbstractButton>(u"midnight-cyan"_s).isChecked());
    }

    void whatShowsInTheRingIsPreviewed()
    {
        SettingsWindowFixture fixture;
        const auto previews = [&](QStringView section, const QString& name) {
            fixture.open(section);
            fixture.previews = 0;
            fixture.control<Switch>(name).click();
            return fixture.previews;
        };
        QCOMPARE(previews(Section::general, u"fillsRingWithRecentApps"_s), 1);
        QCOMPARE(previews(Section::general, u"searchesAllApps"_s), 0);
        QCOMPARE(previews(Section::appearance, u"keepsCenterHintVisible"_s), 1);
        fixture.open(Section::theme); // Is seen from the start.
        QCOMPARE(fixture.previews, 2);
    }

    void whatOthersRuleOutIsDisabled()
    {
        SettingsWindowFixture fixture(Section::hints);
        auto& interval = fixture.control<SegmentedChoice>(u"launchHintInterval"_s);
        QVERIFY(interval.isEnabled());
        fixture.settings.keepsCenterHintVisible.set(true);
        QVERIFY(!interval.isEnabled());
        fixture.settings.keepsCenterHintVisible.set(false);
        fixture.settings.showsLaunchHints.set(false);
        QVERIFY(!interval.isEnabled());
        fixture.open(Section::updates);
        fixture.settings.autoUpdatesEnabled.set(false);
        QVERIFY(!fixture.control<SegmentedChoice>(u"updateCheckFrequency"_s).isEnabled());
        // What cannot be had at all has no control, but its reason.
        SettingsWindowFixture other(Section::updates, u"A package of Debian's."_s);
        const QWidget& page = *other.view.page();
        QVERIFY(page.findChildren<QAbstractButton*>().isEmpty());
        QVERIFY(std::ranges::any_of(page.findChildren<QLabel*>(), [&](const QLabel* label) {
            return label->text() == other.whyNotUpdating;
        }));
    }
};

QTEST_MAIN(SettingsBindingsTest)
#include "SettingsBindingsTest.moc"
