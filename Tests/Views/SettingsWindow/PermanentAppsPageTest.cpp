// SPDX-License-Identifier: MIT
#include "SettingsWindowFixture.h"
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Views/SettingsWindow/AppListModel.h>
#include <TavikLauncher/Views/SettingsWindow/AppListView.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using Section = SettingsSection;

namespace {

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

class PermanentAppsPageTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void applicationsAreFoundAndAdded()
    {
        AppsFixture fixture;
        auto& search = fixture.control<QLineEdit>(u"applicationSearch"_s);
        auto& results = fixture.control<AppListView>(u"searchResults"_s);
        QTest::keyClicks(&search, u"e"_s);
        QTest::keyClick(&search, Qt::Key_Down);
        QVERIFY(results.hasFocus());
        QTest::keyClick(&results, Qt::Key_Return);
        QCOMPARE(fixture.order(), u"ABCE"_s);
        QCOMPARE(fixture.shown(), u"ABCE"_s);
        QVERIFY(search.text().isEmpty() && !results.isVisible());
        // What is permanent already is found, and not added again.
        QTest::keyClicks(&search, u"a"_s);
        QVERIFY(results.isVisible());
        QCOMPARE(results.model()->rowCount(), 1);
        for (const int role : {int(AppListModel::noteRole), int(Qt::AccessibleTextRole)}) {
            QVERIFY(results.model()->index(0, 0).data(role).toString().contains(u"Already on"_s));
        }
        QTest::keyClick(&search, Qt::Key_Return);
        QCOMPARE(fixture.order(), u"ABCE"_s);
    }

    void applicationsAreAddedFromFilesAndFolders()
    {
        AppsFixture fixture;
        const auto choose = [&](const QString& button, const QString& file) {
            fixture.chosenFile = file;
            fixture.click(button);
            return fixture.settings.permanentAppPaths().constLast();
        };
        fixture.fileManager.existing.insert(u"/opt/Zoo.app"_s);
        fixture.fileManager.existing.insert(u"/opt/zoo.desktop"_s);
        QCOMPARE(choose(u"addApplication"_s, u"/opt/zoo.desktop"_s), u"/opt/zoo.desktop"_s);
        QCOMPARE(choose(u"addApplication"_s, u"/opt/Zoo.app/"_s), u"/opt/Zoo.app"_s);
        QVERIFY(fixture.requests.constLast().alsoTakesFolders);
        QCOMPARE(choose(u"addApplication"_s, u"/etc/passwd"_s), u"/opt/Zoo.app"_s);
        QCOMPARE(fixture.message(u"permanentAppsMessage"_s), u"passwd is not an application."_s);
    }

    void applicationsAreReorderedByKeyboard()
    {
        AppsFixture fixture;
        // Pinned without being permanent: keeps its record.
        fixture.settings.pinnedPermanentAppPaths.set(QStringList{u"/other.app"_s}
                                                     + fixture.settings.pinnedPermanentAppPaths());
        fixture.list().setFocus();
        for (const QString& order : {u"BAC"_s, u"BCA"_s, u"BCA"_s}) {
            QTest::keyClick(&fixture.list(), Qt::Key_Down, Qt::AltModifier);
            QCOMPARE(fixture.order(), order);
            QCOMPARE(fixture.shown(), order);
        }
        QVERIFY(!fixture.control<QAbstractButton>(u"moveDown"_s).isEnabled());
        fixture.click(u"moveUp"_s);
        QCOMPARE(fixture.order(), u"BAC"_s);
        QCOMPARE(fixture.settings.permanentAppPaths().first(), fixture.path(u"A"_s));
        QVERIFY(fixture.settings.pinnedPermanentAppPaths().contains(u"/other.app"_s));
    }

    void applicationsAreReorderedByDragging()
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

    void applicationsAreRemoved()
    {
        AppsFixture fixture;
        QVERIFY(!fixture.control<QAbstractButton>(u"removeApp"_s).isEnabled());
        fixture.list().setFocus();
        QTest::keyClick(&fixture.list(), Qt::Key_Down);
        QTest::keyClick(&fixture.list(), Qt::Key_Delete);
        QCOMPARE(fixture.order(), u"AC"_s);
        QCOMPARE(fixture.list().currentIndex().row(), 1);
        fixture.click(u"removeApp"_s);
        QTest::keyClick(&fixture.list(), Qt::Key_Backspace);
        QCOMPARE(fixture.order(), QString());
        QVERIFY(fixture.settings.pinnedPermanentAppPaths().isEmpty());
        // The button that was pressed last keeps the focus, and does nothing.
        auto& remove = fixture.control<Button>(u"removeApp"_s);
        QVERIFY(!remove.isAvailable() && remove.hasFocus());
        fixture.list().setFocus();
        QVERIFY(!remove.isEnabled());
    }

    void missingApplicationsAreMarkedAndKept()
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

    void thousandsOfApplicationsAreLookedUpOnlyWhenShown()
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
};

QTEST_MAIN(PermanentAppsPageTest)
#include "PermanentAppsPageTest.moc"
