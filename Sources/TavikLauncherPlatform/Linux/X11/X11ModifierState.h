// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyboardMap.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QObject>
#include <QPointer>
#include <QSocketNotifier>

#include <deque>
#include <functional>
#include <vector>

namespace Tavik {

/// The modifiers in effect as the server itself counts them: what is held, latched and locked,
/// after the user's layout, sticky keys and slow keys have had their say.
///
/// Who hears of a key event does not work out what it means, but asks here. Answers and the
/// server's own notifications come over one connection and are told in the order in which the
/// server wrote them, so that whoever listens sees one history, however many sources have woken it.
class X11ModifierState final : public QObject
{
public:
    /// Bits of ModifierFlags, and the time of the event in seconds of system uptime.
    using Observer = std::function<void(quint64 flags, double time)>;
    struct Dependencies
    {
        MainQueue& mainQueue;
        std::function<const X11KeyboardMap&()> map;
        /// A server that speaks for another window system tells the release and the press of all
        /// that is held whenever the focus moves. There a release counts only when it lasts.
        bool retellsKeys = false;
    };

    explicit X11ModifierState(Dependencies dependencies);

    /// Whether the server tells of changes without being asked.
    [[nodiscard]] bool isNotified() const { return m_keyboardEvent >= 0; }
    /// Tells every change, until `listener` is destroyed.
    void follow(QObject* listener, Observer observer);
    /// Asks for the state after the event of that time; does not wait. Nothing is told when
    /// `listener` is destroyed meanwhile.
    void ask(QObject* listener, double time, Observer observer);
    /// The state now; one round trip. Absent when the connection is lost.
    [[nodiscard]] std::optional<quint64> now();

private:
    using Event = X11Reply<xcb_generic_event_t>;
    struct Listener
    {
        QPointer<QObject> object;
        Observer observer;
    };
    struct Question
    {
        xcb_query_pointer_cookie_t cookie{};
        double time = 0;
        Listener listener;
    };
    struct Loss
    {
        double time = 0;
        Listener listener;
    };

    void selectNotifications();
    void drain();
    void drainSoon();
    [[nodiscard]] bool hasNext();
    [[nodiscard]] bool isOlderThanAnswer(const xcb_generic_event_t& event) const;
    void handleNext();
    void handle(const xcb_generic_event_t& event);
    /// Returns false when the answer has not arrived.
    bool answerNext();
    /// `isUsedUp` says that a latch has been used up by a key.
    void tell(quint64 flags, double time, const Listener& listener, bool isUsedUp);
    void believeLoss();
    [[nodiscard]] quint64 flagsFor(quint16 mask) const;

    Dependencies m_dependencies;
    X11Connection m_connection;
    std::unique_ptr<QSocketNotifier> m_notifier;
    int m_keyboardEvent = -1; ///< The number of the keyboard extension's events.
    std::vector<Listener> m_followers;
    std::deque<Question> m_questions;
    Event m_next; ///< Read, but not handled yet.
    bool m_willDrain = false;
    quint64 m_believed = 0; ///< What has been told last.
    quint64 m_doubted = 0; ///< What the server says while the release is not yet believed.
    std::vector<Loss> m_losses; ///< Who is to hear of the release, and when it was.
    Task m_settling;
};

} // namespace Tavik
