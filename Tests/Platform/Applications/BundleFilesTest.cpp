// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/Linux/Applications/ApplicationFolder.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>

#include <QTest>

#include <Support/BinaryPropertyList.h>
#include <Support/FileTree.h>
#include <Support/Table.h>

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

/// A whole entry, but for what `lines` say otherwise.
QByteArray entry(const QByteArray& lines)
{
    QByteArray text = "[Desktop Entry]\n";
    for (const QByteArray line : {"Type=Application", "Name=Viewer", "Exec=sh"}) {
        const QByteArray key = '\n' + line.first(line.indexOf('=') + 1);
        text += ('\n' + lines).contains(key) ? QByteArray() : line + '\n';
    }
    return text + lines + '\n';
}

Bundle bundleOf(const QByteArray& content, const QString& id = {})
{
    return DesktopEntryFile::bundle(DesktopEntryFile::parse(content, {}, id));
}

} // namespace

class BundleFilesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsAreReadFromBothFormatsAndNothingElse()
    {
        const QByteArray list
            = info("<key>CFBundleDisplayName</key><string></string>"
                   "<key>CFBundleName</key><string>T\xC3\xA9st &amp; more</string>"
                   "<key>CFBundleIdentifier</key><string>org.example.test</string>");
        for (const QByteArray& bytes : {list, binaryPropertyList(list)}) {
            const auto parsed = ApplicationFolder::parse(bytes);
            QVERIFY(parsed);
            QCOMPARE(parsed->displayName, u""_s);
            QCOMPARE(parsed->name, u"T\u00e9st & more"_s);
            QCOMPARE(parsed->identifier, u"org.example.test"_s);
            QVERIFY(!parsed->iconFile);
        }
        const auto odd = ApplicationFolder::parse(info("<key>CFBundleName</key><true/>"));
        QVERIFY(odd && !odd->name);
    }

    void iconAndProgramStayInsideTheBundle_data()
    {
        // What the list names, and what is found below "Contents/Resources"; null when nothing is.
        const Table<QByteArray, QString> row;
        row("with an ending", "Icon.png", u"Icon.png"_s);
        row("without an ending", "Icon", u"Icon.png"_s);
        row("dots in the name", "Icon.v2", u"Icon.v2.svg"_s);
        row("a format not read here", "Icon.icns", u"Icon.png"_s);
        row("above", "../../../outside.png", {});
        row("absolute", "/etc/hostname", {});
        row("a link that leads out", "escape.png", {});
        row("empty", {}, {});
    }

    void iconAndProgramStayInsideTheBundle()
    {
        const auto [name, found] = fetch<QByteArray, QString>();
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

    // GIO reads both once per process.
    void initTestCase()
    {
        qputenv("XDG_CURRENT_DESKTOP", "Tiled:Base");
        qputenv("LANGUAGE", "de");
    }
    void anEntryIsShownOrHidden_data()
    {
        const Table<QByteArray, bool> row;
        row("plain", entry(""), false);
        row("NoDisplay", entry("NoDisplay=true"), true);
        row("Hidden", entry("Hidden=true"), true);
        row("TryExec fails", entry("TryExec=/no/such/program"), true);
        row("for this desktop", entry("OnlyShowIn=Other;Base;"), false);
        row("for another desktop", entry("OnlyShowIn=Other;"), true);
        row("no name", "[Desktop Entry]\nType=Application\nExec=sh\n", true);
        row("blank name", entry("Name= "), true);
        row("empty command", entry("Exec="), true);
        row("no command", "[Desktop Entry]\nType=Application\nName=X\n", true);
        row("no command but D-Bus",
            "[Desktop Entry]\nType=Application\nName=X\nDBusActivatable=true\n",
            false);
        row("command not installed", entry("Exec=/no/such/program"), true);
    }

    void anEntryIsShownOrHidden()
    {
        const auto [content, isHidden] = fetch<QByteArray, bool>();
        const Bundle bundle = bundleOf(content, u"org.example.viewer"_s);
        QCOMPARE(bundle.isHidden, isHidden);
        QCOMPARE(bundle.kind, Bundle::Kind::desktopEntry);
        QCOMPARE(bundle.identifier, u"org.example.viewer"_s);
        QVERIFY(bundle.isHidden || bundle.name);
    }

    void nameAndIconAreTakenWhereTheyServe_data()
    {
        // The lines of an entry; its name and its icon.
        const Table<QByteArray, QString, QString> row;
        const QString name = u"Viewer"_s;
        row("localized", "Name=Viewer\nName[de]=Betrachter\nName[fr]=Vue", u"Betrachter"_s, {});
        row("breaks", "Name=Two\\nlines\\tof it\\n", u"Two lines of it"_s, {});
        row("endless", "Name=" + QByteArray(100'000, 'x'), QString(512, u'x'), {});
        row("icon", "Icon=org.example.Viewer", name, u"org.example.Viewer"_s);
        row("icon with an ending", "Icon=viewer.png", name, u"viewer"_s);
        row("icon's path", "Icon=/opt/viewer/icon.png", name, u"/opt/viewer/icon.png"_s);
        row("icon's relative path", "Icon=../../etc/icon", name, {});
    }

    void nameAndIconAreTakenWhereTheyServe()
    {
        const auto [lines, name, icon] = fetch<QByteArray, QString, QString>();
        const DesktopEntry found = DesktopEntryFile::parse(entry(lines), {}, {});
        QCOMPARE(found.name, name);
        QCOMPARE(found.icon.toString(), icon);
    }
};

QTEST_GUILESS_MAIN(BundleFilesTest)
#include "BundleFilesTest.moc"
