// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/KeyFile.h>

#include <glib.h>

namespace Tavik {

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

QStringList KeyFile::commaSeparated(const char* group, const char* key) const
{
    QStringList values = string(group, key).value_or(QString()).split(u',', Qt::SkipEmptyParts);
    for (QString& value : values) {
        value = std::move(value).trimmed();
    }
    return values;
}

} // namespace Tavik
