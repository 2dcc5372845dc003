// SPDX-License-Identifier: MIT
#include "F10Key.h"

#include <cstdlib>
#include <memory>

#include <xcb/xcb_keysyms.h>

xcb_keycode_t takeF10(xcb_connection_t* connection)
{
    constexpr xcb_keysym_t f10 = 0xffc7;
    const std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> symbols(
        xcb_key_symbols_alloc(connection), &xcb_key_symbols_free);
    const std::unique_ptr<xcb_keycode_t, decltype(&std::free)> codes(
        xcb_key_symbols_get_keycode(symbols.get(), f10), &std::free);
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const auto request = xcb_grab_key_checked(
        connection, 0, root, 0, *codes, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const std::unique_ptr<xcb_generic_error_t, decltype(&std::free)> error(
        xcb_request_check(connection, request), &std::free);
    return error ? xcb_keycode_t{0} : *codes;
}
