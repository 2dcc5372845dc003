// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/OwnProgram.h>

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <Support/FileTree.h>
#include <Support/Table.h>
#include <glib.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class OwnProgramTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itRunsFromAnImageOnlyInsideIt()
    {
        const FileTree tree;
        const QString program = tree.write(u"mount/usr/bin/program"_s);
        const QString mountPoint = tree.path(u"mount"_s);
        const QString file = tree.path(u"my.AppImage"_s);
        const auto running = [&](const QString& theImage, const QString& theMount) {
            return OwnProgram::image(
                {.image = theImage, .mountPoint = theMount, .program = program});
        };
        QCOMPARE(running(file, mountPoint + u'/'), file);
        // Another image has started this program, or nobody has.
        for (const QString& other : {tree.makeFolder(u"moun"_s), u"/none"_s, QString()}) {
            QCOMPARE(running(file, other), QString());
        }
        QCOMPARE(running(QString(), mountPoint), QString());
        QCOMPARE(running(u"my.AppImage"_s, mountPoint), QString());
    }

    void theCommandIsTheNameWhereThatStartsIt_data()
    {
        // The program, the image around it, the search path, and what starts it, where ROOT is the
        // scratch folder.
        const Table<QString, QString, QString, QString> row;
        const QString name = u"tavik-launcher"_s;
        const QString installed = u"ROOT/bin/tavik-launcher"_s;
        row("installed", installed, {}, u"/none:ROOT/bin"_s, name);
        row("by a link", installed, {}, u"ROOT/link:/none"_s, name);
        row("not to be found", installed, {}, u"/none"_s, installed);
        row("another comes first", installed, {}, u"ROOT/other:ROOT/bin"_s, installed);
        row("one that nobody may run", installed, {}, u"ROOT/text:ROOT/bin"_s, name);
        row("where one happens to be", installed, {}, u":.:bin:/none"_s, installed);
        const QString inside = u"ROOT/mount/tavik-launcher"_s;
        const QString image = u"ROOT/T-2.0_x86.AppImage"_s;
        row("image", inside, image, u"ROOT/mount"_s, image);
        row("image by a link", inside, image, u"ROOT/imageLink:ROOT/mount"_s, name);
        row("image elsewhere", installed, image, u"/none"_s, installed);
        row("a blank", u"ROOT/a b/tavik-launcher"_s, {}, {}, u"'ROOT/a b/tavik-launcher'"_s);
        row("two lines", u"ROOT/a\nb/tavik-launcher"_s, {}, {}, name);
    }
    void theCommandIsTheNameWhereThatStartsIt()
    {
        auto [program, image, searchPath, command] = fetch<QString, QString, QString, QString>();
        const FileTree tree;
        for (const char* folder : {"bin", "other", "text", "mount"}) {
            const QString file
                = tree.write(QLatin1String(folder) + u"/tavik-launcher"_s, "#!/bin/sh\n");
            QFile::setPermissions(file, QFile::ReadOwner);
            if (qstrcmp(folder, "text") != 0) {
                QFile::setPermissions(file, QFile::ReadOwner | QFile::ExeOwner);
            }
        }
        QFile::setPermissions(tree.write(u"T-2.0_x86.AppImage"_s),
                              QFile::ReadOwner | QFile::ExeOwner);
        tree.link(u"../bin/tavik-launcher"_s, u"link/tavik-launcher"_s);
        tree.link(u"../T-2.0_x86.AppImage"_s, u"imageLink/tavik-launcher"_s);
        for (QString* path : {&program, &image, &searchPath, &command}) {
            path->replace(u"ROOT"_s, tree.path());
        }
        const QString before = QDir::currentPath();
        QDir::setCurrent(tree.path(u"bin"_s));
        const QString told = OwnProgram::command({.image = image,
                                                  .mountPoint = tree.path(u"mount"_s),
                                                  .program = program,
                                                  .searchPath = searchPath});
        QDir::setCurrent(before);
        QCOMPARE(told, command);
    }

    void aWordIsReadAsItWas_data()
    {
        const Table<QString> row;
        row("blanks", u"/a  b/ c"_s);
        row("quotes", u"/it's '/\"q\"'"_s);
        row("variables", u"/$HOME/$$x/${y}$"_s);
        row("substitutions", u"/`id`/$(id)"_s);
        row("backslashes", u"/a\\nb\\"_s);
        row("other letters", u"/日本é"_s);
        row("nothing", {});
        for (const char character : QByteArrayView(";,&|<>()[]{}!?*~#%=")) {
            row(QByteArray(1, character).constData(), u"/a%1b"_s.arg(QLatin1Char(character)));
        }
    }
    void aWordIsReadAsItWas()
    {
        const auto [text] = fetch<QString>();
        const QString word = OwnProgram::shellWord(text);
        QProcess shell;
        shell.start(u"sh"_s, {u"-c"_s, u"printf '%s|' "_s + word + u" end"_s});
        QVERIFY(shell.waitForFinished());
        QCOMPARE(QString::fromUtf8(shell.readAllStandardOutput()), text + u"|end|"_s);
        // The shortcuts of GNOME and others are read by this.
        gint count = 0;
        g_auto(GStrv) words = nullptr;
        QVERIFY(g_shell_parse_argv(qPrintable(word), &count, &words, nullptr));
        QCOMPARE(count, 1);
        QCOMPARE(QString::fromUtf8(words[0]), text);
        // sway's commands and backslashes, and the variables of sway and Hyprland.
        QVERIFY(word.startsWith(u'\''));
        QVERIFY(!word.contains(QRegularExpression(uR"(\$[^'])"_s)));
        QCOMPARE(word.count(u'\\'), text.count(u'\\'));
    }
};

QTEST_APPLESS_MAIN(OwnProgramTest)
#include "OwnProgramTest.moc"
