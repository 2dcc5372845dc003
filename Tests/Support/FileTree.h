// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>

#include <filesystem>

namespace Tavik::Test {

/// A scratch folder that a test fills with files; gone when the test is.
class FileTree
{
public:
    FileTree() = default;
    ~FileTree()
    {
        // The toolkit leaves what has a name that is no text.
        std::error_code error;
        std::filesystem::remove_all(m_folder.path().toStdString(), error);
    }
    FileTree(const FileTree&) = delete;
    FileTree& operator=(const FileTree&) = delete;

    /// The absolute path of something in the folder.
    [[nodiscard]] QString path(const QString& inner = {}) const
    {
        const QString root = QFileInfo(m_folder.path()).canonicalFilePath();
        return inner.isEmpty() ? root : root + u'/' + inner;
    }
    /// Writes a file and the folders above it; returns its path.
    QString write(const QString& inner, const QByteArray& content = {}) const
    {
        makeFolder(QFileInfo(inner).path());
        QFile file(path(inner));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("The scratch folder cannot be written.");
        }
        return path(inner);
    }
    QString makeFolder(const QString& inner) const
    {
        QDir(path()).mkpath(inner);
        return path(inner);
    }
    QString link(const QString& target, const QString& inner) const
    {
        makeFolder(QFileInfo(inner).path());
        QFile::link(target, path(inner));
        return path(inner);
    }
    /// What is in a file; null when it cannot be read.
    [[nodiscard]] static QByteArray contents(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// What lies in a folder, whatever it is.
    [[nodiscard]] static QStringList names(const QString& folder)
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                      | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_folder;
};

} // namespace Tavik::Test
