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

/// The first of several names is the one that desktops know.
constexpr std::array<FileType, 12> fileTypes{{
    {u"application/vnd.appimage", u".appimage"},
    {u"application/x-appimage", u".appimage"},
    {u"application/x-iso9660-appimage", u".appimage"},
    {u"application/appimage", u".appimage"},
    {u"application/vnd.debian.binary-package", u".deb"},
    {u"application/x-deb", u".deb"},
    {u"application/x-debian-package", u".deb"},
    {u"application/x-rpm", u".rpm"},
    {u"application/x-redhat-package-manager", u".rpm"},
    {u"application/vnd.flatpak", u".flatpak"},
    {u"application/x-zstd-compressed-alpm-package", u".pkg.tar.zst"},
    {u"application/x-alpm-package", u".pkg.tar.zst"},
}};
constexpr std::array packageSuffixes{u".deb", u".rpm", u".flatpak", u".pkg.tar.zst"};
constexpr QStringView imageName = u"appimage";

const FileType* typed(const QString& mimeType)
{
    const auto found = std::ranges::find_if(fileTypes, [&mimeType](const FileType& type) {
        return mimeType == QStringView(type.mimeType);
    });
    return found == fileTypes.end() ? nullptr : &*found;
}

const FileType* ending(const QString& path)
{
    const auto found = std::ranges::find_if(fileTypes, [&path](const FileType& type) {
        return path.endsWith(QStringView(type.suffix));
    });
    return found == fileTypes.end() ? nullptr : &*found;
}

} // namespace

QString updateKindName(const AppcastEnclosure& enclosure)
{
    const QString mimeType = enclosure.mimeType.section(u';', 0, 0).trimmed().toLower();
    const QString path = enclosure.url.path().toLower();
    const auto* type = typed(mimeType);
    if (!type) {
        type = ending(path);
    }
    return type ? QString::fromUtf16(type->suffix).sliced(1) : QString();
}

QStringList updateKindsFor(const std::function<bool(const QString& mimeType)>& hasInstaller)
{
    QStringList kinds;
    for (const char16_t* suffix : packageSuffixes) {
        const QString ours = QString::fromUtf16(suffix);
        if (hasInstaller(QString::fromUtf16(ending(ours)->mimeType))) {
            kinds << ours.sliced(1);
        }
    }
    return kinds;
}

UpdateKind updateKind(const AppcastEnclosure& enclosure, bool runsFromImage)
{
    const QString name = updateKindName(enclosure);
    const bool isImage = name == imageName;
    if (name.isEmpty() || isImage != runsFromImage) {
        return {};
    }
    if (isImage) {
        return {.way = UpdateKind::Way::replacesImage};
    }
    const QString suffix = u'.' + name;
    return {.way = UpdateKind::Way::goesToInstaller,
            .suffix = suffix,
            .mimeType = QString::fromUtf16(ending(suffix)->mimeType)};
}

} // namespace Tavik
