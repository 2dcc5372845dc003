// SPDX-License-Identifier: MIT
#include "SettingsWindowFixture.h"
#include <TavikLauncher/Settings/SettingsBackup.h>
#include <TavikLauncher/Settings/ThemePreset.h>
#include <TavikLauncher/Views/SettingsWindow/AppListView.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsMessage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSwitch.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTest>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using Section = SettingsSection;

namespace {

void click(SettingsWindowFixture& fixture, const QString& name)
{
    QTest::mouseClick(&fixture.control<QAbstractButton>(name), Qt::LeftButton);
}

QString message(const SettingsWindowFixture& fixture, const QString& name)
{
    const auto& label = fixture.control<SettingsMessage>(name);
    return label.isVisible() ? label.text() : QString();
}

/// The permanent applications A, B and C on the page.
struct AppsFixture : SettingsWindowFixture
{
    AppsFixture()
    {
        for (const QString& name : {u"A"_s, u"B"_s, u"C"_s}) {
            settings.addPermanentApp(path(name));
        }
        open(Section::permanentApps);
    }
    [[nodiscard]] AppListView& list() const { return control<AppListView>(u"permanentAppPaths"_s); }
    [[nodiscard]] QString order() const
    {
        QString names;
        for (const QString& path : settings.effectivePinnedAppPaths()) {
            names += path.section(u'/', -1).at(0);
        }
        return names;
    }
    [[nodiscard]] QString shown() const
    {
        QString names;
        for (int row = 0; row < list().model()->rowCount(); ++row) {
            names += list().model()->index(row, 0).data().toString();
        }
        return names;
    }
    [[nodiscard]] QPoint middle(int row) const
    {
        return list().visualRect(list().model()->index(row, 0)).center();
    }
};

} // namespace

class SettingsSectionsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pendingSectionsAreBroughtUpAndForgotten();
    void pagesAreReleasedWhenTheWindowCloses();
    void launchAtLoginShowsTheStatusAndTheMessage();
    void aRecordedShortcutIsTakenOver();
    void aRefusedShortcutLeavesTheOldOne();
    void themesAreChosenAndRecognised();
    void theLayoutIsReset();
    void applicationsAreFoundAndAdded();
    void applicationsAreAddedFromFilesAndFolders();
    void applicationsAreReorderedByKeyboard();
    void applicationsAreReorderedByDragging();
    void applicationsAreRemoved();
    void missingApplicationsAreMarkedAndKept();
    void iconsInstalledLaterAreSeen();
    void thousandsOfApplicationsAreLookedUpOnlyWhenShown();
    void settingsAreExported();
    void anImportCanBeUndoneUntilTheWindowCloses();
    void aFailedImportIsTold_data();
    void aFailedImportIsTold();
    void buttonsReachWhoIsAskedFor();
};

void SettingsSectionsTest::pendingSectionsAreBroughtUpAndForgotten()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::hints);
    QCOMPARE(fixture.view.sectionID(), Section::hints);
    QCOMPARE(fixture.settings.pendingSettingsSectionID(), std::nullopt);
    // While the window is open, too.
    fixture.settings.pendingSettingsSectionID.set(u"theme"_s);
    QCOMPARE(fixture.view.sectionID(), Section::theme);
    fixture.settings.pendingSettingsSectionID.set(u"nonsense"_s);
    QCOMPARE(fixture.view.sectionID(), Section::theme);
    fixture.notifications.post(LauncherSettings::openAboutSection);
    QCOMPARE(fixture.view.sectionID(), Section::about);
    QCOMPARE(fixture.control<QLabel>(u"version"_s).text(), u"Version 9.8.7"_s);

    QTest::keyClick(&fixture.control<QWidget>(u"about"_s), Qt::Key_Up);
    QCOMPARE(fixture.view.sectionID(), Section::backup);
}

void SettingsSectionsTest::pagesAreReleasedWhenTheWindowCloses()
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

void SettingsSectionsTest::launchAtLoginShowsTheStatusAndTheMessage()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::general);
    auto& control = fixture.control<SettingsSwitch>(u"launchesAtLogin"_s);
    QVERIFY(!control.isChecked());
    QCOMPARE(message(fixture, u"launchAtLoginMessage"_s), QString());
    QTest::keyClick(&control, Qt::Key_Space);
    QVERIFY(control.isChecked());
    QCOMPARE(fixture.loginItem.calls, QStringList{u"register"_s});

    fixture.loginItem.succeeds = false;
    QTest::keyClick(&control, Qt::Key_Space);
    // The switch shows what is, not what was wanted.
    QVERIFY(control.isChecked());
    QCOMPARE(message(fixture, u"launchAtLoginMessage"_s),
             u"Launch at login could not be changed from this build."_s);

    fixture.loginItem.state = LoginItem::Status::requiresApproval;
    fixture.view.close();
    fixture.open(Section::general);
    QCOMPARE(message(fixture, u"launchAtLoginMessage"_s),
             u"Enable Tavik Launcher in System Settings > Login Items to finish setup."_s);
}

void SettingsSectionsTest::aRecordedShortcutIsTakenOver()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::shortcut);
    auto& field = fixture.control<QAbstractButton>(u"hotKeyConfig"_s);
    auto& prompt = fixture.control<QLabel>(u"recordingPrompt"_s);
    QCOMPARE(field.text(), u"⌃⌥ (hold)"_s);
    QVERIFY(!prompt.isVisible());

    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(field.text(), u"Press a shortcut…"_s);
    QVERIFY(prompt.isVisible());
    QCOMPARE(
        prompt.text(),
        u"Press Modifier+Key for a tap-to-toggle shortcut. Or hold ≥2 modifier keys and release "
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

    click(fixture, u"defaultShortcut"_s);
    QCOMPARE(fixture.settings.hotKeyConfig(), HotKeyConfig::defaultConfig());
}

void SettingsSectionsTest::aRefusedShortcutLeavesTheOldOne()
{
    SettingsWindowFixture fixture;
    fixture.shortcutRefusal = u"Another program uses it."_s;
    fixture.open(Section::shortcut);
    auto& field = fixture.control<QAbstractButton>(u"hotKeyConfig"_s);
    field.click();
    QTest::keyClick(&field, Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(field.text(), u"⌃⌥ (hold)"_s);
    QCOMPARE(message(fixture, u"shortcutMessage"_s),
             u"⌃Space cannot be used. Another program uses it."_s);
    QVERIFY(fixture.changed.isEmpty());
    field.click();
    QCOMPARE(message(fixture, u"shortcutMessage"_s), QString());
}

void SettingsSectionsTest::themesAreChosenAndRecognised()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::theme);
    const auto isChosen = [&](const QString& id) {
        return fixture.control<QAbstractButton>(id).isChecked();
    };
    QVERIFY(isChosen(u"tavik-classic"_s));
    fixture.control<QWidget>(u"tavik-classic"_s).setFocus();
    QTest::keyClick(&fixture.control<QWidget>(u"tavik-classic"_s), Qt::Key_Right);
    QCOMPARE(fixture.settings.highlightColorHex(), u"#00C7D9"_s);
    QCOMPARE(fixture.posted.size(), 5);
    QVERIFY(isChosen(u"midnight-cyan"_s));

    click(fixture, u"glass-graphite"_s);
    fixture.settings.pillOpacity.set(0.91);
    QVERIFY(isChosen(u"custom"_s));
    fixture.settings.pillOpacity.set(0.90);
    QVERIFY(isChosen(u"glass-graphite"_s));
    // Custom by wish, with a preset's values.
    fixture.forget();
    click(fixture, u"custom"_s);
    QVERIFY(isChosen(u"custom"_s) && fixture.changed.isEmpty());

    fixture.settings.runningDotColorHex.set(u"#112233"_s);
    click(fixture, u"restoreDefaultTheme"_s);
    QCOMPARE(fixture.settings.ringOpacity(), 0.82);
    QCOMPARE(fixture.settings.runningDotColorHex(), u"#112233"_s);
}

void SettingsSectionsTest::theLayoutIsReset()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::appearance);
    fixture.settings.ringDiameter.set(500);
    fixture.forget();
    click(fixture, u"resetRingLayout"_s);
    QCOMPARE(
        fixture.changed,
        QStringList({u"ringDiameter"_s, u"ringThickness"_s, u"iconSize"_s, u"maxVisibleApps"_s}));
    QCOMPARE(fixture.control<QLabel>(u"ringDiameterValue"_s).text(), u"320 pt"_s);
}

void SettingsSectionsTest::applicationsAreFoundAndAdded()
{
    AppsFixture fixture;
    auto& search = fixture.control<QLineEdit>(u"applicationSearch"_s);
    auto& results = fixture.control<AppListView>(u"searchResults"_s);
    QVERIFY(!results.isVisible());
    QTest::keyClicks(&search, u"d"_s);
    QVERIFY(results.isVisible());
    QCOMPARE(results.model()->rowCount(), 1);
    QTest::keyClick(&search, Qt::Key_Return);
    QCOMPARE(fixture.order(), u"ABCD"_s);
    QCOMPARE(fixture.shown(), u"ABCD"_s);
    QVERIFY(search.text().isEmpty() && !results.isVisible());

    // What is permanent already is not offered.
    QTest::keyClicks(&search, u"a"_s);
    QCOMPARE(results.model()->rowCount(), 0);
    search.clear();
    QTest::keyClicks(&search, u"e"_s);
    QTest::keyClick(&search, Qt::Key_Down);
    QVERIFY(results.hasFocus());
    QTest::keyClick(&results, Qt::Key_Return);
    QCOMPARE(fixture.order(), u"ABCDE"_s);
}

void SettingsSectionsTest::applicationsAreAddedFromFilesAndFolders()
{
    AppsFixture fixture;
    const auto choose = [&](const QString& button, const QString& file) {
        fixture.chosenFile = file;
        click(fixture, button);
        return fixture.settings.permanentAppPaths().constLast();
    };
    fixture.fileManager.existing.insert(u"/opt/Zoo.app"_s);
    fixture.fileManager.existing.insert(u"/opt/zoo.desktop"_s);
    QCOMPARE(choose(u"addFromFile"_s, u"/opt/zoo.desktop"_s), u"/opt/zoo.desktop"_s);
    QVERIFY(!fixture.requests.constLast().wantsFolder);
    QCOMPARE(choose(u"addFromFolder"_s, u"/opt/Zoo.app/"_s), u"/opt/Zoo.app"_s);
    QVERIFY(fixture.requests.constLast().wantsFolder);
    QCOMPARE(choose(u"addFromFile"_s, u"/etc/passwd"_s), u"/opt/Zoo.app"_s);
    QCOMPARE(message(fixture, u"permanentAppsMessage"_s), u"passwd is not an application."_s);
}

void SettingsSectionsTest::applicationsAreReorderedByKeyboard()
{
    AppsFixture fixture;
    // Pinned without being permanent: keeps its record.
    fixture.settings.pinnedPermanentAppPaths.set(QStringList{u"/other.app"_s}
                                                 + fixture.settings.pinnedPermanentAppPaths());
    fixture.list().setFocus();
    QTest::keyClick(&fixture.list(), Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(fixture.order(), u"BAC"_s);
    QTest::keyClick(&fixture.list(), Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(&fixture.list(), Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(fixture.order(), u"BCA"_s);
    QCOMPARE(fixture.shown(), u"BCA"_s);
    QVERIFY(!fixture.control<QAbstractButton>(u"moveDown"_s).isEnabled());
    click(fixture, u"moveUp"_s);
    QCOMPARE(fixture.order(), u"BAC"_s);
    QCOMPARE(fixture.settings.permanentAppPaths().first(), fixture.path(u"A"_s));
    QVERIFY(fixture.settings.pinnedPermanentAppPaths().contains(u"/other.app"_s));
}

void SettingsSectionsTest::applicationsAreReorderedByDragging()
{
    AppsFixture fixture;
    QWidget* viewport = fixture.list().viewport();
    QTest::mousePress(viewport, Qt::LeftButton, {}, fixture.middle(0));
    QTest::mouseMove(viewport, fixture.middle(1) + QPoint(0, 4));
    QCOMPARE(fixture.order(), u"BAC"_s);
    QTest::mouseMove(viewport, QPoint(20, 5000));
    QCOMPARE(fixture.order(), u"BCA"_s);
    // Escape puts the row back where it was taken.
    QTest::keyClick(&fixture.list(), Qt::Key_Escape);
    QCOMPARE(fixture.order(), u"ABC"_s);
    QTest::mouseMove(viewport, fixture.middle(2));
    QCOMPARE(fixture.order(), u"ABC"_s);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, fixture.middle(2));

    QTest::mousePress(viewport, Qt::LeftButton, {}, fixture.middle(2));
    QTest::mouseMove(viewport, fixture.middle(0));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, fixture.middle(0));
    QTest::mouseMove(viewport, fixture.middle(1));
    QCOMPARE(fixture.order(), u"CAB"_s);
}

void SettingsSectionsTest::applicationsAreRemoved()
{
    AppsFixture fixture;
    QVERIFY(!fixture.control<QAbstractButton>(u"removeApp"_s).isEnabled());
    fixture.list().setFocus();
    QTest::keyClick(&fixture.list(), Qt::Key_Down);
    QTest::keyClick(&fixture.list(), Qt::Key_Delete);
    QCOMPARE(fixture.order(), u"AC"_s);
    QCOMPARE(fixture.list().currentIndex().row(), 1);
    click(fixture, u"removeApp"_s);
    QTest::keyClick(&fixture.list(), Qt::Key_Backspace);
    QCOMPARE(fixture.order(), QString());
    QVERIFY(fixture.settings.pinnedPermanentAppPaths().isEmpty());
    QVERIFY(!fixture.control<QAbstractButton>(u"removeApp"_s).isEnabled());
}

void SettingsSectionsTest::missingApplicationsAreMarkedAndKept()
{
    AppsFixture fixture;
    const auto text = [&](int row) {
        return fixture.list().model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
    };
    QCOMPARE(text(1), u"B"_s);
    // It vanishes while the window is open.
    fixture.fileManager.bundles.remove(fixture.path(u"B"_s));
    fixture.fileManager.items.clear();
    fixture.walk();
    QCOMPARE(text(1), u"B, not installed"_s);
    QCOMPARE(fixture.order(), u"ABC"_s);
    // What no catalog tells is seen when the user comes back to the window.
    QCOMPARE(text(2), u"C"_s);
    fixture.fileManager.bundles.remove(fixture.path(u"C"_s));
    QEvent back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(fixture.view.page(), &back);
    QCOMPARE(text(2), u"C, not installed"_s);
}

void SettingsSectionsTest::iconsInstalledLaterAreSeen()
{
    AppsFixture fixture;
    fixture.list().grab();
    fixture.settle();
    const int decodes = fixture.icons.decodes;
    QVERIFY(decodes > 0);
    Q_EMIT fixture.catalog.foldersChanged();
    fixture.list().grab();
    fixture.settle();
    QCOMPARE(fixture.icons.decodes, 2 * decodes);
}

void SettingsSectionsTest::thousandsOfApplicationsAreLookedUpOnlyWhenShown()
{
    SettingsWindowFixture fixture;
    QStringList paths;
    for (int number = 0; number < 5000; ++number) {
        paths.append(u"/outside/%1.app"_s.arg(number));
        fixture.fileManager.existing.insert(paths.constLast());
    }
    fixture.settings.permanentAppPaths.set(paths);
    fixture.fileManager.bundleReads = 0;
    fixture.open(Section::permanentApps);
    QImage image(fixture.view.size(), QImage::Format_RGB32);
    fixture.view.render(&image);
    QVERIFY2(fixture.fileManager.bundleReads < 40,
             qPrintable(QString::number(fixture.fileManager.bundleReads)));
    fixture.settings.permanentAppPaths.set({});
    QCOMPARE(fixture.control<AppListView>(u"permanentAppPaths"_s).model()->rowCount(), 0);
}

void SettingsSectionsTest::settingsAreExported()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::backup);
    click(fixture, u"exportSettings"_s);
    QCOMPARE(fixture.requests.constLast().title, u"Export Tavik Launcher Settings"_s);
    QCOMPARE(fixture.requests.constLast().suggestedName, u"Tavik Launcher Settings.json"_s);
    // Thought better of it.
    QVERIFY(fixture.fileManager.contents.isEmpty());
    QCOMPARE(message(fixture, u"backupMessage"_s), QString());

    fixture.chosenFile = u"/home/me/<b>mine</b>.json"_s;
    click(fixture, u"exportSettings"_s);
    QCOMPARE(fixture.fileManager.contents.value(fixture.chosenFile),
             fixture.settings.exportBackup());
    QVERIFY(message(fixture, u"backupMessage"_s).contains(u"b>.json"_s));

    fixture.fileManager.writeError = u"No space left on device"_s;
    click(fixture, u"exportSettings"_s);
    QCOMPARE(message(fixture, u"backupMessage"_s), u"Couldn't export: No space left on device"_s);
}

void SettingsSectionsTest::anImportCanBeUndoneUntilTheWindowCloses()
{
    SettingsWindowFixture fixture;
    fixture.settings.addPermanentApp(fixture.path(u"A"_s));
    fixture.open(Section::backup);
    fixture.chosenFile = u"/home/me/mine.json"_s;
    const auto import = [&](const QByteArray& contents) {
        fixture.fileManager.contents.insert(fixture.chosenFile, contents);
        click(fixture, u"importSettings"_s);
    };
    const auto undo = [&]() -> QAbstractButton& {
        return fixture.control<QAbstractButton>(u"undoImport"_s);
    };
    QVERIFY(!undo().isVisible());
    import(R"({"ringDiameter": 9999, "pinnedPermanentAppPaths": ["/gone.app"]})");
    QCOMPARE(fixture.requests.constLast().title, u"Import Tavik Launcher Settings"_s);
    QCOMPARE(message(fixture, u"backupMessage"_s),
             u"Imported mine.json — 0 pinned apps restored, 1 not installed on this Mac."_s);
    QCOMPARE(fixture.settings.ringDiameter(), 550.0);
    import(R"({"ringDiameter": 400})");
    QCOMPARE(message(fixture, u"backupMessage"_s), u"Settings imported from mine.json."_s);

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

void SettingsSectionsTest::aFailedImportIsTold_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("no such file") << QByteArray();
    QTest::newRow("too large") << QByteArray("{}").leftJustified(SettingsBackup::mostBytes + 1);
    QTest::newRow("another kind of file") << QByteArray("\x89PNG\r\n");
    QTest::newRow("wrong type") << QByteArray("{\"ringDiameter\": 300, \"showInDock\": 1}");
}

void SettingsSectionsTest::aFailedImportIsTold()
{
    QFETCH(const QByteArray, contents);
    SettingsWindowFixture fixture;
    fixture.open(Section::backup);
    fixture.chosenFile = u"/home/me/other.json"_s;
    if (!contents.isEmpty()) {
        fixture.fileManager.contents.insert(fixture.chosenFile, contents);
    }
    click(fixture, u"importSettings"_s);
    QCOMPARE(message(fixture, u"backupMessage"_s),
             u"Couldn't import other.json — is it a valid Tavik settings file?"_s);
    QVERIFY(fixture.changed.isEmpty());
    QVERIFY(!fixture.control<QAbstractButton>(u"undoImport"_s).isVisible());
}

void SettingsSectionsTest::buttonsReachWhoIsAskedFor()
{
    SettingsWindowFixture fixture;
    fixture.open(Section::updates);
    click(fixture, u"checkForUpdatesNow"_s);
    QCOMPARE(fixture.posted, QStringList{LauncherSettings::checkForUpdatesNow.toString()});
    fixture.open(Section::about);
    click(fixture, u"repeatTour"_s);
    QTest::keyClick(&fixture.control<QWidget>(u"openSupportPage"_s), Qt::Key_Return);
    QCOMPARE(fixture.tours, 1);
    QCOMPARE(fixture.supportPages, 1);
}

QTEST_MAIN(SettingsSectionsTest)
#include "SettingsSectionsTest.moc"
