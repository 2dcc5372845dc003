// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QFile>
#include <QLocale>

#include <fcntl.h>
#include <sodium.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tavik::UpdateSignature {

static_assert(publicKeySize == crypto_sign_PUBLICKEYBYTES && signatureSize == crypto_sign_BYTES
              && digestSize == crypto_hash_sha256_BYTES);

namespace {

/// What must not change while a file is being verified.
struct FileState
{
    qint64 length = 0;
    qint64 modified = 0; ///< Nanoseconds.
    qint64 changed = 0; ///< Nanoseconds.

    bool operator==(const FileState&) const = default;
};

/// Absent unless it is a regular file that is ours alone.
std::optional<FileState> privateFile(int descriptor)
{
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)
        || status.st_uid != ::geteuid() || (status.st_mode & S_IWOTH) != 0) {
        return {};
    }
    const auto nanoseconds = [](const timespec& time) {
        return qint64{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
    };
    return FileState{.length = status.st_size,
                     .modified = nanoseconds(status.st_mtim),
                     .changed = nanoseconds(status.st_ctim)};
}

const unsigned char* bytes(const QByteArray& data)
{
    return reinterpret_cast<const unsigned char*>(data.constData());
}

std::optional<QString> whyNotGenuineFile(QFile& open, const SignedFile& file)
{
    const std::optional<FileState> before = privateFile(open.handle());
    if (!before) {
        return Texts::tr("The downloaded update is not a file that belongs to you alone.");
    }
    if (before->length != file.length) {
        const QLocale english(QLocale::English);
        return Texts::tr(
                   "The downloaded update has %1 bytes instead of %2. It will not be installed.")
            .arg(english.toString(before->length), english.toString(file.length));
    }
    const uchar* content = open.map(0, file.length);
    if (content == nullptr) {
        return Texts::tr("The downloaded update could not be read.");
    }
    const auto length = static_cast<quint64>(file.length);
    const bool isSigned
        = crypto_sign_verify_detached(bytes(file.signature), content, length, bytes(file.publicKey))
        == 0;
    QByteArray digest(digestSize, '\0');
    crypto_hash_sha256(reinterpret_cast<unsigned char*>(digest.data()), content, length);
    if (privateFile(open.handle()) != before) {
        return Texts::tr("The downloaded update was changed while it was being verified.");
    }
    if (!isSigned || digest != file.digest) {
        return Texts::tr("The downloaded update is not signed by the makers of Tavik Launcher. It "
                         "will not be installed.");
    }
    return {};
}

} // namespace

std::optional<QByteArray> fromBase64(const QString& text, qsizetype size)
{
    const QByteArray encoded = text.trimmed().toLatin1();
    // Longer than any of ours: not decoded first.
    if (encoded.size() > 2 * size) {
        return {};
    }
    const auto decoded
        = QByteArray::fromBase64Encoding(encoded, QByteArray::AbortOnBase64DecodingErrors);
    // The comparison finds what the decoder lets pass: missing padding, and bits that nothing
    // needs.
    if (!decoded || (*decoded).size() != size || (*decoded).toBase64() != encoded) {
        return {};
    }
    return *decoded;
}

bool isSigned(const QByteArray& text, const QByteArray& signature, const QByteArray& publicKey)
{
    return publicKey.size() == publicKeySize && signature.size() == signatureSize
        && ::sodium_init() >= 0
        && crypto_sign_verify_detached(
               bytes(signature), bytes(text), static_cast<quint64>(text.size()), bytes(publicKey))
        == 0;
}

std::optional<QString> whyNotGenuine(const SignedFile& file)
{
    if (file.publicKey.size() != publicKeySize) {
        return Texts::tr("This build has no usable key to verify updates with.");
    }
    if (file.signature.size() != signatureSize) {
        return Texts::tr("The update is not signed, so it cannot be installed.");
    }
    if (file.length <= 0 || file.length > mostFileBytes) {
        return Texts::tr("The update has no size that can be installed.");
    }
    if (::sodium_init() < 0) {
        return Texts::tr("Updates cannot be verified on this computer.");
    }
    // Neither a link nor, by waiting for its other end, a pipe.
    const int descriptor = ::open(QFile::encodeName(file.path).constData(),
                                  O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    QFile open;
    if (descriptor < 0 || !open.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle)) {
        return Texts::tr("The downloaded update could not be read.");
    }
    return whyNotGenuineFile(open, file);
}

} // namespace Tavik::UpdateSignature
