// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ApplicationFolder.h>
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyListBounds.h>

#include <QFileInfo>
#include <QImageReader>
#include <QStringList>

#include <cstddef>
#include <memory>
#include <plist/plist.h>
#include <type_traits>

namespace Tavik::ApplicationFolder {

namespace {

using namespace Qt::StringLiterals;

struct FreeNode
{
    void operator()(plist_t node) const { plist_free(node); }
};
using Node = std::unique_ptr<std::remove_pointer_t<plist_t>, FreeNode>;

std::optional<QString> text(const Node& dictionary, const char* key)
{
    const plist_t value = plist_dict_get_item(dictionary.get(), key);
    if (!value || plist_get_node_type(value) != PLIST_STRING) {
        return std::nullopt;
    }
    uint64_t length = 0;
    const char* bytes = plist_get_string_ptr(value, &length);
    return bytes ? QString::fromUtf8(bytes, static_cast<qsizetype>(length)) : QString();
}

/// Later releases of the library also tell which format it was.
template <typename Parse> void parseWith(Parse parse, const QByteArray& bytes, plist_t* root)
{
    const auto size = static_cast<uint32_t>(bytes.size());
    if constexpr (std::is_invocable_v<Parse, const char*, uint32_t, plist_t*, std::nullptr_t>) {
        parse(bytes.constData(), size, root, nullptr);
    } else {
        parse(bytes.constData(), size, root);
    }
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
    if (!PropertyListBounds::areKept(propertyList)) {
        return std::nullopt;
    }
    plist_t root = nullptr;
    parseWith(plist_from_memory, propertyList, &root);
    const Node dictionary(root);
    if (!dictionary || plist_get_node_type(root) != PLIST_DICT) {
        return std::nullopt;
    }
    return InfoDictionary{.displayName = text(dictionary, "CFBundleDisplayName"),
                          .name = text(dictionary, "CFBundleName"),
                          .identifier = text(dictionary, "CFBundleIdentifier"),
                          .iconFile = text(dictionary, "CFBundleIconFile"),
                          .executable = text(dictionary, "CFBundleExecutable")};
}

} // namespace Tavik::ApplicationFolder
