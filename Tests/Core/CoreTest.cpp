// SPDX-License-Identifier: MIT
#include <TavikLauncherCore/AppSearch.h>
#include <TavikLauncherCore/SearchText.h>

#include <QRandomGenerator>
#include <QTest>
#include <QTextBoundaryFinder>

#include <Support/AppNames.h>
#include <Support/Table.h>
#include <algorithm>
#include <limits>
#include <optional>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {
QList<IndexedApp> appsNamed(const QStringList& names)
{
    QList<IndexedApp> apps;
    for (const QString& name : names) {
        apps.append({name, std::nullopt, u"/apps/%1"_s.arg(apps.size()), {}});
    }
    return apps;
}

/// Short texts over few letters, so that they match each other often, with everything in them that
/// makes text difficult.
QString difficultText(QRandomGenerator& random)
{
    static const QStringList pieces
        = u"a|A|b|ab| "
          u"|-|.|_|\u0301|\u00e1|\u00c1|a\u0301|\u0130|\u212a|\u1112|\u1161|\u11ab|\ud55c|"
          u"\u200d|👩|🇩|\r\n|\u03a3|\u03c3|\u2003|\u0439|\u0306|か|\u3099|\u0600|\u00ad"_s.split(
              u'|')
        + QStringList{QString(QChar(0xd800))};
    QString text;
    const auto length = random.bounded(0, 9);
    for (int each = 0; each < length; ++each) {
        const bool isEasy = random.bounded(2) == 0;
        text += pieces[random.bounded(isEasy ? 6 : static_cast<int>(pieces.size()))];
    }
    return text;
}

} // namespace

class CoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void otherNamesFindAfterAllNames()
    {
        const auto app = [](const QString& name, const QStringList& otherNames = {}) {
            return IndexedApp(name, {}, u"/"_s + name, {}).withOtherNames(otherNames.join(u'\n'));
        };
        const QList<IndexedApp> apps{app(u"Dateien"_s, {u"Files"_s, u"File Manager"_s}),
                                     app(u"Archive"_s, {u"file-roller"_s}),
                                     app(u"Open a File"_s),
                                     app(u"Filer"_s, {u"File"_s})};
        const auto names = [&apps](const QString& query) {
            return namesOf(AppSearch::results(query, apps, 9));
        };
        QCOMPARE(names(u"file"_s),
                 (QStringList{u"Filer"_s, u"Open a File"_s, u"Archive"_s, u"Dateien"_s}));
        QCOMPARE(names(u"file man"_s), {u"Dateien"_s});
        QCOMPARE(names(u"files manager"_s), {}); // Of two names.
        QCOMPARE(app(u"A"_s), app(u"A"_s, {u"B"_s}));
    }

    void scoreCountsWordPrefixes_data()
    {
        const Table<QString, QString, std::optional<qint64>> row;
        row("a whole word", u"safari"_s, u"Safari"_s, 35);
        row("a part of it", u"SAF"_s, u"Safari"_s, 24);
        row("two words", u"google chrome"_s, u"Google Chrome"_s, 62);
        row("not in their order", u"chrome google"_s, u"Google Chrome"_s, {});
        row("two parts", u"sys set"_s, u"System Settings"_s, 38);
        row("a later word", u"code"_s, u"Visual Studio Code"_s, 25);
        row("inside a word", u"ari"_s, u"Safari"_s, {});
        row("separators alone", u"-"_s, u"Safari"_s, 0);
        row("all separators", u"zoom us x y"_s, u"zoom.us_x-y"_s, 116);
        row("one word each", u"a a"_s, u"Adobe Acrobat"_s, 36);
        row("one word for two", u"a a"_s, u"Adobe"_s, {});
        row("below zero", u"t"_s, u"a b c d e f g h i j k l m n o p q r s transcendental"_s, -8);
        row("accents count", u"cafe"_s, u"Café"_s, {});
        row("composed finds decomposed", u"CAF\u00c9"_s, u"Cafe\u0301"_s, 35);
        row("decomposed finds composed", u"cafe\u0301"_s, u"Caf\u00C9"_s, 35);
        row("longer in lower case", u"\u0130stanbul"_s, u"\u0130STANBUL"_s, 35);
        row("another sign for a letter", u"\u212aelvin"_s, u"Kelvin"_s, 35);
        row("half a character", u"👩"_s, u"👩‍👩‍👧 Family"_s, {});
        row("a whole character",
            u"👩‍👩‍👧"_s,
            u"👩‍👩‍👧👍🏽 Family"_s,
            25);
        row("all blanks separate", u"b"_s, u"a\u2003b\u00a0c"_s, 25);
        row("another script", u"поч"_s, u"Почта"_s, 25);
    }

    void scoreCountsWordPrefixes()
    {
        const auto [query, candidate, score] = fetch<QString, QString, std::optional<qint64>>();
        QCOMPARE(AppSearch::score(query, candidate), score);
    }

    void formsOfOneTextScoreAlike()
    {
        QRandomGenerator random(7);
        int matches = 0;
        for (int each = 0; each < 30'000; ++each) {
            const QString candidate = difficultText(random);
            // Half of the queries are cut out of what they are to find.
            const QString query = each % 2 == 0 ? difficultText(random)
                                                : candidate.left(random.bounded(4)).toUpper();
            const auto score = AppSearch::score(query, candidate);
            const auto form = QString::NormalizationForm_D;
            QCOMPARE(AppSearch::score(query.normalized(form), candidate), score);
            QCOMPARE(AppSearch::score(query, candidate.normalized(form)), score);
            // One more word costs a point, and this one is not plain text.
            if (candidate.isValidUtf16()) {
                const bool hasWords = AppSearch::score(query, {}) != 0;
                const auto longer = AppSearch::score(query, candidate + u"\n👍🏽"_s);
                QCOMPARE(longer, score && hasWords ? std::optional(*score - 1) : score);
            }
            matches += score.value_or(0) != 0 ? 1 : 0;
        }
        QVERIFY(matches > 1000);
    }

    void plainTextIsNeitherComposedNorJoined()
    {
        QString units;
        for (int unit = 0; unit <= 0xffff; ++unit) {
            const QChar character(static_cast<char16_t>(unit));
            if (!PlainText::isPlain(character.unicode()) || character == u'\r') {
                continue;
            }
            const QString folded
                = QString(character).toLower().normalized(QString::NormalizationForm_C);
            QCOMPARE(folded, QString(QChar(PlainText::folded(character.unicode()))));
            units += character;
        }
        // Each unit stands beside many others once the order is shuffled.
        QRandomGenerator random(3);
        for (int round = 0; round < 4; ++round) {
            QCOMPARE(units.normalized(QString::NormalizationForm_C), units);
            QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, units);
            for (qsizetype each = 1; each <= units.size(); ++each) {
                QCOMPARE(finder.toNextBoundary(), each);
            }
            std::ranges::shuffle(units, random);
        }
    }

    void resultsAreTheFirstOfAStableSort()
    {
        QRandomGenerator random(11);
        for (int round = 0; round < 60; ++round) {
            QStringList names;
            const auto count = random.bounded(0, 80);
            for (int each = 0; each < count; ++each) {
                names.append(difficultText(random));
            }
            const QList<IndexedApp> apps = appsNamed(names);
            const QString query
                = QStringList{u"a"_s, u"-"_s, u"b a"_s, u"ab"_s, u"É"_s, u"i"_s}[round % 6];
            QList<IndexedApp> expected;
            std::ranges::copy_if(apps, std::back_inserter(expected), [&](const IndexedApp& app) {
                return AppSearch::score(query, app.name()).has_value();
            });
            std::ranges::stable_sort(
                expected, [&](const IndexedApp& left, const IndexedApp& right) {
                    const auto leftScore = AppSearch::score(query, left.name());
                    const auto rightScore = AppSearch::score(query, right.name());
                    return leftScore != rightScore
                        ? leftScore > rightScore
                        : AppSearch::localizedCaseInsensitiveLess(left.name(), right.name());
                });
            using Range = std::numeric_limits<qsizetype>;
            for (const qsizetype limit : {Range::min(), qsizetype{0}, qsizetype{7}, Range::max()}) {
                const qsizetype most = std::max<qsizetype>(limit, 1);
                QCOMPARE(AppSearch::results(query, apps, limit),
                         expected.first(std::min(most, expected.size())));
                QCOMPARE(AppSearch::results({}, apps, limit).size(), std::min(most, apps.size()));
            }
        }
    }

    void whatIsSortedBeforeIsSortedTheSame()
    {
        QRandomGenerator random(7);
        for (int round = 0; round < 60; ++round) {
            QStringList names;
            for (int each = 0; each < 40; ++each) {
                names.append(difficultText(random));
            }
            const QList<IndexedApp> before = AppSearch::sortedByName(appsNamed(names));
            // Some have come, some have gone, and some are called otherwise now.
            for (int each = 0; each < 60; ++each) {
                if (each >= names.size()) {
                    names.append(difficultText(random));
                } else if (random.bounded(4) == 0) {
                    names[each] = difficultText(random);
                }
            }
            QList<IndexedApp> apps = appsNamed(names);
            apps.removeIf([&random](const IndexedApp&) { return random.bounded(4) == 0; });
            const QList<IndexedApp> sorted = AppSearch::sortedByName(apps, before);
            QCOMPARE(sorted, AppSearch::sortedByName(apps));
            QCOMPARE(AppSearch::results(u"a"_s, sorted, 9, AppSearch::Ties::asGiven),
                     AppSearch::results(u"a"_s, sorted, 9));
        }
    }

    void blankQueryKeepsTheGivenOrder()
    {
        const QList<IndexedApp> apps = appsNamed({u"b"_s, u""_s, u"a"_s, u"-"_s});
        QCOMPARE(AppSearch::results(u" \t\u2003\r\n"_s, apps, 3), apps.first(3));
    }

    void equalNamesKeepTheirOrder()
    {
        const QList<IndexedApp> apps = appsNamed({u"MAIL"_s, u"mail"_s, u"Alpha"_s, u"mAil"_s});
        const QList<IndexedApp> expected{apps[2], apps[0], apps[1], apps[3]};
        QCOMPARE(AppSearch::sortedByName(apps), expected);
        QCOMPARE(AppSearch::results(u"-"_s, apps, 5), expected);
    }

    void equalityIgnoresTheIconAndNothingElse()
    {
        const IndexedApp app(u"Caf\u00e9"_s, u"org.cafe"_s, u"/a"_s, {u"cafe"_s});
        const IndexedApp alike(u"Cafe\u0301"_s, u"org.cafe"_s, u"/a"_s, {u"tea"_s});
        QVERIFY(app == alike && alike == app);
        const QList<IndexedApp> others{{u"Cafe"_s, u"org.cafe"_s, u"/a"_s, {}},
                                       {u"Caf\u00e9"_s, u"org.cafe"_s, u"/b"_s, {}},
                                       {u"Caf\u00e9"_s, std::nullopt, u"/a"_s, {}},
                                       {u"Caf\u00e9"_s, QString(), u"/a"_s, {}}};
        for (qsizetype each = 0; each < others.size(); ++each) {
            QVERIFY(!(app == others[each]) && !(others[each] == app));
            QCOMPARE(others.indexOf(others[each]), each); // No identifier is not an empty one.
        }
    }

    void namesSortAsALanguageDoesEvenWithoutOne()
    {
        QCOMPARE(QLocale::system().language(), QLocale::C);
        const QStringList sorted{u"apple"_s, u"\u00c9clair"_s, u"Zoo"_s, u"\u0416\u0443\u043a"_s};
        QCOMPARE(namesOf(AppSearch::sortedByName(
                     appsNamed({sorted[3], sorted[2], sorted[1], sorted[0]}))),
                 sorted);
        QVERIFY(AppSearch::localizedCaseInsensitiveLess(u"\u00e9clair"_s, u"Fig"_s));
        QVERIFY(!AppSearch::localizedCaseInsensitiveLess(u"FIG"_s, u"fig"_s));
        QVERIFY(!AppSearch::localizedCaseInsensitiveLess(u"fig"_s, u"FIG"_s));
    }
};

QTEST_APPLESS_MAIN(CoreTest)

#include "CoreTest.moc"
