// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/IconThemeIndex.h>
#include <TavikLauncherPlatform/Linux/Disk/KeyFile.h>

#include <algorithm>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype maxComponentLength = 200;
constexpr qsizetype maxDirectories = 2'000;
constexpr int maxSize = 4'096;
constexpr int maxScale = 8;

IconThemeIndex::Directory directory(const KeyFile& index, const QString& path)
{
    const QByteArray section = path.toUtf8();
    const auto number = [&index, &section](const char* key, int otherwise, int high) {
        return std::clamp(index.integer(section.constData(), key).value_or(otherwise), 1, high);
    };
    const auto says = [&index, &section](const char* key, QLatin1StringView value) {
        return index.string(section.constData(), key) == value;
    };
    const int size = number("Size", 1, maxSize);
    return {.path = path,
            .size = size,
            .scale = number("Scale", 1, maxScale),
            .isScalable = says("Type", "Scalable"_L1),
            .minSize = number("MinSize", size, maxSize),
            .maxSize = number("MaxSize", size, maxSize),
            .holdsApplications = says("Context", "Applications"_L1)};
}

} // namespace

std::optional<IconThemeIndex> IconThemeIndex::parse(const QByteArray& bytes)
{
    const std::optional<KeyFile> file = KeyFile::parse(bytes);
    if (!file) {
        return std::nullopt;
    }
    constexpr const char* group = "Icon Theme";
    IconThemeIndex index;
    index.inherits = file->commaSeparated(group, "Inherits");
    QStringList paths = file->commaSeparated(group, "Directories")
        + file->commaSeparated(group, "ScaledDirectories");
    paths.removeDuplicates();
    for (const QString& path : paths.first(std::min(paths.size(), maxDirectories))) {
        if (std::ranges::all_of(path.split(u'/'), isIconPathComponent)) {
            index.directories.append(directory(*file, path));
        }
    }
    return index;
}

IconThemeIndex IconThemeIndex::ofFallbackTheme()
{
    IconThemeIndex index;
    for (const int size : {16, 22, 24, 32, 36, 48, 64, 72, 96, 128, 192, 256, 512}) {
        Directory directory;
        directory.path = u"%1x%1/apps"_s.arg(size);
        directory.size = size;
        directory.holdsApplications = true;
        index.directories.append(directory);
    }
    Directory scalable;
    scalable.path = u"scalable/apps"_s;
    scalable.size = 128;
    scalable.isScalable = true;
    scalable.maxSize = maxSize;
    scalable.holdsApplications = true;
    index.directories.append(scalable);
    return index;
}

bool isIconPathComponent(const QString& text)
{
    return !text.isEmpty() && text.size() <= maxComponentLength && !text.startsWith(u'.')
        && std::ranges::none_of(text, [](QChar character) {
               return character == u'/' || character.category() == QChar::Other_Control;
           });
}

} // namespace Tavik
