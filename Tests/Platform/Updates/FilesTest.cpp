// SPDX-License-Identifier: MIT
#include "UpdaterBench.h"
#include <TavikLauncherPlatform/Linux/Updates/AppImage.h>
#include <TavikLauncherPlatform/Linux/Updates/PartFile.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateFolder.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateKind.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>

#include <QProcess>

#include <Support/Table.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using Tavik::UpdateSignature::SignedFile;
using Test::fetch;
using Test::Table;

namespace {

const auto image = &Test::UpdaterBench::image;
const auto contents = &Test::FileTree::contents;

/// An image with a real file system, made then; 0 for one that does not say when.
QByteArray imageMadeAt(quint32 seconds, bool isWide = true)
{
    const Test::FileTree tree;
    tree.write(u"in/file"_s, "x");
    QProcess maker;
    const QString options = u"%1 %2 -quiet -no-progress -mkfs-time %3"_s.arg(
        tree.path(u"in"_s), tree.path(u"out"_s), QString::number(seconds));
    maker.start(u"mksquashfs"_s, options.split(u' '));
    maker.waitForFinished();
    return Test::UpdaterBench::program(isWide) + contents(tree.path(u"out"_s));
}

mode_t modeOf(const QString& path)
{
    struct stat status = {};
    return ::stat(qPrintable(path), &status) == 0 ? status.st_mode & 07777 : 0;
}

} // namespace

/// What is done with files: judged, verified, put in place, cleaned up.
class FilesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_tree = std::make_unique<Test::FileTree>(); }

    void imageIsReplacedWithItsPermissions()
    {
        const QString target = m_tree->write(u"store/real.AppImage"_s, image("old"));
        const QString link = m_tree->link(u"real.AppImage"_s, u"store/current"_s);
        QCOMPARE(::chmod(qPrintable(target), 0751), 0);
        QFile old(target);
        QVERIFY(old.open(QIODevice::ReadOnly));
        const QString part = AppImage::partFile(link);
        QVERIFY(part.startsWith(m_tree->path(u"store/.real.AppImage."_s)));
        QVERIFY(QFile::rename(m_tree->write(u"new"_s, image("new")), part));

        QCOMPARE(AppImage::replace(link, part).value_or(QString()), QString());
        QCOMPARE(contents(target), image("new"));
        QCOMPARE(modeOf(target), mode_t(0751));
        QVERIFY(QFileInfo(link).isSymLink());
        QVERIFY(!QFile::exists(part));
        QCOMPARE(old.readAll(), image("old")); // For the program that still runs.
    }

    void onlyAFittingImageTakesItsPlace_data()
    {
        const Table<QByteArray, QByteArray, QString> row;
        const QString foreign = u"The update is made for another kind of computer."_s;
        const QString none = u"The update is not an AppImage, as this program is."_s;
        const QString older = u"The update is older than this program, whatever its number says."_s;
        const auto changed = [](int at, char byte) {
            return image("new").replace(at, 1, &byte, 1);
        };
        row("script", image("old"), "#!/bin/sh\necho new version\n", none);
        row("other processor", image("old"), changed(18, char(0xb7)), foreign);
        row("other words", image("old"), changed(4, 1), foreign);
        row("cut", image("old"), image("").left(19), none);
        const QString undated = u"The update does not say when it was made."_s;
        row("older", imageMadeAt(1'700'000'001), imageMadeAt(1'700'000'000), older);
        row("older and narrow", imageMadeAt(9, false), imageMadeAt(8, false), older);
        row("rebuilt", imageMadeAt(4'000'000'000), imageMadeAt(4'000'000'000), {});
        row("without a time", imageMadeAt(9), imageMadeAt(0), undated);
        row("the first with one", imageMadeAt(0), imageMadeAt(1), {});
        row("without a file system", imageMadeAt(9), image("").left(64), undated);
        row("present is another thing", "my letter", image("new"), u"no longer there"_s);
    }

    void onlyAFittingImageTakesItsPlace()
    {
        const auto [present, successor, reason] = fetch<QByteArray, QByteArray, QString>();
        const QString target = m_tree->write(u"my.AppImage"_s, present);
        const QString part = m_tree->write(u".part"_s, successor);
        const QString why = AppImage::replace(target, part).value_or(QString());
        QVERIFY2(why.contains(reason) && why.isEmpty() == reason.isEmpty(), qPrintable(why));
        QCOMPARE(contents(target), reason.isEmpty() ? successor : present);
    }

    void obstaclesAreToldBeforehand()
    {
        const QString target = m_tree->write(u"sub/my.AppImage"_s, image("old"));
        QCOMPARE(AppImage::whyNotReplaceable(target).value_or(QString()), QString());
        for (const QString& path : {m_tree->makeFolder(u"folder"_s),
                                    m_tree->path(u"none"_s),
                                    m_tree->link(u"circle"_s, u"circle"_s),
                                    u"/dev/zero"_s}) {
            QVERIFY2(AppImage::whyNotReplaceable(path).value_or(QString()).contains(u"no longer"_s),
                     qPrintable(path));
        }
        if (::geteuid() != 0) { // Whom no permission holds back.
            QCOMPARE(::chmod(qPrintable(m_tree->path(u"sub"_s)), 0555), 0);
            QVERIFY(AppImage::whyNotReplaceable(target).value_or(QString()).contains(
                u"may not be changed by you"_s));
            QCOMPARE(::chmod(qPrintable(m_tree->path(u"sub"_s)), 0755), 0);
        }
    }

    void kindFollowsFromTypeAndEnding_data()
    {
        const Table<QString, QString, QString> row; // Address; ending or way outside; in an image.
        row("application/vnd.debian.binary-package", u"/get?id=1"_s, u".deb"_s, u"page"_s);
        row("application/x-rpm", u"/a.deb"_s, u".rpm"_s, u"page"_s);
        row("application/octet-stream", u"/A.pkg.tar.zst"_s, u".pkg.tar.zst"_s, u"page"_s);
        row("application/vnd.appimage", u"/a.deb"_s, u"page"_s, u"image"_s);
        row("application/octet-stream ", u"/Tavik-2.1.AppImage"_s, u"page"_s, u"image"_s);
    }

    void kindFollowsFromTypeAndEnding()
    {
        const auto [path, plain, inImage] = fetch<QString, QString, QString>();
        const AppcastEnclosure enclosure{.url = QUrl(u"https://example.org"_s + path),
                                         .mimeType = QString::fromLatin1(QTest::currentDataTag())};
        using Way = UpdateKind::Way;
        const UpdateKind kind = updateKind(enclosure, false);
        QCOMPARE(kind.way == Way::goesToInstaller ? kind.suffix : u"page"_s, plain);
        QCOMPARE(kind.way == Way::goesToInstaller, !kind.mimeType.isEmpty());
        const bool replaces = updateKind(enclosure, true).way == Way::replacesImage;
        QCOMPARE(replaces ? u"image"_s : u"page"_s, inImage);
    }

    void folderForPackagesIsOurs()
    {
        const QString folder = m_tree->path(u"cache/TavikLauncher/Updates"_s);
        for (int times = 0; times < 2; ++times) {
            QCOMPARE(UpdateFolder::prepare(folder).value_or(QString()), QString());
            QCOMPARE(modeOf(folder), mode_t(0700));
            QCOMPARE(::chmod(qPrintable(folder), 0777), 0);
        }
        const QString link = m_tree->link(m_tree->makeFolder(u"elsewhere"_s), u"link"_s);
        const QString file = m_tree->write(u"file"_s);
        for (const QString& path : {link, file, file + u"/below"_s}) {
            QCOMPARE(UpdateFolder::prepare(path).value_or(QString()),
                     u"The folder “%1” cannot be used for the update."_s.arg(path));
        }
        if (::geteuid() == 0) { // Only root can give a folder away.
            QCOMPARE(::chown(qPrintable(folder), 12345, 12345), 0);
            QVERIFY(UpdateFolder::prepare(folder));
        }
    }

    void leftoversGoAndFreshPackagesStay()
    {
        const QString folder = m_tree->makeFolder(u"Updates"_s);
        const QDateTime now = QDateTime::currentDateTimeUtc();
        m_tree->write(u"Updates/update.part"_s, "half");
        const QString package = UpdateFolder::packageFile(folder, u".deb"_s);
        QVERIFY(QFile::rename(m_tree->write(u"whole"_s, "whole"), package));
        UpdateFolder::removeLeftovers(folder, now.addSecs(3600));
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList(QFileInfo(package).fileName()));
        UpdateFolder::removeLeftovers(folder, now.addDays(2));
        QVERIFY(!QFileInfo::exists(folder));
    }

    void partFilesInUseAreLeftAlone()
    {
        const QString path = m_tree->path(u"part"_s);
        auto first = std::make_unique<PartFile>(path);
        QCOMPARE(first->create(5).value_or(QString()), QString());
        QCOMPARE(first->append("first").value_or(QString()), QString());
        first->close();
        {
            PartFile second(path);
            QVERIFY(second.create(5).value_or(QString()).startsWith(u"Another Tavik Launcher"));
            QVERIFY(!PartFile::removeLeftover(path));
        }
        QCOMPARE(contents(path), "first");
        first->keep();
        first.reset();
        QVERIFY(PartFile::removeLeftover(path) && !QFile::exists(path));
    }

    void whatIsNotGenuineIsRefused_data()
    {
        using Change = std::function<void(SignedFile&)>;
        const Table<QString, Change> row;
        const QString foreign = u"is not signed by the makers"_s;
        const QString unreadable = u"could not be read"_s;
        const QString notOurs = u"belongs to you alone"_s;
        row("another key", foreign, [](SignedFile& file) {
            file.publicKey = Test::Signer().publicKey;
        });
        row("another file", foreign, [](SignedFile& file) { file.digest[0] ^= 1; });
        row("too long", u"has 220,001 bytes instead of 220,000"_s, [this](SignedFile&) {
            m_tree->write(u"a"_s, m_package + ' ');
        });
        row("no signature", u"is not signed"_s, [](SignedFile& file) { file.signature.clear(); });
        row("no file", unreadable, [](SignedFile& file) { file.path += u"b"_s; });
        row("a link", unreadable, [this](SignedFile& file) {
            file.path = m_tree->link(file.path, u"link"_s);
        });
        row("a folder", notOurs, [this](SignedFile& file) { file.path = m_tree->path(); });
        row("a pipe", notOurs, [](SignedFile& file) {
            file.path += u"pipe"_s;
            QCOMPARE(::mkfifo(qPrintable(file.path), 0600), 0);
        });
        row("a file that others may write", notOurs, [](SignedFile& file) {
            QCOMPARE(::chmod(qPrintable(file.path), 0606), 0);
        });
        row("another user's file", notOurs, [](SignedFile& file) {
            if (::chown(qPrintable(file.path), 12345, 12345) != 0) {
                QSKIP("Only root can give a file away.");
            }
        });
    }

    void whatIsNotGenuineIsRefused()
    {
        const auto [expected, change] = fetch<QString, std::function<void(SignedFile&)>>();
        SignedFile file{.path = m_tree->write(u"a"_s, m_package),
                        .length = m_package.size(),
                        .signature = QByteArray::fromBase64(m_signer.sign(m_package)),
                        .digest = QCryptographicHash::hash(m_package, QCryptographicHash::Sha256),
                        .publicKey = m_signer.publicKey};
        QCOMPARE(UpdateSignature::whyNotGenuine(file), std::nullopt);
        change(file);
        const QString why = UpdateSignature::whyNotGenuine(file).value_or(QString());
        QVERIFY2(why.contains(expected), qPrintable(why));
    }

private:
    const QByteArray m_package = QByteArray("A program. ").repeated(20'000);
    const Test::Signer m_signer;
    std::unique_ptr<Test::FileTree> m_tree;
};

QTEST_GUILESS_MAIN(FilesTest)
#include "FilesTest.moc"
