// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Ring/OutsideApps.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QPointer>

#include <utility>

namespace Tavik {

OutsideApps::OutsideApps(FileManager& fileManager, WorkQueue& workQueue)
    : m_fileManager(fileManager)
    , m_workQueue(workQueue)
{ }

const IndexedApp* OutsideApps::record(const QString& path)
{
    auto found = m_records.find(path);
    if (found == m_records.end()) {
        found = m_records.insert(path, std::nullopt);
        m_unread.insert(path);
        read();
    }
    return *found ? &**found : nullptr;
}

void OutsideApps::check()
{
    m_unread = QSet(m_records.keyBegin(), m_records.keyEnd());
    read();
}

void OutsideApps::read()
{
    if (m_isReading || m_unread.isEmpty()) {
        return;
    }
    m_isReading = true;
    m_workQueue.run(
        WorkPriority::userInitiated,
        [&fileManager = m_fileManager, paths = std::exchange(m_unread, {})] {
            Records read;
            for (const QString& path : paths) {
                read.insert(path, AppCatalog::indexedApp(fileManager, path));
            }
            return read;
        },
        [self = QPointer(this)](const Records& read) {
            if (self) {
                self->m_isReading = false;
                self->take(read);
                self->read();
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
