// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/AppIconArtwork.h>
#include <TavikLauncher/Look/TavikIconFactory.h>

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <QTextStream>

#include <cstdio>

using namespace Tavik;
using namespace Qt::StringLiterals;

// Writes the application's icon, as the program draws it, into a folder laid out like an icon
// theme: `tavik-icons Resources/icons/hicolor`.

namespace {

const QString& applicationId()
{
    static const QString id = u"org.tavik.Launcher"_s;
    return id;
}

bool writeImage(const QDir& theme, int side)
{
    const QString folder = u"%1x%1/apps"_s.arg(side);
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    AppIconArtwork::paint(painter, side);
    painter.end();
    return theme.mkpath(folder)
        && image.save(theme.filePath(folder + u'/' + applicationId() + u".png"_s));
}

bool writeVector(const QDir& theme,
                 const QString& folder,
                 const QString& name,
                 int side,
                 void (*paint)(QPainter&, double))
{
    if (!theme.mkpath(folder)) {
        return false;
    }
    QSvgGenerator generator;
    generator.setFileName(theme.filePath(folder + u'/' + name + u".svg"_s));
    generator.setTitle(u"Tavik Launcher"_s);
    generator.setDescription(QString());
    generator.setSize(QSize(side, side));
    generator.setViewBox(QRect(0, 0, side, side));
    generator.setResolution(96);
    QPainter painter(&generator);
    paint(painter, side);
    return painter.end();
}

bool exportIcons(const QDir& theme)
{
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        if (!writeImage(theme, side)) {
            return false;
        }
    }
    return writeVector(theme, u"scalable/apps"_s, applicationId(), 256, &AppIconArtwork::paint)
        && writeVector(theme,
                       u"symbolic/apps"_s,
                       applicationId() + u"-symbolic"_s,
                       16,
                       &AppIconArtwork::paintSymbolic);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2 || !exportIcons(QDir(QString::fromLocal8Bit(argv[1])))) {
        QTextStream(stderr) << u"usage: tavik-icons FOLDER\n"_s;
        return 1;
    }
    return 0;
}
