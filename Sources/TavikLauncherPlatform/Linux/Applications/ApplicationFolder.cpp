// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationFolder.h>
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyList.h>

#include <QFileInfo>
#include <QImageReader>
#include <QStringList>

namespace Tavik::ApplicationFolder {

namespace {

using namespace Qt::StringLiterals;

std::optional<QString> text(const PropertyList& list, const QString& key)
{
    const QVariant value = list.value(key);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

/// `CFBundleIconFile` may leave the ending out, and may name a format that cannot be read here.
QStringList iconFileCandidates(const QString& iconFile)
{
    QStringList endings{u"png"_s, u"svg"_s};
    const bool readsIcns = QImageReader::supportedImageFormats().contains("icns");
    if (readsIcns) {
        endings.append(u"icns"_s);
    }
    const QFileInfo info(iconFile);
    QStringList candidates;
    if (endings.contains(info.suffix())) {
        candidates.append(iconFile);
    }
    const QString stem = info.suffix() == "icns"_L1 ? info.completeBaseName() : iconFile;
    for (const QString& ending : endings) {
        candidates.append(stem + u'.' + ending);
    }
    return candidates;
}

/// The path of a file right in `folder` of the bundle; empty when there is none, or when the name
/// or a link leads out of the bundle.
QString ownFile(const QString& bundlePath, QLatin1StringView folder, const QString& name)
{
    if (name.isEmpty() || name.contains(u'/') || name.contains(QChar::Null)) {
        return {};
    }
    const QString path = bundlePath + folder + name;
    const QFileInfo info(path);
    const QString inside = QFileInfo(bundlePath).canonicalFilePath() + u'/';
    return info.isFile() && info.canonicalFilePath().startsWith(inside) ? path : QString();
}

/// The image that the bundle names; empty when there is none that can be read.
QString iconPath(const QString& bundlePath, const QString& iconFile)
{
    if (iconFile.isEmpty()) {
        return {};
    }
    for (const QString& candidate : iconFileCandidates(iconFile)) {
        const QString path = ownFile(bundlePath, "/Contents/Resources/"_L1, candidate);
        if (!path.isEmpty()) {
            return path;
        }
    }
    return {};
}

} // namespace

std::optional<Bundle> read(const QString& path)
{
    const auto bytes = BoundedFile::read(path + "/Contents/Info.plist"_L1, maxInfoSize);
    const std::optional<InfoDictionary> info = bytes ? parse(*bytes) : std::nullopt;
    if (!info) {
        return std::nullopt;
    }
    Bundle bundle;
    bundle.kind = Bundle::Kind::applicationFolder;
    bundle.displayName = info->displayName;
    bundle.name = info->name;
    bundle.identifier = info->identifier;
    bundle.iconSource = iconPath(path, info->iconFile.value_or(QString()));
    const QString executable
        = ownFile(path, "/Contents/MacOS/"_L1, info->executable.value_or(QString()));
    if (!executable.isEmpty()) {
        bundle.executable = executable;
    }
    return bundle;
}

std::optional<InfoDictionary> parse(const QByteArray& propertyList)
{
    const std::optional<PropertyList> list = PropertyList::fromBytes(propertyList);
    if (!list) {
        return std::nullopt;
    }
    return InfoDictionary{.displayName = text(*list, u"CFBundleDisplayName"_s),
                          .name = text(*list, u"CFBundleName"_s),
                          .identifier = text(*list, u"CFBundleIdentifier"_s),
                          .iconFile = text(*list, u"CFBundleIconFile"_s),
                          .executable = text(*list, u"CFBundleExecutable"_s)};
}

} // namespace Tavik::ApplicationFolder
