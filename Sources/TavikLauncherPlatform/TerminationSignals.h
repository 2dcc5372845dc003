// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace Tavik {

/// Turns the system's polite requests to end (SIGTERM, SIGINT, SIGHUP) into a call on the main
/// thread, once its loop turns; those that the program was started to ignore stay ignored. One at a
/// time; main thread only.
class TerminationSignals
{
public:
    explicit TerminationSignals(std::function<void()> onTerminate);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    /// Until there is one, each of them ends the process on the spot, with success: nothing has
    /// been begun that would have to be undone. Needs no application object.
    static void endAtOnce();

private:
    class Pipe;
    std::unique_ptr<Pipe> m_pipe;
};

} // namespace Tavik
