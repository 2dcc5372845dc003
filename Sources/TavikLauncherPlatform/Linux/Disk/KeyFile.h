// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

// The library's types stay out of the headers: its names collide with the toolkit's.
using GKeyFile = struct _GKeyFile;

namespace Tavik {

/// A file of groups, keys and values as the desktop standards use it. May be used on any thread,
/// one at a time.
class KeyFile
{
public:
    /// Absent when `bytes` do not follow the format.
    [[nodiscard]] static std::optional<KeyFile> parse(const QByteArray& bytes);

    [[nodiscard]] std::optional<QString> string(const char* group, const char* key) const;
    [[nodiscard]] std::optional<int> integer(const char* group, const char* key) const;
    [[nodiscard]] std::optional<bool> flag(const char* group, const char* key) const;
    /// Values separated by semicolons, as desktop entries write them.
    [[nodiscard]] QStringList list(const char* group, const char* key) const;
    /// The same in the user's language where the file has it.
    [[nodiscard]] std::optional<QString> localizedString(const char* group, const char* key) const;
    [[nodiscard]] QStringList localizedList(const char* group, const char* key) const;
    /// Values separated by commas, as icon themes write them.
    [[nodiscard]] QStringList commaSeparated(const char* group, const char* key) const;
    [[nodiscard]] GKeyFile* handle() const { return m_handle.get(); }

private:
    struct Release
    {
        void operator()(GKeyFile* keyFile) const;
    };
    std::unique_ptr<GKeyFile, Release> m_handle;
};

} // namespace Tavik
