// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/TerminationSignals.h>

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <utility>

#include <unistd.h>

namespace Tavik {

namespace {

constexpr std::array handledSignals{SIGTERM, SIGINT, SIGHUP};

/// A signal handler may do next to nothing: it writes a byte here, and the event loop reads it.
std::array<int, 2> pipeEnds{-1, -1};

void writeByte(int)
{
    // Whatever was interrupted may be about to look at its own error.
    const int error = errno;
    const char byte = 0;
    static_cast<void>(!write(pipeEnds[1], &byte, 1));
    errno = error;
}

void exitNow(int)
{
    ::_exit(0);
}

using Actions = std::array<struct sigaction, handledSignals.size()>;

/// Returns what was done on each before.
Actions handle(void (*handler)(int))
{
    Actions before{};
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < handledSignals.size(); ++i) {
        sigaction(handledSignals[i], nullptr, &before[i]);
        // Whoever started the program with a signal ignored wants it to outlive that.
        if (before[i].sa_handler != SIG_IGN) {
            sigaction(handledSignals[i], &action, nullptr);
        }
    }
    return before;
}

} // namespace

class TerminationSignals::Pipe
{
public:
    explicit Pipe(std::function<void()> onTerminate)
    {
        if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
            return;
        }
        m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
        QObject::connect(m_notifier.get(),
                         &QSocketNotifier::activated,
                         m_notifier.get(),
                         [onTerminate = std::move(onTerminate)] {
                             char byte = 0;
                             static_cast<void>(!read(pipeEnds[0], &byte, 1));
                             onTerminate();
                         });
        m_before = handle(writeByte);
    }
    ~Pipe()
    {
        if (!m_notifier) {
            return;
        }
        for (std::size_t i = 0; i < handledSignals.size(); ++i) {
            sigaction(handledSignals[i], &m_before[i], nullptr);
        }
        m_notifier.reset();
        for (int& end : pipeEnds) {
            close(std::exchange(end, -1));
        }
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
    Actions m_before{};
};

TerminationSignals::TerminationSignals(std::function<void()> onTerminate)
    : m_pipe(std::make_unique<Pipe>(std::move(onTerminate)))
{ }

TerminationSignals::~TerminationSignals() = default;

void TerminationSignals::endAtOnce()
{
    static_cast<void>(handle(exitNow));
}

} // namespace Tavik
