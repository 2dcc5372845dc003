// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastVersion.h>

#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;

class AppcastVersionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void versionsAreOrderedByNumbersAndWords_data();
    void versionsAreOrderedByNumbersAndWords();
    void theOrderIsOneForAllVersions();
};

void AppcastVersionTest::versionsAreOrderedByNumbersAndWords_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<bool>("isOlder"); // Otherwise the two are equivalent.

    const QString digits(2'000'000, u'9');
    const QString zeros(2'000'000, u'0');
    const std::tuple<const char*, QString, QString, bool> rows[] = {
        {"numbers", u"1.0"_s, u"1.1"_s, true},
        {"numbers by value", u"1.9"_s, u"1.10"_s, true},
        {"major before minor", u"1.9.9"_s, u"2"_s, true},
        {"one part more", u"0.1"_s, u"0.1.2"_s, true},
        {"a zero more", u"2.1"_s, u"2.1.0"_s, false},
        {"zeros in front", u"1.01"_s, u"1.1"_s, false},
        {"builds", u"1248"_s, u"1249"_s, true},
        {"the same", u"1.2.3b4"_s, u"1.2.3b4"_s, false},
        {"a preview", u"1.0b1"_s, u"1.0"_s, true},
        {"a preview with a dot", u"0.7.0.b9"_s, u"0.7.0"_s, true},
        {"a preview with a space", u"1.0 beta"_s, u"1.0"_s, true},
        {"a preview of three parts", u"2.1.0rc1"_s, u"2.1"_s, true},
        {"a preview after the version before", u"0.9"_s, u"1.0a1"_s, true},
        {"alpha and beta", u"1.0a1"_s, u"1.0b1"_s, true},
        {"alpha and beta with spaces", u"1.0 alpha"_s, u"1.0 beta"_s, true},
        {"previews by number", u"1.0b9"_s, u"1.0b10"_s, true},
        {"an uncounted preview", u"1.0b"_s, u"1.0b2"_s, true},
        {"a word against a part", u"1.2rc1"_s, u"1.2.0"_s, true},
        {"build names", u"1.5.5-335d3e2"_s, u"1.5.5-a655360"_s, false},
        {"a kernel", u"6.1"_s, u"6.1.0-44-amd64"_s, false},
        {"nothing", u""_s, u"0.0"_s, false},
        {"nothing but separators", u"..."_s, u""_s, false},
        {"words only", u"abc"_s, u"0"_s, true},
        {"beyond 64 bits", u"1.18446744073709551616"_s, u"1.18446744073709551617"_s, true},
        {"other digits are words", u"1.\u0663"_s, u"1.0"_s, true},
        {"millions of digits", digits + u'8', digits + u'9', true},
        {"millions of zeros", zeros + u'1', u"1"_s, false},
        {"millions of parts", u".0"_s.repeated(500'000), u".0"_s.repeated(500'000) + u".1"_s, true},
    };
    for (const auto& [name, left, right, isOlder] : rows) {
        QTest::newRow(name) << left << right << isOlder;
    }
}

void AppcastVersionTest::versionsAreOrderedByNumbersAndWords()
{
    QFETCH(const QString, left);
    QFETCH(const QString, right);
    QFETCH(const bool, isOlder);
    const auto forwards = isOlder ? std::weak_ordering::less : std::weak_ordering::equivalent;
    const auto backwards = isOlder ? std::weak_ordering::greater : std::weak_ordering::equivalent;
    QVERIFY(AppcastVersion::compare(left, right) == forwards);
    QVERIFY(AppcastVersion::compare(right, left) == backwards);
}

void AppcastVersionTest::theOrderIsOneForAllVersions()
{
    QStringList versions = {u""_s};
    for (int length = 0; length < 4; ++length) {
        const QStringList shorter = versions;
        for (const QString& version : shorter) {
            for (const QChar next : u"0. ab2"_s) {
                versions.append(version + next);
            }
        }
        versions.removeDuplicates();
    }
    const auto isOlder = [](const QString& left, const QString& right) {
        return AppcastVersion::compare(left, right) < 0;
    };
    std::ranges::sort(versions, isOlder);
    // Sorted by an order that contradicts itself, some distant pair would stand the wrong way.
    for (qsizetype distance = 1; distance < versions.size(); distance *= 2) {
        for (qsizetype at = distance; at < versions.size(); ++at) {
            if (isOlder(versions[at], versions[at - distance])) {
                QFAIL(qPrintable(versions[at] + u" and "_s + versions[at - distance]));
            }
        }
    }
}

QTEST_APPLESS_MAIN(AppcastVersionTest)
#include "AppcastVersionTest.moc"
