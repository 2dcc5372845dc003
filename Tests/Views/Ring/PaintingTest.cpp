// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LaunchHints.h>
#include <TavikLauncher/Views/Ring/CenterLayout.h>
#include <TavikLauncher/Views/Ring/IconSpriteDecoder.h>
#include <TavikLauncher/Views/Ring/SlotPainter.h>
#include <TavikLauncher/Views/Ring/ToastPill.h>

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QTest>

#include <Support/FakeDesktop.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/Table.h>
#include <cmath>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

RingScene scene(double diameter, double thickness)
{
    RingScene scene;
    scene.diameter = diameter;
    scene.geometry = RingGeometry::make({.area = QSizeF(diameter, diameter),
                                         .ringThickness = thickness,
                                         .iconSize = 50,
                                         .slotCount = 15});
    scene.center.hint = u"Type to filter..."_s;
    return scene;
}

/// How far the label's rounded corners reach from the ring's centre.
double reach(const RingScene& scene, const CenterLayout::Label& pill)
{
    const QRectF& rect = pill.rect;
    const double cornerRadius = pill.cornerRadius;
    const double x = rect.width() / 2 - cornerRadius;
    const double y = std::max(std::abs(rect.top() - scene.geometry.center.y()),
                              std::abs(rect.bottom() - scene.geometry.center.y()))
        - cornerRadius;
    return std::hypot(x, std::max(y, 0.0)) + cornerRadius;
}

} // namespace

class PaintingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void labelsAndHintsStayInsideTheHole()
    {
        for (const auto& [diameter, thickness] :
             {std::pair(320.0, 80.0), std::pair(250.0, 60.0), std::pair(550.0, 60.0)}) {
            RingScene ring = scene(diameter, thickness);
            ring.center.indicator = u"Search mode"_s;
            ring.center.query = u"a very long text that somebody typed by mistake"_s;
            ring.center.selectedName = u"An Application With A Name Much Wider Than The Ring"_s;
            const QList<CenterLayout::Label> pills = CenterLayout::visibleLabels(ring);
            QCOMPARE(pills.size(), 3);
            for (const CenterLayout::Label& pill : pills) {
                QVERIFY(reach(ring, pill) <= ring.geometry.innerRadius);
            }
        }
        RingScene ring = scene(320, 80);
        MemoryUserDefaults defaults;
        for (int summon = 0; summon < 11; ++summon) {
            ring.center.launchHint = LaunchHints::nextHint(defaults, {.interval = 1}).value();
            const QList<CenterLayout::Label> pills = CenterLayout::visibleLabels(ring);
            QCOMPARE(pills.size(), 2); // The field stays.
            for (const CenterLayout::Label& pill : pills) {
                QVERIFY2(reach(ring, pill) <= ring.geometry.innerRadius,
                         qPrintable(ring.center.launchHint));
            }
            QVERIFY(pills.front().rect.bottom() < pills.back().rect.top());
        }
    }

    void labelsAreStackedAboutTheCenter()
    {
        RingScene ring = scene(320, 80);
        QCOMPARE(CenterLayout::visibleLabels(ring).size(), 1);
        QCOMPARE(CenterLayout::fieldRect(ring).center(), ring.geometry.center);

        ring.center.selectedName = u"Editor"_s;
        QList<CenterLayout::Label> pills = CenterLayout::visibleLabels(ring);
        QCOMPARE(pills.size(), 2);
        QCOMPARE((pills.front().rect.top() + pills.back().rect.bottom()) / 2,
                 ring.geometry.center.y());
        QVERIFY(pills.front().rect.bottom() < CenterLayout::fieldRect(ring).top());

        ring.center.query = u"ed"_s;
        QVERIFY(CenterLayout::visibleLabels(ring).back().rect.top()
                > CenterLayout::fieldRect(ring).bottom());
        ring.center.selectedName.clear();
        ring.center.message = u"No matches"_s;
        QCOMPARE(CenterLayout::visibleLabels(ring).size(), 2);

        RingScene faded = scene(320, 80);
        faded.center.fieldOpacity = 0;
        QVERIFY(CenterLayout::visibleLabels(faded).isEmpty());
        faded.center.indicator = u"Pinned"_s;
        QCOMPARE(CenterLayout::visibleLabels(faded).front().rect.center(), faded.geometry.center);
    }

    void labelsGrowWithTheDesktopsTextUntilItWouldBeCut()
    {
        const QFont before = QGuiApplication::font();
        RingScene wide = scene(550, 60);
        const RingScene plain = scene(320, 80);
        RingScene narrow = plain;
        narrow.center.indicator = u"Search mode"_s;
        narrow.center.message = u"No matches"_s;
        const double usual = CenterLayout::labels(wide).front().rect.height();
        QFont large = before;
        large.setPixelSize(18);
        QGuiApplication::setFont(large);
        const double grown = CenterLayout::labels(wide).front().rect.height();
        const QList<CenterLayout::Label> labels
            = CenterLayout::labels(narrow) + CenterLayout::labels(plain);
        QGuiApplication::setFont(before);
        QVERIFY(grown > usual + 5);
        for (const CenterLayout::Label& label : labels) {
            const QString text = label.text.isEmpty() ? narrow.center.hint : label.text;
            QVERIFY2(QFontMetricsF(label.font).horizontalAdvance(text)
                         <= label.rect.width() - 2 * label.padding + 1,
                     qPrintable(text));
        }
    }

    void namesThatDifferStayApart_data()
    {
        const Table<QString, QString, int> row; // The second line; empty for one line.
        row("fits", u"Files"_s, {}, 14);
        row("shrinks a little", u"LibreOffice Writer"_s, {}, 13);
        row("takes a second line", u"LibreOffice Database Tools"_s, u"Database Tools"_s, 12);
    }
    void namesThatDifferStayApart()
    {
        const auto [name, second, smallest] = fetch<QString, QString, int>();
        RingScene ring = scene(320, 80);
        ring.center.selectedName = name;
        const CenterLayout::Label label = CenterLayout::labels(ring).front();
        QCOMPARE(label.text.split(u'\n').value(1), second);
        QVERIFY(!label.text.contains(u'…'));
        QVERIFY(label.font.pixelSize() >= int(smallest * 0.85));
    }

    void aNameThatIsMuchTooLongLosesItsMiddle()
    {
        RingScene ring = scene(320, 80);
        ring.center.selectedName
            = u"Alderwood Collaborative Photograph Retouching Environment Enterprise"_s;
        const QStringList lines = CenterLayout::labels(ring).front().text.split(u'\n');
        QVERIFY(lines.front().startsWith(u"Alder") && lines.back().endsWith(u"Enterprise"));
    }

    void theSelectedIsPaintedOverItsNeighbours()
    {
        RingScene ring = scene(320, 80);
        ring.selectedSlot = 0;
        QImage picture(50, 50, QImage::Format_ARGB32_Premultiplied);
        for (const Qt::GlobalColor color : {Qt::red, Qt::blue}) {
            picture.fill(color);
            ring.icons.append({.center = {160, 50}, .icon = picture, .isRunning = true});
        }
        QImage image(320, 320, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        SlotPainter::paintSlots(painter, ring, [](const QRectF&) { return true; });
        QCOMPARE(image.pixelColor(160, 50), QColor(Qt::red));
        // White text can be read on the faintest label, whatever lies below.
        painter.fillRect(image.rect(), Qt::white);
        ToastPill{.opacity = 0}.paint(painter, QRectF(100, 100, 80, 30));
        QVERIFY(image.pixelColor(140, 115).lightness() < 118);
    }

    void theMarkIsFullForWhatRunsAndHollowForWhatStarts_data()
    {
        // Whether it runs and whether it starts; whether the mark's rim and its middle are painted.
        const Table<bool, bool, bool, bool> row;
        row("neither", false, false, false, false);
        row("starts", false, true, true, false);
        row("runs", true, false, true, true);
        row("runs and starts another", true, true, true, true);
    }

    void theMarkIsFullForWhatRunsAndHollowForWhatStarts()
    {
        const auto [isRunning, isStarting, hasRim, hasMiddle] = fetch<bool, bool, bool, bool>();
        RingScene ring = scene(320, 80);
        ring.style.dot = Qt::green;
        ring.style.bandTop = Qt::black;
        ring.icons.append({.center = ring.geometry.center - QPointF(0, 110),
                           .isRunning = isRunning,
                           .isStarting = isStarting});
        constexpr int scale = 8;
        QImage image(QSize(320, 320) * scale, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        {
            QPainter painter(&image);
            painter.scale(scale, scale);
            SlotPainter::paintSlots(painter, ring, [](const QRectF&) { return true; });
        }
        const QPointF middle = SlotPainter::dotCenter(ring, ring.icons.first());
        const auto isPainted = [&](QPointF place) {
            return image.pixelColor((place * scale).toPoint()) == QColor(Qt::green);
        };
        QCOMPARE(isPainted(middle + QPointF(2.5, 0)), hasRim);
        QCOMPARE(isPainted(middle), hasMiddle);
    }

    void spriteHasRoundedCornersAndAShadow()
    {
        for (const auto& [side, scale] :
             {std::pair(50, 1.0), std::pair(100, 2.0), std::pair(28, 1.0)}) {
            ColorIconDecoder icons;
            const QImage sprite = IconSpriteDecoder(icons).decode({u"red"_s}, side, scale);
            const int margin = (sprite.width() - side) / 2;
            const int middle = sprite.width() / 2;

            QCOMPARE(sprite.devicePixelRatio(), scale);
            QCOMPARE(sprite.width(), sprite.height());
            QVERIFY(margin >= 5 * scale);
            QCOMPARE(sprite.pixelColor(middle, middle), QColor(Qt::red));
            QCOMPARE(sprite.pixelColor(middle, margin + 1), QColor(Qt::red));
            QVERIFY(sprite.pixelColor(margin, margin).alphaF() < 0.25F);

            const QColor below = sprite.pixelColor(middle, margin + side + qRound(scale));
            QCOMPARE(below.red(), 0);
            QVERIFY(below.alphaF() > 0.05F && below.alphaF() <= 0.22F);
            const QColor above = sprite.pixelColor(middle, margin - qRound(scale) - 1);
            QVERIFY(above.alphaF() < below.alphaF());
            QCOMPARE(sprite.pixelColor(0, 0).alpha(), 0);
        }
    }
};

QTEST_MAIN(PaintingTest)
#include "PaintingTest.moc"
