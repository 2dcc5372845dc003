// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/KeyFile.h>

#include <glib.h>

namespace Tavik {

namespace {

QStringList taken(char** values)
{
    QStringList result;
    for (char** value = values; value && *value; ++value) {
        result.append(QString::fromUtf8(*value));
    }
    g_strfreev(values);
    return result;
}

} // namespace

void KeyFile::Release::operator()(GKeyFile* keyFile) const
{
    g_key_file_unref(keyFile);
}

std::optional<KeyFile> KeyFile::parse(const QByteArray& bytes)
{
    KeyFile keyFile;
    keyFile.m_handle.reset(g_key_file_new());
    if (bytes.isEmpty()
        || !g_key_file_load_from_data(keyFile.handle(),
                                      bytes.constData(),
                                      static_cast<gsize>(bytes.size()),
                                      G_KEY_FILE_NONE,
                                      nullptr)) {
        return std::nullopt;
    }
    return keyFile;
}

std::optional<QString> KeyFile::string(const char* group, const char* key) const
{
    const std::unique_ptr<char, decltype(&g_free)> value(
        g_key_file_get_string(handle(), group, key, nullptr), &g_free);
    return value ? std::optional(QString::fromUtf8(value.get())) : std::nullopt;
}

std::optional<int> KeyFile::integer(const char* group, const char* key) const
{
    GError* error = nullptr;
    const int value = g_key_file_get_integer(handle(), group, key, &error);
    if (error) {
        g_error_free(error);
        return std::nullopt;
    }
    return value;
}

std::optional<bool> KeyFile::flag(const char* group, const char* key) const
{
    GError* error = nullptr;
    const gboolean value = g_key_file_get_boolean(handle(), group, key, &error);
    if (error) {
        g_error_free(error);
        return std::nullopt;
    }
    return value != FALSE;
}

QStringList KeyFile::list(const char* group, const char* key) const
{
    return taken(g_key_file_get_string_list(handle(), group, key, nullptr, nullptr));
}

std::optional<QString> KeyFile::localizedString(const char* group, const char* key) const
{
    const std::unique_ptr<char, decltype(&g_free)> value(
        g_key_file_get_locale_string(handle(), group, key, nullptr, nullptr), &g_free);
    return value ? std::optional(QString::fromUtf8(value.get())) : std::nullopt;
}

QStringList KeyFile::localizedList(const char* group, const char* key) const
{
    return taken(
        g_key_file_get_locale_string_list(handle(), group, key, nullptr, nullptr, nullptr));
}

QStringList KeyFile::commaSeparated(const char* group, const char* key) const
{
    QStringList values = string(group, key).value_or(QString()).split(u',', Qt::SkipEmptyParts);
    for (QString& value : values) {
        value = std::move(value).trimmed();
    }
    return values;
}

} // namespace Tavik
