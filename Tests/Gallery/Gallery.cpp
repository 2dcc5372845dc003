// SPDX-License-Identifier: MIT
#include "Scenes.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QProcess>

#include <array>
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
    for (const QString& scheme : {u"light"_s, u"dark"_s, u"contrast"_s}) {
        for (const double scale : {1.0, 1.5, 2.0}) {
            for (const double font : {1.0, 1.5}) {
                all.append({scheme, scale, font});
            }
        }
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

/// Every picture of every desktop: a row for each desktop, a column for each picture.
QImage contactSheet(const QList<QStringList>& rows)
{
    constexpr QSize cell(300, 240);
    constexpr int gap = 8;
    qsizetype columns = 0;
    for (const QStringList& row : rows) {
        columns = std::max(columns, row.size());
    }
    QImage sheet(int(columns) * (cell.width() + gap) + gap,
                 int(rows.size()) * (cell.height() + gap) + gap,
                 QImage::Format_RGB32);
    sheet.fill(QColor(0x80, 0x82, 0x88));
    QPainter painter(&sheet);
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < rows.at(row).size(); ++column) {
            const QImage picture = QImage(rows.at(row).at(column))
                                       .scaled(cell, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            const QPoint corner(gap + column * (cell.width() + gap),
                                gap + row * (cell.height() + gap));
            painter.drawImage(corner
                                  + QPoint((cell.width() - picture.width()) / 2,
                                           (cell.height() - picture.height()) / 2),
                              picture);
        }
    }
    return sheet;
}

int drawAll(const QString& folder, const QString& only)
{
    QList<QStringList> rows;
    for (const Surroundings& surroundings : allSurroundings()) {
        if (!surroundings.name().contains(only)) {
            continue;
        }
        if (!drawIn(surroundings, folder)) {
            std::fprintf(stderr, "%s could not be drawn\n", qPrintable(surroundings.name()));
            return 1;
        }
        const QDir made(QDir(folder).filePath(surroundings.name()));
        QStringList row;
        for (const QString& file : made.entryList({u"*.png"_s}, QDir::Files, QDir::Name)) {
            row.append(made.filePath(file));
        }
        rows.append(row);
    }
    return contactSheet(rows).save(QDir(folder).filePath(u"sheet.png"_s)) ? 0 : 1;
}

int drawOne(const QString& scheme, double font, const QString& folder)
{
    QDir().mkpath(folder);
    QFont usual = QApplication::font();
    constexpr int usualSize = 12;
    usual.setPixelSize(qRound(usualSize * font));
    QApplication::setFont(usual);
    GalleryScenes scenes(scheme);
    scenes.drawAll([&folder](const QString& name, const QImage& picture) {
        picture.save(QDir(folder).filePath(name + u".png"_s));
    });
    return 0;
}

} // namespace

/// tavik-gallery FOLDER [PART-OF-A-DESKTOP'S-NAME]
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() == 5 && arguments.at(1) == u"--scheme") {
        return drawOne(arguments.at(2), arguments.at(3).toDouble(), arguments.at(4));
    }
    if (arguments.size() < 2) {
        std::fputs("tavik-gallery FOLDER [PART], as light-1x or dark\n", stderr);
        return 2;
    }
    return drawAll(arguments.at(1), arguments.value(2));
}
