// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace Tavik {

class UserDefaults;

/// The applications used last, as bundle paths in the user defaults, newest first. Keeps no copy of
/// its own, and keeps paths whose application is gone until they fall off the end.
class RecentAppsStore
{
public:
    static constexpr qsizetype maxRecents = 12;
    static constexpr QStringView defaultsKey = u"RecentAppsPaths";

    explicit RecentAppsStore(UserDefaults& userDefaults);

    /// The stored paths, newest first; empty when what is stored is not a list of texts.
    [[nodiscard]] QStringList recentPaths() const;

    /// Moves `path` to the front, or inserts it there, and stores the list if it is another then.
    void recordLaunch(const QString& path);

private:
    UserDefaults& m_userDefaults;
};

} // namespace Tavik
