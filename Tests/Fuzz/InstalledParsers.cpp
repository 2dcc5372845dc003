// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationFolder.h>
#include <TavikLauncherPlatform/Linux/Applications/CommandLine.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>
#include <TavikLauncherPlatform/Linux/Applications/IconImage.h>
#include <TavikLauncherPlatform/Linux/Applications/IconThemeIndex.h>
#include <TavikLauncherPlatform/Linux/Disk/AppImageFile.h>

#include <Fuzz/Parsers.h>
#include <algorithm>

#include <sys/mman.h>
#include <unistd.h>

namespace Tavik::Fuzz {

using namespace Qt::StringLiterals;

namespace {

/// The path of a file in memory with these bytes; the same file each time.
QString pathOf(const QByteArray& bytes)
{
    static const int file = ::memfd_create("input", MFD_CLOEXEC);
    require(::ftruncate(file, 0) == 0
                && ::pwrite(file, bytes.constData(), static_cast<std::size_t>(bytes.size()), 0)
                    == bytes.size(),
            "the file is written");
    return u"/proc/self/fd/%1"_s.arg(file);
}

} // namespace

bool readBundle(const QByteArray& bytes)
{
    return bytes.size() <= ApplicationFolder::maxInfoSize && ApplicationFolder::parse(bytes);
}

bool readEntry(const QByteArray& bytes)
{
    if (bytes.size() > DesktopEntryFile::maxSize) {
        return false;
    }
    const DesktopEntry entry = DesktopEntryFile::parse(bytes, {}, u"x"_s);
    const Bundle bundle = DesktopEntryFile::bundle(entry);
    require(bundle.identifier == u"x"_s && (bundle.isHidden || bundle.name), "it can be listed");
    require(bundle.iconSource.startsWith(u'/') || !bundle.iconSource.contains(u'/'),
            "the icon is a whole path, or the name of one");
    if (bundle.name) {
        require(!bundle.name->isEmpty() && bundle.name->size() <= 512
                    && std::ranges::none_of(*bundle.name,
                                            [](QChar character) {
                                                return character.category() == QChar::Other_Control;
                                            }),
                "the name fits into a line");
    }
    const auto words = CommandLine::expanded(entry, u"file:///a%20b"_s);
    require(!words || !words->front().isEmpty(), "there is a program to start");
    return bundle.name.has_value();
}

bool readIcon(const QByteArray& bytes)
{
    constexpr int side = 32;
    const QImage icon = IconImage::read(pathOf(bytes), side);
    require(icon.isNull() || icon.size() == QSize(side, side), "it is as large as it is drawn");
    return !icon.isNull();
}

bool readImage(const QByteArray& bytes)
{
    const auto content = AppImageFile::content(pathOf(bytes));
    const qint64 offset = content ? content->squashOffset.value_or(0) : 0;
    require(offset >= 0 && offset <= bytes.size(), "what is inside lies inside");
    return content.has_value();
}

bool readTheme(const QByteArray& bytes)
{
    const auto index = IconThemeIndex::parse(bytes);
    for (const auto& folder : index.value_or(IconThemeIndex()).directories) {
        require(!folder.path.startsWith(u'/') && !folder.path.split(u'/').contains(u".."_s),
                "it stays in its folder");
        require(folder.size >= 1 && folder.size <= 4096 && folder.scale >= 1, "icons have a size");
    }
    return index.has_value();
}

} // namespace Tavik::Fuzz
