// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/AutostartLoginItem.h>

#include <QRegularExpression>
#include <QTest>

#include <Support/FileTree.h>
#include <Support/Table.h>
#include <Support/Warnings.h>
#include <glib.h>
#include <memory>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

/// What a desktop would start, read with GLib as desktops do; empty when it could not.
QString programIn(const QString& entryPath)
{
    g_autoptr(GKeyFile) entry = g_key_file_new();
    if (!g_key_file_load_from_file(entry, qPrintable(entryPath), G_KEY_FILE_NONE, nullptr)) {
        return {};
    }
    g_autofree char* line = g_key_file_get_string(entry, "Desktop Entry", "Exec", nullptr);
    gint count = 0;
    g_auto(GStrv) arguments = nullptr;
    g_shell_parse_argv(line, &count, &arguments, nullptr);
    const bool isStartAtLogin = count == 2 && qstrcmp(arguments[1], "--background") == 0;
    return isStartAtLogin ? QString::fromUtf8(arguments[0]).replace(u"%%"_s, u"%"_s) : QString();
}

} // namespace

class AutostartLoginItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        m_tree = std::make_unique<Test::FileTree>();
        makeProgram(u"100% $HOME `id` \"q\" 'a' \\n é"_s);
    }

    void statusIsReadFromTheEntry_data()
    {
        using enum LoginItem::Status;
        const Test::Table<QByteArray, LoginItem::Status> row;
        const QByteArray head = "[Desktop Entry]\nType=Application\nName=T\nExec=sh -c true\n";
        row("present", head, enabled);
        row("hidden", head + "Hidden=true\n", notRegistered);
        row("switched off", head + "X-GNOME-Autostart-enabled=false\n", requiresApproval);
        row("program gone", "[Desktop Entry]\nExec=/nowhere/t --background\n", notRegistered);
        row("without a program", "[Desktop Entry]\nExec=\n", notRegistered);
        row("empty", {}, notRegistered);
        row("junk", QByteArray("\0\xff[[[\n=\n", 9), notRegistered);
    }

    void statusIsReadFromTheEntry()
    {
        const auto [entry, status] = Test::fetch<QByteArray, LoginItem::Status>();
        QCOMPARE(item().status(), LoginItem::Status::notRegistered);
        m_tree->write(m_entry, entry);
        QCOMPARE(item().status(), status);
        // Whatever was there, registering makes it so.
        QVERIFY(item().registerItem());
        QCOMPARE(item().status(), LoginItem::Status::enabled);
        QCOMPARE(programIn(m_tree->path(m_entry)), m_program);
    }

    void entryKeepsWhatTheUserAdded()
    {
        m_tree->write(
            m_entry,
            "# mine\n[Desktop Entry]\nType=Application\nName=My Wheel\nName[de]=Mein Rad\n"
            "Exec=old\nHidden=true\nX-KDE-autostart-after=panel\n");
        QVERIFY(item().registerItem());
        const QByteArray entry = m_tree->contents(m_tree->path(m_entry));
        for (const char* kept :
             {"# mine", "Name=My Wheel", "Name[de]=Mein Rad", "X-KDE-autostart-after=panel"}) {
            QVERIFY2(entry.contains(kept), kept);
        }
        QVERIFY(!entry.contains("Hidden"));
    }

    void onlyAnEntryThatIsOnFollowsAProgramThatMoved()
    {
        const QString gone = m_program;
        QVERIFY(item().registerItem());
        QVERIFY(QFile::remove(gone));
        makeProgram(u"moved here"_s);
        QCOMPARE(item().status(), LoginItem::Status::notRegistered);
        item().mend();
        QCOMPARE(item().status(), LoginItem::Status::enabled);
        QCOMPARE(programIn(m_tree->path(m_entry)), m_program);
        for (const QByteArray& entry :
             {QByteArray("[Desktop Entry]\nExec=/nowhere/t\nX-GNOME-Autostart-enabled=false\n"),
              QByteArray("[Desktop Entry]\nExec=/nowhere/t\nHidden=true\n"),
              QByteArray("[Desktop Entry]\nExec=sh\n")}) {
            m_tree->write(m_entry, entry);
            item().mend();
            QCOMPARE(m_tree->contents(m_tree->path(m_entry)), entry);
        }
        QVERIFY(QFile::remove(m_tree->path(m_entry)));
        item().mend();
        QVERIFY(!QFile::exists(m_tree->path(m_entry)));
    }

    void missingProgramIsNotFound()
    {
        QVERIFY(item().registerItem());
        QVERIFY(QFile::setPermissions(m_program, QFile::ReadOwner));
        QCOMPARE(item().status(), LoginItem::Status::notFound);
        QVERIFY(QFile::remove(m_program));
        QCOMPARE(item().status(), LoginItem::Status::notFound);
        QVERIFY(!item().registerItem());
        QVERIFY(item().unregisterItem());
        QVERIFY(!QFile::exists(m_tree->path(m_entry)));
    }

    void sessionsThatReadNoFolderHaveALine()
    {
        const auto line = [](const QString& desktop, bool hasSessionManager = false) {
            return AutostartLoginItem::lineFor({.desktop = desktop,
                                                .hasSessionManager = hasSessionManager,
                                                .command = u"'/a#b c'"_s});
        };
        QCOMPARE(line(u"sway"_s), u"exec '/a#b c' --background"_s);
        QCOMPARE(line(u"i3"_s), u"exec '/a#b c' --background"_s);
        QCOMPARE(line(u"Hyprland"_s), u"exec-once = '/a##b c' --background"_s);
        QCOMPARE(line(QString()), u"'/a#b c' --background &"_s);
        QCOMPARE(line(u"ubuntu:gnome"_s), QString());
        QCOMPARE(line(u"sway"_s, true), QString());
    }

    void failuresAreToldAndLogged()
    {
        m_tree->makeFolder(m_entry + u"/not empty"_s);
        QCOMPARE(item().status(), LoginItem::Status::notRegistered);
        Test::expectWarning(u"failed to set launch at login: "_s);
        QVERIFY(!item().registerItem());
        Test::expectWarning(u"failed to end launch at login: "_s);
        QVERIFY(!item().unregisterItem());
    }

private:
    [[nodiscard]] AutostartLoginItem item() const
    {
        return AutostartLoginItem({.entry = m_tree->path(m_entry), .program = m_program});
    }
    void makeProgram(const QString& name)
    {
        m_program = m_tree->write(name, "#!/bin/sh\n");
        QVERIFY(QFile::setPermissions(m_program, QFile::ReadOwner | QFile::ExeOwner));
    }

    std::unique_ptr<Test::FileTree> m_tree;
    const QString m_entry = u"autostart/org.tavik.Launcher.desktop"_s;
    QString m_program;
};

QTEST_APPLESS_MAIN(AutostartLoginItemTest)

#include "AutostartLoginItemTest.moc"
