// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <optional>

namespace Tavik {

/// In which order a walk meets what lies below some folders: folder by folder, in each the names
/// sorted, and what is inside of a folder right behind it. A value that knows texts only and never
/// looks at the disk.
class WalkOrder
{
public:
    WalkOrder() = default;
    /// `folders` in the order in which they are walked.
    explicit WalkOrder(QStringList folders);

    /// Which of the folders' walks meets `path` first; absent when none does, since it is
    /// elsewhere, hidden or inside of a package.
    [[nodiscard]] std::optional<qsizetype> folderOf(const QString& path) const;
    /// Both are met by some walk.
    [[nodiscard]] bool isBefore(const QString& left, const QString& right) const;

    /// Takes out of `items`, which are in this order, all that are at or below `path`, and hands
    /// them over. `pathOf` tells an item's path.
    template <typename Item, typename PathOf>
    QList<Item> takeBelow(QList<Item>& items, const QString& path, PathOf pathOf) const
    {
        const auto first = position(items, path, pathOf);
        const auto last = std::find_if_not(
            first, items.end(), [&](const Item& item) { return isAtOrBelow(pathOf(item), path); });
        QList<Item> taken(first, last);
        items.erase(first, last);
        return taken;
    }
    /// Puts `item` where a walk would have met it. There is no other with the same path.
    template <typename Item, typename PathOf>
    void insert(QList<Item>& items, const Item& item, PathOf pathOf) const
    {
        items.insert(position(items, pathOf(item), pathOf), item);
    }

private:
    template <typename Item, typename PathOf>
    [[nodiscard]] typename QList<Item>::iterator
    position(QList<Item>& items, const QString& path, PathOf pathOf) const
    {
        return std::lower_bound(
            items.begin(), items.end(), path, [&](const Item& item, const QString& wanted) {
                return isBefore(pathOf(item), wanted);
            });
    }
    [[nodiscard]] static bool isAtOrBelow(const QString& path, const QString& folder);

    QStringList m_folders;
};

} // namespace Tavik
