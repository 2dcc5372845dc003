// SPDX-License-Identifier: MIT
//
// The floor that the start is measured against: the least program of the toolkit that shows a
// status item, and answers to a key so that it can be seen when it is there.
//
//   EmptyTray    (takes F10 once the item is shown)

#include "F10Key.h"

#include <QApplication>
#include <QPixmap>
#include <QSystemTrayIcon>

#include <cstdio>

namespace {
constexpr int iconSide = 22;
}

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
    if (takeF10(x11->connection()) == 0) {
        std::fputs("F10 is taken.\n", stderr);
        return 1;
    }
    return QApplication::exec();
}
