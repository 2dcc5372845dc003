// SPDX-License-Identifier: MIT
#include "SettingsWindowFixture.h"
#include <TavikLauncher/Look/Switch.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QTest>

#include <algorithm>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using Section = SettingsSection;

class SettingsSectionsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pendingSectionsAreBroughtUpAndForgotten()
    {
        SettingsWindowFixture fixture(Section::hints);
        QCOMPARE(fixture.settings.pendingSettingsSectionID(), std::nullopt);
        // While the window is open, too.
        fixture.settings.pendingSettingsSectionID.set(u"theme"_s);
        QCOMPARE(fixture.view.sectionID(), Section::theme);
        fixture.settings.pendingSettingsSectionID.set(u"nonsense"_s);
        QCOMPARE(fixture.view.sectionID(), Section::theme);
        fixture.notifications.post(LauncherSettings::openAboutSection);
        QCOMPARE(fixture.view.sectionID(), Section::about);
        QCOMPARE(fixture.control<QLabel>(u"version"_s).text(), u"Version 9.8.7 · X11"_s);

        QTest::keyClick(&fixture.control<QWidget>(u"about"_s), Qt::Key_Up);
        QCOMPARE(fixture.view.sectionID(), Section::backup);
    }

    void pagesAreReleasedWhenTheWindowCloses()
    {
        SettingsWindowFixture fixture;
        const QPointer<SettingsPage> page = &fixture.open(Section::permanentApps);
        fixture.view.close();
        fixture.settle();
        QVERIFY(page.isNull());
        QCOMPARE(fixture.view.page(), nullptr);
        // Nobody listens any more.
        fixture.settings.addPermanentApp(fixture.path(u"A"_s));
        fixture.view.show();
        QVERIFY(fixture.view.page());
        QCOMPARE(fixture.view.sectionID(), Section::permanentApps);
    }

    void launchAtLoginShowsTheStatusAndTheMessage()
    {
        SettingsWindowFixture fixture(Section::general);
        auto& control = fixture.control<Switch>(u"launchesAtLogin"_s);
        QVERIFY(!control.isChecked());
        QCOMPARE(fixture.message(u"launchAtLoginMessage"_s), QString());
        QTest::keyClick(&control, Qt::Key_Space);
        QVERIFY(control.isChecked());
        QCOMPARE(fixture.loginItem.calls, QStringList{u"register"_s});

        fixture.loginItem.succeeds = false;
        QTest::keyClick(&control, Qt::Key_Space);
        // The switch shows what is, not what was wanted.
        QVERIFY(control.isChecked());
        QCOMPARE(fixture.message(u"launchAtLoginMessage"_s),
                 u"Launch at login could not be changed from this build."_s);

        // Changed in the desktop's own settings, from which the user comes back.
        fixture.loginItem.state = LoginItem::Status::requiresApproval;
        QEvent back(QEvent::WindowActivate);
        QCoreApplication::sendEvent(fixture.view.page(), &back);
        QCOMPARE(fixture.message(u"launchAtLoginMessage"_s),
                 u"Enable Tavik Launcher in System Settings > Login Items to finish setup."_s);
        QVERIFY(control.isChecked());
        fixture.loginItem.state = LoginItem::Status::notFound;
        QCoreApplication::sendEvent(fixture.view.page(), &back);
        QVERIFY(!control.isChecked());
        QCOMPARE(fixture.message(u"launchAtLoginMessage"_s), QString());
    }

    void aRecordedShortcutIsTakenOver()
    {
        SettingsWindowFixture fixture(Section::shortcut);
        auto& field = fixture.control<QAbstractButton>(u"hotKeyConfig"_s);
        auto& prompt = fixture.control<QLabel>(u"recordingPrompt"_s);
        QCOMPARE(field.text(), u"⌃⌥ (hold)"_s);
        QVERIFY(!prompt.isVisible());

        field.setFocus();
        QTest::keyClick(&field, Qt::Key_Return);
        QCOMPARE(field.text(), u"Press a shortcut…"_s);
        QVERIFY(prompt.isVisible());
        QCOMPARE(prompt.text(),
                 u"Press Modifier+Key for a tap-to-toggle shortcut. Or hold ≥2 modifier keys and "
                 u"release "
                 "them to use a hold-to-show shortcut. Press Escape to cancel recording."_s);
        QTest::keyClick(&field, Qt::Key_Escape);
        QCOMPARE(field.text(), u"⌃⌥ (hold)"_s);
        QVERIFY(fixture.changed.isEmpty());

        QTest::keyClick(&field, Qt::Key_Return);
        QTest::keyClick(&field, Qt::Key_Space, Qt::ControlModifier | Qt::AltModifier);
        QCOMPARE(field.text(), u"⌃⌥Space"_s);
        QVERIFY(!prompt.isVisible());
        QCOMPARE(fixture.settings.hotKeyConfig(), HotKeyConfig::make(0xC0000, 49));
        QCOMPARE(fixture.posted, QStringList{LauncherSettings::hotKeyChanged.toString()});

        // Another section is shown: keys are keys again.
        QTest::keyClick(&field, Qt::Key_Return);
        fixture.view.showSection(u"hints"_s);
        fixture.view.showSection(u"shortcut"_s);
        QCOMPARE(field.text(), u"⌃⌥Space"_s);
        QCOMPARE(fixture.recordings, QList<bool>({true, false, true, false, true, false}));

        fixture.click(u"defaultShortcut"_s);
        QCOMPARE(fixture.settings.hotKeyConfig(), HotKeyConfig::defaultConfig());
    }

    void aRefusedShortcutLeavesTheOldOne()
    {
        SettingsWindowFixture fixture;
        fixture.shortcutRefusal = u"Another program uses it."_s;
        fixture.open(Section::shortcut);
        auto& field = fixture.control<QAbstractButton>(u"hotKeyConfig"_s);
        field.click();
        QTest::keyClick(&field, Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(field.text(), u"⌃⌥ (hold)"_s);
        QCOMPARE(fixture.message(u"shortcutMessage"_s),
                 u"Ctrl + Space cannot be used. Another program uses it."_s);
        QVERIFY(fixture.changed.isEmpty());
        field.click();
        QCOMPARE(fixture.message(u"shortcutMessage"_s), QString());
    }

    void aShortcutThatProgramsUseIsAskedAbout()
    {
        SettingsWindowFixture fixture(Section::shortcut);
        auto& field = fixture.control<QAbstractButton>(u"hotKeyConfig"_s);
        const auto& insist = fixture.control<QAbstractButton>(u"useDoubtful"_s);
        const auto& another = fixture.control<QAbstractButton>(u"chooseAnother"_s);
        const HotKeyConfig before = fixture.settings.hotKeyConfig();
        QVERIFY(!insist.isVisible() && !another.isVisible());
        field.click();
        QTest::keyClick(&field, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(insist.isVisible() && another.isVisible());
        QVERIFY(fixture.message(u"shortcutMessage"_s).startsWith(u"Programs use Control + C"_s));
        QCOMPARE(fixture.settings.hotKeyConfig(), before);

        fixture.click(u"chooseAnother"_s);
        QCOMPARE(field.text(), u"Press a shortcut…"_s);
        QVERIFY(!insist.isVisible());
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
        fixture.click(u"useDoubtful"_s);
        QCOMPARE(fixture.settings.hotKeyConfig().displayName, u"⌃V"_s);
        QVERIFY(!insist.isVisible());
        QCOMPARE(fixture.message(u"shortcutMessage"_s), QString());
    }

    void themesAreChosenAndRecognised()
    {
        SettingsWindowFixture fixture(Section::theme);
        const auto isChosen = [&](const QString& id) {
            return fixture.control<QAbstractButton>(id).isChecked();
        };
        QVERIFY(isChosen(u"tavik-classic"_s));
        fixture.click(u"glass-graphite"_s);
        QCOMPARE(fixture.posted.size(), 5);
        fixture.settings.pillOpacity.set(0.91);
        QVERIFY(isChosen(u"custom"_s));
        fixture.settings.pillOpacity.set(0.90);
        QVERIFY(isChosen(u"glass-graphite"_s));
        // Custom by wish, with a preset's values.
        fixture.forget();
        fixture.click(u"custom"_s);
        QVERIFY(isChosen(u"custom"_s) && fixture.changed.isEmpty());

        fixture.settings.runningDotColorHex.set(u"#112233"_s);
        fixture.click(u"restoreDefaultTheme"_s);
        QVERIFY(isChosen(u"tavik-classic"_s));
        QCOMPARE(fixture.settings.runningDotColorHex(), u"#112233"_s);
    }

    void anImportCanBeUndoneUntilTheWindowCloses()
    {
        SettingsWindowFixture fixture;
        fixture.settings.addPermanentApp(fixture.path(u"A"_s));
        fixture.open(Section::backup);
        fixture.chosenFile = u"/home/me/mine.json"_s;
        const auto import = [&](const QByteArray& contents) {
            fixture.fileManager.contents.insert(fixture.chosenFile, contents);
            fixture.click(u"importSettings"_s);
        };
        const auto undo = [&]() -> QAbstractButton& {
            return fixture.control<QAbstractButton>(u"undoImport"_s);
        };
        QVERIFY(!undo().isVisible());
        import(R"({"ringDiameter": 9999, "pinnedPermanentAppPaths": ["/gone.app"]})");
        QCOMPARE(fixture.message(u"backupMessage"_s),
                 u"Imported mine.json — 0 pinned apps restored, 1 not installed on this Mac."_s);
        QCOMPARE(fixture.settings.ringDiameter(), 550.0);
        import(R"({"ringDiameter": 400})");
        QCOMPARE(fixture.message(u"backupMessage"_s), u"Settings imported from mine.json."_s);
        import("no settings");
        QCOMPARE(fixture.message(u"backupMessage"_s),
                 u"Couldn't import mine.json — is it a valid Tavik settings file?"_s);

        // A page made anew for another font still knows.
        QFont larger = fixture.view.font();
        larger.setPointSizeF(larger.pointSizeF() * 1.25);
        fixture.view.setFont(larger);
        fixture.settle();
        QVERIFY(undo().isVisible());
        undo().click();
        QCOMPARE(fixture.settings.ringDiameter(), 320.0);
        QCOMPARE(fixture.settings.pinnedPermanentAppPaths(), QStringList{fixture.path(u"A"_s)});
        QVERIFY(!undo().isVisible());

        import("{}");
        fixture.view.close();
        fixture.settle();
        fixture.open(Section::backup);
        QVERIFY(!fixture.control<QAbstractButton>(u"undoImport"_s).isVisible());
    }

    void anExportThatFailsSaysWhy()
    {
        SettingsWindowFixture fixture(Section::backup);
        fixture.chosenFile = u"/home/me/mine.json"_s;
        fixture.fileManager.writeFault = u"No space left on device"_s;
        fixture.click(u"exportSettings"_s);
        QCOMPARE(fixture.message(u"backupMessage"_s),
                 u"Couldn't export: No space left on device"_s);
        fixture.fileManager.writeFault.reset();
        fixture.click(u"exportSettings"_s);
        QCOMPARE(fixture.message(u"backupMessage"_s), u"Settings exported to mine.json."_s);
        QVERIFY(fixture.fileManager.contents.contains(fixture.chosenFile));
    }

    void theDesktopIsLookedAtWhileItsPageIsShown()
    {
        SettingsWindowFixture fixture;
        fixture.desktopFacts.tray = StatusTray::Host::none;
        fixture.desktopFacts.command = u"tavik-launcher"_s;
        const auto button = [&](const QString& name) -> QAbstractButton* {
            const auto buttons = fixture.view.page()->findChildren<QAbstractButton*>();
            const auto found = std::ranges::find(buttons, name, &QAbstractButton::accessibleName);
            return found == buttons.end() || !(*found)->isVisible() ? nullptr : *found;
        };
        fixture.open(Section::desktop);
        const auto& summary = fixture.control<QLabel>(u"desktopSummary"_s);
        QCOMPARE(summary.text(), u"Needs your attention: 1 of 8."_s);
        QTest::keyClick(button(u"Copy Line: Tray"_s), Qt::Key_Return);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"tavik-launcher --settings"_s);
        QVERIFY(button(u"Copied: Tray"_s));

        fixture.desktopFacts.tray = StatusTray::Host::notifier;
        fixture.mainQueue.advance(1);
        QCOMPARE(summary.text(), u"This desktop gives the launcher all it needs."_s);
        QVERIFY(!button(u"Copied: Tray"_s));
        fixture.desktopFacts.login = LoginItem::Status::notRegistered;
        fixture.mainQueue.advance(1);
        fixture.repairFault = u"It is locked."_s;
        QTest::keyClick(button(u"Turn On: Autostart"_s), Qt::Key_Space);
        QCOMPARE(fixture.repairs, QList{DesktopCheck::Repair::launchAtLogin});
        QCOMPARE(fixture.message(u"repairMessage"_s), u"It is locked."_s);
        // Nothing runs for a page that is not seen.
        fixture.view.showSection(u"hints"_s);
        fixture.desktopFacts.login = LoginItem::Status::enabled;
        fixture.mainQueue.advance(5);
        QCOMPARE(summary.text(), u"Needs your attention: 1 of 8."_s);
    }

    void buttonsReachWhoIsAskedFor()
    {
        SettingsWindowFixture fixture(Section::appearance);
        fixture.click(u"resetRingLayout"_s);
        QCOMPARE(fixture.changed.size(), 4);
        fixture.open(Section::updates);
        fixture.click(u"checkForUpdatesNow"_s);
        QCOMPARE(fixture.posted, QStringList{LauncherSettings::checkForUpdatesNow.toString()});
        fixture.open(Section::about);
        fixture.click(u"repeatTour"_s);
        QTest::keyClick(&fixture.control<QWidget>(u"openSupportPage"_s), Qt::Key_Return);
        QCOMPARE(fixture.tours, 1);
        QCOMPARE(fixture.supportPages, 1);
    }
};

QTEST_MAIN(SettingsSectionsTest)
#include "SettingsSectionsTest.moc"
