// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantMap>

#include <optional>

namespace Tavik {

class FileManager;
class LauncherSettings;

/// What became of the pinned applications in an imported file.
struct ImportSummary
{
    qsizetype restored = 0;
    qsizetype missing = 0; ///< Not installed here, and therefore left out.

    bool operator==(const ImportSummary&) const = default;
};

/// The user's preferences as one JSON file, to be kept or carried to another machine.
namespace SettingsBackup {

/// No file of ours comes near; a larger one is not worth reading.
inline constexpr qint64 mostBytes = 8 * 1024 * 1024;

/// All backed-up settings, indented and sorted by name.
[[nodiscard]] QByteArray exported(const LauncherSettings& settings);
/// Assigns the settings found in `contents`, repaired as at load. Absent, with nothing changed,
/// unless every known member is well formed.
[[nodiscard]] std::optional<ImportSummary>
apply(LauncherSettings& settings, const QByteArray& contents, const FileManager& fileManager);

[[nodiscard]] QString importedMessage(const QString& fileName, const ImportSummary& summary);
[[nodiscard]] QString importFailedMessage(const QString& fileName);
/// `description` is the error's own.
[[nodiscard]] QString exportFailedMessage(const QString& description);

} // namespace SettingsBackup

/// The backed-up settings as they were at one moment, to go back to.
class SettingsSnapshot
{
public:
    explicit SettingsSnapshot(const LauncherSettings& settings);

    /// Assigns whatever has another value now.
    void restore(const LauncherSettings& settings) const;

private:
    QVariantMap m_values;
};

} // namespace Tavik
