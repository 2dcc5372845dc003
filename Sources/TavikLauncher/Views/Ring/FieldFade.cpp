// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Ring/FieldFade.h>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {
constexpr double shownSeconds = 4.0;
constexpr double fadeSeconds = 0.35;
} // namespace

FieldFade::FieldFade(MainQueue& mainQueue, std::function<void()> onDue)
    : m_mainQueue(mainQueue)
    , m_onDue(std::move(onDue))
{ }

void FieldFade::show(bool fades)
{
    m_opacity = 1;
    m_isDue = false;
    m_wait.cancel();
    if (fades) {
        m_wait = m_mainQueue.after(shownSeconds, [this] {
            m_isDue = true;
            m_onDue();
        });
    }
}

void FieldFade::advance(double seconds, bool isBlended)
{
    if (m_isDue) {
        m_opacity = isBlended ? std::max(m_opacity - seconds / fadeSeconds, 0.0) : 0.0;
    }
}

} // namespace Tavik
