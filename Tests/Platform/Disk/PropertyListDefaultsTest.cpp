// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/PropertyListBounds.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyListDefaults.h>

#include <QRegularExpression>
#include <QTest>

#include <Support/FileTree.h>
#include <Support/FullDisk.h>
#include <Support/StepWorkQueue.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>
#include <Support/Warnings.h>
#include <memory>

#include <sys/stat.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class PropertyListDefaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        m_tree = std::make_unique<Test::FileTree>();
        m_path = m_tree->path(u"Defaults.plist"_s);
    }

    void assignmentsAreOnDiskOnceTheTurnEnds()
    {
        m_path = m_tree->path(u"deep/er/Defaults.plist"_s);
        const auto defaults = open();
        QVERIFY(!defaults->object(u"a"_s).isValid());
        endTurn();
        QVERIFY(!QFile::exists(m_tree->path(u"deep"_s))); // Reading writes nothing.
        defaults->setObject(u"a"_s, 0.5);
        defaults->setObject(u"b"_s, 7LL);
        QCOMPARE(defaults->doubleValue(u"a"_s), 0.5);
        QVERIFY(!QFile::exists(m_path));
        endTurn();
        QCOMPARE(open()->doubleValue(u"a"_s), 0.5);
        QCOMPARE(open()->integerValue(u"b"_s), 7);
        QCOMPARE(FileTree::names(m_tree->path(u"deep/er"_s)), QStringList{u"Defaults.plist"_s});

        defaults->setObject(u"a"_s, {});
        endTurn();
        QVERIFY(!open()->object(u"a"_s).isValid());
    }

    void assignmentsAreOnDiskAtTheLatestAtTheEnd()
    {
        auto defaults = open();
        defaults->setObject(u"a"_s, u"b"_s);
        defaults.reset();
        QCOMPARE(open()->stringValue(u"a"_s), u"b"_s);
        // What was posted finds its owner gone.
        QVERIFY(QFile::remove(m_path));
        endTurn();
        QVERIFY(!QFile::exists(m_path));
    }

    void whatChangesOftenIsWrittenOnceASecondLater()
    {
        const auto defaults = open();
        for (qlonglong i = 0; i < 10; ++i) {
            defaults->setObjectSoon(u"a"_s, i);
            m_queue.advance(0.5);
            QCOMPARE(m_work.waiting(), 0U);
        }
        QCOMPARE(defaults->integerValue(u"a"_s), 9);
        m_queue.advance(0.6);
        QCOMPARE(m_work.waiting(), 1U);
        m_work.runAll();
        QCOMPARE(open()->integerValue(u"a"_s), 9);
        for (qlonglong i = 0; i < 21; ++i) {
            defaults->setObjectSoon(u"a"_s, i);
            m_queue.advance(0.5);
        }
        QCOMPARE(m_work.waiting(), 1U);
        m_work.runAll();
    }

    void changesDuringAWriteAreWrittenAfterIt()
    {
        auto defaults = open();
        defaults->setObject(u"a"_s, 1LL);
        m_queue.drain();
        const auto firstDone = m_work.startAt(0);
        defaults->setObject(u"a"_s, 2LL);
        m_queue.drain();
        QCOMPARE(m_work.waiting(), 0U);
        firstDone();
        QCOMPARE(m_work.waiting(), 1U);

        // The end of the program does not wait for a write that never came about.
        defaults->setObject(u"a"_s, 3LL);
        defaults.reset();
        m_work.finish();
        QCOMPARE(open()->integerValue(u"a"_s), 3);
    }

    void fileIsForTheUserAlone()
    {
        m_tree->write(u"Defaults.plist"_s, "<plist><dict/></plist>");
        QVERIFY(QFile::setPermissions(m_path, QFile::Permissions::fromInt(0x6644)));
        open()->setObject(u"a"_s, true);
        QCOMPARE(QFile::permissions(m_path).toInt() & 0x7077, 0x6000);
    }

    void damagedFilesAreSetAside()
    {
        const QByteArrayList damaged{{},
                                     QByteArray(PropertyListBounds::mostBytes + 100, '<'),
                                     "<plist><dict><key>a</key><true/>"};
        for (const QByteArray& contents : damaged) {
            m_tree->write(u"Defaults.plist"_s, contents);
            expectWarning(
                u"^TavikLauncher: settings could not be read .*Defaults\\.plist is now .*"_s);
            const auto defaults = open();
            QVERIFY(!defaults->object(u"a"_s).isValid());
            defaults->setObject(u"b"_s, true);
        }
        QCOMPARE(open()->boolValue(u"b"_s), true);
        QByteArrayList kept;
        for (const QString& file : FileTree::names(m_tree->path())) {
            const QRegularExpression name(u"^Defaults\\.plist\\.damaged-\\d{8}T\\d{6}Z(-\\d)?$"_s);
            if (name.match(file).hasMatch()) {
                kept.append(FileTree::contents(m_tree->path(file)));
            }
        }
        std::ranges::sort(kept);
        QVERIFY(kept == QByteArrayList({damaged.at(0), damaged.at(1), damaged.at(2)}));
        QCOMPARE(FileTree::names(m_tree->path()).size(), damaged.size() + 1);
    }

    void linksAreKept_data()
    {
        const Table<QByteArray, int> row; // What they lead to, and how many files that gives.
        row("to a file", "<plist><dict><key>old</key><true/></dict></plist>", 1);
        row("to where a file will be", {}, 1);
        row("to a damaged file", "junk", 2);
    }

    void linksAreKept()
    {
        const auto [contents, files] = fetch<QByteArray, int>();
        const QString target = m_tree->path(u"dotfiles/settings.plist"_s);
        m_tree->link(m_tree->link(u"dotfiles/settings.plist"_s, u"between"_s), u"Defaults.plist"_s);
        m_tree->makeFolder(u"dotfiles"_s);
        if (!contents.isEmpty()) {
            m_tree->write(u"dotfiles/settings.plist"_s, contents);
        }
        if (files == 2) {
            expectWarning(u"settings\\.plist\\.damaged-"_s);
        }
        const auto defaults = open();
        QCOMPARE(defaults->boolValue(u"old"_s).has_value(), contents.contains("old"));
        defaults->setObject(u"a"_s, 1LL);
        endTurn();
        for (const QString& path : {m_path, m_tree->path(u"between"_s), target}) {
            QCOMPARE(QFileInfo(path).isSymLink(), path != target);
        }
        QCOMPARE(FileTree::names(m_tree->path(u"dotfiles"_s)).size(), files);
        QCOMPARE(PropertyListDefaults(target, m_queue, m_work).integerValue(u"a"_s), 1);
    }

    void failedWriteKeepsTheOldFileAndIsTriedAgain()
    {
        const auto defaults = open();
        defaults->setObject(u"a"_s, u"old"_s);
        endTurn();
        const QByteArray before = FileTree::contents(m_path);
        {
            const FullDisk full(static_cast<rlim_t>(before.size()));
            expectWarning(u"^TavikLauncher: failed to save settings: "_s);
            // One line in the log, however often it fails.
            for (int attempt = 0; attempt < 3; ++attempt) {
                defaults->setObject(u"a"_s, QString(5000, u'x'));
                endTurn();
            }
        }
        QCOMPARE(FileTree::contents(m_path), before);
        QCOMPARE(FileTree::names(m_tree->path()), QStringList{u"Defaults.plist"_s});
        QCOMPARE(defaults->stringValue(u"a"_s)->size(), 5000);

        defaults->setObject(u"b"_s, 1LL);
        endTurn();
        QCOMPARE(open()->stringValue(u"a"_s)->size(), 5000);
        QCOMPARE(open()->integerValue(u"b"_s), 1);
    }

    void whatCouldNotBeReadAgainIsNotWritten()
    {
        open()->setObject(u"a"_s, u"old"_s);
        expectWarning(u"failed to save settings: .*too many"_s);
        open()->setObject(u"b"_s, QString(PropertyListBounds::mostBytes, u'x'));
        QCOMPARE(open()->stringValue(u"a"_s), u"old"_s);
    }

    void whatIsNoFileIsNeitherReadNorReplaced()
    {
        const QString pipe = m_tree->path(u"pipe"_s);
        QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
        for (const QString& path :
             {m_tree->makeFolder(u"folder"_s), pipe, m_tree->link(pipe, u"link"_s)}) {
            m_path = path;
            const QStringList before = FileTree::names(m_tree->path());
            expectWarning(u"is not a regular file, settings start"_s);
            expectWarning(u"failed to save settings: .*not a regular"_s);
            open()->setObject(u"a"_s, 1LL);
            QCOMPARE(FileTree::names(m_tree->path()), before);
            QVERIFY(!QFileInfo(m_path).isFile());
        }
    }

    void aFileThatCannotBeReadIsNotCalledDamaged()
    {
        // A regular file whose first byte nobody can read, not even an administrator.
        m_tree->link(u"/proc/self/mem"_s, u"Defaults.plist"_s);
        expectWarning(u"could not be opened, settings start .*: .+"_s);
        expectWarning(u"failed to save settings: .*left as it is"_s);
        const auto defaults = open();
        defaults->setObject(u"a"_s, 1LL);
        endTurn();
        QVERIFY(QFileInfo(m_path).isSymLink());
        QVERIFY(QFile::remove(m_path));
        defaults->setObject(u"b"_s, 1LL);
        endTurn();
        QCOMPARE(open()->integerValue(u"a"_s), 1);
    }

private:
    [[nodiscard]] std::unique_ptr<PropertyListDefaults> open()
    {
        return std::make_unique<PropertyListDefaults>(m_path, m_queue, m_work);
    }
    /// Ends the main loop's turn and lets the write that it started finish.
    void endTurn()
    {
        m_queue.drain();
        m_work.runAll();
    }

    std::unique_ptr<Test::FileTree> m_tree;
    QString m_path;
    Test::VirtualMainQueue m_queue;
    Test::StepWorkQueue m_work;
};

QTEST_APPLESS_MAIN(PropertyListDefaultsTest)

#include "PropertyListDefaultsTest.moc"
