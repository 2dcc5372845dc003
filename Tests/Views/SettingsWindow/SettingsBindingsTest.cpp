// SPDX-License-Identifier: MIT
#include "SettingsWindowFixture.h"
#include <TavikLauncher/Settings/ThemePreset.h>
#include <TavikLauncher/Views/SettingsWindow/ColorField.h>
#include <TavikLauncher/Views/SettingsWindow/SegmentedChoice.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSlider.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSwitch.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <algorithm>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

SettingRow* rowNamed(const LauncherSettings& settings, const QString& name)
{
    const auto found = std::ranges::find(settings.rows(), name, &SettingRow::name);
    return found == settings.rows().end() ? nullptr : *found;
}

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
        QTest::keyClick(&control,
                        qobject_cast<SettingsSlider*>(&control) ? Qt::Key_Right : Qt::Key_Space);
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
    if (const auto* slider = qobject_cast<const SettingsSlider*>(&control)) {
        return slider->value();
    }
    const auto* toggle = qobject_cast<const SettingsSwitch*>(&control);
    return toggle && toggle->isChecked();
}

} // namespace

class SettingsBindingsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aControlAndItsSettingFollowEachOther_data();
    void aControlAndItsSettingFollowEachOther();
    void everyBackedUpSettingHasAControl();
    void slidersShowTheirValueWithItsUnit();
    void slidersAssignExactlyTheNumberTheyShow();
    void whatShowsInTheRingIsPreviewed();
    void whatOthersRuleOutIsDisabled();
};

void SettingsBindingsTest::aControlAndItsSettingFollowEachOther_data()
{
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("stored"); ///< After one step by keyboard.
    QTest::addColumn<QStringList>("posted");
    QTest::addColumn<QVariant>("elsewhere"); ///< Assigned by somebody else …
    QTest::addColumn<QVariant>("shown"); ///< … and what the control shows then.
    const QStringList nothing;
    const QStringList preview{LauncherSettings::previewRequestNotification.toString()};
    const QStringList updates{LauncherSettings::updateSettingsChanged.toString()};
    const auto row = [](QStringView section,
                        const QString& name,
                        const QVariant& stored,
                        const QStringList& posted,
                        const QVariant& elsewhere,
                        const QVariant& shown) {
        QTest::newRow(qPrintable(name))
            << section.toString() << name << stored << posted << elsewhere << shown;
    };
    using Section = SettingsSection;
    row(Section::general,
        u"showInDock"_s,
        true,
        {LauncherSettings::showInDockChanged.toString()},
        false,
        false);
    row(Section::general, u"doubleTapModifiersPinsLauncher"_s, false, nothing, true, true);
    row(Section::general, u"fillsRingWithRecentApps"_s, false, nothing, true, true);
    row(Section::general, u"searchesAllApps"_s, true, nothing, false, false);
    row(Section::appearance, u"ringDiameter"_s, 321.0, preview, 400.4, 400);
    row(Section::appearance, u"ringThickness"_s, 81.0, preview, 220.0, 220);
    row(Section::appearance, u"iconSize"_s, 51.0, preview, 36.0, 36);
    row(Section::appearance, u"maxVisibleApps"_s, 16LL, preview, 1LL, 1);
    row(Section::appearance, u"showsAppNames"_s, false, preview, true, true);
    row(Section::appearance, u"keepsCenterHintVisible"_s, true, nothing, false, false);
    row(Section::theme, u"ringColorHex"_s, u"#12AB34"_s, preview, u"#222222"_s, u"#222222"_s);
    row(Section::theme,
        u"highlightColorHex"_s,
        u"#12AB34"_s,
        preview,
        u"no color"_s,
        u"no color"_s);
    row(Section::theme, u"runningDotColorHex"_s, u"#12AB34"_s, preview, u"#FFFFFF"_s, u"#FFFFFF"_s);
    row(Section::theme, u"ringOpacity"_s, 0.83, preview, 0.2, 20);
    row(Section::theme, u"highlightOpacity"_s, 0.73, preview, 1.0, 100);
    row(Section::theme, u"pillOpacity"_s, 0.95, preview, 0.5, 50);
    row(Section::theme, u"showsRunningDot"_s, false, preview, true, true);
    row(Section::hints, u"showsLaunchHints"_s, false, nothing, true, true);
    row(Section::hints, u"launchHintInterval"_s, 5LL, nothing, 200LL, 4);
    row(Section::updates, u"autoUpdatesEnabled"_s, false, updates, true, true);
    row(Section::updates, u"updateCheckFrequency"_s, u"weekly"_s, updates, u"monthly"_s, 2);
}

void SettingsBindingsTest::aControlAndItsSettingFollowEachOther()
{
    QFETCH(const QString, section);
    QFETCH(const QString, name);
    QFETCH(const QVariant, stored);
    QFETCH(const QStringList, posted);
    SettingsWindowFixture fixture;
    fixture.open(section);
    auto& control = fixture.control<QWidget>(name);
    SettingRow& row = *rowNamed(fixture.settings, name);

    changeByKeyboard(control);
    QCOMPARE(row.stored(), stored);
    QCOMPARE(fixture.defaults.values.value(row.key()), stored);
    QCOMPARE(fixture.changed, QStringList{name});
    QCOMPARE(fixture.posted, posted);

    // A field that is being typed into keeps what is typed.
    fixture.view.setFocus();
    fixture.forget();
    QFETCH(const QVariant, elsewhere);
    QVERIFY(row.restore(elsewhere));
    QTEST(shown(control), "shown");
    QCOMPARE(row.stored(), elsewhere);
    QCOMPARE(fixture.changed, QStringList{name});
}

void SettingsBindingsTest::everyBackedUpSettingHasAControl()
{
    SettingsWindowFixture fixture;
    QStringList missing;
    for (const SettingRow* row : fixture.settings.rows()) {
        missing.append(row->name());
    }
    for (const SettingsSection& section : allSettingsSections) {
        fixture.open(section.id);
        missing.removeIf([&](const QString& name) {
            const auto* control = fixture.view.findChild<QWidget*>(name);
            return control && !control->accessibleName().isEmpty();
        });
    }
    // The list of permanent applications shows both of its settings; the tour is a button.
    QCOMPARE(missing, QStringList({u"hasCompletedOnboarding"_s, u"pinnedPermanentAppPaths"_s}));
}

void SettingsBindingsTest::slidersShowTheirValueWithItsUnit()
{
    SettingsWindowFixture fixture;
    fixture.open(SettingsSection::appearance);
    QCOMPARE(fixture.control<QLabel>(u"ringDiameterValue"_s).text(), u"320 pt"_s);
    QCOMPARE(fixture.control<QLabel>(u"maxVisibleAppsValue"_s).text(), u"15"_s);
    fixture.open(SettingsSection::theme);
    fixture.settings.ringOpacity.set(0.567);
    QCOMPARE(fixture.control<QLabel>(u"ringOpacityValue"_s).text(), u"57 %"_s);
    // Showing a value between two steps does not round the setting.
    QCOMPARE(fixture.settings.ringOpacity(), 0.567);
}

void SettingsBindingsTest::slidersAssignExactlyTheNumberTheyShow()
{
    SettingsWindowFixture fixture;
    fixture.open(SettingsSection::theme);
    auto& slider = fixture.control<SettingsSlider>(u"ringOpacity"_s);
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

void SettingsBindingsTest::whatShowsInTheRingIsPreviewed()
{
    SettingsWindowFixture fixture;
    const auto previews = [&](QStringView section, const QString& name) {
        fixture.open(section);
        fixture.previews = 0;
        fixture.control<SettingsSwitch>(name).click();
        return fixture.previews;
    };
    QCOMPARE(previews(SettingsSection::general, u"fillsRingWithRecentApps"_s), 1);
    QCOMPARE(previews(SettingsSection::general, u"searchesAllApps"_s), 0);
    QCOMPARE(previews(SettingsSection::appearance, u"keepsCenterHintVisible"_s), 1);
}

void SettingsBindingsTest::whatOthersRuleOutIsDisabled()
{
    SettingsWindowFixture fixture;
    fixture.open(SettingsSection::hints);
    auto& interval = fixture.control<SegmentedChoice>(u"launchHintInterval"_s);
    QVERIFY(interval.isEnabled());
    fixture.settings.keepsCenterHintVisible.set(true);
    QVERIFY(!interval.isEnabled());
    fixture.settings.keepsCenterHintVisible.set(false);
    fixture.settings.showsLaunchHints.set(false);
    QVERIFY(!interval.isEnabled());
    fixture.open(SettingsSection::updates);
    fixture.settings.autoUpdatesEnabled.set(false);
    QVERIFY(!fixture.control<SegmentedChoice>(u"updateCheckFrequency"_s).isEnabled());
}

QTEST_MAIN(SettingsBindingsTest)
#include "SettingsBindingsTest.moc"
