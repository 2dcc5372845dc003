// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/AppImageFile.h>

#include <QFile>

#include <array>
#include <cstring>
#include <elf.h>
#include <fcntl.h>

#include <sys/stat.h>
#include <unistd.h>

namespace Tavik::AppImageFile {

namespace {

using namespace Qt::StringLiterals;

/// The padding of the program's header says that there is more to it.
constexpr std::size_t markOffset = 8;
constexpr std::array<char, 3> mark{'A', 'I', 2};

template <typename Header> bool readHeader(int file, Header& header)
{
    return ::pread(file, &header, sizeof header, 0) == ssize_t{sizeof header};
}

/// Behind the table of sections, with which a program ends.
template <typename Header> std::optional<quint64> endOfProgram(int file)
{
    Header header{};
    if (!readHeader(file, header)) {
        return std::nullopt;
    }
    return header.e_shoff + quint64{header.e_shentsize} * header.e_shnum;
}

std::optional<qint64> offsetIn(int file)
{
    struct stat status = {};
    std::array<char, EI_NIDENT> start{};
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode) || !readHeader(file, start)
        || std::memcmp(start.data(), ELFMAG, SELFMAG) != 0
        || std::memcmp(start.data() + markOffset, mark.data(), mark.size()) != 0) {
        return std::nullopt;
    }
    const auto end = start[EI_CLASS] == ELFCLASS64 ? endOfProgram<Elf64_Ehdr>(file)
                                                   : endOfProgram<Elf32_Ehdr>(file);
    const bool isInside = end && *end > 0 && *end < static_cast<quint64>(status.st_size);
    return isInside ? std::optional(static_cast<qint64>(*end)) : std::nullopt;
}

} // namespace

bool isNamedSo(const QString& path)
{
    return path.endsWith(".AppImage"_L1, Qt::CaseInsensitive);
}

std::optional<qint64> fileSystemOffset(const QString& path)
{
    const int file
        = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0) {
        return std::nullopt;
    }
    const std::optional<qint64> offset = offsetIn(file);
    ::close(file);
    return offset;
}

} // namespace Tavik::AppImageFile
