// SPDX-License-Identifier: MIT
#include <Support/VirtualMainQueue.h>
#include <algorithm>

namespace Tavik::Test {

class VirtualTask final : public Task::Impl
{
public:
    VirtualTask(VirtualMainQueue& queue, quint64 id)
        : m_queue(queue)
        , m_id(id)
    { }
    ~VirtualTask() override { m_queue.m_entries.erase(m_id); }
    VirtualTask(const VirtualTask&) = delete;
    VirtualTask& operator=(const VirtualTask&) = delete;

    [[nodiscard]] bool isActive() const override { return m_queue.m_entries.contains(m_id); }

private:
    VirtualMainQueue& m_queue;
    quint64 m_id;
};

void VirtualMainQueue::post(std::function<void()> closure)
{
    m_posted.push_back(std::move(closure));
}

Task VirtualMainQueue::add(double seconds, double interval, std::function<void()> closure)
{
    const quint64 id = m_nextId++;
    m_entries.emplace(id, Entry{m_now + seconds, interval, std::move(closure)});
    return Task(std::make_unique<VirtualTask>(*this, id));
}

Task VirtualMainQueue::after(double seconds, std::function<void()> closure)
{
    return add(seconds, 0, std::move(closure));
}

Task VirtualMainQueue::every(double seconds, std::function<void()> closure)
{
    return add(seconds, seconds, std::move(closure));
}

void VirtualMainQueue::drain()
{
    while (!m_posted.empty()) {
        const std::function<void()> closure = std::move(m_posted.front());
        m_posted.pop_front();
        closure();
    }
}

void VirtualMainQueue::advance(double seconds)
{
    // Sums of 0.1 and the like must not miss their own deadline by a rounding error.
    constexpr double tolerance = 1e-9;
    const double end = m_now + seconds;
    drain();
    while (true) {
        const auto next = std::ranges::min_element(
            m_entries, {}, [](const auto& item) { return item.second.due; });
        if (next == m_entries.end() || next->second.due > end + tolerance) {
            break;
        }
        m_now = std::max(m_now, next->second.due);
        const std::function<void()> closure = next->second.closure;
        if (next->second.interval > 0) {
            next->second.due += next->second.interval;
        } else {
            m_entries.erase(next);
        }
        closure();
        drain();
    }
    m_now = end;
}

int VirtualMainQueue::pendingTasks() const
{
    return static_cast<int>(m_entries.size());
}

} // namespace Tavik::Test
