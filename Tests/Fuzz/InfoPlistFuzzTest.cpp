// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Files/ApplicationFolder.h>

#include <QElapsedTimer>
#include <QTest>

#include <Fuzz/Mutator.h>
#include <cstdlib>
#include <plist/plist.h>

using namespace Tavik;
using namespace Tavik::Test;

namespace {

const QByteArray wellFormed
    = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<!DOCTYPE plist SYSTEM \"plist.dtd\">\n"
      "<plist version=\"1.0\"><dict>\n"
      "<key>CFBundleName</key><string>Viewer &amp; more</string>\n"
      "<key>CFBundleIdentifier</key><string>org.example.viewer</string>\n"
      "<key>CFBundleIconFile</key><string>Icon</string>\n"
      "<key>Version</key><real>1.5</real><key>Count</key><integer>7</integer>\n"
      "<key>Data</key><data>AAEC</data><key>Date</key><date>2020-01-01T00:00:00Z</date>\n"
      "<key>Types</key><array><dict><key>Role</key><string>\xC3\xA9</string></dict><true/></"
      "array>\n"
      "</dict></plist>\n";

QByteArray wellFormedBinary()
{
    plist_t node = nullptr;
    plist_from_memory(wellFormed.constData(), static_cast<uint32_t>(wellFormed.size()), &node);
    char* bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    const QByteArray result(bytes, static_cast<qsizetype>(length));
    std::free(bytes);
    plist_free(node);
    return result;
}

} // namespace

class InfoPlistFuzzTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedListsAreReadOrRefused_data();
    void damagedListsAreReadOrRefused();
};

void InfoPlistFuzzTest::damagedListsAreReadOrRefused_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::newRow("xml") << wellFormed;
    QTest::newRow("binary") << wellFormedBinary();
}

void InfoPlistFuzzTest::damagedListsAreReadOrRefused()
{
    QFETCH(QByteArray, list);
    QVERIFY(ApplicationFolder::parse(list));
    Mutator mutator(11);
    QElapsedTimer time;
    time.start();
    int understood = 0;
    int runs = 0;
    for (; time.elapsed() < 800; ++runs) {
        const QByteArray damaged = mutator.mutate(list);
        if (damaged.size() > ApplicationFolder::maxInfoSize) {
            continue; // Is refused before it is read.
        }
        understood += ApplicationFolder::parse(damaged) ? 1 : 0;
    }
    qInfo() << runs << "lists," << understood << "of them understood";
    QVERIFY(understood > 0 && understood < runs);
}

QTEST_APPLESS_MAIN(InfoPlistFuzzTest)
#include "InfoPlistFuzzTest.moc"
