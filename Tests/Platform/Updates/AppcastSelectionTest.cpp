// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastSelection.h>

#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using AppcastSelection::Circumstances;
using AppcastSelection::Selection;

namespace {

const QDateTime now({2026, 5, 1}, {12, 0}, Qt::UTC);

AppcastItem version(const QString& version)
{
    AppcastItem item;
    item.update.versionString = version;
    item.update.displayVersionString = version;
    item.update.infoUrl = QUrl(u"https://example.org"_s);
    item.enclosure = AppcastEnclosure{.url = QUrl(u"https://example.org/a"_s), .length = 5};
    return item;
}

AppcastItem with(AppcastItem item, const std::function<void(AppcastItem&)>& change)
{
    change(item);
    return item;
}

AppcastItem critical(const QString& number, const QString& below = {})
{
    return with(version(number), [&](AppcastItem& item) {
        item.isMarkedCritical = true;
        item.criticalBelowVersion = below;
    });
}

AppcastItem informational(const QString& number, const QStringList& forVersions = {})
{
    return with(version(number), [&](AppcastItem& item) {
        item.isMarkedInformational = true;
        item.informationalVersions = forVersions;
    });
}

AppcastItem rollingOut(const QString& number, std::chrono::hours age)
{
    return with(version(number), [&](AppcastItem& item) {
        item.update.date = now.addSecs(-std::chrono::seconds(age).count());
        item.phasedRolloutInterval = 24h;
    });
}

AppcastItem inChannel(const QString& number, const QString& channel)
{
    return with(version(number), [&](AppcastItem& item) { item.channel = channel; });
}

AppcastItem forSystems(const QString& number, const QString& minimum, const QString& maximum)
{
    return with(version(number), [&](AppcastItem& item) {
        item.minimumSystemVersion = minimum;
        item.maximumSystemVersion = maximum;
    });
}

Circumstances circumstances(const std::function<void(Circumstances&)>& change = {})
{
    Circumstances result{.runningVersion = u"1.2"_s,
                         .systemVersion = u"6.1.0-44-amd64"_s,
                         .now = now,
                         .rolloutGroup = 3};
    if (change) {
        change(result);
    }
    return result;
}

void user(Circumstances& value)
{
    value.userInitiated = true;
}

std::function<void(Circumstances&)> skipping(const QString& version)
{
    return [version](Circumstances& value) {
        value.skippedVersion = version;
    };
}

} // namespace

class AppcastSelectionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theNewestThatSuitsIsOffered_data();
    void theNewestThatSuitsIsOffered();
    void marksCountForTheRunningVersion_data();
    void marksCountForTheRunningVersion();
    void theNewestSeenIsRemembered_data();
    void theNewestSeenIsRemembered();
    void filesThatCannotBeInstalledAreRefused();
};

void AppcastSelectionTest::theNewestThatSuitsIsOffered_data()
{
    QTest::addColumn<QList<AppcastItem>>("items");
    QTest::addColumn<Circumstances>("about");
    QTest::addColumn<QString>("expected"); // The version; or of the reason a part.

    const auto row = [](const char* name,
                        const QList<AppcastItem>& items,
                        const QString& expected,
                        const std::function<void(Circumstances&)>& change = {}) {
        QTest::newRow(name) << items << circumstances(change) << expected;
    };
    row("up to date",
        {version(u"1.0"_s), version(u"1.2"_s)},
        u"You're up to date. Tavik Launcher 1.2 is the newest version."_s);
    row("newer than the feed",
        {version(u"1.1"_s)},
        u"Tavik Launcher 1.2 is newer than the newest on offer, 1.1."_s);
    row("the newest, wherever it stands",
        {version(u"1.9"_s), version(u"1.10"_s), version(u"1.3"_s)},
        u"1.10"_s);
    row("another channel",
        {version(u"1.2"_s), inChannel(u"2.0"_s, u"beta"_s)},
        u"Tavik Launcher 1.2 is the newest"_s);
    row("a system that is old enough", {forSystems(u"2"_s, u"6.1"_s, u"6.1"_s)}, u"2"_s);
    row("a system that is too old",
        {forSystems(u"2"_s, u"6.2"_s, {})},
        u"2 is available, but it needs Linux 6.2 or newer. This computer runs Linux 6.1.0-44-amd64."_s);
    row("a system that is too new",
        {forSystems(u"2"_s, {}, u"5.99"_s)},
        u"2 is available, but not for systems newer than Linux 5.99."_s);
    row("the newest for this system",
        {forSystems(u"2"_s, u"6.2"_s, {}), version(u"1.3"_s)},
        u"1.3"_s);
    row("skipped", {version(u"2"_s)}, u"You chose to skip Tavik Launcher 2."_s, skipping(u"2"_s));
    row("skipped, and others before it",
        {version(u"2"_s), version(u"1.3"_s)},
        u"You chose to skip Tavik Launcher 2."_s,
        skipping(u"2"_s));
    row("newer than the skipped", {version(u"2.1"_s)}, u"2.1"_s, skipping(u"2"_s));
    row("skipped, but asked for", {version(u"2"_s)}, u"2"_s, [](Circumstances& value) {
        value.skippedVersion = u"2"_s;
        value.userInitiated = true;
    });
    row("skipped, but critical by now", {critical(u"2"_s)}, u"2"_s, skipping(u"2"_s));
    row("rolling out to others",
        {rollingOut(u"2"_s, 71h)},
        u"2 is being handed out step by step"_s);
    row("rolling out to us", {rollingOut(u"2"_s, 72h)}, u"2"_s);
    row("rolling out from the first group on",
        {rollingOut(u"2"_s, 0h)},
        u"2"_s,
        [](Circumstances& value) { value.rolloutGroup = 0; });
    row("rolled out to the last group",
        {rollingOut(u"2"_s, 144h)},
        u"2"_s,
        [](Circumstances& value) {
            value.rolloutGroup = 1000; // As damaged defaults may have it.
        });
    row("rolling out, but asked for", {rollingOut(u"2"_s, 0h)}, u"2"_s, user);
    row("rolling out without a date",
        {with(rollingOut(u"2"_s, 0h), [](AppcastItem& item) { item.update.date = {}; })},
        u"2"_s);
    row("rolling out, but critical",
        {with(rollingOut(u"2"_s, 0h), [](AppcastItem& item) { item.isMarkedCritical = true; })},
        u"2"_s);
    row("rolling out, critical for others",
        {with(rollingOut(u"2"_s, 0h),
              [](AppcastItem& item) {
                  item.isMarkedCritical = true;
                  item.criticalBelowVersion = u"1.2"_s;
              })},
        u"step by step"_s);
    row("the one before, while the newest rolls out",
        {rollingOut(u"2"_s, 0h), version(u"1.3"_s)},
        u"1.3"_s);
    row("the reason is the newest's",
        {forSystems(u"1.3"_s, u"7"_s, {}),
         rollingOut(u"2"_s, 0h),
         forSystems(u"1.4"_s, u"7"_s, {})},
        u"step by step"_s);
}

void AppcastSelectionTest::theNewestThatSuitsIsOffered()
{
    QFETCH(const QList<AppcastItem>, items);
    QFETCH(const Circumstances, about);
    QFETCH(const QString, expected);
    const Selection selection = AppcastSelection::select(items, about);
    QVERIFY(!selection.isRefused);
    if (selection.offer) {
        QCOMPARE(selection.offer->update.versionString, expected);
        QCOMPARE(selection.offer->update.contentLength, 5);
        QVERIFY(selection.offer->enclosure && selection.reason.isEmpty());
    } else {
        QVERIFY2(selection.reason.contains(expected) && expected.contains(u' '),
                 qPrintable(selection.reason));
    }
}

void AppcastSelectionTest::marksCountForTheRunningVersion_data()
{
    QTest::addColumn<AppcastItem>("item");
    QTest::addColumn<bool>("isCritical");
    QTest::addColumn<bool>("isInformationOnly");

    QTest::newRow("no mark") << version(u"2"_s) << false << false;
    QTest::newRow("critical for all") << critical(u"2"_s) << true << false;
    QTest::newRow("critical for us") << critical(u"2"_s, u"1.2.1"_s) << true << false;
    QTest::newRow("critical for older ones") << critical(u"2"_s, u"1.2"_s) << false << false;
    QTest::newRow("information for all") << informational(u"2"_s) << false << true;
    QTest::newRow("information for us")
        << informational(u"2"_s, {u"1.0"_s, u"1.2.0"_s}) << false << true;
    QTest::newRow("information for others")
        << informational(u"2"_s, {u"1.0"_s, u"1.3"_s}) << false << false;
    QTest::newRow("information for all below one")
        << informational(u"2"_s, {u"<1.3"_s}) << false << true;
    QTest::newRow("information for all below us")
        << informational(u"2"_s, {u"<1.2"_s}) << false << false;
    QTest::newRow("no file") << with(version(u"2"_s), [](AppcastItem& item) {
        item.enclosure.reset();
    }) << false << true;
}

void AppcastSelectionTest::marksCountForTheRunningVersion()
{
    QFETCH(const AppcastItem, item);
    QFETCH(const bool, isCritical);
    QFETCH(const bool, isInformationOnly);
    const Selection selection = AppcastSelection::select({item}, circumstances());
    QVERIFY(selection.offer);
    QCOMPARE(selection.offer->update.isCritical, isCritical);
    QCOMPARE(selection.offer->update.isInformationOnly, isInformationOnly);
    QCOMPARE(selection.offer->enclosure.has_value(), !isInformationOnly);
    QCOMPARE(selection.offer->update.contentLength, isInformationOnly ? 0 : 5);
}

void AppcastSelectionTest::theNewestSeenIsRemembered_data()
{
    QTest::addColumn<QList<AppcastItem>>("items");
    QTest::addColumn<QString>("seen");
    QTest::addColumn<QString>("error"); // Empty: the feed is taken.
    QTest::addColumn<QString>("remembered");

    const QString older
        = u"older than one seen before: its newest version is 1.9, but 2.0 was there"_s;
    QTest::newRow("the first feed") << QList{version(u"2.0"_s)} << u""_s << u""_s << u"2.0"_s;
    QTest::newRow("the same feed") << QList{version(u"2.0"_s)} << u"2.0"_s << u""_s << u"2.0"_s;
    QTest::newRow("a newer feed") << QList{version(u"2.1"_s), version(u"2.0"_s)} << u"2.0"_s
                                  << u""_s << u"2.1"_s;
    QTest::newRow("an older feed") << QList{version(u"1.9"_s)} << u"2.0"_s << older << u"2.0"_s;
    QTest::newRow("newer only in another channel")
        << QList{version(u"1.9"_s), inChannel(u"3"_s, u"beta"_s)} << u"2.0"_s << older << u"2.0"_s;
    QTest::newRow("a version that this system cannot run")
        << QList{forSystems(u"3"_s, u"9"_s, {})} << u"2.0"_s << u""_s << u"3"_s;
    QTest::newRow("no version for us")
        << QList<AppcastItem>{} << u"2.0"_s << u"has no version for this computer"_s << u"2.0"_s;
}

void AppcastSelectionTest::theNewestSeenIsRemembered()
{
    QFETCH(const QList<AppcastItem>, items);
    QFETCH(const QString, seen);
    QFETCH(const QString, error);
    QFETCH(const QString, remembered);
    for (const bool userInitiated : {false, true}) {
        const Selection selection
            = AppcastSelection::select(items, circumstances([&](Circumstances& value) {
                                           value.newestSeenVersion = seen;
                                           value.userInitiated = userInitiated;
                                       }));
        QCOMPARE(selection.newestSeenVersion, remembered);
        QCOMPARE(selection.isRefused, !error.isEmpty());
        QVERIFY2(selection.reason.contains(error), qPrintable(selection.reason));
        QVERIFY(error.isEmpty() || !selection.offer);
    }
}

void AppcastSelectionTest::filesThatCannotBeInstalledAreRefused()
{
    AppcastItem unsafe = version(u"2"_s);
    unsafe.enclosure->fault = u"The update is not signed."_s;
    Selection selection = AppcastSelection::select({unsafe, version(u"1.3"_s)}, circumstances());
    QVERIFY(selection.isRefused && !selection.offer);
    QCOMPARE(selection.reason, u"Tavik Launcher 2 is available. The update is not signed."_s);

    unsafe.isMarkedInformational = true;
    QVERIFY(AppcastSelection::select({unsafe}, circumstances()).offer);
    unsafe.update.infoUrl.clear();
    selection = AppcastSelection::select({unsafe}, circumstances());
    QVERIFY(selection.isRefused && !selection.offer);
}

QTEST_APPLESS_MAIN(AppcastSelectionTest)
#include "AppcastSelectionTest.moc"
