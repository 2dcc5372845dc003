// SPDX-License-Identifier: MIT
#include "Scenes.h"
#include <TavikLauncher/Languages/Languages.h>

#include <QApplication>
#include <QCollator>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>

#include <algorithm>
#include <cstdio>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// One desktop to show everything on.
struct Surroundings
{
    QString scheme;
    double scale = 1;
    double font = 1;

    [[nodiscard]] QString name() const
    {
        return u"%1-%2x-font%3"_s.arg(scheme).arg(scale).arg(font);
    }
};

QList<Surroundings> allSurroundings()
{
    QList<Surroundings> all;
    for (const QString& scheme : {u"light"_s, u"dark"_s, u"contrast-light"_s, u"contrast-dark"_s}) {
        for (const double scale : {1.0, 1.5, 2.0}) {
            for (const double font : {1.0, 1.5}) {
                all.append({scheme, scale, font});
            }
        }
    }
    // In the writing of others, and as it is used without a pointer.
    for (const QString& scheme : {u"rtl-light"_s, u"rtl-dark"_s, u"keys-light"_s, u"keys-dark"_s}) {
        all.append({.scheme = scheme});
    }
    return all;
}

/// The scale can be chosen only before the toolkit starts, so each desktop has a process.
bool drawIn(const Surroundings& surroundings, const QString& folder)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"QT_SCALE_FACTOR"_s, QString::number(surroundings.scale));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {u"--scheme"_s,
                   surroundings.scheme,
                   QString::number(surroundings.font),
                   QDir(folder).filePath(surroundings.name())});
    constexpr int longest = 120'000;
    return process.waitForFinished(longest) && process.exitCode() == 0;
}

/// Every picture of every desktop, one desktop below the other.
QImage contactSheet(const QList<QStringList>& desktops)
{
    constexpr QSize cell(300, 240);
    constexpr int gap = 10;
    constexpr int columns = 7;
    int rows = 0;
    for (const QStringList& pictures : desktops) {
        rows += int(pictures.size() + columns - 1) / columns;
    }
    QImage sheet(columns * (cell.width() + gap) + gap,
                 rows * (cell.height() + gap) + gap,
                 QImage::Format_RGB32);
    sheet.fill(QColor(0x80, 0x82, 0x88));
    QPainter painter(&sheet);
    int above = 0;
    for (const QStringList& pictures : desktops) {
        for (int i = 0; i < pictures.size(); ++i) {
            const QImage picture = QImage(pictures.at(i))
                                       .scaled(cell, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            const QRect place(gap + i % columns * (cell.width() + gap),
                              gap + (above + i / columns) * (cell.height() + gap),
                              cell.width(),
                              cell.height());
            QRect frame(QPoint(), picture.size());
            frame.moveCenter(place.center());
            painter.drawImage(frame.topLeft(), picture);
        }
        above += int(pictures.size() + columns - 1) / columns;
    }
    return sheet;
}

/// Those in `folder` whose name matches, "page-2" before "page-10".
QStringList picturesIn(const QDir& folder, const QRegularExpression& only)
{
    QStringList names = folder.entryList({u"*.png"_s}, QDir::Files);
    names.removeIf([&only](const QString& name) { return !name.contains(only); });
    QCollator numbers(QLocale(QLocale::English)); // That of "C" knows no numbers.
    numbers.setNumericMode(true);
    std::ranges::sort(names, numbers);
    for (QString& name : names) {
        name = folder.filePath(name);
    }
    return names;
}

/// Draws the desktops whose name matches, and a sheet of those pictures whose name does.
int drawAll(const QString& folder,
            const QRegularExpression& desktopsOnly,
            const QRegularExpression& picturesOnly)
{
    QList<QStringList> desktops;
    for (const Surroundings& surroundings : allSurroundings()) {
        if (!surroundings.name().contains(desktopsOnly)) {
            continue;
        }
        if (!drawIn(surroundings, folder)) {
            std::fprintf(stderr, "%s could not be drawn\n", qPrintable(surroundings.name()));
            return 1;
        }
        desktops.append(picturesIn(QDir(QDir(folder).filePath(surroundings.name())), picturesOnly));
    }
    return contactSheet(desktops).save(QDir(folder).filePath(u"sheet.png"_s)) ? 0 : 1;
}

int drawOne(const QString& scheme, double font, const QString& folder)
{
    QDir().mkpath(folder);
    QFont usual = QApplication::font();
    constexpr int usualSize = 12;
    usual.setPixelSize(qRound(usualSize * font));
    QApplication::setFont(usual);
    GalleryScenes scenes(scheme);
    scenes.drawAll([&folder](const QString& name, const QImage& picture, QWidget*) {
        picture.save(QDir(folder).filePath(name + u".png"_s));
    });
    return 0;
}

} // namespace

/// tavik-gallery FOLDER [DESKTOPS [PICTURES]]: in the language of the session ("LANGUAGE=de");
/// those desktops, and on the sheet those pictures, whose name has a part that matches the
/// expression.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Languages::speak(application, Languages::chosen(QLocale::system().uiLanguages()));
    const QStringList arguments = application.arguments();
    if (arguments.size() == 5 && arguments.at(1) == u"--scheme") {
        return drawOne(arguments.at(2), arguments.at(3).toDouble(), arguments.at(4));
    }
    if (arguments.size() < 2 || arguments.at(1).startsWith(u'-')) {
        std::fputs("tavik-gallery FOLDER [DESKTOPS [PICTURES]], as light-1x or dark, and ring\n",
                   stderr);
        return 2;
    }
    return drawAll(arguments.at(1),
                   QRegularExpression(arguments.value(2)),
                   QRegularExpression(arguments.value(3)));
}
