// SPDX-License-Identifier: MIT
//
// Measures how long the chord takes from the key on the X server to our callback, for each source
// by itself and for all of them together as the program uses them. Run it on a virtual display:
//
//   Tests/Support/with-xserver -- build/release/ChordLatency
//
// Exits with 1 when the median of all together is not below a millisecond.
#include "KeyPresser.h"
#include <TavikLauncher/Trigger/GlobalHotKey.h>
#include <TavikLauncherPlatform/AccessibilityPermission.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyEvents.h>
#include <TavikLauncherPlatform/QtMainQueue.h>

#include <QElapsedTimer>
#include <QGuiApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

using namespace Tavik;
using Tavik::Benchmarks::KeyPresser;
using Clock = std::chrono::steady_clock;

constexpr int rounds = 500;
constexpr double highestMedian = 1; // Milliseconds.
constexpr quint64 chordFlags = ModifierFlags::control | ModifierFlags::option;

class Granted final : public AccessibilityPermission
{
public:
    [[nodiscard]] bool isTrusted() const override { return true; }
    void prompt() override { }
    void openSettings(std::function<void()>) override { }
};

/// Presses and releases the chord and waits each time until it has been told.
class Hand
{
public:
    Hand()
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_presser(m_connection)
        , m_chord(*m_presser.chord("control+alt"))
    { }
    ~Hand() { xcb_disconnect(m_connection); }
    Hand(const Hand&) = delete;
    Hand& operator=(const Hand&) = delete;

    void pressed() { m_heard = Clock::now(); }

    /// Milliseconds from the last modifier's press to `pressed`, sorted.
    QList<double> measure()
    {
        QList<double> times;
        for (int round = 0; round < rounds; ++round) {
            m_presser.holdModifiers(m_chord);
            wait(3);
            m_heard.reset();
            const Clock::time_point start = Clock::now();
            m_presser.pressKey(m_chord);
            QElapsedTimer patience;
            patience.start();
            while (!m_heard && patience.elapsed() < 1000) {
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
            }
            if (!m_heard) {
                std::fprintf(stderr, "ChordLatency: a press was not told\n");
                std::exit(2);
            }
            times << std::chrono::duration<double, std::milli>(*m_heard - start).count();
            m_presser.release(m_chord);
            wait(3);
        }
        std::ranges::sort(times);
        return times;
    }

private:
    static void wait(int milliseconds)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < milliseconds) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        }
    }

    xcb_connection_t* m_connection;
    KeyPresser m_presser;
    KeyPresser::Chord m_chord;
    std::optional<Clock::time_point> m_heard;
};

double report(const char* what, const QList<double>& sorted)
{
    const double median = sorted.at(sorted.size() / 2);
    std::printf("%-16s median %6.3f ms   95 %% %6.3f ms   highest %6.3f ms\n",
                what,
                median,
                sorted.at(sorted.size() * 95 / 100),
                sorted.last());
    return median;
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11) {
        std::fprintf(stderr, "ChordLatency: needs an X server\n");
        return 2;
    }
    QtMainQueue mainQueue;
    Granted permission;
    X11KeyEvents keyEvents({.toolkit = x11->connection(),
                            .mainQueue = mainQueue,
                            .permission = permission,
                            .ringGotKey = [](xcb_keycode_t, xcb_timestamp_t) {
                                return false;
                            }});
    Hand hand;
    const auto hear = [&hand](const KeyEvents::Event& event) {
        if (event.modifierFlags == chordFlags) {
            hand.pressed();
        }
    };
    {
        const auto tap = keyEvents.createEventTap(KeyEvents::Kind::modifiersChanged, hear, [] {});
        report("event tap", hand.measure());
    }
    {
        const auto monitor = keyEvents.addGlobalMonitor(KeyEvents::Kind::modifiersChanged, hear);
        report("global monitor", hand.measure());
    }
    GlobalHotKey hotKey(
        {keyEvents, permission, mainQueue},
        HotKeyConfig::defaultConfig(),
        [&hand](double) { hand.pressed(); },
        [](ReleaseReason, double) {});
    if (!hotKey.registerHotKey()) {
        return 2;
    }
    return report("all together", hand.measure()) < highestMedian ? 0 : 1;
}
