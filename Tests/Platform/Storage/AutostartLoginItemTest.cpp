// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Storage/AutostartLoginItem.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <glib.h>
#include <memory>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& contents)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), contents.size());
}

/// What a desktop would start, read with GLib as desktops do; empty when it could not.
QString programIn(const QString& entryPath)
{
    const std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)> entry(g_key_file_new(),
                                                                       g_key_file_unref);
    if (!g_key_file_load_from_file(entry.get(), qPrintable(entryPath), G_KEY_FILE_NONE, nullptr)) {
        return {};
    }
    const std::unique_ptr<char, decltype(&g_free)> line(
        g_key_file_get_string(entry.get(), "Desktop Entry", "Exec", nullptr), g_free);
    gint count = 0;
    gchar** arguments = nullptr;
    g_shell_parse_argv(line.get(), &count, &arguments, nullptr);
    const std::unique_ptr<gchar*, decltype(&g_strfreev)> owned(arguments, g_strfreev);
    return count == 1 ? QString::fromUtf8(arguments[0]).replace(u"%%"_s, u"%"_s) : QString();
}

} // namespace

class AutostartLoginItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void statusIsReadFromTheEntry_data();
    void statusIsReadFromTheEntry();
    void entryStartsTheProgram_data();
    void entryStartsTheProgram();
    void entryKeepsWhatTheUserAdded();
    void missingProgramIsNotFound();
    void unregisteringRemovesTheEntryOnly();
    void failuresAreToldAndLogged();

private:
    [[nodiscard]] AutostartLoginItem item() const
    {
        return AutostartLoginItem({.entry = m_entry, .program = m_program});
    }
    void makeProgram(const QString& name)
    {
        m_program = m_folder->filePath(name);
        writeFile(m_program, "#!/bin/sh\n");
        QVERIFY(QFile::setPermissions(m_program, QFile::ReadOwner | QFile::ExeOwner));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_entry;
    QString m_program;
};

void AutostartLoginItemTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_folder = std::make_unique<QTemporaryDir>();
    m_entry = m_folder->filePath(u"autostart/org.tavik.Launcher.desktop"_s);
    makeProgram(u"tavik-launcher"_s);
}

void AutostartLoginItemTest::statusIsReadFromTheEntry_data()
{
    using enum LoginItem::Status;
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<LoginItem::Status>("status");
    const QByteArray head = "[Desktop Entry]\nType=Application\nName=T\nExec=t\n";
    QTest::newRow("present") << head << enabled;
    QTest::newRow("hidden") << head + "Hidden=true\n" << notRegistered;
    QTest::newRow("not hidden") << head + "Hidden=false\n" << enabled;
    QTest::newRow("switched off") << head + "X-GNOME-Autostart-enabled=false\n" << requiresApproval;
    QTest::newRow("switched on") << head + "X-GNOME-Autostart-enabled=true\n" << enabled;
    QTest::newRow("hidden in another group") << head + "[Other]\nHidden=true\n" << enabled;
    QTest::newRow("empty") << QByteArray() << notRegistered;
    QTest::newRow("junk") << QByteArray("\0\xff[[[\n=\n", 9) << notRegistered;
    QTest::newRow("another file") << QByteArray("[Other]\nName=T\n") << notRegistered;
    QTest::newRow("outlandish") << head + QByteArray(1 << 20, '#') << notRegistered;
}

void AutostartLoginItemTest::statusIsReadFromTheEntry()
{
    QFETCH(const QByteArray, entry);
    QFETCH(const LoginItem::Status, status);
    QCOMPARE(item().status(), LoginItem::Status::notRegistered);
    writeFile(m_entry, entry);
    QCOMPARE(item().status(), status);
    // Whatever was there, registering makes it so.
    QVERIFY(item().registerItem());
    QCOMPARE(item().status(), LoginItem::Status::enabled);
    QCOMPARE(programIn(m_entry), m_program);
}

void AutostartLoginItemTest::entryStartsTheProgram_data()
{
    QTest::addColumn<QString>("name");
    for (const auto& name :
         {u"tavik-launcher"_s, u"with space"_s, u"100% $HOME `id` \"q\" 'a' \\n é"_s}) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void AutostartLoginItemTest::entryStartsTheProgram()
{
    QFETCH(const QString, name);
    makeProgram(name);
    QVERIFY(item().registerItem());
    QCOMPARE(programIn(m_entry), m_program);
    QCOMPARE(item().status(), LoginItem::Status::enabled);
}

void AutostartLoginItemTest::entryKeepsWhatTheUserAdded()
{
    writeFile(m_entry,
              "# mine\n[Desktop Entry]\nType=Application\nName=My Wheel\nName[de]=Mein Rad\n"
              "Exec=old\nHidden=true\nX-KDE-autostart-after=panel\n");
    QVERIFY(item().registerItem());
    const QByteArray entry = contentsOf(m_entry);
    for (const char* kept :
         {"# mine", "Name=My Wheel", "Name[de]=Mein Rad", "X-KDE-autostart-after=panel"}) {
        QVERIFY2(entry.contains(kept), kept);
    }
    QVERIFY(!entry.contains("Hidden"));
}

void AutostartLoginItemTest::missingProgramIsNotFound()
{
    QVERIFY(item().registerItem());
    QVERIFY(QFile::setPermissions(m_program, QFile::ReadOwner));
    QCOMPARE(item().status(), LoginItem::Status::notFound);
    QVERIFY(QFile::remove(m_program));
    QCOMPARE(item().status(), LoginItem::Status::notFound);
    QVERIFY(!item().registerItem());
    QVERIFY(item().unregisterItem());
    QVERIFY(!QFile::exists(m_entry));
}

void AutostartLoginItemTest::unregisteringRemovesTheEntryOnly()
{
    const QString installed = m_folder->filePath(u"installed.desktop"_s);
    writeFile(installed, "[Desktop Entry]\nType=Application\nName=T\nExec=t\n");
    QVERIFY(QDir().mkpath(QFileInfo(m_entry).path()));
    QVERIFY(QFile::link(installed, m_entry));
    QCOMPARE(item().status(), LoginItem::Status::enabled);
    QVERIFY(item().unregisterItem());
    QVERIFY(QFile::exists(installed));
    QVERIFY(!QFileInfo(m_entry).isSymLink());
    QVERIFY(item().unregisterItem());
}

void AutostartLoginItemTest::failuresAreToldAndLogged()
{
    QVERIFY(QDir().mkpath(m_entry + u"/not empty"_s));
    QCOMPARE(item().status(), LoginItem::Status::notRegistered);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"failed to set launch at login: "_s));
    QVERIFY(!item().registerItem());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"failed to end launch at login: "_s));
    QVERIFY(!item().unregisterItem());
}

QTEST_APPLESS_MAIN(AutostartLoginItemTest)

#include "AutostartLoginItemTest.moc"
