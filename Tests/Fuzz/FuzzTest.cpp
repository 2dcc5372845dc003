// SPDX-License-Identifier: MIT
#include <QDir>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QTest>

#include <Fuzz/Parsers.h>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

/// Well-formed input after a few changes, the same each time.
QByteArray damaged(QByteArray bytes, QRandomGenerator& random)
{
    static const QByteArrayList tokens
        = QByteArray(
              "\xff\xfe|\xed\xa0\x80|<|>|</|<!--|-->|<![CDATA[|&#0;|&#xffffffff;|\"|\\u0000|{|["
              "|-1|1e999|nan|18446744073709551616|\n")
              .split('|')
        << QByteArray(1, '\0');
    for (int left = random.bounded(1, 5); left > 0; --left) {
        const qsizetype place = random.bounded(bytes.size() + 1);
        const QByteArray piece = bytes.mid(random.bounded(bytes.size() + 1), random.bounded(1, 65));
        switch (random.bounded(6)) {
        case 0:
            bytes.replace(place, 1, QByteArray(1, static_cast<char>(random.bounded(256))));
            break;
        case 1:
            bytes.truncate(place);
            break;
        case 2: // Large ones are slow to digest and therefore rare.
            bytes.insert(place, piece.repeated(random.bounded(200) == 0 ? 50'000 : 1));
            break;
        case 3:
            bytes.replace(place, 32, piece);
            break;
        case 4:
            bytes.remove(place, random.bounded(1, 33));
            break;
        default:
            bytes.insert(place, tokens.at(random.bounded(tokens.size())));
        }
    }
    return bytes;
}

} // namespace

/// Each parser over damaged forms of its corpus, for a moment and in the same order each time. The
/// parsers themselves ask whether what they have read is safe.
class FuzzTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedInputIsReadSafelyOrRefused_data()
    {
        QTest::addColumn<std::size_t>("parser");
        for (std::size_t number = 0; number < Fuzz::parsers.size(); ++number) {
            QTest::newRow(Fuzz::parsers.at(number).name) << number;
        }
    }

    void damagedInputIsReadSafelyOrRefused()
    {
        constexpr qint64 milliseconds = 500;
        constexpr int fewest = 200; // Where there is little time for it.
        QFETCH(std::size_t, parser);
        const auto [name, read] = Fuzz::parsers.at(parser);
        QLoggingCategory::setFilterRules(u"tavik.*=false\nqt.*=false"_s);

        QByteArrayList corpus;
        const QDir folder(QStringLiteral(TAVIK_CORPUS "/") + QLatin1String(name));
        for (const QFileInfo& entry : folder.entryInfoList(QDir::Files)) {
            QFile file(entry.filePath());
            QVERIFY(file.open(QIODevice::ReadOnly));
            corpus << file.readAll();
        }
        QVERIFY(!corpus.isEmpty());

        QRandomGenerator random(1);
        QElapsedTimer time;
        time.start();
        int understood = 0;
        int runs = 0;
        for (; runs < fewest || time.elapsed() < milliseconds; ++runs) {
            const QByteArray& input = corpus.at(runs % corpus.size());
            const bool isDamaged = runs >= corpus.size();
            understood += read(isDamaged ? damaged(input, random) : input) ? 1 : 0;
        }
        qInfo() << runs << "inputs," << understood << "of them understood";
        QVERIFY(understood > 0 && understood < runs);
    }
};

QTEST_MAIN(FuzzTest)
#include "FuzzTest.moc"
