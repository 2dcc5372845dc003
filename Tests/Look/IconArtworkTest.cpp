// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/AppIconArtwork.h>
#include <TavikLauncher/Look/TavikIconFactory.h>

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <QTest>

#include <cmath>
#include <numbers>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

QImage drawn(const QIcon& icon, int side)
{
    return icon.pixmap(QSize(side, side)).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// The covered area in pixels.
double area(const QImage& image)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            sum += qAlpha(image.pixel(x, y)) / 255.0;
        }
    }
    return sum;
}

QImage painted(void (*paint)(QPainter&, double), int side)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter, side);
    return image;
}

/// The mean difference of a channel over both pictures, 0 to 255.
double difference(const QImage& first, const QImage& second)
{
    const QImage a = first.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage b = second.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    double sum = 0;
    for (qsizetype i = 0; i < a.sizeInBytes(); ++i) {
        sum += std::abs(a.constBits()[i] - b.constBits()[i]);
    }
    return sum / static_cast<double>(a.sizeInBytes());
}

QString iconFile(const QString& name)
{
    return QStringLiteral(TAVIK_ICONS) + u'/' + name;
}

} // namespace

class IconArtworkTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theWheelIsTheSymbolicIcon()
    {
        const QImage wheel = drawn(TavikIconFactory::statusIcon({.size = 200}), 200);
        QVERIFY(difference(wheel, painted(&AppIconArtwork::paintSymbolic, 200)) < 1);
    }

    void dotsKeepALeastRadius()
    {
        for (const auto& [size, radius] :
             {std::pair(12, 1.8), std::pair(16, 1.84), std::pair(18, 2.07), std::pair(100, 11.5)}) {
            const QImage wheel = drawn(TavikIconFactory::statusIcon({.size = double(size)}), size);
            const double expected = 6 * std::numbers::pi * radius * radius;
            QVERIFY2(std::abs(area(wheel) / expected - 1) < 0.015,
                     qPrintable(QString::number(size)));
        }
    }

    void badgeSitsInTheUpperRightCorner()
    {
        const QIcon icon = TavikIconFactory::statusIcon({.size = 200, .showsUpdateBadge = true});
        QVERIFY(!icon.isMask());
        QVERIFY(TavikIconFactory::statusIcon({.labelColor = Qt::white}).isMask());
        const QImage badge = drawn(icon, 200);
        const QRgb red = badge.pixel(200 - 38, 38);
        QVERIFY(qRed(red) > 200 && qBlue(red) < 90);
        QCOMPARE(badge.pixel(200 - 3, 38), red);
        QCOMPARE(badge.pixel(200 - 38, 3), red);
        QCOMPARE(badge.pixel(200 - 73, 38), red);
        QVERIFY(badge.pixel(38, 38) != red);
        QCOMPARE(badge.pixelColor(100, 100 - 24), badge.pixelColor(100, 28)); // The middle dot.
        QCOMPARE(badge.pixelColor(100, 100 - 27).alpha(), 0);
    }

    void badgeVariantFollowsThePaletteWhenDrawn()
    {
        const QIcon icon = TavikIconFactory::statusIcon({.showsUpdateBadge = true});
        const QPalette before = QGuiApplication::palette();
        for (const QColor& text : {QColor(Qt::white), QColor(20, 30, 40)}) {
            QPalette palette;
            palette.setColor(QPalette::WindowText, text);
            QGuiApplication::setPalette(palette);
            QCOMPARE(drawn(icon, 100).pixelColor(50, 50), text);
        }
        QGuiApplication::setPalette(before);
    }

    void checkedInImagesShowWhatTheProgramDraws()
    {
        for (const int side : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
            const QImage file(iconFile(u"%1x%1/apps/org.tavik.Launcher.png"_s.arg(side)));
            QCOMPARE(file.size(), QSize(side, side));
            const QImage own = drawn(TavikIconFactory::appIcon(side), side);
            QVERIFY(difference(file, own) < 1);
            // A tile with round corners and something of every colour on it.
            QCOMPARE(own.pixelColor(0, 0).alpha(), 0);
            QCOMPARE(own.pixelColor(side / 2, side / 2), QColor(Qt::white));
        }
    }

    void checkedInVectorsShowWhatTheProgramDraws()
    {
        for (const auto& [name, paint] :
             {std::pair(u"scalable/apps/org.tavik.Launcher.svg"_s, &AppIconArtwork::paint),
              std::pair(u"symbolic/apps/org.tavik.Launcher-symbolic.svg"_s,
                        &AppIconArtwork::paintSymbolic)}) {
            QSvgRenderer renderer(iconFile(name));
            QVERIFY(renderer.isValid());
            QImage image(256, 256, QImage::Format_ARGB32);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            renderer.render(&painter);
            painter.end();
            QVERIFY(difference(image, painted(paint, 256)) < 1);
        }
    }
};

QTEST_MAIN(IconArtworkTest)
#include "IconArtworkTest.moc"
