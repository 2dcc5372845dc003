// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/AppImageFile.h>
#include <TavikLauncherPlatform/Linux/Disk/FileDescriptor.h>
#include <TavikLauncherPlatform/Linux/Disk/ReplaceFile.h>
#include <TavikLauncherPlatform/Linux/Updates/AppImage.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cstring>
#include <elf.h>
#include <fcntl.h>

#include <sys/stat.h>
#include <unistd.h>

namespace Tavik::AppImage {

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t permissionBits = 0777;
/// An image is a program for the kernel; the padding of its header says that there is more to it.
constexpr std::size_t markOffset = 8;
constexpr std::array<char, 3> mark{'A', 'I', 2};
constexpr std::size_t machineOffset = EI_NIDENT + sizeof(Elf64_Half);

using Header = std::array<char, machineOffset + sizeof(Elf64_Half)>;

FileDescriptor openedFile(const QString& path)
{
    // Without blocking: a pipe that nobody writes to must not hold us up.
    FileDescriptor file(::open(QFile::encodeName(path).constData(),
                               O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return FileDescriptor();
    }
    return file;
}

/// The header of an image of type 2.
std::optional<Header> imageHeader(const QString& path)
{
    const FileDescriptor file = openedFile(path);
    Header header{};
    if (!file.isOpen()
        || ::read(file.get(), header.data(), header.size())
            != static_cast<ssize_t>(header.size())) {
        return std::nullopt;
    }
    const bool isProgram = std::memcmp(header.data(), ELFMAG, SELFMAG) == 0;
    const bool isImage = std::memcmp(header.data() + markOffset, mark.data(), mark.size()) == 0;
    return isProgram && isImage ? std::optional(header) : std::nullopt;
}

/// When the file system was made that lies behind the program, in seconds since 1970; absent when
/// the image does not say.
std::optional<quint32> madeAt(const QString& path)
{
    constexpr std::array<char, 4> squashfs{'h', 's', 'q', 's'};
    struct
    {
        std::array<char, 4> magic;
        quint32 inodes;
        quint32 made;
    } start{};
    const std::optional<qint64> offset = AppImageFile::squashOffset(path);
    const FileDescriptor file = openedFile(path);
    if (!offset || ::pread(file.get(), &start, sizeof start, *offset) != ssize_t{sizeof start}
        || start.magic != squashfs || start.made == 0) {
        return std::nullopt;
    }
    return start.made;
}

/// The kind of computer, and of its words.
bool isForSameComputer(const Header& left, const Header& right)
{
    return left[EI_CLASS] == right[EI_CLASS] && left[EI_DATA] == right[EI_DATA]
        && std::memcmp(
               left.data() + machineOffset, right.data() + machineOffset, sizeof(Elf64_Half))
        == 0;
}

QString notReplaced(const QString& image)
{
    return Texts::tr("The new version could not be put in the place of “%1”: %2.")
        .arg(image, QString::fromLocal8Bit(std::strerror(errno)));
}

} // namespace

std::optional<QString> whyNotReplaceable(const QString& image)
{
    const QString target = fileBehindLinks(image);
    if (!imageHeader(target)) {
        return Texts::tr(
                   "“%1”, which this program was started from, is no longer there or is something "
                   "else now.")
            .arg(target);
    }
    const QString folder = QFileInfo(target).absolutePath();
    if (::access(QFile::encodeName(folder).constData(), W_OK | X_OK) != 0) {
        return Texts::
            tr("The folder “%1”, which this program was started from, may not be changed by you. "
               "Move the program to a folder of your own, or replace it as an administrator.")
                .arg(folder);
    }
    return std::nullopt;
}

QString partFile(const QString& image)
{
    const QFileInfo target(fileBehindLinks(image));
    // Others may have the same image; what is theirs cannot even be looked at.
    return u"%1/.%2.%3.update"_s.arg(
        target.absolutePath(), target.fileName(), QString::number(::geteuid()));
}

std::optional<QString> whyNoSuccessor(const QString& file, const QString& image)
{
    const std::optional<Header> successor = imageHeader(file);
    if (!successor) {
        return Texts::tr("The update is not an AppImage, as this program is.");
    }
    const QString target = fileBehindLinks(image);
    const std::optional<Header> present = imageHeader(target);
    if (!present || !isForSameComputer(*present, *successor)) {
        return Texts::tr("The update is made for another kind of computer.");
    }
    const std::optional<quint32> made = madeAt(file);
    if (!made) {
        return Texts::tr("The update does not say when it was made.");
    }
    if (made < madeAt(target)) {
        return Texts::tr("The update is older than this program, whatever its number says.");
    }
    return std::nullopt;
}

std::optional<QString> replace(const QString& image, const QString& file)
{
    const QString target = fileBehindLinks(image);
    if (std::optional<QString> reason = whyNotReplaceable(target)) {
        return reason;
    }
    if (std::optional<QString> reason = whyNoSuccessor(file, target)) {
        return reason;
    }
    struct stat status = {};
    const FileDescriptor successor = openedFile(file);
    const QByteArray targetName = QFile::encodeName(target);
    const bool isDone = successor.isOpen() && ::stat(targetName.constData(), &status) == 0
        && ::fchmod(successor.get(), (status.st_mode & permissionBits) | S_IXUSR) == 0
        && ::fsync(successor.get()) == 0
        && ::rename(QFile::encodeName(file).constData(), targetName.constData()) == 0;
    if (!isDone) {
        return notReplaced(target);
    }
    syncFolder(QFileInfo(target).absolutePath());
    return std::nullopt;
}

} // namespace Tavik::AppImage
