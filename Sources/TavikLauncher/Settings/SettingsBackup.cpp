// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Settings/SettingsBackup.h>
#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

/// In the order in which an import assigns them.
constexpr std::array<QStringView, 24> memberNames{u"ringDiameter",
                                                  u"ringThickness",
                                                  u"iconSize",
                                                  u"maxVisibleApps",
                                                  u"keepsCenterHintVisible",
                                                  u"showsAppNames",
                                                  u"showsLaunchHints",
                                                  u"launchHintInterval",
                                                  u"searchesAllApps",
                                                  u"fillsRingWithRecentApps",
                                                  u"doubleTapModifiersPinsLauncher",
                                                  u"ringColorHex",
                                                  u"ringOpacity",
                                                  u"highlightColorHex",
                                                  u"highlightOpacity",
                                                  u"pillOpacity",
                                                  u"runningDotColorHex",
                                                  u"showsRunningDot",
                                                  u"permanentAppPaths",
                                                  u"pinnedPermanentAppPaths",
                                                  u"hotKeyConfig",
                                                  u"showInDock",
                                                  u"autoUpdatesEnabled",
                                                  u"updateCheckFrequency"};

std::vector<SettingRow*> backedUpRows(const LauncherSettings& settings)
{
    std::vector<SettingRow*> rows;
    for (const QStringView name : memberNames) {
        const auto found = std::ranges::find(settings.rows(), name, &SettingRow::name);
        Q_ASSERT(found != settings.rows().end());
        rows.push_back(*found);
    }
    return rows;
}

/// The members in well-formed JSON text: its colons outside strings.
qsizetype writtenMembers(const QByteArray& json)
{
    qsizetype members = 0;
    bool isInString = false;
    for (auto byte = json.begin(); byte != json.end(); ++byte) {
        if (*byte == '"') {
            isInString = !isInString;
        } else if (*byte == '\\' && std::next(byte) != json.end()) {
            ++byte;
        } else if (*byte == ':' && !isInString) {
            ++members;
        }
    }
    return members;
}

/// The same after parsing, which keeps only one of several members of one name.
qsizetype keptMembers(const QJsonValue& value)
{
    qsizetype members = 0;
    if (value.isObject()) {
        for (const QJsonValue member : value.toObject()) {
            members += 1 + keptMembers(member);
        }
    } else if (value.isArray()) {
        for (const QJsonValue element : value.toArray()) {
            members += keptMembers(element);
        }
    }
    return members;
}

std::optional<QJsonObject> parsed(const QByteArray& contents)
{
    if (contents.size() > SettingsBackup::mostBytes) {
        return std::nullopt;
    }
    const QJsonDocument document = QJsonDocument::fromJson(contents);
    if (!document.isObject() || writtenMembers(contents) != keptMembers(document.object())) {
        return std::nullopt;
    }
    return document.object();
}

QVariant decodedInteger(const QJsonValue& value)
{
    constexpr double beyondSigned = 9223372036854775808.0;
    const double number = value.toDouble(std::nan(""));
    if (number != std::floor(number) || std::abs(number) >= beyondSigned) {
        return {};
    }
    return qlonglong{value.toInteger()};
}

QVariant decodedText(const QJsonValue& value)
{
    return value.isString() && value.toString().isValidUtf16() ? QVariant(value.toString())
                                                               : QVariant();
}

/// A file may be called by anything but the end of a text; what was exported has to come back.
bool isPath(const QVariant& text)
{
    return text.isValid() && !text.toString().contains(QChar(u'\0'));
}

QVariant decodedPaths(const QJsonValue& value)
{
    if (!value.isArray()) {
        return {};
    }
    QVariantList paths;
    for (const QJsonValue element : value.toArray()) {
        paths.append(decodedText(element));
        if (!isPath(paths.constLast())) {
            return {};
        }
    }
    return paths;
}

QVariant decodedHotKey(const QJsonValue& value)
{
    const auto config
        = HotKeyConfig::fromJson(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact));
    return config && config->displayName.isValidUtf16() ? StoredValue::encoded(*config)
                                                        : QVariant();
}

/// `value` as a setting of the type that is kept as `type` is stored; invalid when it is none.
QVariant decoded(const QJsonValue& value, int type)
{
    switch (type) {
    case QMetaType::Bool:
        return value.isBool() ? QVariant(value.toBool()) : QVariant();
    case QMetaType::LongLong:
        return decodedInteger(value);
    case QMetaType::Double:
        return value.isDouble() && std::isfinite(value.toDouble()) ? QVariant(value.toDouble())
                                                                   : QVariant();
    case QMetaType::QString:
        return decodedText(value);
    case QMetaType::QVariantList:
        return decodedPaths(value);
    default:
        return decodedHotKey(value);
    }
}

struct Assignment
{
    SettingRow* row = nullptr;
    QVariant value;
};

/// Everything that `object` asks for; absent when any of it is not what it should be.
std::optional<std::vector<Assignment>> assignments(const LauncherSettings& settings,
                                                   const QJsonObject& object)
{
    std::vector<Assignment> all;
    for (SettingRow* row : backedUpRows(settings)) {
        const QJsonValue member = object.value(row->name());
        if (member.isUndefined() || member.isNull()) {
            continue;
        }
        const QVariant value = decoded(member, row->stored().typeId());
        if (!value.isValid()) {
            return std::nullopt;
        }
        all.push_back({.row = row, .value = value});
    }
    return all;
}

/// Leaves out the applications that are not here; how many.
qsizetype dropMissing(QVariant& paths, const FileManager& fileManager)
{
    QVariantList kept = paths.toList();
    const qsizetype dropped = kept.removeIf(
        [&](const QVariant& path) { return !fileManager.isApplicationBundle(path.toString()); });
    paths = kept;
    return dropped;
}

} // namespace

namespace SettingsBackup {

QByteArray exported(const LauncherSettings& settings)
{
    QJsonObject object;
    for (const SettingRow* row : backedUpRows(settings)) {
        const QVariant stored = row->stored();
        object.insert(row->name(),
                      stored.typeId() == QMetaType::QByteArray
                          ? QJsonValue(QJsonDocument::fromJson(stored.toByteArray()).object())
                          : QJsonValue::fromVariant(stored));
    }
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}

std::optional<ImportSummary>
apply(LauncherSettings& settings, const QByteArray& contents, const FileManager& fileManager)
{
    const auto object = parsed(contents);
    auto all = object ? assignments(settings, *object) : std::nullopt;
    if (!all) {
        return std::nullopt;
    }
    ImportSummary summary;
    for (auto& [row, value] : *all) {
        if (row == &settings.permanentAppPaths) {
            dropMissing(value, fileManager);
        } else if (row == &settings.pinnedPermanentAppPaths) {
            summary.missing = dropMissing(value, fileManager);
            summary.restored = value.toList().size();
        }
    }
    for (const auto& [row, value] : *all) {
        row->restore(value);
    }
    return summary;
}

QString importedMessage(const QString& fileName, const ImportSummary& summary)
{
    if (summary.missing == 0) {
        return Texts::tr("Settings imported from %1.").arg(fileName);
    }
    // What stands in the code has no forms for numbers.
    const QString text = summary.restored == 1
        ? Texts::tr("Imported %1 — 1 pinned app restored, %2 not installed on this Mac.")
        : Texts::tr("Imported %1 — %n pinned apps restored, %2 not installed on this Mac.",
                    nullptr,
                    static_cast<int>(summary.restored));
    return text.arg(fileName, QString::number(summary.missing));
}

QString importFailedMessage(const QString& fileName)
{
    return Texts::tr("Couldn't import %1 — is it a valid Tavik settings file?").arg(fileName);
}

QString exportFailedMessage(const QString& description)
{
    return Texts::tr("Couldn't export: %1").arg(description);
}

} // namespace SettingsBackup

SettingsSnapshot::SettingsSnapshot(const LauncherSettings& settings)
{
    for (const SettingRow* row : backedUpRows(settings)) {
        m_values.insert(row->name(), row->stored());
    }
}

void SettingsSnapshot::restore(const LauncherSettings& settings) const
{
    for (SettingRow* row : backedUpRows(settings)) {
        const QVariant value = m_values.value(row->name());
        if (row->stored() != value) {
            row->restore(value);
        }
    }
}

} // namespace Tavik
