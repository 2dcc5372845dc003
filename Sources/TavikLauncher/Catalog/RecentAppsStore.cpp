// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/RecentAppsStore.h>
#include <TavikLauncherPlatform/UserDefaults.h>

#include <algorithm>

namespace Tavik {

RecentAppsStore::RecentAppsStore(UserDefaults& userDefaults)
    : m_userDefaults(userDefaults)
{ }

QStringList RecentAppsStore::recentPaths() const
{
    return m_userDefaults.stringArrayValue(defaultsKey.toString()).value_or(QStringList());
}

void RecentAppsStore::recordLaunch(const QString& path)
{
    const QStringList before = recentPaths();
    QStringList paths = before;
    // Texts are equal when they are canonically equivalent, as everywhere where records meet.
    const auto composed = [](const QString& text) {
        return text.normalized(QString::NormalizationForm_C);
    };
    const auto known = std::ranges::find(paths, composed(path), composed);
    if (known != paths.end()) {
        paths.erase(known);
    }
    paths.prepend(path);
    if (paths == before) {
        return;
    }

    QVariantList stored;
    for (const QString& recent : paths.first(std::min(paths.size(), maxRecents))) {
        stored.append(recent);
    }
    m_userDefaults.setObjectSoon(defaultsKey.toString(), stored);
}

} // namespace Tavik
