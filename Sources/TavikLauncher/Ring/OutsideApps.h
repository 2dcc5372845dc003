// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/IndexedApp.h>

#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>

#include <optional>

namespace Tavik {

class FileManager;
class WorkQueue;

/// The applications that the catalog does not list: pinned from another drive, or running from
/// elsewhere. Each is read in the background when it is first asked for, and then remembered, so
/// that nobody waits for a disk; `check` looks whether it still says the same. Main thread only.
class OutsideApps final : public QObject
{
    Q_OBJECT

public:
    OutsideApps(FileManager& fileManager, WorkQueue& workQueue);

    /// Null when nothing is there, or nothing known yet. Good until the next call or the next
    /// `changed`.
    [[nodiscard]] const IndexedApp* record(const QString& path);
    /// Reads all that was asked for so far anew.
    void check();

Q_SIGNALS:
    /// Something has come, gone or got another name.
    void changed();

private:
    using Records = QHash<QString, std::optional<IndexedApp>>;
    void read();
    void take(const Records& read);

    FileManager& m_fileManager;
    WorkQueue& m_workQueue;
    Records m_records;
    QSet<QString> m_unread;
    bool m_isReading = false; ///< Once at a time: a drive that does not answer holds up no more.
};

} // namespace Tavik
