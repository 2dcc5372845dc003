// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/WalkOrder.h>

#include <utility>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

/// Whether the walk over `folder` gets to `path`: nothing on the way there is hidden or a package.
bool isMet(const QString& folder, const QString& path)
{
    if (!path.startsWith(folder) || path.size() <= folder.size() + 1
        || path.at(folder.size()) != u'/') {
        return false;
    }
    const QStringView inside = QStringView(path).sliced(folder.size());
    return !inside.contains("/."_L1) && !inside.contains(".app/"_L1);
}

/// A name stands before all that begin with it, and so does a folder with all that is inside.
bool isBeforeByName(QStringView left, QStringView right)
{
    const auto slashFirst = [](QChar character) {
        return character == u'/' ? QChar() : character;
    };
    return std::ranges::lexicographical_compare(left, right, {}, slashFirst, slashFirst);
}

} // namespace

WalkOrder::WalkOrder(QStringList folders)
    : m_folders(std::move(folders))
{ }

std::optional<qsizetype> WalkOrder::folderOf(const QString& path) const
{
    for (qsizetype index = 0; index < m_folders.size(); ++index) {
        if (isMet(m_folders.at(index), path)) {
            return index;
        }
    }
    return std::nullopt;
}

bool WalkOrder::isBefore(const QString& left, const QString& right) const
{
    const std::optional<qsizetype> leftFolder = folderOf(left);
    const std::optional<qsizetype> rightFolder = folderOf(right);
    return leftFolder == rightFolder ? isBeforeByName(left, right) : leftFolder < rightFolder;
}

bool WalkOrder::isAtOrBelow(const QString& path, const QString& folder)
{
    return path.startsWith(folder)
        && (path.size() == folder.size() || path.at(folder.size()) == u'/');
}

} // namespace Tavik
