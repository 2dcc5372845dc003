// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>

#include <QFile>
#include <QTest>

#include <Support/FileTree.h>
#include <sodium.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace Tavik;
using namespace Qt::StringLiterals;
using Tavik::UpdateSignature::SignedFile;

namespace {

const unsigned char* bytes(const QByteArray& data)
{
    return reinterpret_cast<const unsigned char*>(data.constData());
}

unsigned char* bytes(QByteArray& data)
{
    return reinterpret_cast<unsigned char*>(data.data());
}

struct KeyPair
{
    QByteArray publicKey = QByteArray(crypto_sign_PUBLICKEYBYTES, '\0');
    QByteArray secretKey = QByteArray(crypto_sign_SECRETKEYBYTES, '\0');

    KeyPair() { crypto_sign_keypair(bytes(publicKey), bytes(secretKey)); }

    [[nodiscard]] QByteArray sign(const QByteArray& message) const
    {
        QByteArray signature(crypto_sign_BYTES, '\0');
        crypto_sign_detached(bytes(signature),
                             nullptr,
                             bytes(message),
                             static_cast<quint64>(message.size()),
                             bytes(secretKey));
        return signature;
    }
};

} // namespace

class UpdateSignatureTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void onlyWhatWasSignedIsGenuine();
    void everythingElseIsRefused_data();
    void everythingElseIsRefused();
    void onlyWholeKeysAreRead_data();
    void onlyWholeKeysAreRead();

private:
    const QByteArray m_package = QByteArray("A program. ").repeated(20'000);
    std::optional<KeyPair> m_keys;
    Test::FileTree m_tree;
};

void UpdateSignatureTest::initTestCase()
{
    QVERIFY(sodium_init() >= 0);
    m_keys.emplace();
}

void UpdateSignatureTest::onlyWhatWasSignedIsGenuine()
{
    SignedFile file{.path = m_tree.write(u"a"_s, m_package),
                    .length = m_package.size(),
                    .signature = m_keys->sign(m_package),
                    .publicKey = m_keys->publicKey};
    QCOMPARE(UpdateSignature::whyNotGenuine(file), std::nullopt);
    const QByteArray signature = file.signature;
    for (qsizetype at = 0; at < signature.size(); ++at) {
        file.signature = signature;
        file.signature[at] = static_cast<char>(file.signature[at] ^ 1);
        QVERIFY(UpdateSignature::whyNotGenuine(file));
    }
}

void UpdateSignatureTest::everythingElseIsRefused_data()
{
    using Change = std::function<void(SignedFile&)>;
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("expected");

    const QString foreign = u"is not signed by the makers"_s;
    const QString unreadable = u"could not be read"_s;
    const QString notOurs = u"belongs to you alone"_s;
    const auto row = [](const char* name, const QString& expected, const Change& change) {
        QTest::newRow(name) << change << expected;
    };
    row("another key", foreign, [](SignedFile& file) { file.publicKey = KeyPair().publicKey; });
    row("another's signature", foreign, [this](SignedFile& file) {
        file.signature = KeyPair().sign(m_package);
    });
    row("a signature of something else", foreign, [this](SignedFile& file) {
        file.signature = m_keys->sign(m_package + ' ');
    });
    row("a key that everything fits", foreign, [](SignedFile& file) {
        file.publicKey = QByteArray(32, '\0');
        file.signature = QByteArray(64, '\0');
    });
    row("one bit of the file", foreign, [this](SignedFile& file) {
        QByteArray changed = m_package;
        changed[changed.size() - 1] = '!';
        file.path = m_tree.write(u"a"_s, changed);
    });
    row("a file that is too long",
        u"has 220,001 bytes instead of 220,000"_s,
        [this](SignedFile& file) { file.path = m_tree.write(u"a"_s, m_package + ' '); });
    row("a file that is too short", u"has 219,999 bytes instead of"_s, [this](SignedFile& file) {
        file.path = m_tree.write(u"a"_s, m_package.chopped(1));
    });
    row("an empty file", u"has 0 bytes instead of"_s, [this](SignedFile& file) {
        file.path = m_tree.write(u"a"_s, {});
    });
    row("no length", u"no size"_s, [](SignedFile& file) { file.length = 0; });
    row("a negative length", u"no size"_s, [](SignedFile& file) { file.length = -1; });
    row("a length beyond the bound", u"no size"_s, [](SignedFile& file) {
        file.length = 500'000'001;
    });
    row("no signature", u"is not signed"_s, [](SignedFile& file) { file.signature.clear(); });
    row("no key", u"no usable key"_s, [](SignedFile& file) { file.publicKey.clear(); });
    row("no file", unreadable, [](SignedFile& file) { file.path += u"b"_s; });
    row("a link", unreadable, [](SignedFile& file) {
        QVERIFY(QFile::link(file.path, file.path + u"link"_s));
        file.path += u"link"_s;
    });
    row("a folder", notOurs, [this](SignedFile& file) { file.path = m_tree.path(); });
    row("a pipe", notOurs, [](SignedFile& file) {
        file.path += u"pipe"_s;
        QCOMPARE(::mkfifo(QFile::encodeName(file.path).constData(), 0600), 0);
    });
    row("a file that others may write", notOurs, [](SignedFile& file) {
        QVERIFY(::chmod(QFile::encodeName(file.path).constData(), 0606) == 0);
    });
    row("another user's file", notOurs, [](SignedFile& file) {
        if (::chown(QFile::encodeName(file.path).constData(), 12345, 12345) != 0) {
            QSKIP("Only root can give a file away.");
        }
    });
}

void UpdateSignatureTest::everythingElseIsRefused()
{
    QFETCH(const std::function<void(SignedFile&)>, change);
    QFETCH(const QString, expected);
    QFile::remove(m_tree.path(u"a"_s));
    SignedFile file{.path = m_tree.write(u"a"_s, m_package),
                    .length = m_package.size(),
                    .signature = m_keys->sign(m_package),
                    .publicKey = m_keys->publicKey};
    change(file);
    const QString why = UpdateSignature::whyNotGenuine(file).value_or(QString());
    QVERIFY2(why.contains(expected), qPrintable(why));
}

void UpdateSignatureTest::onlyWholeKeysAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isKey");

    const QString key = QString::fromLatin1(QByteArray(32, 'k').toBase64());
    QTest::newRow("a key") << key << true;
    QTest::newRow("spaces around") << u" %1\n"_s.arg(key) << true;
    QTest::newRow("nothing") << u""_s << false;
    QTest::newRow("a byte less") << QString::fromLatin1(QByteArray(31, 'k').toBase64()) << false;
    QTest::newRow("a byte more") << QString::fromLatin1(QByteArray(33, 'k').toBase64()) << false;
    QTest::newRow("no padding") << key.chopped(1) << false;
    QTest::newRow("bits too many") << key.chopped(2) + u"1="_s << false;
    QTest::newRow("a space inside") << key.left(10) + u' ' + key.mid(10) << false;
    QTest::newRow("the letters of addresses")
        << QString::fromLatin1(QByteArray(32, '\xFF').toBase64(QByteArray::Base64UrlEncoding))
        << false;
    QTest::newRow("another script") << u"\u0101"_s + key.mid(1) << false;
    QTest::newRow("endless") << QString(10'000'000, u'A') << false;
}

void UpdateSignatureTest::onlyWholeKeysAreRead()
{
    QFETCH(const QString, text);
    QFETCH(const bool, isKey);
    const auto key = UpdateSignature::fromBase64(text, UpdateSignature::publicKeySize);
    QCOMPARE(key, isKey ? std::optional(QByteArray(32, 'k')) : std::nullopt);
}

QTEST_GUILESS_MAIN(UpdateSignatureTest)
#include "UpdateSignatureTest.moc"
