// SPDX-License-Identifier: MIT
#include <QDir>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QTest>

#include <Fuzz/Mutator.h>
#include <Fuzz/Parsers.h>

using namespace Tavik;
using namespace Qt::StringLiterals;

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

        Test::Mutator mutator(1);
        QElapsedTimer time;
        time.start();
        int understood = 0;
        int runs = 0;
        for (; runs < fewest || time.elapsed() < milliseconds; ++runs) {
            const QByteArray& input = corpus.at(runs % corpus.size());
            const bool isDamaged = runs >= corpus.size();
            understood += read(isDamaged ? mutator.mutate(input) : input) ? 1 : 0;
        }
        qInfo() << runs << "inputs," << understood << "of them understood";
        QVERIFY(understood > 0 && understood < runs);
    }
};

QTEST_MAIN(FuzzTest)
#include "FuzzTest.moc"
