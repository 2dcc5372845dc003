// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

namespace Tavik {

/// The kernel's notifications of what happens in folders, with the names of what it happens to.
/// Never polls: where the kernel grants no notifications it stays silent. Main thread only.
class FolderNotifications final : public QObject
{
    Q_OBJECT

public:
    enum class Interest {
        contents, ///< Also what is written to.
        names, ///< What comes, goes and is renamed.
    };

    FolderNotifications();
    ~FolderNotifications() override;

    [[nodiscard]] bool isWorking() const { return m_descriptor >= 0; }
    [[nodiscard]] QStringList folders() const { return m_numbers.keys(); }
    /// Follows the folder that is at `path` now, until it is told otherwise.
    void add(const QString& path, Interest interest);
    void remove(const QString& path);

Q_SIGNALS:
    /// `name` is empty when it is the folder itself, and both are when too much has happened to be
    /// told one by one.
    void changed(const QString& folder, const QString& name, bool isFolder);

private:
    void read();

    int m_descriptor;
    QHash<QString, int> m_numbers; ///< The kernel's, by path.
    QHash<int, QString> m_paths;
};

} // namespace Tavik
