// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Files/DesktopEntryFile.h>

#include <QTest>

#include <Support/FileTree.h>

#include <sys/stat.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

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

} // namespace

class DesktopEntryFileTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // GIO reads both once per process.
    void initTestCase()
    {
        qputenv("XDG_CURRENT_DESKTOP", "Tiled:Base");
        qputenv("LANGUAGE", "de");
    }
    void anEntryIsShownOrHidden_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("isHidden");
        const auto row = [](const char* name, const QByteArray& content, bool isHidden) {
            QTest::newRow(name) << content << isHidden;
        };
        row("plain", entry(""), false);
        row("NoDisplay", entry("NoDisplay=true"), true);
        row("Hidden", entry("Hidden=true"), true);
        row("TryExec fails", entry("TryExec=/no/such/program"), true);
        row("TryExec succeeds", entry("TryExec=sh"), false);
        row("for this desktop", entry("OnlyShowIn=Other;Base;"), false);
        row("for another desktop", entry("OnlyShowIn=Other;"), true);
        row("not for this desktop", entry("NotShowIn=Tiled;"), true);
        row("not for another desktop", entry("NotShowIn=Other;"), false);
        row("a link", entry("Type=Link\nURL=https://example.org"), true);
        row("no type", "[Desktop Entry]\nName=X\nExec=sh\n", true);
        row("no name", "[Desktop Entry]\nType=Application\nExec=sh\n", true);
        row("blank name", entry("Name= "), true);
        row("empty command", entry("Exec="), true);
        row("no command", "[Desktop Entry]\nType=Application\nName=X\n", true);
        row("no command but D-Bus",
            "[Desktop Entry]\nType=Application\nName=X\nDBusActivatable=true\n",
            false);
        row("command not installed", entry("Exec=/no/such/program"), true);
        row("command that does not parse", entry("Exec=\"sh"), true);
        row("another first group", "[Other]\n" + entry(""), true);
    }

    void anEntryIsShownOrHidden()
    {
        QFETCH(QByteArray, content);
        const Bundle bundle = DesktopEntryFile::parse(content, u"org.example.viewer"_s);
        QTEST(bundle.isHidden, "isHidden");
        QCOMPARE(bundle.kind, Bundle::Kind::desktopEntry);
        QCOMPARE(bundle.identifier, u"org.example.viewer"_s);
        QVERIFY(bundle.isHidden || bundle.name);
    }

    void theNameIsTheUsersLanguagesAndFitsOneLine_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QString>("name");
        QTest::newRow("localized")
            << QByteArray("Name=Viewer\nName[de]=Betrachter\nName[fr]=Vue") << u"Betrachter"_s;
        QTest::newRow("escaped breaks")
            << QByteArray("Name=Two\\nlines\\tof it\\n") << u"Two lines of it"_s;
        QTest::newRow("endless") << "Name=" + QByteArray(100'000, 'x') << QString(512, u'x');
    }

    void theNameIsTheUsersLanguagesAndFitsOneLine()
    {
        QFETCH(QByteArray, lines);
        QTEST(DesktopEntryFile::parse(entry(lines), {}).name.value_or(QString()), "name");
    }

    void theIconIsANameOrAPath_data()
    {
        QTest::addColumn<QByteArray>("icon");
        QTest::addColumn<QString>("source");
        QTest::newRow("name") << QByteArray("org.example.Viewer") << u"org.example.Viewer"_s;
        QTest::newRow("name with an ending") << QByteArray("viewer.png") << u"viewer"_s;
        QTest::newRow("path") << QByteArray("/opt/viewer/icon.png") << u"/opt/viewer/icon.png"_s;
        QTest::newRow("relative path") << QByteArray("../../etc/icon") << QString();
        QTest::newRow("control character") << QByteArray("a\\nb") << QString();
        QTest::newRow("endless") << QByteArray(5000, 'i') << QString();
    }

    void theIconIsANameOrAPath()
    {
        QFETCH(QByteArray, icon);
        QTEST(DesktopEntryFile::parse(entry("Icon=" + icon), {}).iconSource, "source");
    }

    void whatIsNoEntryIsHiddenButKeepsItsIdentifier()
    {
        const FileTree tree;
        const QString good = tree.write(u"good.desktop"_s, entry(""));
        const QString huge = tree.write(
            u"huge.desktop"_s, entry("X-Padding=" + QByteArray(DesktopEntryFile::maxSize, 'x')));
        const QString pipe = tree.path(u"pipe.desktop"_s);
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        const QString nothing = tree.link(u"/dev/null"_s, u"nothing.desktop"_s);

        QVERIFY(!DesktopEntryFile::read(good, u"x"_s).isHidden);
        for (const QString& path : {huge, pipe, nothing, tree.path(u"missing.desktop"_s)}) {
            const Bundle bundle = DesktopEntryFile::read(path, u"x"_s);
            QVERIFY2(bundle.isHidden, qPrintable(path));
            QCOMPARE(bundle.identifier, u"x"_s);
        }
    }
};

QTEST_GUILESS_MAIN(DesktopEntryFileTest)
#include "DesktopEntryFileTest.moc"
