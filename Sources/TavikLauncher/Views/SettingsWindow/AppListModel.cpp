// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Views/SettingsWindow/AppListModel.h>
#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QFileInfo>

namespace Tavik {

using namespace Qt::StringLiterals;

AppListModel::AppListModel(const AppCatalog& catalog,
                           const FileManager& fileManager,
                           QObject* parent)
    : QAbstractListModel(parent)
    , m_catalog(catalog)
    , m_fileManager(fileManager)
{ }

void AppListModel::setPaths(const QStringList& paths)
{
    if (paths == m_paths) {
        return;
    }
    beginResetModel();
    m_paths = paths;
    endResetModel();
}

void AppListModel::move(int from, int to)
{
    if (from == to) {
        return;
    }
    // The model counts the target before the row is taken out.
    beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
    m_paths.move(from, to);
    endMoveRows();
}

void AppListModel::forgetEntries()
{
    m_entries.clear();
    if (!m_paths.isEmpty()) {
        Q_EMIT dataChanged(index(0), index(static_cast<int>(m_paths.size()) - 1));
    }
}

int AppListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_paths.size());
}

QVariant AppListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const QString& path = m_paths.at(index.row());
    if (role == pathRole) {
        return path;
    }
    const Entry shown = entry(path);
    const bool isTaken = m_taken.contains(path);
    switch (role) {
    case Qt::DisplayRole:
        return shown.name;
    case Qt::AccessibleTextRole:
        return shown.isMissing ? Texts::tr("%1, not installed").arg(shown.name)
            : isTaken          ? u"%1, %2"_s.arg(shown.name, Texts::tr("Already on the ring"))
                               : shown.name;
    case noteRole:
        return shown.isMissing ? Texts::tr("Not installed — %1").arg(path)
            : isTaken          ? Texts::tr("Already on the ring")
                               : QString();
    case isTakenRole:
        return isTaken;
    case iconSourceRole:
        return shown.icon.source;
    case isMissingRole:
        return shown.isMissing;
    default:
        return {};
    }
}

AppListModel::Entry AppListModel::entry(const QString& path) const
{
    const auto known = m_entries.constFind(path);
    if (known != m_entries.cend()) {
        return *known;
    }
    Entry made{.name = QFileInfo(path).completeBaseName(), .icon = {}, .isMissing = true};
    // The catalog may list what has been removed since its last walk.
    if (m_fileManager.fileExists(path)) {
        made.isMissing = false;
        if (const IndexedApp* record = m_catalog.recordForPath(path)) {
            made.name = record->name();
            made.icon = record->icon();
        } else if (const auto outside = AppCatalog::indexedApp(m_fileManager, path)) {
            made.name = outside->name();
            made.icon = outside->icon();
        }
    }
    m_entries.insert(path, made);
    return made;
}

} // namespace Tavik
