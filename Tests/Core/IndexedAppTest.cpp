// SPDX-License-Identifier: MIT
#include <TavikLauncherCore/IndexedApp.h>

#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;

class IndexedAppTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equalityIgnoresTheIconAndNothingElse_data();
    void equalityIgnoresTheIconAndNothingElse();
};

void IndexedAppTest::equalityIgnoresTheIconAndNothingElse_data()
{
    const IndexedApp app(u"Caf\u00e9"_s, u"org.cafe"_s, u"/a/Cafe.app"_s, {u"cafe"_s});
    QTest::addColumn<IndexedApp>("left");
    QTest::addColumn<IndexedApp>("right");
    QTest::addColumn<bool>("equal");
    QTest::newRow("other icon") << app
                                << IndexedApp(
                                       u"Caf\u00e9"_s, u"org.cafe"_s, u"/a/Cafe.app"_s, {u"tea"_s})
                                << true;
    QTest::newRow("name in decomposed form")
        << app << IndexedApp(u"Cafe\u0301"_s, u"org.cafe"_s, u"/a/Cafe.app"_s, {}) << true;
    QTest::newRow("other name") << app << IndexedApp(u"Cafe"_s, u"org.cafe"_s, u"/a/Cafe.app"_s, {})
                                << false;
    QTest::newRow("other path") << app
                                << IndexedApp(u"Caf\u00e9"_s, u"org.cafe"_s, u"/b/Cafe.app"_s, {})
                                << false;
    QTest::newRow("no identifier")
        << app << IndexedApp(u"Caf\u00e9"_s, std::nullopt, u"/a/Cafe.app"_s, {}) << false;
    QTest::newRow("absent and empty identifier")
        << IndexedApp(u"A"_s, std::nullopt, u"/a"_s, {})
        << IndexedApp(u"A"_s, QString(), u"/a"_s, {}) << false;
}

void IndexedAppTest::equalityIgnoresTheIconAndNothingElse()
{
    QFETCH(const IndexedApp, left);
    QFETCH(const IndexedApp, right);
    QFETCH(const bool, equal);
    QCOMPARE(left == right, equal);
    QCOMPARE(right == left, equal);
}

QTEST_APPLESS_MAIN(IndexedAppTest)

#include "IndexedAppTest.moc"
