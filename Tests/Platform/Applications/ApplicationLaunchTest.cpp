// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>

#include <QStandardPaths>
#include <QTest>

#include <Support/FileTree.h>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

void write(const QString& path, const QByteArray& text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
}

} // namespace

class ApplicationLaunchTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pagesAndFilesGoToTheDesktopsPrograms()
    {
        const Test::FileTree tree;
        const QString seen = tree.path(u"seen"_s);
        const QString program
            = tree.write(u"opener"_s,
                         "#!/bin/sh\nprintf '%s' \"$1\" > '" + seen.toUtf8() + ".part'\nmv '"
                             + seen.toUtf8() + ".part' '" + seen.toUtf8() + "'\n");
        QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner));
        const auto location = [](QStandardPaths::StandardLocation kind) {
            return QStandardPaths::writableLocation(kind);
        };
        write(location(QStandardPaths::GenericDataLocation) + u"/applications/opener.desktop"_s,
              "[Desktop Entry]\nType=Application\nName=Opener\nExec=" + program.toUtf8() + " %u\n");
        write(location(QStandardPaths::GenericConfigLocation) + u"/mimeapps.list"_s,
              "[Default Applications]\nx-scheme-handler/https=opener.desktop\n"
              "application/x-rpm=opener.desktop\n"
              "application/vnd.debian.binary-package=viewer.desktop\n");
        write(location(QStandardPaths::GenericDataLocation) + u"/applications/viewer.desktop"_s,
              "[Desktop Entry]\nType=Application\nName=Viewer\nExec=true %f\n"
              "Categories=Utility;Archiving;\n");

        const QUrl page(u"https://example.org/what's new?a=1&b=$HOME"_s);
        QCOMPARE(openWithDefault(page).error.value_or(QString()), QString());
        QTRY_VERIFY(QFile::exists(seen));
        QFile file(seen);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), page.toEncoded());

        const QString image = tree.write(u"X.AppImage"_s);
        const DesktopEntry entry{
            .path = image, .command = image, .isApplication = true, .isImage = true};
        const LaunchResult result = launchApplication({.path = image, .entry = entry}, {});
        QVERIFY(result.error.value_or(QString()).contains(image)); // It may not be executed.

        QVERIFY(openWithDefault(QUrl(u"nobody-knows:this"_s)).error);
        QVERIFY(hasInstallerFor(u"application/x-rpm"_s));
        QVERIFY(!hasInstallerFor(u"application/vnd.debian.binary-package"_s));
        QVERIFY(!hasInstallerFor(u"application/vnd.flatpak"_s));
    }
};

QTEST_GUILESS_MAIN(ApplicationLaunchTest)
#include "ApplicationLaunchTest.moc"
