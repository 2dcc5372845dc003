// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/ThreadHandover.h>

#include <QCoreApplication>
#include <QEvent>

#include <functional>
#include <utility>

namespace Tavik {

/// A closure on its way to the thread of an object, which runs it from its `event`. It is not run
/// when the object is gone first.
class Errand final : public QEvent
{
public:
    /// From any thread.
    static void send(QObject& receiver, std::function<void()> closure)
    {
        auto* errand = new Errand(std::move(closure));
        handOver(errand);
        QCoreApplication::postEvent(&receiver, errand); // Which deletes it.
    }
    /// False when the event is none.
    [[nodiscard]] static bool run(QEvent& event)
    {
        takeOver(&event);
        if (event.type() != User) {
            return false;
        }
        if (const auto closure = std::move(static_cast<Errand&>(event).m_closure)) {
            closure();
        }
        return true;
    }

private:
    explicit Errand(std::function<void()> closure)
        : QEvent(User)
        , m_closure(std::move(closure))
    { }

    std::function<void()> m_closure;
};

} // namespace Tavik
