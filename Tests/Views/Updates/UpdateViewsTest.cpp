// SPDX-License-Identifier: MIT
#include "UpdatesFixture.h"
#include <TavikLauncher/Views/Updates/ReleaseNotesView.h>
#include <TavikLauncher/Views/Updates/UpdateAlertView.h>
#include <TavikLauncher/Views/Updates/UpdateProgressBar.h>

#include <Support/CutTexts.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

ReleaseNotesView* notes()
{
    return UpdatesFixture::window()->findChild<ReleaseNotesView*>();
}

} // namespace

class UpdateViewsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theQuestionFitsTheUpdate_data()
    {
        const Table<bool, bool, QStringList, int> row; // Critical, information only.
        const QString skip = u"Skip This Version"_s;
        const QString later = u"Remind Me Later"_s;
        row("ordinary", false, false, {skip, later, u"Install"_s}, 3);
        row("critical", true, false, {later, u"Install"_s}, 4);
        row("information only", false, true, {skip, later, u"Learn More"_s}, 3);
    }
    void theQuestionFitsTheUpdate()
    {
        const auto [isCritical, isInformationOnly, buttons, paragraphs]
            = fetch<bool, bool, QStringList, int>();
        UpdatesFixture fixture;
        UpdateItem item = UpdatesFixture::item();
        item.isCritical = isCritical;
        item.isInformationOnly = isInformationOnly;
        item.contentLength = 12'300'000;
        item.title = u"Version 2.1"_s; // Says no more than the version.
        fixture.find(item, true);
        QStringList buttonTexts;
        for (const QPushButton* button : fixture.buttons()) {
            buttonTexts << button->text();
        }
        QCOMPARE(buttonTexts, buttons);
        const QStringList texts = fixture.texts();
        QCOMPARE(texts.size(), paragraphs);
        QVERIFY(texts.contains(u"Version 2.1 is out; you have 2.0."_s));
        QCOMPARE(texts.contains(u"12.3 MB"_s), !isInformationOnly);
        fixture.buttons().constLast()->click();
        QCOMPARE(fixture.replies, QList{UpdateChoice::install});
    }

    void aKeyThatIsHeldDownInstallsNothing()
    {
        UpdatesFixture fixture;
        fixture.find();
        for (QWidget* widget : {qobject_cast<QWidget*>(fixture.buttons().constLast()),
                                qobject_cast<QWidget*>(&fixture.window()->view())}) {
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
            QCoreApplication::sendEvent(widget, &held);
        }
        QCOMPARE(fixture.replies.size(), 0);
    }

    void keysReachTheButtonsFromTheNotes()
    {
        for (const auto& [key, choice] : {std::pair(Qt::Key_Escape, UpdateChoice::remindLater),
                                          std::pair(Qt::Key_Return, UpdateChoice::install)}) {
            UpdatesFixture fixture;
            fixture.find(UpdatesFixture::item(u"Faster."_s));
            notes()->setFocus();
            fixture.press(key);
            QCOMPARE(fixture.replies, QList{choice});
        }
        UpdatesFixture fixture;
        fixture.find();
        fixture.buttons().constFirst()->setFocus();
        fixture.press(Qt::Key_Return);
        QCOMPARE(fixture.replies, QList{UpdateChoice::skip});
    }

    void notesAreInlineOrComeLaterOrNot()
    {
        UpdatesFixture fixture;
        fixture.find();
        QCOMPARE(notes(), nullptr);
        UpdateItem item = UpdatesFixture::item();
        item.releaseNotesUrl = QUrl(u"https://example.org/notes"_s);
        fixture.find(item, true);
        QCOMPARE(notes()->toPlainText(), u"Fetching the release notes…"_s);
        fixture.driver.showUpdateReleaseNotesFailedToDownload(u"No <b>answer</b>."_s);
        QVERIFY(notes()->toPlainText().endsWith(u"No <b>answer</b>."_s));
        fixture.driver.showUpdateReleaseNotes(
            {.format = ReleaseNotes::Format::html, .text = u"<p>Much <b>faster</b>.</p>"_s});
        QCOMPARE(notes()->toPlainText(), u"Much faster."_s);
    }

    void notesLoadNothingAndLinksAreLookedAtAgain()
    {
        UpdatesFixture fixture;
        fixture.find(UpdatesFixture::item(u"Faster."_s));
        QCOMPARE(notes()->accessibleName(), u"Release notes"_s);
        QCOMPARE(notes()->toPlainText(), u"Faster."_s);
        for (const auto type : {QTextDocument::ImageResource, QTextDocument::HtmlResource}) {
            QVERIFY(!notes()->loadResource(type, QUrl(u"file:///etc/hostname"_s)).isValid());
        }
        for (const char* link : {"file:///etc/passwd", "javascript:1", "https://example.org/a"}) {
            Q_EMIT notes()->anchorClicked(QUrl(QString::fromLatin1(link)));
        }
        QCOMPARE(fixture.opened, QStringList{u"https://example.org/a"_s});
    }

    void aDownloadTellsItsSizeAndSpeed()
    {
        UpdatesFixture fixture;
        fixture.driver.showDownloadInitiated(nullptr);
        const auto text = [&] {
            return fixture.texts().constLast();
        };
        QCOMPARE(text(), u"Connecting…"_s);
        // A tenth of a megabyte each tenth of a second.
        for (int step = 1; step <= 20; ++step) {
            fixture.driver.showDownloadProgress(100'000 * step, 10'000'000);
            fixture.mainQueue.advance(0.1);
        }
        QCOMPARE(text(), u"2.0 MB of 10.0 MB — 950.0 kB per second"_s);
        const auto* bar = fixture.window()->findChild<UpdateProgressBar*>();
        QCOMPARE(bar->value() * 100 / bar->maximum(), 20);
        // Then nothing comes any more.
        fixture.mainQueue.advance(10);
        QCOMPARE(text(), u"2.0 MB of 10.0 MB — 0 bytes per second"_s);
    }

    void theBarMovesOnlyWhereItMay()
    {
        UpdatesFixture fixture;
        fixture.driver.showUserInitiatedUpdateCheck(nullptr);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 1);
        fixture.window()->hide();
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
        fixture.appearance.reduced = true;
        fixture.driver.showUpdateInFocus();
        QVERIFY(fixture.window());
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
    }

    void everyTextIsShownWholeInALargeFont()
    {
        const QFont usual = QApplication::font();
        QFont font = usual;
        font.setPixelSize(QFontInfo(usual).pixelSize() * 2);
        QApplication::setFont(font);
        UpdatesFixture fixture;
        UpdateItem item = UpdatesFixture::item(u"Faster.\n"_s.repeated(100));
        item.isCritical = true;
        fixture.find(item);
        fixture.window()->resize(1, 1);
        QCoreApplication::processEvents();
        QCOMPARE(cutTexts(*UpdatesFixture::window()), QStringList());
        fixture.driver.showUpdaterError(u"A long reason. "_s.repeated(20), nullptr);
        QCoreApplication::processEvents();
        QCOMPARE(cutTexts(*UpdatesFixture::window()), QStringList());
        QApplication::setFont(usual);
    }
};

QTEST_MAIN(UpdateViewsTest)
#include "UpdateViewsTest.moc"
