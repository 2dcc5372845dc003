// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/RecentAppsStore.h>

#include <QTest>

#include <Support/MemoryUserDefaults.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

QVariantList variants(const QStringList& texts)
{
    return QVariantList(texts.cbegin(), texts.cend());
}

/// "/0" to "/<count - 1>".
QStringList numbered(int count)
{
    QStringList paths;
    for (int number = 0; number < count; ++number) {
        paths.append(u"/%1"_s.arg(number));
    }
    return paths;
}

} // namespace

class RecentAppsStoreTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theLatestLaunchComesFirst_data();
    void theLatestLaunchComesFirst();
    void valuesOfAnotherTypeReadAsNothingAndAreReplaced_data();
    void valuesOfAnotherTypeReadAsNothingAndAreReplaced();
};

void RecentAppsStoreTest::theLatestLaunchComesFirst_data()
{
    QTest::addColumn<QStringList>("stored");
    QTest::addColumn<QString>("launched");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("first ever") << QStringList{} << u"/a"_s << QStringList{u"/a"_s};
    QTest::newRow("again") << QStringList{u"/a"_s, u"/b"_s} << u"/a"_s
                           << QStringList{u"/a"_s, u"/b"_s};
    QTest::newRow("fifth") << numbered(6) << u"/4"_s
                           << QStringList{u"/4"_s, u"/0"_s, u"/1"_s, u"/2"_s, u"/3"_s, u"/5"_s};
    QTest::newRow("thirteenth") << numbered(12) << u"/new"_s
                                << QStringList{u"/new"_s} + numbered(11);
    QTest::newRow("too many stored")
        << numbered(20) << u"/19"_s << QStringList{u"/19"_s} + numbered(11);
    QTest::newRow("case matters") << QStringList{u"/A"_s} << u"/a"_s
                                  << QStringList{u"/a"_s, u"/A"_s};
    QTest::newRow("composed or not") << QStringList{u"/x"_s, u"/caf\u00e9"_s} << u"/cafe\u0301"_s
                                     << QStringList{u"/cafe\u0301"_s, u"/x"_s};
}

void RecentAppsStoreTest::theLatestLaunchComesFirst()
{
    QFETCH(QStringList, stored);
    QFETCH(QString, launched);
    MemoryUserDefaults defaults;
    defaults.values[u"RecentAppsPaths"_s] = variants(stored);
    RecentAppsStore store(defaults);
    QCOMPARE(store.recentPaths(), stored);
    store.recordLaunch(launched);
    QTEST(store.recentPaths(), "expected");
    QCOMPARE(defaults.written, {u"RecentAppsPaths"_s});
}

void RecentAppsStoreTest::valuesOfAnotherTypeReadAsNothingAndAreReplaced_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::newRow("nothing") << QVariant();
    QTest::newRow("number") << QVariant(qlonglong{3});
    QTest::newRow("dictionary") << QVariant(QVariantMap{{u"a"_s, u"/a"_s}});
    QTest::newRow("mixed array") << QVariant(QVariantList{u"/a"_s, qlonglong{1}});
}

void RecentAppsStoreTest::valuesOfAnotherTypeReadAsNothingAndAreReplaced()
{
    QFETCH(QVariant, stored);
    MemoryUserDefaults defaults;
    defaults.values[u"RecentAppsPaths"_s] = stored;
    RecentAppsStore store(defaults);
    QCOMPARE(store.recentPaths(), {});
    store.recordLaunch(u"/new"_s);
    QCOMPARE(defaults.values[u"RecentAppsPaths"_s], QVariant(variants({u"/new"_s})));
}

QTEST_GUILESS_MAIN(RecentAppsStoreTest)
#include "RecentAppsStoreTest.moc"
