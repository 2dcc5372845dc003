// SPDX-License-Identifier: MIT
//
// The floor that the start is measured against: the least program of the toolkit that shows a
// status item, and answers to a key so that it can be seen when it is there.
//
//   EmptyTray    (takes F10 once the item is shown)

#include <QApplication>
#include <QPixmap>
#include <QSystemTrayIcon>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

namespace {

constexpr xcb_keysym_t f10 = 0xffc7;
constexpr int iconSide = 22;

void grabF10(xcb_connection_t* connection)
{
    const std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> symbols(
        xcb_key_symbols_alloc(connection), &xcb_key_symbols_free);
    const std::unique_ptr<xcb_keycode_t, decltype(&std::free)> codes(
        xcb_key_symbols_get_keycode(symbols.get(), f10), &std::free);
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_grab_key(connection, 0, root, 0, *codes, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_flush(connection);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto* x11 = application.nativeInterface<QNativeInterface::QX11Application>();
    if (!x11) {
        std::fputs("EmptyTray needs an X11 display.\n", stderr);
        return 1;
    }
    QPixmap picture(iconSide, iconSide);
    picture.fill(Qt::black);
    QSystemTrayIcon icon{QIcon(picture)};
    icon.show();
    grabF10(x11->connection());
    return QApplication::exec();
}
