// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastSelection.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastVersion.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateRecord.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSchedule.h>

#include <QTest>

#include <Support/MemoryUserDefaults.h>
#include <Support/Table.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using AppcastSelection::Circumstances;
using AppcastSelection::Selection;
using std::chrono::seconds;
using Test::fetch;
using Test::Table;

namespace {

const QDateTime noon({2026, 5, 1}, {12, 0}, Qt::UTC);

AppcastEnclosure file(const char* name, const char* processor = "any")
{
    return {.url = QUrl(u"https://example.org/"_s + QString::fromLatin1(name)),
            .length = 5,
            .processor = QString::fromLatin1(processor),
            .isStated = true};
}

/// An item by its version and what else is said of it.
AppcastItem offer(const char* number, AppcastItem item = {})
{
    item.update.versionString = QString::fromLatin1(number);
    item.update.displayVersionString = item.update.versionString;
    item.update.infoUrl = QUrl(u"https://example.org"_s);
    if (item.enclosures.isEmpty()) {
        item.enclosures = {file("a.AppImage")};
    }
    return item;
}

AppcastItem rolling(std::chrono::hours age, const QString& criticalBelow = {})
{
    AppcastItem item = offer("2",
                             {.phasedRolloutInterval = 24h,
                              .criticalBelowVersion = criticalBelow,
                              .isMarkedCritical = !criticalBelow.isEmpty()});
    item.update.date = noon.addSecs(-seconds(age).count());
    return item;
}

AppcastItem informational(const QStringList& forVersions)
{
    return offer("2", {.informationalVersions = forVersions, .isMarkedInformational = true});
}

Circumstances circumstances(const QString& skipped = {}, bool userInitiated = false)
{
    return {.runningVersion = u"1.2"_s,
            .systemVersion = u"6.1.0-44-amd64"_s,
            .userInitiated = userInitiated,
            .now = noon,
            .skippedVersion = skipped,
            .rolloutGroup = 3,
            .kinds = {u"appimage"_s},
            .processor = u"x86_64"_s,
            .pageHosts = {u"example.org"_s}};
}

} // namespace

/// When to look, which version of a feed is chosen, and why none is.
class ChoiceTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nextCheckFollowsTheWallClock_data()
    {
        const Table<seconds, int, double, seconds> row; // Since the last; failures; jitter; wait.
        row("a little later than others", 0s, 0, 0.5, 24h + 30min);
        row("never rarer than without failures", 0s, 1000, 0, 24h);
        row("clock corrected a little", -5min, 0, 0, 24h + 5min);
    }

    void nextCheckFollowsTheWallClock()
    {
        const auto [sinceLast, failures, jitter, wait] = fetch<seconds, int, double, seconds>();
        const UpdateSchedule::Rhythm rhythm{.interval = 24h, .jitter = jitter};
        const QDateTime now = noon.addSecs(sinceLast.count());
        QCOMPARE(
            UpdateSchedule::waitFor({.lastCheck = noon, .failures = failures}, rhythm, now).count(),
            wait.count());
        QCOMPARE(UpdateSchedule::waitFor({}, rhythm, now).count(), 0);
    }

    void whatMakesNoSenseIsNotStored()
    {
        for (const QVariant& value : {QVariant(-5LL),
                                      QVariant(std::numeric_limits<qlonglong>::max()),
                                      QVariant(1.5),
                                      QVariant(QVariantList{1}),
                                      QVariant(QString(200, u'1'))}) {
            Test::MemoryUserDefaults defaults;
            for (const QString& name :
                 u"lastCheckTime failedChecks skippedVersion newestSeenVersion rolloutGroup"_s
                     .split(u' ')) {
                defaults.values.insert(u"Updater."_s + name, value);
            }
            UpdateRecord record(defaults, [] { return 0.999; });
            QVERIFY(!record.history().lastCheck.isValid());
            QVERIFY(record.history().failures >= 0 && record.history().failures <= 1000);
            QCOMPARE(record.skippedVersion(), QString());
            QCOMPARE(record.newestSeenVersion(noon), QString());
            QCOMPARE(record.rolloutGroup(), 6);
            // Which is kept, whatever is drawn later.
            QCOMPARE(UpdateRecord(defaults, [] { return 0.0; }).rolloutGroup(), 6);
        }
    }

    void whatNoFeedConfirmsForTwoMonthsIsForgotten()
    {
        Test::MemoryUserDefaults defaults;
        UpdateRecord record(defaults, [] { return 0.0; });
        record.setNewestSeenVersion(u"999"_s, noon);
        QCOMPARE(record.newestSeenVersion(noon.addDays(59)), u"999"_s);
        QCOMPARE(record.newestSeenVersion(noon.addDays(60)), QString());
        QCOMPARE(record.newestSeenVersion(noon.addDays(-60)), QString()); // The clock was wrong.
    }

    void versionsAreOrderedByNumbersAndWords()
    {
        // The last digit of 1.\u0663 is a word to us.
        const QString rows = u"1.9<1.10;1.9.9<2;0.1<0.1.2;1248<1249;2.1=2.1.0;1.01=1.1;1.0b1<1.0;"
                             "0.7.0.b9<0.7.0;1.0 beta<1.0;2.1.0rc1<2.1;1.2rc1<1.2.0;0.9<1.0a1;"
                             "1.0a1<1.0b1;1.0 alpha<1.0 beta;1.0b9<1.0b10;1.0b<1.0b2;abc<0;"
                             "1.5.5-335d=1.5.5-a655;6.1=6.1.0-44-amd64;=0.0;...=;1.\u0663<1.0;"
                             "1.18446744073709551616<1.18446744073709551617"_s;
        QStringList pairs = rows.split(u';');
        const QString nines(300'000, u'9'); // And in no time.
        const QString zeros(300'000, u'0');
        const QString parts = u".0"_s.repeated(100'000);
        pairs << nines + u"8<"_s + nines + u'9' << zeros + u"1=1"_s
              << parts + u'<' + parts + u".1"_s;
        for (const QString& pair : std::as_const(pairs)) {
            const bool isOlder = pair.contains(u'<');
            const QStringList sides = pair.split(isOlder ? u'<' : u'=');
            const auto order = isOlder ? std::weak_ordering::less : std::weak_ordering::equivalent;
            QVERIFY2(AppcastVersion::compare(sides[0], sides[1]) == order
                         && AppcastVersion::compare(sides[1], sides[0]) == 0 <=> order,
                     qPrintable(pair.left(99)));
        }
    }

    void theNewestThatSuitsIsOffered_data()
    {
        // Last the version with its marks, or why there is none.
        const Table<QList<AppcastItem>, Circumstances, QString> row;
        const Circumstances usual = circumstances();
        const Circumstances skipped = circumstances(u"2"_s);
        const QString skip = u"You chose to skip Tavik Launcher 2."_s;
        const QString later = u"2 is being handed out step by step"_s;
        const AppcastItem beta = offer("2", {.channel = u"beta"_s});
        const AppcastItem tooNew = offer("2", {.minimumSystemVersion = u"6.2"_s});
        const AppcastItem fitting
            = offer("2", {.minimumSystemVersion = u"6.1"_s, .maximumSystemVersion = u"6.1"_s});
        const AppcastItem tooOld = offer("2", {.maximumSystemVersion = u"5.9"_s});
        const AppcastItem critical = offer("2", {.isMarkedCritical = true});
        AppcastItem withoutFile = offer("2");
        withoutFile.enclosures.clear();
        row("up to date", {offer("1.0"), offer("1.2")}, usual, u"You're up to date. Tavik"_s);
        row("the newest of all", {offer("1.9"), offer("1.10"), offer("1.3")}, usual, u"1.10"_s);
        row("other channel", {offer("1.2"), beta}, usual, u"Launcher 1.2 is the newest"_s);
        row("fitting system", {fitting}, usual, u"2"_s);
        row("old system", {tooNew}, usual, u"6.2 or newer. This computer runs Linux 6.1.0-44"_s);
        row("new system", {tooOld}, usual, u"not for systems newer than"_s);
        row("best for us", {tooNew, offer("1.3")}, usual, u"1.3"_s);
        row("skipped, and those before it", {offer("2"), offer("1.3")}, skipped, skip);
        row("the skipped was taken back", {offer("1.9")}, skipped, u"1.9"_s);
        row("newer than the skipped", {offer("2.1")}, skipped, u"2.1"_s);
        row("skipped, but asked for", {offer("2")}, circumstances(u"2"_s, true), u"2"_s);
        row("skipped, but critical", {critical}, skipped, u"2 critical"_s);
        row("rolling out to others", {rolling(71h)}, usual, later);
        row("rolling out to us", {rolling(72h)}, usual, u"2"_s);
        row("rolling out, but critical", {rolling(0h, u"1.3"_s)}, usual, u"2 critical"_s);
        row("rolling out, critical for others", {rolling(0h, u"1.2"_s)}, usual, later);
        row("a page for all", {informational({})}, usual, u"2 page"_s);
        row("a page for us", {informational({u"1.0"_s, u"1.2.0"_s})}, usual, u"2 page"_s);
        row("a page below one", {informational({u"<1.3"_s})}, usual, u"2 page"_s);
        row("no file", {withoutFile}, usual, u"2 page"_s);
        const AppcastItem older = offer("1.3", {.minimumSystemVersion = u"7"_s});
        row("the newest's reason", {older, rolling(0h)}, usual, later);
    }

    void theNewestThatSuitsIsOffered()
    {
        const auto [items, about, expected] = fetch<QList<AppcastItem>, Circumstances, QString>();
        const Selection selection = AppcastSelection::select(items, about);
        QVERIFY(!selection.isRefused);
        if (selection.offer) {
            const UpdateItem& update = selection.offer->update;
            QCOMPARE(update.versionString + (update.isCritical ? u" critical"_s : QString())
                         + (update.isInformationOnly ? u" page"_s : QString()),
                     expected);
            QCOMPARE(selection.offer->enclosure.has_value(), !update.isInformationOnly);
            QCOMPARE(update.contentLength, update.isInformationOnly ? 0 : 5);
            QVERIFY(selection.reason.isEmpty());
        } else {
            QVERIFY2(selection.reason.contains(expected) && expected.contains(u' '),
                     qPrintable(selection.reason));
        }
    }

    void theNewestSeenIsRemembered_data()
    {
        const Table<QList<AppcastItem>, QString, QString> row; // Error; remembered after 2.0.
        const QString older = u"one seen before: its newest signed version is "_s;
        const QString notSigned = u"3 is available. It is not signed."_s;
        const AppcastItem beta = offer("3", {.channel = u"beta"_s});
        AppcastEnclosure unstated = file("a.AppImage");
        unstated.isStated = false;
        unstated.fault = u"It is not signed."_s;
        const AppcastItem unsigned3 = offer("3", {.enclosures = {unstated}});
        row("a newer one", {offer("2.1"), offer("2.0")}, {}, u"2.1"_s);
        const QString told = older + u"1.9, but 2.0 was there"_s;
        row("newer in another channel", {offer("1.9"), beta}, told, u"2.0"_s);
        row("older, and a number that nobody signed", {offer("1.9"), unsigned3}, older, u"2.0"_s);
        row("only numbers that nobody signed", {unsigned3}, older + u"none"_s, u"2.0"_s);
        row("newer, but not signed", {unsigned3, offer("2.0")}, notSigned, u"2.0"_s);
        row("for other systems", {offer("3", {.minimumSystemVersion = u"9"_s})}, {}, u"3"_s);
        row("nothing for us", {}, u"has no version for this computer"_s, u"2.0"_s);
    }

    void theNewestSeenIsRemembered()
    {
        const auto [items, error, remembered] = fetch<QList<AppcastItem>, QString, QString>();
        Circumstances about = circumstances({}, true);
        about.newestSeenVersion = u"2.0"_s;
        const Selection selection = AppcastSelection::select(items, about);
        QCOMPARE(selection.newestSeenVersion, remembered);
        QCOMPARE(selection.isRefused, !error.isEmpty());
        QVERIFY2(selection.reason.contains(error), qPrintable(selection.reason));
        QVERIFY(error.isEmpty() || !selection.offer);
    }

    void theFileThatCanBeInstalledHereIsChosen_data()
    {
        using Files = QList<AppcastEnclosure>;
        // The page's host; the file's name, or what comes of it.
        const Table<Files, QString, QString> row;
        const Files four{file("a.deb", "x86_64"),
                         file("b.AppImage", "arm64"),
                         file("c.AppImage", "x86_64"),
                         file("d.deb", "arm64")};
        const QString host = u"example.org"_s;
        AppcastEnclosure linux = file("b.AppImage");
        linux.isForLinux = true;
        AppcastEnclosure faulty = linux;
        faulty.fault = u"It is not signed."_s;
        row("kind and processor before order", four, host, u"/c.AppImage"_s);
        row("for Linux by name", {file("a.AppImage"), linux}, host, u"/b.AppImage"_s);
        row("one that may be installed", {faulty, file("a.AppImage")}, host, u"/a.AppImage"_s);
        row("none for us", {four[0], four[1]}, host, u"page"_s);
        row("none, and others' page", {four[0]}, host + u".example.com"_s, u"no page to read"_s);
        row("none, and no page", {four[0]}, {}, u"not as a file that can be installed here"_s);
    }

    void theFileThatCanBeInstalledHereIsChosen()
    {
        const auto [files, host, expected] = fetch<QList<AppcastEnclosure>, QString, QString>();
        AppcastItem item = offer("2", {.enclosures = files});
        item.update.infoUrl = host.isEmpty() ? QUrl() : QUrl(u"https://"_s + host);
        const Selection selection = AppcastSelection::select({item}, circumstances());
        const QString came = !selection.offer ? selection.reason
            : selection.offer->enclosure      ? selection.offer->enclosure->url.path()
                                              : u"page"_s;
        QVERIFY2(came.contains(expected), qPrintable(came));
    }
};

QTEST_APPLESS_MAIN(ChoiceTest)
#include "ChoiceTest.moc"
