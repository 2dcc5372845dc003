// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/ReplaceFile.h>

#include <QTest>

#include <Support/FileTree.h>
#include <fcntl.h>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

QStringList calls; ///< To the kernel, in order.

int synced(int file)
{
    struct stat status = {};
    fstat(file, &status);
    calls << (S_ISDIR(status.st_mode) ? QStringLiteral("sync folder")
                                      : QStringLiteral("sync file"));
    return 0;
}

} // namespace

// In place of the C library's, for the toolkit as well.
extern "C" int fsync(int file)
{
    return synced(file);
}
extern "C" int fdatasync(int file)
{
    return synced(file);
}
extern "C" int rename(const char* from, const char* to)
{
    calls << QStringLiteral("rename");
    return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

using namespace Tavik;

class ReplaceFileTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aLossOfPowerLeavesTheOldOrTheNew()
    {
        const Test::FileTree tree;
        const QString path = tree.write(QStringLiteral("file"), "old");
        QCOMPARE(replaceFile(path, "new", QFileDevice::ReadOwner), std::nullopt);
        QCOMPARE(calls.join(u'|'), QStringLiteral("sync file|rename|sync folder"));
    }
};

QTEST_APPLESS_MAIN(ReplaceFileTest)
#include "ReplaceFileTest.moc"
