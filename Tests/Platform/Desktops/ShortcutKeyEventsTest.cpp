// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/ShortcutKeyEvents.h>

#include <QTest>
#include <QWindow>

#include <Support/FakeKeyEvents.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using Kind = KeyEvents::Kind;

namespace {

constexpr quint64 chord = ModifierFlags::control | ModifierFlags::option;

/// A desktop that takes every shortcut, or none.
class FakeSource final : public ShortcutSource
{
public:
    [[nodiscard]] bool hearsChords() const override { return true; }
    [[nodiscard]] bool hidesKeys() const override { return false; }
    [[nodiscard]] bool serves() const override { return takes; }
    [[nodiscard]] bool isThere() const override { return takes; }
    int bind(const KeyEvents::HotKey&, Handlers) override { return takes ? 0 : statusTaken; }
    void unbind() override { }
    [[nodiscard]] int status(const KeyEvents::HotKey&) override { return 0; }

    bool takes = true;
};

} // namespace

class ShortcutKeyEventsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsHeldIsKnownOnlyWithTheKeyboardAndAfterAMoment_data()
    {
        const Table<double> row; // How long that takes; less than nothing for ever.
        row("at once", 0);
        row("it settles", 0.06);
        row("never", -1);
    }
    void whatIsHeldIsKnownOnlyWithTheKeyboardAndAfterAMoment()
    {
        const auto [settling] = fetch<double>();
        auto own = std::make_unique<FakeKeyEvents>();
        own->held = ModifierFlags::control; // As it was when we had the keyboard last.
        FakeKeyEvents& ours = *own;
        const bool everSettles = settling >= 0;
        ShortcutKeyEvents events(
            {m_mainQueue, m_source, everSettles ? std::optional(settling) : std::nullopt},
            std::move(own));
        QList<quint64> told;
        const auto monitor
            = events.addLocalMonitor(Kind::modifiersChanged, [&](const KeyEvents::Event& event) {
                  told << event.modifierFlags;
                  return false;
              });
        m_mainQueue.advance(1);
        QVERIFY(!events.heldModifiers());
        QWindow window;
        window.show();
        window.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        m_mainQueue.advance(settling / 2);
        QCOMPARE(events.heldModifiers().has_value(), settling == 0);
        ours.held = chord;
        m_mainQueue.advance(1);
        QCOMPARE(events.heldModifiers(), everSettles ? std::optional(chord) : std::nullopt);
        QCOMPARE(told.size(), everSettles ? 1 : 0);
    }

    void nobodyElseIsBelievedWhileTheDesktopServes()
    {
        for (const bool takes : {false, true}) {
            m_source.takes = takes;
            auto own = std::make_unique<FakeKeyEvents>();
            own->hotKeyError = 1;
            ShortcutKeyEvents events({m_mainQueue, m_source, 0}, std::move(own));
            auto had = events.registerHotKey({.keyCode = {}, .modifierFlags = chord}, {});
            const auto hasOthers = [&events] {
                return events.addGlobalMonitor(Kind::modifiersChanged, {})
                    || events.createEventTap(Kind::modifiersChanged, {}, {});
            };
            QCOMPARE(hasOthers(), !takes);
            QCOMPARE(events.hotKeyStatus({}) == 0, takes);
            had.registration.reset();
            QVERIFY(hasOthers());
        }
    }

private:
    VirtualMainQueue m_mainQueue;
    FakeSource m_source;
};

QTEST_MAIN(ShortcutKeyEventsTest)
#include "ShortcutKeyEventsTest.moc"
