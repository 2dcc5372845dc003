// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppImage.h>
#include <TavikLauncherPlatform/Linux/Updates/Appcast.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateFolder.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateKind.h>

#include <QTest>

#include <Support/FileTree.h>

#include <sys/stat.h>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

/// The beginning of an image of type 2 for the usual computer, and a mark to tell it by.
QByteArray image(const QByteArray& mark)
{
    return QByteArray("\x7f"
                      "ELF\2\1\1\0AI\2\0\0\0\0\0\2\0\x3e\0",
                      20)
        + mark;
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

mode_t modeOf(const QString& path)
{
    struct stat status = {};
    return ::stat(qPrintable(path), &status) == 0 ? status.st_mode & 07777 : 0;
}

} // namespace

class AppImageTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_tree = std::make_unique<Test::FileTree>(); }

    void programRunsFromAnImageOnlyInsideIt()
    {
        const QString program = m_tree->write(u"mount/usr/bin/program"_s);
        const QString mountPoint = m_tree->path(u"mount"_s);
        const QString file = m_tree->path(u"my.AppImage"_s);
        const auto running = [&](const QString& theImage, const QString& theMount) {
            return AppImage::running(
                {.image = theImage, .mountPoint = theMount, .program = program});
        };
        QCOMPARE(running(file, mountPoint), file);
        QCOMPARE(running(file, mountPoint + u'/'), file);
        // Another image has started this program, or nobody has.
        QCOMPARE(running(file, m_tree->makeFolder(u"moun"_s)), QString());
        QCOMPARE(running(file, u"/none"_s), QString());
        QCOMPARE(running(file, QString()), QString());
        QCOMPARE(running(QString(), mountPoint), QString());
        QCOMPARE(running(u"my.AppImage"_s, mountPoint), QString());
    }

    void imageIsReplacedWithItsPermissions()
    {
        const QString target = m_tree->write(u"store/real.AppImage"_s, image("old"));
        const QString link = m_tree->link(u"real.AppImage"_s, u"store/current"_s);
        QCOMPARE(::chmod(qPrintable(target), 0751), 0);
        QFile old(target);
        QVERIFY(old.open(QIODevice::ReadOnly));
        QCOMPARE(AppImage::partFile(link), m_tree->path(u"store/.real.AppImage.update"_s));
        const QString part = m_tree->write(u"store/.real.AppImage.update"_s, image("new"));

        QCOMPARE(AppImage::replace(link, part).value_or(QString()), QString());
        QCOMPARE(contents(target), image("new"));
        QCOMPARE(modeOf(target), mode_t(0751));
        QVERIFY(QFileInfo(link).isSymLink());
        QVERIFY(!QFile::exists(part));
        QCOMPARE(old.readAll(), image("old")); // For the program that still runs.
    }

    void whatIsNoImageIsLeftAlone_data()
    {
        QTest::addColumn<QByteArray>("present");
        QTest::addColumn<QByteArray>("successor");
        QTest::addColumn<QString>("reason");
        const QString foreign = u"The update is made for another kind of computer."_s;
        const QString none = u"The update is not an AppImage, as this program is."_s;
        QByteArray typeOne = image("new");
        typeOne[10] = 1;
        QByteArray arm = image("new");
        arm[18] = char(0xb7);
        QByteArray narrow = image("new");
        narrow[4] = 1;
        QTest::newRow("script") << image("old") << QByteArray("#!/bin/sh\necho new version\n")
                                << none;
        QTest::newRow("empty") << image("old") << QByteArray() << none;
        QTest::newRow("cut") << image("old") << image("").chopped(1) << none;
        QTest::newRow("type 1") << image("old") << typeOne << none;
        QTest::newRow("other processor") << image("old") << arm << foreign;
        QTest::newRow("other words") << image("old") << narrow << foreign;
        QTest::newRow("present is another thing")
            << QByteArray("my letter") << image("new") << QString();
    }

    void whatIsNoImageIsLeftAlone()
    {
        QFETCH(const QByteArray, present);
        QFETCH(const QByteArray, successor);
        QFETCH(const QString, reason);
        const QString target = m_tree->write(u"my.AppImage"_s, present);
        const QString part = m_tree->write(u".part"_s, successor);
        const QString why = AppImage::replace(target, part).value_or(QString());
        QVERIFY(!why.isEmpty());
        QVERIFY(reason.isEmpty() || why == reason);
        QCOMPARE(contents(target), present);
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
        QTest::addColumn<QString>("mimeType");
        QTest::addColumn<QString>("url");
        QTest::addColumn<QString>("plain"); // The ending, or what happens instead.
        QTest::addColumn<QString>("inImage");
        const auto row
            = [](const char* type, const char* url, const QString& plain, const QString& inImage) {
                  QTest::addRow("%s %s", type, url)
                      << QString::fromLatin1(type)
                      << u"https://example.org"_s + QString::fromLatin1(url) << plain << inImage;
              };
        const QString page = u"page"_s;
        const QString replaced = u"image"_s;
        row("application/vnd.debian.binary-package", "/get?id=1", u".deb"_s, page);
        row("Application/X-Deb; charset=binary", "/get", u".deb"_s, page);
        row("application/x-rpm", "/a.deb", u".rpm"_s, page);
        row("application/vnd.flatpak", "/a", u".flatpak"_s, page);
        row("application/octet-stream", "/A.DEB", u".deb"_s, page);
        row("", "/a.pkg.tar.zst", u".pkg.tar.zst"_s, page);
        row("application/vnd.appimage", "/a.deb", page, replaced);
        row("application/octet-stream", "/Tavik-2.1.AppImage", page, replaced);
        row("application/octet-stream", "/get?file=a.deb", page, page);
        row("application/zip", "/a.zip", page, page);
        row("application/x-shellscript", "/install.sh", page, page);
        row("", "", page, page);
    }

    void kindFollowsFromTypeAndEnding()
    {
        QFETCH(const QString, mimeType);
        QFETCH(const QString, url);
        const AppcastEnclosure enclosure{.url = QUrl(url), .mimeType = mimeType};
        const auto described = [&enclosure](bool runsFromImage) {
            const UpdateKind kind = updateKind(enclosure, runsFromImage);
            switch (kind.way) {
            case UpdateKind::Way::replacesImage:
                return u"image"_s;
            case UpdateKind::Way::goesToInstaller:
                return kind.suffix;
            case UpdateKind::Way::isOnPage:
                break;
            }
            return u"page"_s;
        };
        QTEST(described(false), "plain");
        QTEST(described(true), "inImage");
    }

    void folderForPackagesIsOurs()
    {
        const QString folder = m_tree->path(u"cache/TavikLauncher/Updates"_s);
        QCOMPARE(UpdateFolder::prepare(folder).value_or(QString()), QString());
        QCOMPARE(modeOf(folder), mode_t(0700));
        QCOMPARE(::chmod(qPrintable(folder), 0777), 0);
        QCOMPARE(UpdateFolder::prepare(folder).value_or(QString()), QString());
        QCOMPARE(modeOf(folder), mode_t(0700));

        m_tree->makeFolder(u"elsewhere"_s);
        const QString link = m_tree->link(m_tree->path(u"elsewhere"_s), u"link"_s);
        const QString file = m_tree->write(u"file"_s);
        for (const QString& path : {link, file, file + u"/below"_s}) {
            QCOMPARE(UpdateFolder::prepare(path).value_or(QString()),
                     u"The folder “%1” cannot be used for the update."_s.arg(path));
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

private:
    std::unique_ptr<Test::FileTree> m_tree;
};

QTEST_APPLESS_MAIN(AppImageTest)
#include "AppImageTest.moc"
