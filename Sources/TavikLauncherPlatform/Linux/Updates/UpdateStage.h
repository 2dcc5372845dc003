// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

#include <memory>
#include <utility>

namespace Tavik {

/// One step of a conversation. Its closures do nothing once the next step has begun or the stage is
/// gone; so of several answers only the first counts.
class UpdateStage
{
public:
    /// Begins the next step.
    void next() { m_step = std::make_unique<QObject>(); }

    /// An answer, which also ends the step.
    template <typename Callable> [[nodiscard]] auto answer(Callable callable)
    {
        return [this, step = QPointer<QObject>(m_step.get()), callable](auto... arguments) {
            if (step) {
                const auto reaction = callable; // It may destroy the stage, and who keeps this.
                next();
                reaction(arguments...);
            }
        };
    }

    /// News that leaves the step as it is.
    template <typename Callable> [[nodiscard]] auto news(Callable callable) const
    {
        return [step = QPointer<QObject>(m_step.get()), callable](const auto&... arguments) {
            if (step) {
                const auto reaction = callable;
                reaction(arguments...);
            }
        };
    }

private:
    std::unique_ptr<QObject> m_step = std::make_unique<QObject>();
};

} // namespace Tavik
