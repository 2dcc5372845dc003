// SPDX-License-Identifier: MIT
#include <TavikLauncher/Trigger/TriggerGestures.h>

#include <QTest>

#include <Support/Table.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// A panel of flags that behaves as the real one: hiding it also takes the pin out.
struct Gestured
{
    bool isVisible = false;
    bool isPinned = false;
    bool pins = true;
    TriggerGestures gestures{{
        .isVisible = [this] { return isVisible; },
        .isPinned = [this] { return isPinned; },
        .doubleTapPins = [this] { return pins; },
        .showAtPointer =
            [this] {
                isPinned = isPinned && isVisible;
                isVisible = true;
            },
        .hide = [this] { isVisible = isPinned = false; },
        .pin = [this] { isPinned = true; },
    }};

    /// Plays "P10.0 R10.2 …": press, release, U = release by unregistering, N = never held, A = it
    /// is held after all, S = sleep, of a chord; E = the user closes it; K = press and k = release
    /// of a shortcut with a key; n and y = the user's wish to pin; O = somebody else gets a key, M
    /// = a modifier joins, L = all is let go.
    void play(const QString& script)
    {
        using enum ReleaseReason;
        using enum TriggerGestures::Shortcut;
        double time = 0;
        QHash<QChar, std::function<void()>> acts;
        acts.insert(u'P', [&] { gestures.press(modifierOnly, time); });
        acts.insert(u'R', [&] { gestures.release(modifierOnly, chordReleased, time); });
        acts.insert(u'U', [&] { gestures.release(modifierOnly, unregistered, time); });
        acts.insert(u'N', [&] { gestures.release(modifierOnly, neverHeld, time); });
        acts.insert(u'A', [&] { gestures.heldAfterAll(time); });
        acts.insert(u'E', [&] { isVisible = isPinned = false; });
        acts.insert(u'K', [&] { gestures.press(keyed, time); });
        acts.insert(u'k', [&] { gestures.release(keyed, unregistered, time); });
        acts.insert(u'O', [&] { gestures.otherKey(OtherKey::takenElsewhere); });
        acts.insert(u'M', [&] { gestures.otherKey(OtherKey::modifier); });
        acts.insert(u'L', [&] { gestures.letGo(); });
        acts.insert(u'S', [&] { gestures.systemWillSleep(); });
        acts.insert(u'n', [&] { pins = false; });
        acts.insert(u'y', [&] { pins = true; });
        for (const QString& step : script.split(u' ')) {
            time = step.mid(1).toDouble();
            acts[step.front()]();
        }
    }
};

} // namespace

class TriggerGesturesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gesturesShowHideAndPin_data()
    {
        const Table<QString, bool, bool> row; // Shown, and pinned.
        row("held", u"P10"_s, true, false);
        row("tapped", u"P10 R10.2"_s, false, false);
        row("tap and press", u"P10 R10.2 P10.7"_s, true, true);
        row("pinned survives a long second hold", u"P10 R10.2 P10.7 R13"_s, true, true);
        row("longest tap", u"P10 R10.35 P10.5"_s, true, true);
        row("just too long a hold", u"P10 R10.351 P10.5"_s, true, false);
        row("shortest wait", u"P10 R10.2 P10.25"_s, true, true);
        row("one press told twice", u"P10 R10.2 P10.249"_s, true, false);
        row("longest wait", u"P10 R10.2 P11.2"_s, true, true);
        row("just too long a wait", u"P10 R10.2 P11.201 R11.3"_s, false, false);
        row("the late press is itself a tap", u"P10 R10.2 P11.4 R11.5 P11.9"_s, true, true);
        row("a release counts once", u"P10 R10.2 P10.21 P10.7"_s, true, false);
        row("release without a press", u"R10 P10.5"_s, true, false);
        row("unregistered is no tap", u"P10 U10.1 P10.5"_s, true, false);
        row("unregistered hides", u"P10 U10.1"_s, false, false);
        row("unregistered leaves the pinned", u"P10 R10.2 P10.7 U10.8"_s, true, true);
        row("sleep between", u"P10 R10.2 S P10.7"_s, true, false);
        row("sleep during the tap", u"P10 S R10.2 P10.7"_s, true, false);
        row("times of a long uptime", u"P4000000.123 R4000000.473 P4000001.473"_s, true, true);
        row("a shortcut hides at once", u"P10 O"_s, false, false);
        row("two quick shortcuts", u"P10 O R10.1 L P10.3 O R10.4 L"_s, false, false);
        row("a shortcut is no tap", u"P10 O R10.1 L P10.5"_s, true, false);
        row("a shortcut is no second tap", u"P10 R10.1 P10.3 O R10.4 L"_s, false, false);
        row("told late", u"P10 R10.1 O L P10.5"_s, true, false);
        row("a third modifier let go first", u"P10 M R10.1 P10.2"_s, false, false);
        row("a third pins nothing", u"P10 R10.1 P10.3 M R10.31 P10.32 R10.4 L"_s, false, false);
        row("a third in a pinned ring", u"P10 R10.1 P10.3 R10.4 P12 M R12.1 L"_s, true, true);
        row("the desktop's key in a pinned ring", u"P10 R10.1 P10.3 R10.4 P12 O"_s, false, false);
        row("pinning is not wanted", u"n P10 R10.2 P10.7"_s, true, false);
        row("nor does the tap of before count later", u"n P10 R10.2 P11 y P11.1"_s, true, false);
        row("a command leaves it open", u"P10 N10.1"_s, true, false);
        row("a command a second time", u"P10 N10.1 P12 N12.1"_s, false, false);
        row("a command twice in a second", u"P10 N10.1 P10.6 N10.7"_s, true, true);
        row("a command in the pinned ring", u"P10 N10.1 P10.6 N10.7 P13 N13"_s, false, false);
        row("a command after it was hidden", u"P10 N10 P12 N12 P12.5 N12.5"_s, true, false);
        row("a command after the user closed it", u"P10 N10 E P12 N12"_s, true, false);
        row("held after all", u"P10 R10 A10"_s, true, false);
        row("held after all, to its end", u"P10 R10 A10 R11 P11.5"_s, true, false);
        row("a command's, to its end", u"P10 N10 A10 R11"_s, false, false);
        row("a command twice, held after all", u"P10 N10 A10 P10.6 R12"_s, true, true);
        row("held after all, somebody else's", u"P10 O R10 A10"_s, false, false);
        row("a chord never toggles", u"K9 P10"_s, true, false);
        row("a key shows, its release does nothing", u"K10 k10.1"_s, true, false);
        row("a key hides", u"K10 k10.1 K10.3"_s, false, false);
        row("a key pins nothing", u"K10 k10.1 K10.3 k10.4 K10.5"_s, true, false);
    }

    void gesturesShowHideAndPin()
    {
        const auto [script, isVisible, isPinned] = fetch<QString, bool, bool>();
        Gestured gestured;
        gestured.play(script);
        QCOMPARE(gestured.isVisible, isVisible);
        QCOMPARE(gestured.isPinned, isPinned);
    }
};

QTEST_GUILESS_MAIN(TriggerGesturesTest)
#include "TriggerGesturesTest.moc"
