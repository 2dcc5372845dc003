// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/PropertyList.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyListBounds.h>

#include <QTest>

#include <Support/BinaryPropertyList.h>
#include <Support/Table.h>
#include <clocale>
#include <limits>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

QByteArray document(const QByteArray& root)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + root + "</plist>";
}

/// With this value and no other.
QByteArray holding(const QByteArray& value)
{
    return document("<dict><key>k</key>" + value + "</dict>");
}

} // namespace

class PropertyListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valuesComeBackInTheirType_data()
    {
        const Table<QVariant> row;
        row("true", true);
        row("largest", std::numeric_limits<qlonglong>::max());
        row("smallest", std::numeric_limits<qlonglong>::min());
        row("fraction", 0.1);
        row("huge", std::numeric_limits<double>::max());
        row("text", u"  <&>]]>\"' \t\n\r\u0001 \u00e9 😀 "_s);
        row("data", QByteArray("\0\x01\xff{\"a\":1}", 10));
        row("list",
            QVariantList{u""_s, 1LL, -2.0, false, QByteArray(""), QVariantList(), QVariantMap()});
        row("map",
            QVariantMap{{u"/a & <b>"_s, 1LL}, {u""_s, QVariantMap{{u"c"_s, QByteArray("d")}}}});
    }

    void valuesComeBackInTheirType()
    {
        const auto [value] = fetch<QVariant>();
        PropertyList list;
        list.setValue(u"k < é"_s, u"before"_s);
        list.setValue(u"k < é"_s, value);
        auto read = PropertyList::fromBytes(list.toXml());
        QVERIFY(read);
        for (const PropertyList* each : {&list, &*read}) {
            QCOMPARE(each->value(u"k < é"_s).typeId(), value.typeId());
            QCOMPARE(each->value(u"k < é"_s), value);
            QVERIFY(!each->value(u"k"_s).isValid());
        }
    }

    void valuesAreReadInTheirType_data()
    {
        const Table<QByteArray, QVariant> row;
        row("real without a point", "<real>320</real>", 320.0);
        row("beyond the signed integers", "<integer>18446744073709551615</integer>", {});
        row("date in a list",
            "<array><date>2024-02-29T12:00:00Z</date><true/></array>",
            QVariantList{QVariant(), true});
        row("not UTF-8", "<string>\xff</string>", u"\ufffd"_s);
    }

    void valuesAreReadInTheirType()
    {
        const auto [xml, value] = fetch<QByteArray, QVariant>();
        const auto list = PropertyList::fromBytes(holding(xml));
        QVERIFY(list);
        QCOMPARE(list->value(u"k"_s).typeId(), value.typeId());
        QCOMPARE(list->value(u"k"_s), value);
    }

    void unknownValuesAreWrittenAgain()
    {
        auto list = PropertyList::fromBytes(
            document("<dict><key>d</key><date>2024-02-29T12:00:00Z</date>"
                     "<key>u</key><integer>18446744073709551615</integer>"
                     "<key>m</key><dict><key>CF$UID</key><integer>7</integer></dict>"
                     "<key>l</key><array><date>1999-12-31T23:59:59Z</date></array></dict>"));
        QVERIFY(list);
        list->setValue(u"a"_s, 1LL);
        const QByteArray xml = list->toXml();
        for (const char* kept : {"<date>2024-02-29T12:00:00Z</date>",
                                 "<integer>18446744073709551615</integer>",
                                 "<key>CF$UID</key>",
                                 "<date>1999-12-31T23:59:59Z</date>"}) {
            QVERIFY2(xml.contains(kept), kept);
        }
    }

    void badTextIsRefused_data()
    {
        const Table<QByteArray> row;
        row("another root", document("<array/>"));
        row("cut off", holding("<true/>").chopped(12));
        row("binary and cut off", binaryPropertyList(holding("<string>b</string>")).chopped(9));
        row("deep lists",
            holding(QByteArray("<array>").repeated(30'000)
                    + QByteArray("</array>").repeated(30'000)));
        row("deep behind comments",
            document(QByteArray("<dict><key>a</key><!--</dict>-->").repeated(3000)
                     + QByteArray("</dict>").repeated(3000)));
        row("nothing but entities",
            holding("<string>" + QByteArray("&amp;").repeated(400'000) + "</string>"));
        row("too long",
            holding("<string>" + QByteArray(PropertyListBounds::mostBytes, 'x') + "</string>"));
    }

    void badTextIsRefused()
    {
        const auto [xml] = fetch<QByteArray>();
        QVERIFY(!PropertyList::fromBytes(xml));
    }

    void numbersDoNotDependOnTheLocale()
    {
        const char* const comma = std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
        if (!comma) {
            QSKIP("no locale with a decimal comma is installed");
        }
        const auto list = PropertyList::fromBytes(holding("<real>0.82</real>"));
        const QByteArray xml = list->toXml();
        std::setlocale(LC_NUMERIC, "C");
        QCOMPARE(list->value(u"k"_s), QVariant(0.82));
        QCOMPARE(PropertyList::fromBytes(xml)->value(u"k"_s), QVariant(0.82));
    }
};

QTEST_APPLESS_MAIN(PropertyListTest)

#include "PropertyListTest.moc"
