// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Ring/OutsideApps.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QPointer>
#include <QStringList>

namespace Tavik {

OutsideApps::OutsideApps(FileManager& fileManager, WorkQueue& workQueue)
    : m_fileManager(fileManager)
    , m_workQueue(workQueue)
{ }

const IndexedApp* OutsideApps::record(const QString& path)
{
    auto found = m_records.find(path);
    if (found == m_records.end()) {
        found = m_records.insert(path, AppCatalog::indexedApp(m_fileManager, path));
    }
    return *found ? &**found : nullptr;
}

void OutsideApps::check()
{
    if (m_isChecking || m_records.isEmpty()) {
        return;
    }
    m_isChecking = true;
    m_workQueue.run(
        WorkPriority::userInitiated,
        [&fileManager = m_fileManager, paths = m_records.keys()] {
            Records read;
            for (const QString& path : paths) {
                read.insert(path, AppCatalog::indexedApp(fileManager, path));
            }
            return read;
        },
        [self = QPointer(this)](const Records& read) {
            if (self) {
                self->m_isChecking = false;
                self->take(read);
            }
        });
}

void OutsideApps::take(const Records& read)
{
    bool isNews = false;
    for (auto record = read.cbegin(); record != read.cend(); ++record) {
        isNews = isNews || m_records.value(record.key()) != record.value();
        m_records.insert(record.key(), record.value());
    }
    if (isNews) {
        Q_EMIT changed();
    }
}

} // namespace Tavik
