// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Disk/FileDescriptor.h>

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavik {

/// A file of ours that is not complete yet: readable for this user only, and gone when this object
/// is, unless it was kept. Another session of this user, perhaps of another instance, leaves it
/// alone. Errors are whole sentences for people.
class PartFile
{
public:
    /// Removes what has that name, unless it is a part file in use; whether the name is free.
    static bool removeLeftover(const QString& path);

    explicit PartFile(QString path);
    ~PartFile();
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// Makes the file, in place of whatever had its name but another one in use; fails at once when
    /// the disk cannot hold `expectedBytes`.
    [[nodiscard]] std::optional<QString> create(qint64 expectedBytes);
    [[nodiscard]] std::optional<QString> append(const QByteArray& bytes);
    /// Empties the file.
    [[nodiscard]] std::optional<QString> restart();
    /// No more is written.
    void close() { m_file.close(); }
    /// Gives the file another name in the same folder.
    [[nodiscard]] std::optional<QString> rename(const QString& path);
    /// The file belongs to somebody else now.
    void keep() { m_isKept = true; }

    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] qint64 size() const { return m_size; }

private:
    [[nodiscard]] QString failure(int error) const;

    QString m_path;
    FileDescriptor m_file;
    FileDescriptor m_lock; ///< Not for writing, so that a file with this name can be started.
    qint64 m_size = 0;
    bool m_isKept = true; ///< Until it is made.
};

} // namespace Tavik
