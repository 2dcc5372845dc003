// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/Appcast.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateKind.h>

#include <algorithm>
#include <array>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

struct FileType
{
    const char16_t* mimeType;
    const char16_t* suffix;
};

constexpr std::array<FileType, 4> imageTypes{{
    {u"application/vnd.appimage", u".appimage"},
    {u"application/x-appimage", u".appimage"},
    {u"application/x-iso9660-appimage", u".appimage"},
    {u"application/appimage", u".appimage"},
}};
/// The first of several names is the one that desktops know.
constexpr std::array<FileType, 8> packageTypes{{
    {u"application/vnd.debian.binary-package", u".deb"},
    {u"application/x-deb", u".deb"},
    {u"application/x-debian-package", u".deb"},
    {u"application/x-rpm", u".rpm"},
    {u"application/x-redhat-package-manager", u".rpm"},
    {u"application/vnd.flatpak", u".flatpak"},
    {u"application/x-zstd-compressed-alpm-package", u".pkg.tar.zst"},
    {u"application/x-alpm-package", u".pkg.tar.zst"},
}};

template <std::size_t Size>
const FileType* typed(const std::array<FileType, Size>& types, const QString& mimeType)
{
    const auto found = std::ranges::find_if(types, [&mimeType](const FileType& type) {
        return mimeType == QStringView(type.mimeType);
    });
    return found == types.end() ? nullptr : &*found;
}

template <std::size_t Size>
const FileType* ending(const std::array<FileType, Size>& types, const QString& path)
{
    const auto found = std::ranges::find_if(
        types, [&path](const FileType& type) { return path.endsWith(QStringView(type.suffix)); });
    return found == types.end() ? nullptr : &*found;
}

} // namespace

UpdateKind updateKind(const AppcastEnclosure& enclosure, bool runsFromImage)
{
    const QString mimeType = enclosure.mimeType.section(u';', 0, 0).trimmed().toLower();
    const QString path = enclosure.url.path().toLower();
    const FileType* image = typed(imageTypes, mimeType);
    const FileType* package = typed(packageTypes, mimeType);
    if (!image && !package) {
        image = ending(imageTypes, path);
        package = ending(packageTypes, path);
    }
    if (runsFromImage) {
        return {.way = image ? UpdateKind::Way::replacesImage : UpdateKind::Way::isOnPage};
    }
    if (!package) {
        return {};
    }
    const QString suffix = QString::fromUtf16(package->suffix);
    return {.way = UpdateKind::Way::goesToInstaller,
            .suffix = suffix,
            .mimeType = QString::fromUtf16(ending(packageTypes, suffix)->mimeType)};
}

} // namespace Tavik
