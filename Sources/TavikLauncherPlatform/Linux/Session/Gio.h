// SPDX-License-Identifier: MIT
#pragma once

#include <QFunctionPointer>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace Tavik {

/// What is used of GLib's library for desktops, each function under its own name. It is loaded when
/// something of it is first needed: most starts need nothing, and with the libraries that it brings
/// it would take 2 MB of memory.
class Gio
{
    /// A function of the library, whatever its type.
    class Symbol
    {
    public:
        explicit Symbol(const char* name);
        template <typename Function> operator Function*() const
        {
            return reinterpret_cast<Function*>(m_address);
        }

    private:
        QFunctionPointer m_address;
    };

public:
    /// Null where it is not installed. Any thread.
    [[nodiscard]] static const Gio* load();

    decltype(&::g_app_info_get_default_for_type) g_app_info_get_default_for_type
        = Symbol("g_app_info_get_default_for_type");
    decltype(&::g_app_info_get_default_for_uri_scheme) g_app_info_get_default_for_uri_scheme
        = Symbol("g_app_info_get_default_for_uri_scheme");
    decltype(&::g_desktop_app_info_get_categories) g_desktop_app_info_get_categories
        = Symbol("g_desktop_app_info_get_categories");
    decltype(&::g_desktop_app_info_get_filename) g_desktop_app_info_get_filename
        = Symbol("g_desktop_app_info_get_filename");
    decltype(&::g_desktop_app_info_get_type) g_desktop_app_info_get_type
        = Symbol("g_desktop_app_info_get_type");
    decltype(&::g_file_new_for_path) g_file_new_for_path = Symbol("g_file_new_for_path");
    decltype(&::g_file_query_default_handler) g_file_query_default_handler
        = Symbol("g_file_query_default_handler");
    decltype(&::g_network_monitor_get_default) g_network_monitor_get_default
        = Symbol("g_network_monitor_get_default");
    decltype(&::g_network_monitor_get_network_available) g_network_monitor_get_network_available
        = Symbol("g_network_monitor_get_network_available");
    decltype(&::g_settings_get_string) g_settings_get_string = Symbol("g_settings_get_string");
    decltype(&::g_settings_get_strv) g_settings_get_strv = Symbol("g_settings_get_strv");
    decltype(&::g_settings_get_value) g_settings_get_value = Symbol("g_settings_get_value");
    decltype(&::g_settings_is_writable) g_settings_is_writable = Symbol("g_settings_is_writable");
    decltype(&::g_settings_new) g_settings_new = Symbol("g_settings_new");
    decltype(&::g_settings_new_with_path) g_settings_new_with_path
        = Symbol("g_settings_new_with_path");
    decltype(&::g_settings_reset) g_settings_reset = Symbol("g_settings_reset");
    decltype(&::g_settings_schema_has_key) g_settings_schema_has_key
        = Symbol("g_settings_schema_has_key");
    decltype(&::g_settings_schema_list_keys) g_settings_schema_list_keys
        = Symbol("g_settings_schema_list_keys");
    decltype(&::g_settings_schema_source_get_default) g_settings_schema_source_get_default
        = Symbol("g_settings_schema_source_get_default");
    decltype(&::g_settings_schema_source_lookup) g_settings_schema_source_lookup
        = Symbol("g_settings_schema_source_lookup");
    decltype(&::g_settings_schema_unref) g_settings_schema_unref
        = Symbol("g_settings_schema_unref");
    decltype(&::g_settings_set_string) g_settings_set_string = Symbol("g_settings_set_string");
    decltype(&::g_settings_set_strv) g_settings_set_strv = Symbol("g_settings_set_strv");
    decltype(&::g_settings_sync) g_settings_sync = Symbol("g_settings_sync");
    decltype(&::g_object_unref) g_object_unref = Symbol("g_object_unref");
    decltype(&::g_signal_connect_data) g_signal_connect_data = Symbol("g_signal_connect_data");
    decltype(&::g_signal_handler_disconnect) g_signal_handler_disconnect
        = Symbol("g_signal_handler_disconnect");
    decltype(&::g_type_check_instance_is_a) g_type_check_instance_is_a
        = Symbol("g_type_check_instance_is_a");

private:
    Gio() = default;
};

/// Frees what the library has made.
struct GioDeleter
{
    void operator()(void* object) const { Gio::load()->g_object_unref(object); }
    void operator()(GSettingsSchema* schema) const { Gio::load()->g_settings_schema_unref(schema); }
};

} // namespace Tavik
