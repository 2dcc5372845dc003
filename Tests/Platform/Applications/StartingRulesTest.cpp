// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/CommandLine.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>
#include <TavikLauncherPlatform/Linux/Applications/ProgramStart.h>
#include <TavikLauncherPlatform/Linux/Applications/ServiceCalls.h>
#include <TavikLauncherPlatform/Linux/Applications/TerminalEmulator.h>

#include <QDir>
#include <QTest>
#include <QThread>

#include <Support/FileTree.h>
#include <Support/Table.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class StartingRulesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fieldCodesAreFilledIn_data()
    {
        const Table<QString, QStringList> row;
        // clang-format off
        row("nothing to open", u"viewer --new %U"_s, {u"viewer"_s, u"--new"_s});
        row("icon and name", u"viewer %i -t %c"_s, {u"viewer"_s, u"--icon"_s, u"eye"_s, u"-t"_s, u"An \"Eye\""_s});
        row("place of the entry", u"viewer %k"_s, {u"viewer"_s, u"/a b/eye.desktop"_s});
        row("percent and old codes", u"viewer 50%% %d%m x%D"_s, {u"viewer"_s, u"50%"_s, u""_s, u"x"_s});
        row("quotes", u"\"/opt/a b/viewer\" \"\\$x \\`\" ''"_s, {u"/opt/a b/viewer"_s, u"$x `"_s, u""_s});
        row("nothing", u"%U"_s, {});
        row("damaged", u"viewer \"unclosed"_s, {});
        // clang-format on
    }

    void fieldCodesAreFilledIn()
    {
        const auto [command, words] = fetch<QString, QStringList>();
        const DesktopEntry entry{.path = u"/a b/eye.desktop"_s,
                                 .name = u"An \"Eye\""_s,
                                 .icon = u"eye"_s,
                                 .command = command};
        QCOMPARE(CommandLine::expanded(entry).value_or(QStringList()), words);
    }

    void targetsTakeTheirForm()
    {
        const DesktopEntry entry{.command = u"viewer %u %f"_s};
        QCOMPARE(CommandLine::expanded(entry, u"file:///a%20b"_s).value(),
                 (QStringList{u"viewer"_s, u"file:///a%20b"_s, u"/a b"_s}));
        QCOMPARE(CommandLine::expanded(entry, u"https://x/%c"_s).value().last(), u"https://x/%c"_s);
    }

    void terminalsAreToldInTheirOwnManner_data()
    {
        // What is installed, the desktop's choice, the user's choice, and what runs in the end.
        const Table<QString, QString, QString, QString> row;
        // clang-format off
        row("standard's launcher", u"xterm xdg-terminal-exec"_s, u"xterm"_s, u"xterm"_s, u"xdg-terminal-exec|top|a b"_s);
        row("desktop's setting", u"gnome-terminal xterm"_s, u"gnome-terminal"_s, u"xterm"_s, u"gnome-terminal|--|top|a b"_s);
        row("setting with words", u"/x/kitty"_s, u"/x/kitty --single"_s, {}, u"/x/kitty|--single|top|a b"_s);
        row("setting of what is gone", u"xterm"_s, u"gone"_s, u"xterm"_s, u"xterm|-e|top|a b"_s);
        row("user before alternative", u"x-terminal-emulator foot"_s, {}, u"foot"_s, u"foot|top|a b"_s);
        row("alternative before known", u"x-terminal-emulator kitty"_s, {}, {}, u"x-terminal-emulator|-e|top|a b"_s);
        row("one line", u"lxterminal"_s, {}, {}, u"lxterminal|-e|'top' 'a b'"_s);
        row("two words", u"wezterm"_s, {}, {}, u"wezterm|start|--|top|a b"_s);
        row("best known first", u"xterm konsole"_s, {}, {}, u"konsole|-e|top|a b"_s);
        row("nobody knows it", u"newterm"_s, {}, u"newterm"_s, u"newterm|-e|top|a b"_s);
        row("none", u"vim"_s, {}, {}, u""_s);
        // clang-format on
    }

    void terminalsAreToldInTheirOwnManner()
    {
        const auto [installed, desktop, user, words] = fetch<QString, QString, QString, QString>();
        const QStringList present = installed.split(u' ');
        const auto found = TerminalEmulator::around({u"top"_s, u"a b"_s},
                                                    {.installed =
                                                         [&present](const QString& program) {
                                                             return present.contains(program)
                                                                 ? program
                                                                 : QString();
                                                         },
                                                     .desktopsChoice = desktop,
                                                     .usersChoice = user});
        QCOMPARE(found.value_or(QStringList()).join(u'|'), words);
    }

    void startsLeaveNoDescriptorAndNoZombie()
    {
        const FileTree tree;
        const QString seen = tree.path(u"seen"_s);
        const ProgramStart start{
            .words = {u"sh"_s,
                      u"-c"_s,
                      u"echo $GIO_LAUNCHED_DESKTOP_FILE_PID $$ $PWD $(ls /proc/$$/fd | wc -w) >> "_s
                          + seen},
            .folder = tree.path(),
            .environment = {{"PATH", "/usr/bin:/bin"}},
            .entry = u"/apps/x.desktop"_s,
            .name = u"x"_s};
        const auto open = [] {
            return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size();
        };
        const auto before = open();
        constexpr int times = 12;
        for (int i = 0; i < times; ++i) {
            // Each in a thread of its own, as after a pause.
            const std::unique_ptr<QThread> thread(
                QThread::create([&start] { QVERIFY(!startProgram(start).error); }));
            thread->start();
            QVERIFY(thread->wait());
        }
        QCOMPARE(open(), before);
        const auto lines = [&seen] {
            QFile file(seen);
            return file.open(QIODevice::ReadOnly) ? file.readAll().split('\n') : QByteArrayList();
        };
        QTRY_COMPARE(lines().size(), times + 1);
        const QByteArrayList facts = lines().first().split(' ');
        QCOMPARE(facts.at(0), facts.at(1));
        QCOMPARE(facts.at(2), tree.path().toUtf8());
        QVERIFY2(facts.at(3).toInt() <= 4, facts.at(3).constData());
        QFile children(u"/proc/self/task/%1/children"_s.arg(QCoreApplication::applicationPid()));
        QVERIFY(!children.open(QIODevice::ReadOnly) || children.readAll().isEmpty());
    }

    void missingProgramOrFolderIsNoSilence()
    {
        const ProgramStart missing{.words = {u"no-such-program"_s},
                                   .environment = {{"PATH", "/bin"}}};
        QVERIFY(startProgram(missing).error.value().contains(u"no-such-program"_s));
        QVERIFY(startProgram({}).error);
        const ProgramStart lost{.words = {u"true"_s},
                                .folder = u"/no/such/folder"_s,
                                .environment = {{"PATH", "/bin"}}};
        QCOMPARE(startProgram(lost).error.value_or(QString()), QString());
    }

    void namesFitUnitsAndTheBus()
    {
        QCOMPARE(ServiceCalls::escapedForUnit(u".a-b/ü_c.d"_s), u"\\x2ea\\x2db-\\xc3\\xbc_c.d"_s);
        const auto path = [](const QString& id) {
            const auto message = ServiceCalls::activation(id, {});
            return message ? message->path() : QString();
        };
        QCOMPARE(path(u"org.my-app.Viewer"_s), u"/org/my_app/Viewer"_s);
        for (const QString& id : {u"viewer"_s, u"org..x"_s, u"org.2x"_s, u"a b.c"_s, u""_s}) {
            QVERIFY2(path(id).isEmpty(), qPrintable(id));
        }
    }
};

QTEST_GUILESS_MAIN(StartingRulesTest)
#include "StartingRulesTest.moc"
