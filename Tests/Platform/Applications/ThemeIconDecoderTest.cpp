// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/SessionIconTheme.h>
#include <TavikLauncherPlatform/Linux/Applications/ThemeIconDecoder.h>

#include <QBitmap>
#include <QBuffer>
#include <QRegion>
#include <QStandardPaths>
#include <QTest>

#include <Support/FileTree.h>
#include <Support/Table.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

QByteArray png(QSize size, QColor color, QImage::Format format = QImage::Format_ARGB32)
{
    QImage picture(size, QImage::Format_ARGB32);
    picture.fill(color);
    const QImage image = picture.convertToFormat(format);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray svg(const char* color)
{
    return QByteArray("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 16 16'>"
                      "<rect width='16' height='16' fill='")
        + color + "'/></svg>";
}

/// An index of folders "16", "48", "48@2", "256" and "scalable".
QByteArray index(const QByteArray& inherits)
{
    return "[Icon Theme]\nName=T\nInherits=" + inherits
        + "\nDirectories=16,48,48@2,256,scalable,../out\n"
          "[16]\nSize=16\nType=Fixed\nContext=Applications\n"
          "[48]\nSize=48\nType=Threshold\nContext=Applications\n"
          "[48@2]\nSize=48\nScale=2\nType=Fixed\nContext=Applications\n"
          "[256]\nSize=256\nType=Fixed\nContext=Applications\n"
          "[scalable]\nSize=64\nMinSize=8\nMaxSize=512\nType=Scalable\nContext=Applications\n"
          "[../out]\nSize=40\nType=Fixed\n";
}

QColor centre(const QImage& image)
{
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

} // namespace

class ThemeIconDecoderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_tree = std::make_unique<FileTree>();
        m_decoder.reset();
        chooseTheme("Test");
    }

    void theBestFileIsTaken_data()
    {
        const Table<QStringList, int, double, QString> row;
        const QStringList all{
            u"16/x.png"_s, u"48/x.png"_s, u"48@2/x.png"_s, u"256/x.png"_s, u"scalable/x.svg"_s};
        row("exact", all, 48, 1.0, u"48/x.png"_s);
        row("exact for the scale", all, 96, 2.0, u"48@2/x.png"_s);
        row("next larger", all, 40, 1.0, u"48/x.png"_s);
        row("vector before far too large", all, 110, 1.0, u"scalable/x.svg"_s);
        const QString vector = u"scalable/x.svg"_s;
        row("vector before enlarging", {u"48/x.png"_s, vector}, 92, 1.0, vector);
        row("small vector before it", {u"48/x.png"_s, u"16/x.svg"_s}, 92, 1.0, u"16/x.svg"_s);
        row("larger before smaller", {u"16/x.png"_s, u"256/x.png"_s}, 24, 1.0, u"256/x.png"_s);
        row("the largest of the small", {u"16/x.png"_s, u"48/x.png"_s}, 92, 1.0, u"48/x.png"_s);
        row("outside of the theme", {u"16/x.png"_s, u"../out/x.png"_s}, 40, 1.0, u"16/x.png"_s);
    }

    void theBestFileIsTaken()
    {
        const auto [files, side, scale, best] = fetch<QStringList, int, double, QString>();
        m_tree->write(u"user/Test/index.theme"_s, index(""));
        for (const QString& file : files) {
            const bool isBest = file == best;
            // Some come from the other theme folder: a theme may be spread over both.
            m_tree->write((file.startsWith(u"48"_s) ? u"system/Test/"_s : u"user/Test/"_s) + file,
                          file.endsWith(u".svg"_s) ? svg(isBest ? "#00ff00" : "#ff0000")
                                                   : png({32, 32}, isBest ? Qt::green : Qt::red));
        }
        QCOMPARE(centre(decode(u"x"_s, side, scale)), QColor(Qt::green));
    }

    void themesInheritAndEndWithTheFallback()
    {
        m_tree->write(u"user/Test/index.theme"_s, index("Missing, Parent"));
        m_tree->write(u"user/Parent/index.theme"_s, index("Test,Grand"));
        m_tree->write(u"user/Grand/index.theme"_s, index("Parent"));
        m_tree->write(u"user/Test/16/a.png"_s, png({16, 16}, Qt::green));
        m_tree->write(u"user/Parent/48/a.png"_s, png({48, 48}, Qt::red));
        m_tree->write(u"user/Grand/48/b.png"_s, png({48, 48}, Qt::green));
        m_tree->write(u"user/hicolor/48x48/apps/b.png"_s, png({48, 48}, Qt::red));
        m_tree->write(u"user/hicolor/48x48/apps/c.png"_s, png({48, 48}, Qt::green));
        m_tree->write(u"pixmaps/c.png"_s, png({48, 48}, Qt::red));
        m_tree->write(u"pixmaps/d.xpm"_s,
                      "/* XPM */\nstatic char *d[] = {\"1 1 1 1\", \"a c #00ff00\", \"a\"};\n");
        for (const QString& name : {u"a"_s, u"b"_s, u"c"_s, u"d"_s}) {
            QCOMPARE(centre(decode(name, 48)), QColor(Qt::green));
        }
    }

    void aBrokenFileGivesWayToTheNext()
    {
        m_tree->write(u"user/Test/index.theme"_s, index(""));
        m_tree->write(u"user/Test/48/x.png"_s, "not a picture");
        m_tree->makeFolder(u"user/Test/48@2/x.png"_s);
        m_tree->write(u"user/Test/scalable/x.svg"_s, svg("#00ff00"));
        QCOMPARE(centre(decode(u"x"_s, 48)), QColor(Qt::green));

        m_tree->write(u"user/Test/48/application-x-executable.png"_s, png({48, 48}, Qt::blue));
        QCOMPARE(centre(decode(m_tree->path(u"user/Test/48/x.png"_s), 48)), QColor(Qt::blue));
    }

    void hostileFilesGiveTheGenericIcon_data()
    {
        const Table<QByteArray> row;
        row("empty", {});
        row("cut picture", png({48, 48}, Qt::red).first(60));
        row("too wide picture", png({5000, 1}, Qt::red));
        row("gigantic picture",
            QByteArray("P6\n40000 40000\n255\n").append(QByteArray(100, '\xFF')));
        row("nested vector picture",
            "<svg xmlns='http://www.w3.org/2000/svg'>" + QByteArray("<g>").repeated(200'000));
        row("an endless vector file", "<svg>" + QByteArray(5 * 1024 * 1024, ' '));
    }

    void hostileFilesGiveTheGenericIcon()
    {
        const auto [content] = fetch<QByteArray>();
        const QString path = m_tree->write(u"x.png"_s, content);
        QCOMPARE(decode(path, 48), decode({}, 48));
    }

    void eachKindOfPngIsRead()
    {
        const QColor half(255, 0, 0, 128);
        const QColor gray(96, 96, 96);
        for (const auto& [format, color] : {std::pair(QImage::Format_ARGB32, half),
                                            {QImage::Format_RGBA64, half},
                                            {QImage::Format_Indexed8, QColor(Qt::red)},
                                            {QImage::Format_RGB32, gray},
                                            {QImage::Format_Grayscale8, gray},
                                            {QImage::Format_Grayscale16, gray},
                                            {QImage::Format_Mono, QColor(Qt::white)}}) {
            const QString path = m_tree->write(u"x.png"_s, png({48, 48}, color, format));
            QCOMPARE(centre(decode(path, 48)), color);
        }
    }

    void picturesAreFittedAndCentred_data()
    {
        // The size, and what is covered of a square of 60 pixels.
        const Table<QSize, QRect> row;
        row("same", {60, 60}, {0, 0, 60, 60});
        row("wide", {200, 100}, {0, 15, 60, 30});
        row("a little small", {40, 40}, {0, 0, 60, 60});
        row("far too small", {18, 18}, {15, 15, 30, 30});
        row("hair line", {4000, 1}, {0, 29, 60, 1});
    }

    void picturesAreFittedAndCentred()
    {
        const auto [size, covered] = fetch<QSize, QRect>();
        const QImage image = decode(m_tree->write(u"x.png"_s, png(size, Qt::green)), 60);
        QCOMPARE(image.size(), QSize(60, 60));
        QCOMPARE(image.format(), QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(image.pixelColor(covered.center()), QColor(Qt::green));
        const QRegion drawn(QBitmap::fromImage(image.createAlphaMask()));
        QCOMPARE(drawn, QRegion(covered));
    }

    void whatIsInstalledOrChosenLaterIsSeenOnceReloaded()
    {
        QCOMPARE(decode(u"x"_s, 48), decode({}, 48));
        for (const auto& [theme, color] : {std::pair("Test", Qt::green), {"Other", Qt::blue}}) {
            const QString folder = u"user/%1/"_s.arg(QLatin1String(theme));
            m_tree->write(folder + u"index.theme"_s, index(""));
            m_tree->write(folder + u"48/x.png"_s, png({48, 48}, color));
            chooseTheme(theme);
            m_decoder->reload();
            QCOMPARE(centre(decode(u"x"_s, 48)), QColor(color));
        }
        chooseTheme("../user/Missing");
        m_decoder->reload();
        QCOMPARE(decode(u"x"_s, 48), decode({}, 48));
    }

    void sourcesLeadNowhereElse()
    {
        m_tree->write(u"user/Test/index.theme"_s, index(""));
        m_tree->write(u"user/Test/48/x.png"_s, png({48, 48}, Qt::green));
        for (const QString& source : {u"../48/x"_s, u"/"_s, u"/dev/zero"_s, u"a/b"_s}) {
            QCOMPARE(decode(source, 48), decode({}, 48));
        }
    }

private:
    /// As the user of a bare window manager does.
    static void chooseTheme(const QByteArray& name)
    {
        const QDir folder(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
        folder.mkpath(u"gtk-3.0"_s);
        QFile file(folder.filePath(u"gtk-3.0/settings.ini"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[Settings]\ngtk-icon-theme-name=" + name + '\n');
    }
    [[nodiscard]] QImage decode(const QString& source, int side, double scale = 1)
    {
        if (!m_decoder) {
            const IconFolders folders{.themes
                                      = {m_tree->path(u"user"_s), m_tree->path(u"system"_s)},
                                      .pixmaps = {m_tree->path(u"pixmaps"_s)}};
            m_decoder = std::make_unique<ThemeIconDecoder>(
                [folders] { return sessionIconTheme({}, folders); },
                [](const QString& name) { return name; },
                folders);
        }
        return m_decoder->decode(AppIcon{source}, side, scale);
    }

    std::unique_ptr<FileTree> m_tree;
    std::unique_ptr<ThemeIconDecoder> m_decoder;
};

QTEST_MAIN(ThemeIconDecoderTest)
#include "ThemeIconDecoderTest.moc"
