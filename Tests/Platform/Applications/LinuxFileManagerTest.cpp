// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/CommandLine.h>
#include <TavikLauncherPlatform/Linux/Applications/LinuxFileManager.h>

#include <QProcess>
#include <QTest>
#include <QThread>

#include <Support/FileTree.h>
#include <Support/StepWorkQueue.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class LinuxFileManagerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aWalkVisitsEverythingButHiddenItemsAndPackages()
    {
        const FileTree tree;
        tree.write(u"b.desktop"_s);
        tree.write(u"Utilities/Deep/c.desktop"_s);
        tree.write(u"Foo.app/Contents/Inner.app/x"_s);
        tree.write(u".hidden/d.desktop"_s);
        tree.write(u".e.desktop"_s);
        tree.write(u"File.app"_s);
        tree.link(u"/dev/zero"_s, u"Device.app"_s);
        QCOMPARE(::mkfifo(QFile::encodeName(tree.path(u"Pipe.app"_s)).constData(), 0600), 0);
        QCOMPARE(walk(tree.path()).join(u' '),
                 u"Foo.app Utilities Utilities/Deep Utilities/Deep/c.desktop b.desktop"_s);
        QCOMPARE(walk(tree.path(u"missing"_s)), {});
        QCOMPARE(walk(tree.path(u"b.desktop"_s)), {});
    }

    void aWalkDescribesLinksAndFollowsNoneButItsOwnFolder()
    {
        const FileTree tree;
        tree.write(u"real/a.desktop"_s);
        tree.link(tree.path(u"real"_s), u"real/loop"_s);
        tree.link(u"/nowhere"_s, u"real/broken.desktop"_s);
        tree.link(tree.path(u"real"_s), u"start"_s);
        const QStringList expected{u"a.desktop"_s, u"broken.desktop"_s, u"loop"_s};
        QCOMPARE(walk(tree.path(u"real"_s)), expected);
        QCOMPARE(walk(tree.path(u"start"_s)), expected);
        QCOMPARE(m_files.userId(), ::getuid());
        m_files.enumerate(tree.path(u"real"_s), [](const DirectoryItem& item) {
            QCOMPARE(item.isSymbolicLink, !item.path.endsWith(u"a.desktop"_s));
            QVERIFY(!item.isSymbolicLink || item.ownerId == ::getuid());
        });
    }

    void namesThatAreNoTextAreLeftOut()
    {
        const FileTree tree;
        for (const QByteArray& name : {QByteArray("bad\xFF.desktop"),
                                       QByteArray("two\nlines.desktop"),
                                       QByteArray("fine \xC3\xBC.desktop")}) {
            const QByteArray path = QFile::encodeName(tree.path()) + '/' + name;
            QCOMPARE(::symlink("/nowhere", path.constData()), 0);
        }
        QCOMPARE(walk(tree.path()), {u"fine \u00fc.desktop"_s});
    }

    void bundlesAreRecognised()
    {
        const FileTree tree;
        QVERIFY(m_files.isApplicationBundle(tree.makeFolder(u"Folder.app"_s)));
        QVERIFY(m_files.isApplicationBundle(tree.write(u"entry.desktop"_s)));
        const QString pipe = tree.path(u"pipe.desktop"_s);
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QVERIFY(m_files.bundle(pipe)->isHidden); // Nobody waits for its writer.
        for (const QString& path : {tree.write(u"File.app"_s),
                                    tree.makeFolder(u"folder.desktop"_s),
                                    tree.path(u"missing.app"_s),
                                    tree.write(u"text.txt"_s),
                                    QString()}) {
            QVERIFY2(!m_files.isApplicationBundle(path) && !m_files.bundle(path), qPrintable(path));
        }
        QVERIFY(!m_files.fileExists({}));
    }

    void identifiersAreRelativeToTheApplicationsFolder()
    {
        const FileTree tree;
        const LinuxFileManager files(m_queue, m_work, {tree.path(u"applications"_s)});
        const QByteArray entry = "[Desktop Entry]\nType=Application\nName=X\nExec=sh\n";
        const auto identifier = [&](const QString& inner) {
            return files.bundle(tree.write(inner, entry))->identifier.value_or(QString());
        };
        QCOMPARE(identifier(u"applications/org.example.x.desktop"_s), u"org.example.x"_s);
        QCOMPARE(identifier(u"applications/kde/sub/x.desktop"_s), u"kde-sub-x"_s);
        QCOMPARE(identifier(u"elsewhere/deep/x.desktop"_s), u"x"_s);
    }

    void anIconIsAskedForByTheApplicationsPath()
    {
        const FileTree tree;
        const QString path = tree.write(
            u"x.desktop"_s, "[Desktop Entry]\nType=Application\nName=X\nExec=sh\nIcon=viewer\n");
        QCOMPARE(m_files.bundle(path)->iconSource, path);
        QCOMPARE(m_files.iconSource(path), u"viewer"_s);
        for (const QString& other : {u"viewer"_s, tree.write(u"icon.png"_s), QString()}) {
            QCOMPARE(m_files.iconSource(other), other);
        }
    }

    void changesOfEntriesAreFollowedAsAWalkWouldFindThem()
    {
        const FileTree tree;
        const auto entry = [&tree](const QString& inner, const QByteArray& name) {
            return tree.write(inner,
                              "[Desktop Entry]\nType=Application\nExec=sh\nName=" + name + '\n');
        };
        const LinuxFileManager files(
            m_queue, m_work, {tree.makeFolder(u"user"_s), tree.path(u"system"_s)});
        entry(u"system/a.desktop"_s, "A");
        entry(u"system/sub-b.desktop"_s, "B");
        entry(u"system/sub/c.desktop"_s, "C");
        DesktopEntries followed = files.desktopEntries();
        const auto isFollowed = [&](const QString& path) {
            followed = files.desktopEntries(followed, {path});
            return followed == files.desktopEntries();
        };
        QVERIFY(isFollowed(entry(u"system/sub-d.desktop"_s, "D")));
        QVERIFY(isFollowed(entry(u"user/a.desktop"_s, "Another A")));
        QVERIFY(isFollowed(entry(u"user/a.desktop"_s, "Written in place")));
        const QString moved = tree.path(u"user/sub"_s);
        QVERIFY(QDir().rename(tree.path(u"system/sub"_s), moved));
        QVERIFY(isFollowed(moved) == false && isFollowed(tree.path(u"system/sub"_s)));
        QVERIFY(QDir(moved).removeRecursively() && isFollowed(moved));
        QCOMPARE(followed.withId(u"a"_s)->name, u"Written in place"_s);
    }

    void imagesAreKnownByWhatIsInsideAndHarmNobody_data()
    {
        // What lies at the top; the name; the icon's content, null for the entry's word.
        const Table<Links, QString, QByteArray> row;
        const auto entry = u"share/inside.desktop"_s;
        // clang-format off
        row("all", {{u"a.desktop"_s, entry}, {u".DirIcon"_s, u"share/icon"_s}}, u"Inside"_s, "I");
        row("links of links", {{u"a.desktop"_s, entry}, {u".DirIcon"_s, u"b"_s}, {u"b"_s, u"share/icon"_s}}, u"Inside"_s, "I");
        row("icon by the entry", {{u"a.desktop"_s, entry}, {u"x.png"_s, u"share/icon"_s}}, u"Inside"_s, "I");
        row("nothing", {}, u"It"_s, {});
        row("links out", {{u"a.desktop"_s, u"/etc/passwd"_s}, {u".DirIcon"_s, u"../../x"_s}}, u"It"_s, {});
        row("a ring of links", {{u"a.desktop"_s, u"b"_s}, {u"b"_s, u"a.desktop"_s}}, u"It"_s, {});
        row("too much", {{u"a.desktop"_s, u"share/large"_s}, {u".DirIcon"_s, u"share/large"_s}}, u"It"_s, {});
        // clang-format on
    }

    void imagesAreKnownByWhatIsInsideAndHarmNobody()
    {
        const auto [links, name, icon] = fetch<Links, QString, QByteArray>();
        const FileTree tree;
        tree.write(
            u"in/share/inside.desktop"_s,
            "[Desktop Entry]\nType=Application\nName=Inside\nIcon=x\nTryExec=none\nNoDisplay=true\n"
            "Path=/none\nExec=env A=b inside --flag %U\n");
        tree.write(u"in/share/icon"_s, "I");
        tree.write(u"in/share/large"_s, QByteArray(5'000'000, 'x'));
        for (const auto& [link, target] : links) {
            QVERIFY(QFile::link(target, tree.path(u"in/"_s) + link));
        }
        const QString path = tree.write(u"It.AppImage"_s, image(tree));
        const auto bundle = m_files.bundle(path);
        QVERIFY(bundle && !bundle->isHidden && bundle->kind == Bundle::Kind::image);
        QCOMPARE(bundle->name.value_or(QString()), name);
        QFile file(m_files.iconSource(path));
        QCOMPARE(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(), icon);
        const DesktopEntry entry = m_files.launchTarget(path).entry;
        const QStringList words = CommandLine::expanded(entry).value_or(QStringList());
        QCOMPARE(words, name == u"It"_s ? QStringList{path} : QStringList({path, u"--flag"_s}));
        QVERIFY(entry.requiredProgram.isEmpty() && entry.folder.isEmpty());
    }

    void imagesAreMetUnderAnyNameAndOfEitherType()
    {
        const FileTree tree;
        const LinuxFileManager files(m_queue, m_work, {tree.path(u"apps"_s)});
        const auto add = [&tree](const QString& name, const QByteArray& bytes, bool mayRun) {
            const QString path = tree.write(u"apps/"_s + name, bytes);
            const QFileDevice::Permissions permissions = QFile::permissions(path);
            QFile::setPermissions(path, mayRun ? permissions | QFile::ExeOwner : permissions);
            return path;
        };
        QByteArray older = program().leftJustified(0x9000, '\0', true);
        older.replace(10, 1, "\1");
        const QByteArray noIso = older;
        older.replace(0x8001, 5, "CD001");
        tree.write(u"in/x.desktop"_s, "[Desktop Entry]\nType=Application\nName=Inside\nExec=x\n");
        const QByteArray newer = image(tree);
        const QString first = add(u"older-1.0"_s, older, true);
        const QString second = add(u"tool"_s, newer, true);
        add(u"a.desktop"_s,
            "[Desktop Entry]\nType=Application\nName=A\nExec=" + second.toUtf8() + " --x\n",
            true);
        add(u"no iso"_s, noIso, true);
        add(u"shared object"_s, QByteArray(newer).replace(8, 3, QByteArray(3, '\0')), true);
        add(u"script"_s, "#!/bin/sh\n", true);
        const QString idle = add(u"not to be run"_s, newer, false);
        QStringList met;
        files.enumerate(tree.path(u"apps"_s), [&met](const DirectoryItem& item) {
            met.append(item.isImage ? QFileInfo(item.path).fileName() : QString());
        });
        met.removeAll(QString());
        QCOMPARE(met.join(u'|'), u"older-1.0|tool"_s);
        QCOMPARE(files.bundle(first)->name, u"older-1.0"_s);
        QCOMPARE(files.iconSource(first), QString());
        QCOMPARE(files.bundle(second)->name, u"Inside"_s);
        QVERIFY(files.isApplicationBundle(second));
        QVERIFY(files.launchTarget(idle).entry.isImage); // Whoever starts it is told.
        // What an entry starts is that entry.
        QCOMPARE(files.bundle(tree.path(u"apps/a.desktop"_s))->executable, second);
        const DesktopEntries entries = files.desktopEntries();
        QVERIFY(entries.withPath(first) && !entries.withPath(second));
    }

    void whatIsOnlyCalledAnImageIsNone()
    {
        const FileTree tree;
        const QByteArray good = image(tree);
        const QString pipe = tree.path(u"Pipe.AppImage"_s);
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        for (const QString& path :
             {pipe,
              tree.link(u"/dev/zero"_s, u"Device.AppImage"_s),
              tree.write(u"Text.AppImage"_s, "#!/bin/sh\n"),
              tree.write(u"Head.AppImage"_s, good.first(40)),
              tree.write(u"Program.AppImage"_s, program()),
              tree.write(u"Unmarked.AppImage"_s, QByteArray(good).replace(8, 3, "abc"))}) {
            QVERIFY2(!m_files.bundle(path), qPrintable(path));
            QVERIFY(!m_files.launchTarget(path).entry.isApplication);
        }
        // Damaged behind the program: it may yet run, so it keeps its name.
        QByteArray damaged = good;
        const QByteArray garbage(200, '\x7f');
        damaged.replace(damaged.size() - 600, garbage.size(), garbage);
        const auto bundle = m_files.bundle(tree.write(u"Damaged.AppImage"_s, damaged));
        QVERIFY(bundle && bundle->name);
    }

    void eachEntryIsReadOnceWhoeverAsks()
    {
        const FileTree tree;
        QStringList paths;
        for (int number = 0; number < 300; ++number) {
            paths.append(tree.write(u"%1.desktop"_s.arg(number), "[Desktop Entry]\n"));
        }
        DesktopEntryCache cache;
        const auto readAll = [&cache, &paths] {
            for (const QString& path : paths) {
                std::ignore = cache.read(path, u"x"_s);
            }
        };
        const std::unique_ptr<QThread> other(QThread::create(readAll));
        other->start();
        readAll();
        QVERIFY(other->wait());
        QCOMPARE(cache.reads(), 300U);
        tree.write(u"7.desktop"_s, "[Desktop Entry]\nType=Application\n");
        readAll();
        QCOMPARE(cache.reads(), 301U);
    }

    void hidingLinksStillHaveAnIdentifier()
    {
        const FileTree tree;
        for (const QString& target : {u"/dev/null"_s, u"/nowhere"_s}) {
            const auto bundle = m_files.bundle(
                tree.link(target, target.mid(1).replace(u'/', u'-') + u".desktop"_s));
            QVERIFY(bundle && bundle->isHidden && bundle->identifier);
        }
    }

    void theSessionsFoldersComeInOrder()
    {
        qputenv("HOME", "/home/test");
        qputenv("XDG_DATA_HOME", "/home/test/.data");
        qputenv("XDG_DATA_DIRS", "/exports/share:relative:/usr/share/:/usr/share");
        QCOMPARE(LinuxFileManager::sessionApplicationFolders().join(u' '),
                 u"/Applications /System/Applications /home/test/Applications "
                 "/home/test/.data/applications /exports/share/applications "
                 "/usr/share/applications /home/test/AppImages /home/test/.local/bin"_s);
    }

    void theSupportFolderIsMade()
    {
        const FileTree tree;
        qputenv("XDG_DATA_HOME", QFile::encodeName(tree.path(u"some/data"_s)));
        const auto made = LinuxFileManager(m_queue, m_work).applicationSupportFolder();
        QCOMPARE(made.path, tree.path(u"some/data"_s));
        QVERIFY(QFileInfo(made.path).isDir());

        qputenv("XDG_DATA_HOME", QFile::encodeName(tree.write(u"file"_s) + u"/data"_s));
        const auto failed = LinuxFileManager(m_queue, m_work).applicationSupportFolder();
        QVERIFY(failed.path.isEmpty());
        QCOMPARE(failed.error, u"Not a directory"_s);
    }

    void everyoneWhoWatchesAFolderIsTold()
    {
        const FileTree tree;
        int first = 0;
        int second = 0;
        auto early = m_files.watch({tree.path()}, [&first](const QStringList&) { ++first; });
        const auto late = m_files.watch({tree.path()}, [&second](const QStringList&) { ++second; });
        const auto change = [this, &tree](const QString& file) {
            tree.write(file);
            QVERIFY(QTest::qWaitFor([this] { return m_queue.pendingTasks() > 0; }, 3000));
            m_queue.advance(1.1);
            m_work.runAll();
        };
        change(u"a.desktop"_s);
        early.reset();
        change(u"b.desktop"_s);
        QCOMPARE(first, 1);
        QCOMPARE(second, 2);
    }

    void filesAreReplacedAsAWholeAndReadUpToABound()
    {
        const FileTree tree;
        const QString file = tree.path(u"settings.json"_s);
        QCOMPARE(m_files.writeFileAtomically(file, "first"), std::nullopt);
        QCOMPARE(QFile(file).permissions() & (QFile::ReadGroup | QFile::ReadOther),
                 QFileDevice::Permissions());
        QVERIFY(
            QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        QCOMPARE(m_files.writeFileAtomically(file, "second"), std::nullopt);
        QCOMPARE(QFile(file).permissions() & QFile::ReadGroup,
                 QFileDevice::Permissions(QFile::ReadGroup));
        QCOMPARE(QDir(tree.path()).entryList(QDir::Files), QStringList{u"settings.json"_s});
        QCOMPARE(m_files.readFile(file, 6), QByteArray("second"));
        QCOMPARE(m_files.readFile(file, 5), std::nullopt);
        QCOMPARE(m_files.readFile(tree.path(), 100), std::nullopt);
        QCOMPARE(m_files.readFile(tree.path(u"none"_s), 100), std::nullopt);
    }

    void onlyOrdinaryFilesAreReplaced()
    {
        const FileTree tree;
        const QString old = tree.write(u"old"_s, "old");
        for (const QString& path : {tree.link(old, u"link"_s),
                                    tree.link(tree.path(u"gone"_s), u"dangling"_s),
                                    tree.makeFolder(u"folder"_s),
                                    tree.path(u"old/new"_s),
                                    u"/dev/full"_s}) {
            const auto error = m_files.writeFileAtomically(path, "new");
            QVERIFY2(error && !error->isEmpty(), qPrintable(path));
        }
        QCOMPARE(m_files.readFile(old, 100), QByteArray("old"));
        QVERIFY(!QFile::exists(tree.path(u"gone"_s)));
        const QStringList expected{u"folder"_s, u"link"_s, u"old"_s};
        QCOMPARE(QDir(tree.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), expected);
    }

    void onlyAFileOfOnesOwnIsAppendedTo()
    {
        const FileTree tree;
        const QString log = tree.path(u"log"_s);
        QCOMPARE(m_files.appendToFile(log, "one\n"), std::nullopt);
        QCOMPARE(m_files.appendToFile(log, "two\n"), std::nullopt);
        QCOMPARE(m_files.readFile(log, 100), QByteArray("one\ntwo\n"));
        QCOMPARE(QFile(log).permissions() & (QFile::ReadGroup | QFile::ReadOther),
                 QFileDevice::Permissions());

        if (::geteuid() == 0) { // Only root can give a file away.
            QCOMPARE(::chown(qPrintable(log), 12345, 12345), 0);
            QCOMPARE(m_files.appendToFile(log, "new\n"), std::nullopt);
            QCOMPARE(m_files.readFile(log, 100), QByteArray("new\n"));
        }

        // What a link leads to, by either kind of link, is left alone.
        const QString precious = tree.write(u"precious"_s, "old");
        const QString hard = tree.path(u"hard"_s);
        std::filesystem::create_hard_link(precious.toStdString(), hard.toStdString());
        for (const QString& path : {tree.link(precious, u"link"_s), hard}) {
            QCOMPARE(m_files.appendToFile(path, "new"), std::nullopt);
            QVERIFY2(!QFileInfo(path).isSymLink(), qPrintable(path));
            QCOMPARE(m_files.readFile(path, 100), QByteArray("new"));
        }
        QCOMPARE(m_files.readFile(precious, 100), QByteArray("old"));
        for (const QString& path : {tree.makeFolder(u"folder"_s), tree.path(u"none/log"_s)}) {
            const auto error = m_files.appendToFile(path, "new");
            QVERIFY2(error && !error->isEmpty(), qPrintable(path));
        }
        const QStringList expected{u"folder"_s, u"hard"_s, u"link"_s, u"log"_s, u"precious"_s};
        QCOMPARE(QDir(tree.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), expected);
    }

private:
    using Links = QList<std::pair<QString, QString>>;
    /// A program as images have it in front.
    static QByteArray program()
    {
        QFile file(u"/bin/true"_s);
        QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        return bytes.replace(8, 3, "AI\2");
    }
    /// With what is in the folder "in".
    static QByteArray image(const FileTree& tree)
    {
        tree.makeFolder(u"in"_s);
        QProcess maker;
        maker.start(u"mksquashfs"_s,
                    {tree.path(u"in"_s), tree.path(u"out"_s), u"-quiet"_s, u"-no-progress"_s});
        maker.waitForFinished();
        QFile out(tree.path(u"out"_s));
        return out.open(QIODevice::ReadOnly) ? program() + out.readAll() : QByteArray();
    }
    [[nodiscard]] QStringList walk(const QString& folder) const
    {
        QStringList found;
        m_files.enumerate(folder, [&](const DirectoryItem& item) {
            found.append(item.path.mid(folder.size() + 1));
        });
        return found;
    }

    VirtualMainQueue m_queue;
    StepWorkQueue m_work;
    LinuxFileManager m_files{m_queue, m_work, {}};
};

QTEST_GUILESS_MAIN(LinuxFileManagerTest)
#include "LinuxFileManagerTest.moc"
