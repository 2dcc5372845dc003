// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Files/ApplicationFolder.h>

#include <QImage>
#include <QTest>

#include <Support/FileTree.h>
#include <cstdlib>
#include <plist/plist.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

QByteArray xml(const QByteArray& body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + body
        + "</plist>";
}

QByteArray info(const QByteArray& entries)
{
    return xml("<dict>" + entries + "</dict>");
}

QByteArray binary(const QByteArray& xmlList)
{
    plist_t node = nullptr;
    plist_from_memory(xmlList.constData(), static_cast<uint32_t>(xmlList.size()), &node);
    char* bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    const QByteArray result(bytes, static_cast<qsizetype>(length));
    std::free(bytes);
    plist_free(node);
    return result;
}

/// A binary list of `levels` arrays, each holding the next one `copies` times: it unfolds to
/// copies^levels nodes.
QByteArray foldedArrays(int levels, int copies)
{
    QByteArray bytes = "bplist00";
    QByteArray offsets;
    const auto put = [](QByteArray& to, qsizetype number) {
        to += static_cast<char>(number >> 8);
        to += static_cast<char>(number & 0xFF);
    };
    for (int level = 0; level < levels; ++level) {
        put(offsets, bytes.size());
        const bool isLast = level + 1 == levels;
        bytes += static_cast<char>(0xA0 | (isLast ? 0 : copies));
        for (int copy = 0; copy < copies && !isLast; ++copy) {
            put(bytes, level + 1);
        }
    }
    const qsizetype table = bytes.size();
    QByteArray trailer(32, '\0');
    trailer[6] = 2;
    trailer[7] = 2;
    trailer[14] = static_cast<char>(levels >> 8);
    trailer[15] = static_cast<char>(levels & 0xFF);
    trailer[30] = static_cast<char>(table >> 8);
    trailer[31] = static_cast<char>(table & 0xFF);
    return bytes + offsets + trailer;
}

} // namespace

class ApplicationFolderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsAreReadFromBothFormatsAndNothingElse()
    {
        const QByteArray list
            = info("<key>CFBundleDisplayName</key><string></string>"
                   "<key>CFBundleName</key><string>T\xC3\xA9st &amp; more</string>"
                   "<key>CFBundleIdentifier</key><string>org.example.test</string>");
        for (const QByteArray& bytes : {list, binary(list)}) {
            const auto parsed = ApplicationFolder::parse(bytes);
            QVERIFY(parsed);
            QCOMPARE(parsed->displayName, u""_s);
            QCOMPARE(parsed->name, u"T\u00e9st & more"_s);
            QCOMPARE(parsed->identifier, u"org.example.test"_s);
            QVERIFY(!parsed->iconFile);
        }
        const auto odd = ApplicationFolder::parse(
            info("<key>CFBundleDisplayName</key><integer>3</integer>"
                 "<key>CFBundleName</key><array><string>x</string></array>"
                 "<key>CFBundleIdentifier</key><true/>"));
        QVERIFY(odd && !odd->displayName && !odd->name && !odd->identifier);
    }

    void damagedListsAreAbsent_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("array") << xml("<array/>");
        QTest::newRow("cut xml") << xml("<dict><key>CFBundleName</key><str");
        QTest::newRow("cut binary") << binary(info("<key>a</key><string>b</string>")).chopped(9);
        QTest::newRow("deep xml") << xml(QByteArray("<array>").repeated(100'000));
        QTest::newRow("deep binary") << foldedArrays(5'000, 1);
        QTest::newRow("folded binary") << foldedArrays(30, 4);
    }

    void damagedListsAreAbsent()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!ApplicationFolder::parse(bytes));
    }

    void iconAndProgramStayInsideTheBundle_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("found"); // Below "Contents/Resources"; null when none is.
        QTest::newRow("with an ending") << QByteArray("Icon.png") << u"Icon.png"_s;
        QTest::newRow("without an ending") << QByteArray("Icon") << u"Icon.png"_s;
        QTest::newRow("dots in the name") << QByteArray("Icon.v2") << u"Icon.v2.svg"_s;
        QTest::newRow("a format not read here") << QByteArray("Icon.icns") << u"Icon.png"_s;
        QTest::newRow("above") << QByteArray("../../../outside.png") << QString();
        QTest::newRow("absolute") << QByteArray("/etc/hostname") << QString();
        QTest::newRow("a link that leads out") << QByteArray("escape.png") << QString();
        QTest::newRow("empty") << QByteArray() << QString();
    }

    void iconAndProgramStayInsideTheBundle()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, found);
        const FileTree tree;
        const QString outside = tree.write(u"outside.png"_s);
        const QString resources = u"X.app/Contents/Resources/"_s;
        tree.write(resources + u"Icon.png"_s);
        tree.write(resources + u"Icon.v2.svg"_s);
        tree.link(outside, resources + u"escape.png"_s);
        tree.write(u"X.app/Contents/MacOS/Icon.png"_s);
        tree.link(outside, u"X.app/Contents/MacOS/escape.png"_s);
        tree.write(u"X.app/Contents/Info.plist"_s,
                   info("<key>CFBundleIconFile</key><string>" + name
                        + "</string><key>CFBundleExecutable</key><string>" + name + "</string>"));

        const auto bundle = ApplicationFolder::read(tree.path(u"X.app"_s));
        QVERIFY(bundle);
        QCOMPARE(bundle->iconSource, found.isNull() ? QString() : tree.path(resources + found));
        QCOMPARE(bundle->executable.has_value(), name == "Icon.png");
    }

    void aFolderWithoutAReadableListIsAbsent()
    {
        const FileTree tree;
        QVERIFY(!ApplicationFolder::read(tree.makeFolder(u"Bare.app"_s)));
        tree.makeFolder(u"Odd.app/Contents/Info.plist"_s);
        QVERIFY(!ApplicationFolder::read(tree.path(u"Odd.app"_s)));
        tree.write(u"Huge.app/Contents/Info.plist"_s,
                   info("<key>a</key><string>" + QByteArray(ApplicationFolder::maxInfoSize, 'x')
                        + "</string>"));
        QVERIFY(!ApplicationFolder::read(tree.path(u"Huge.app"_s)));
    }
};

QTEST_GUILESS_MAIN(ApplicationFolderTest)
#include "ApplicationFolderTest.moc"
