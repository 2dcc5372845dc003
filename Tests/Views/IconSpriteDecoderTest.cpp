// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/IconSpriteDecoder.h>

#include <QTest>

#include <Support/FakeDesktop.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using namespace Tavik::Test;

class IconSpriteDecoderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void spriteHasRoundedCornersAndAShadow_data()
    {
        QTest::addColumn<int>("side");
        QTest::addColumn<double>("scale");
        QTest::newRow("one to one") << 50 << 1.0;
        QTest::newRow("two to one") << 100 << 2.0;
        QTest::newRow("smallest") << 28 << 1.0;
    }
    void spriteHasRoundedCornersAndAShadow()
    {
        QFETCH(int, side);
        QFETCH(double, scale);
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
};

QTEST_MAIN(IconSpriteDecoderTest)
#include "IconSpriteDecoderTest.moc"
