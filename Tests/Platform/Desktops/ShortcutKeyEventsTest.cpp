// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/ShortcutKeyEvents.h>

#include <QTest>
#include <QWindow>

#include <Support/FakeKeyEvents.h>
#include <Support/ShortcutStory.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using Kind = KeyEvents::Kind;

namespace {

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
        const Table<std::optional<double>> row; // How long that takes; nothing for ever.
        row("at once", 0);
        row("it settles", 0.06);
        row("never", {});
    }
    void whatIsHeldIsKnownOnlyWithTheKeyboardAndAfterAMoment()
    {
        const auto [settling] = fetch<std::optional<double>>();
        auto own = std::make_unique<FakeKeyEvents>();
        own->held = ModifierFlags::control; // As it was when we had the keyboard last.
        FakeKeyEvents& ours = *own;
        ShortcutKeyEvents events({m_mainQueue, m_source, settling}, std::move(own));
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
        m_mainQueue.advance(settling.value_or(0) / 2);
        QCOMPARE(events.heldModifiers().has_value(), settling == 0);
        ours.held = chordFlags;
        m_mainQueue.advance(1);
        QCOMPARE(events.heldModifiers(), settling ? std::optional(chordFlags) : std::nullopt);
        QCOMPARE(told.size(), settling ? 1 : 0);
    }

    void nobodyElseIsBelievedWhileTheDesktopServes()
    {
        for (const bool takes : {false, true}) {
            m_source.takes = takes;
            auto own = std::make_unique<FakeKeyEvents>();
            own->hotKeyError = 1;
            ShortcutKeyEvents events({m_mainQueue, m_source, 0}, std::move(own));
            auto had = events.registerHotKey(chord, {});
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
