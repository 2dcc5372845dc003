// SPDX-License-Identifier: MIT
//
// The floor that the ring is measured against: the least that a toolkit window can do. An empty,
// pre-created, translucent window, managed by the window manager, that a grabbed key shows in the
// middle of the screen and hides again.
//
//   EmptyWindow [TITLE [SIDE]]    (F10 shows and hides it; prints "ready" when the key is held)

#include "F10Key.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QWidget>

#include <cstdio>

namespace {

constexpr int defaultSide = 352;

class EmptyWindow final : public QWidget
{
public:
    EmptyWindow(const QString& title, int side)
        : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    {
        setAttribute(Qt::WA_TranslucentBackground);
        setWindowTitle(title);
        resize(side, side);
        move(QGuiApplication::primaryScreen()->geometry().center() - rect().center());
        create();
    }

    void toggle()
    {
        if (isVisible()) {
            hide();
            return;
        }
        show();
        raise();
        activateWindow();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter(this).fillRect(rect(), QColor(0, 0, 0, 160));
    }
};

class KeyFilter final : public QAbstractNativeEventFilter
{
public:
    KeyFilter(EmptyWindow& window, xcb_keycode_t key)
        : m_window(window)
        , m_key(key)
    { }

    bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override
    {
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        if ((event->response_type & 0x7f) != XCB_KEY_PRESS) {
            return false;
        }
        if (static_cast<const xcb_key_press_event_t*>(message)->detail != m_key) {
            return false;
        }
        m_window.toggle();
        return true;
    }

private:
    EmptyWindow& m_window;
    xcb_keycode_t m_key;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto* x11 = application.nativeInterface<QNativeInterface::QX11Application>();
    if (!x11) {
        std::fputs("EmptyWindow needs an X11 display.\n", stderr);
        return 1;
    }
    const auto arguments = QApplication::arguments();
    const auto title = arguments.value(1, QStringLiteral("Empty Window"));
    const int side = arguments.value(2).toInt();
    EmptyWindow window(title, side > 0 ? side : defaultSide);

    const auto key = takeF10(x11->connection());
    if (key == 0) {
        std::fputs("F10 is taken.\n", stderr);
        return 1;
    }
    KeyFilter filter(window, key);
    application.installNativeEventFilter(&filter);
    std::puts("ready");
    std::fflush(stdout);
    return QApplication::exec();
}
