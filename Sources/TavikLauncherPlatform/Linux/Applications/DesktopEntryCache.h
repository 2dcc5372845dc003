// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/AppImageContent.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>

#include <QHash>
#include <QList>
#include <QMutex>

#include <array>

namespace Tavik {

/// Reads desktop entries, those inside of AppImages too, for all who need them: each once, and
/// again when its file is another or has been written to. Any thread.
class DesktopEntryCache
{
public:
    /// The entry at `path`, or inside of the image there if it is not called ".desktop"; `id` is
    /// its desktop-file ID without the ending. A look at the file alone where nothing has changed.
    [[nodiscard]] SharedDesktopEntry read(const QString& path, const QString& id);
    [[nodiscard]] const AppImageContent& images() const { return m_images; }
    /// Forgets every entry but `entries`.
    void keepOnly(const QList<SharedDesktopEntry>& entries);
    /// How often a file was read.
    [[nodiscard]] quint64 reads() const;

private:
    /// Tells one state of a file from another: a hash of where it is, its size and its times.
    using Stamp = std::size_t;
    struct Known
    {
        Stamp stamp = 0;
        SharedDesktopEntry entry;
    };
    [[nodiscard]] static Stamp stampOf(const QString& path);

    /// Null where it has to be read.
    [[nodiscard]] SharedDesktopEntry
    known(const QString& path, const QString& id, Stamp stamp) const;

    const AppImageContent m_images;
    /// Each is held while one of its paths is read: whoever comes second waits for the first.
    std::array<QMutex, 16> m_reading;
    mutable QMutex m_mutex;
    QHash<QString, Known> m_known; ///< By path.
    quint64 m_reads = 0;
};

} // namespace Tavik
