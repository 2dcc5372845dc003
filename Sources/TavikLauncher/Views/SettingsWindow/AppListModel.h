// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/AppIcon.h>

#include <QAbstractListModel>
#include <QHash>
#include <QSet>
#include <QStringList>

namespace Tavik {

class AppCatalog;
class FileManager;

/// Applications by their paths. What is shown of each is looked up when it is first shown, so a
/// list of thousands costs nothing.
class AppListModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        pathRole = Qt::UserRole, ///< QString
        iconSourceRole, ///< QString, as in AppIcon.
        isMissingRole, ///< bool: no file is there.
        isTakenRole, ///< bool: it is not to be picked again.
        noteRole, ///< QString: what there is to say beside the name; mostly nothing.
    };

    AppListModel(const AppCatalog& catalog, const FileManager& fileManager, QObject* parent);

    [[nodiscard]] const QStringList& paths() const { return m_paths; }
    void setPaths(const QStringList& paths);
    /// Paths that are on the ring already: shown, and not to be picked again.
    void setTaken(const QSet<QString>& paths) { m_taken = paths; }
    void move(int from, int to);
    /// Looks everything up anew.
    void forgetEntries();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Entry
    {
        QString name;
        AppIcon icon;
        bool isMissing = false;
    };
    [[nodiscard]] Entry entry(const QString& path) const;

    const AppCatalog& m_catalog;
    const FileManager& m_fileManager;
    QStringList m_paths;
    QSet<QString> m_taken;
    mutable QHash<QString, Entry> m_entries; ///< By path; filled when shown.
};

} // namespace Tavik
