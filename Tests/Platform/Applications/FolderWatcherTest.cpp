// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/FolderWatcher.h>

#include <QDir>
#include <QFileSystemWatcher>
#include <QTest>

#include <Support/FileTree.h>
#include <Support/StepWorkQueue.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>
#include <filesystem>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

/// The kernel's notifications are real, the settling time is not.
class FolderWatcherTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_watcher.reset();
        m_tree = std::make_unique<FileTree>();
        m_tree->makeFolder(u"apps"_s);
        m_queue = std::make_unique<VirtualMainQueue>();
        m_reports = 0;
    }

    void aBurstIsReportedOnceAndAnEndlessOneToo()
    {
        watch(u"apps"_s);
        for (int number = 0; number < 60; ++number) {
            m_tree->write(u"apps/%1.desktop"_s.arg(number));
            waitForNotifications();
            pass(0.1);
            QVERIFY(m_reports == 0 || number > 45);
        }
        QCOMPARE(m_reports, 1);
        pass(2);
        QCOMPARE(m_reports, 2);
        QCOMPARE(m_queue->pendingTasks(), 0);
    }

    void writingIntoAFileIsReportedWithItsPath()
    {
        const QString path = m_tree->write(u"apps/a.desktop"_s);
        watch(u"apps"_s);
        m_tree->write(u"apps/a.desktop"_s, "written in place");
        QCOMPARE(paths(), QStringList{path});
        QCOMPARE(m_reports, 1);
        m_tree->makeFolder(u"apps/new/deep"_s);
        QCOMPARE(paths(), QStringList{m_tree->path(u"apps/new"_s)});
        const QString later = m_tree->write(u"apps/new/deep/b.desktop"_s);
        QCOMPARE(paths(), QStringList{later});
        QVERIFY(QFile::remove(path));
        QCOMPARE(paths(), QStringList{path});
    }

    void aFolderOfTwoNamesIsReportedUnderBoth()
    {
        m_tree->link(m_tree->path(u"apps"_s), u"link"_s);
        watch(u"apps"_s, u"link"_s);
        const QString path = m_tree->write(u"apps/a.desktop"_s);
        QCOMPARE(paths(), QStringList({path, m_tree->path(u"link/a.desktop"_s)}));
    }

    void aFolderThatComesGoesAndComesBackIsReported()
    {
        watch(u"share/deep/apps"_s);
        m_tree->makeFolder(u"share"_s);
        QCOMPARE(reports(), 0);
        m_tree->makeFolder(u"share/deep/apps"_s);
        QCOMPARE(reports(), 1);
        m_tree->write(u"share/deep/apps/a.desktop"_s);
        QCOMPARE(reports(), 2);
        QVERIFY(QDir(m_tree->path(u"share"_s)).removeRecursively());
        QCOMPARE(reports(), 3);
        m_tree->write(u"share/deep/apps/a.desktop"_s);
        QCOMPARE(reports(), 4);
    }

    void aFolderThatTakesItsPlaceIsWatched_data()
    {
        // What is watched; what is renamed; to what.
        const Table<QString, QString, QString> row;
        row("folder", u"one/apps"_s, u"two/apps"_s, u"one/apps"_s);
        row("folder below", u"one"_s, u"two/apps"_s, u"one/apps"_s);
        row("link on the way", u"here/apps"_s, u"there"_s, u"here"_s);
        row("link behind a link", u"link/apps"_s, u"there"_s, u"here"_s);
    }

    void aFolderThatTakesItsPlaceIsWatched()
    {
        const auto [watched, placed, place] = fetch<QString, QString, QString>();
        m_tree->makeFolder(u"one/apps/sub"_s);
        m_tree->makeFolder(u"two/apps/sub"_s);
        m_tree->link(m_tree->path(u"one"_s), u"here"_s);
        m_tree->link(m_tree->path(u"two"_s), u"there"_s);
        m_tree->link(u"../here"_s, u"else/link"_s);
        m_tree->link(u"else/link"_s, u"link"_s);
        watch(watched);
        std::filesystem::rename(m_tree->path(place).toStdString(),
                                m_tree->path(u"old"_s).toStdString());
        std::filesystem::rename(m_tree->path(placed).toStdString(),
                                m_tree->path(place).toStdString());
        QCOMPARE(reports(), 1);
        waitForNotifications();
        pass(1.1);
        m_reports = 0;
        m_tree->write((watched == u"one"_s ? u"one/apps"_s : watched) + u"/sub/a.desktop"_s);
        QCOMPARE(reports(), 1);
    }

    void whatCannotMatterIsNotReported()
    {
        m_tree->makeFolder(u"apps/X.app/Contents"_s);
        m_tree->makeFolder(u"apps/.trash"_s);
        watch(u"apps"_s);
        m_tree->write(u"apps/X.app/Contents/file"_s);
        m_tree->write(u"apps/.trash/file"_s);
        m_tree->write(u"beside"_s);
        waitForNotifications();
        QCOMPARE(m_queue->pendingTasks(), 0);
    }

    void nothingIsReportedAfterItsEnd()
    {
        watch(u"apps"_s);
        m_tree->makeFolder(u"apps/new"_s);
        QVERIFY(noticed());
        m_queue->advance(1.1);
        QCOMPARE(m_work.waiting(), 1U);
        m_watcher.reset();
        pass(10);
        QCOMPARE(m_reports, 0);
    }

private:
    void watch(const QString& inner, const QString& second = {})
    {
        QStringList folders{m_tree->path(inner)};
        if (!second.isEmpty()) {
            folders.append(m_tree->path(second));
        }
        m_watcher = std::make_unique<FolderWatcher>(*m_queue, m_work, folders);
        connect(m_watcher.get(), &FolderWatcher::changed, this, [this](const QStringList& paths) {
            ++m_reports;
            m_paths = paths;
        });
    }
    void pass(double seconds)
    {
        m_queue->advance(seconds);
        m_work.runAll();
    }
    /// True once a change is being settled.
    [[nodiscard]] bool noticed() const
    {
        return QTest::qWaitFor([this] { return m_queue->pendingTasks() > 0; }, 3000);
    }
    /// How many there are once a change has settled; less than none when no change is noticed.
    [[nodiscard]] int reports()
    {
        const bool wasNoticed = noticed();
        pass(1.1);
        return wasNoticed ? m_reports : -1;
    }
    /// What the last one tells then.
    [[nodiscard]] QStringList paths() { return reports() < 0 ? QStringList() : m_paths; }
    /// Lets the kernel's notifications so far arrive: they come in order, and so does a mark.
    void waitForNotifications()
    {
        QFileSystemWatcher mark({m_tree->makeFolder(u"mark"_s)});
        bool arrived = false;
        connect(&mark, &QFileSystemWatcher::directoryChanged, this, [&arrived] { arrived = true; });
        m_tree->write(u"mark/%1"_s.arg(++m_marks));
        QVERIFY(QTest::qWaitFor([&arrived] { return arrived; }, 3000));
        QCoreApplication::processEvents();
    }

    std::unique_ptr<FileTree> m_tree;
    std::unique_ptr<VirtualMainQueue> m_queue;
    StepWorkQueue m_work;
    std::unique_ptr<FolderWatcher> m_watcher;
    int m_reports = 0;
    QStringList m_paths; ///< Of the last report.
    int m_marks = 0;
};

QTEST_GUILESS_MAIN(FolderWatcherTest)
#include "FolderWatcherTest.moc"
