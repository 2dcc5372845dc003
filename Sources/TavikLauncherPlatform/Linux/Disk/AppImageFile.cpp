// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/AppImageFile.h>

#include <QFile>

#include <array>
#include <cstring>
#include <elf.h>
#include <fcntl.h>
#include <string_view>

#include <sys/stat.h>
#include <unistd.h>

namespace Tavik::AppImageFile {

namespace {

using namespace Qt::StringLiterals;

/// The padding of the program's header says that there is more to it, and of which type.
constexpr std::size_t markOffset = 8;
constexpr std::string_view mark = "AI";
constexpr std::size_t typeOffset = markOffset + mark.size();
/// An ISO 9660 says so behind the room that it leaves to programs.
constexpr off_t isoMarkOffset = 0x8001;
constexpr std::string_view isoMark = "CD001";

template <typename Bytes> bool readAt(int file, off_t offset, Bytes& bytes)
{
    return ::pread(file, &bytes, sizeof bytes, offset) == ssize_t{sizeof bytes};
}

/// Behind the table of sections, with which a program ends.
template <typename Header> std::optional<quint64> endOfProgram(int file)
{
    Header header{};
    if (!readAt(file, 0, header)) {
        return std::nullopt;
    }
    return header.e_shoff + quint64{header.e_shentsize} * header.e_shnum;
}

bool isIso(int file)
{
    std::array<char, isoMark.size()> found{};
    return readAt(file, isoMarkOffset, found)
        && std::string_view(found.data(), found.size()) == isoMark;
}

std::optional<Content> contentOf(int file)
{
    struct stat status = {};
    std::array<char, EI_NIDENT> start{};
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode) || !readAt(file, 0, start)
        || std::memcmp(start.data(), ELFMAG, SELFMAG) != 0
        || std::memcmp(&start[markOffset], mark.data(), mark.size()) != 0) {
        return std::nullopt;
    }
    if (start[typeOffset] == 1 && isIso(file)) {
        return Content{};
    }
    const auto end = start[EI_CLASS] == ELFCLASS64 ? endOfProgram<Elf64_Ehdr>(file)
                                                   : endOfProgram<Elf32_Ehdr>(file);
    const bool isInside = end && *end > 0 && *end < static_cast<quint64>(status.st_size);
    return start[typeOffset] == 2 && isInside
        ? std::optional(Content{.squashOffset = static_cast<qint64>(*end)})
        : std::nullopt;
}

} // namespace

bool isNamedSo(const QString& path)
{
    return path.endsWith(".AppImage"_L1, Qt::CaseInsensitive);
}

bool isImage(const QString& path)
{
    return isNamedSo(path) || content(path);
}

std::optional<Content> content(const QString& path)
{
    const int file
        = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0) {
        return std::nullopt;
    }
    std::optional<Content> found = contentOf(file);
    ::close(file);
    return found;
}

std::optional<qint64> squashOffset(const QString& path)
{
    const std::optional<Content> found = content(path);
    return found ? found->squashOffset : std::nullopt;
}

} // namespace Tavik::AppImageFile
