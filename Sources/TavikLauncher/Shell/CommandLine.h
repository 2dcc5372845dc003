// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/AppRequest.h>

#include <QString>
#include <QStringList>

#include <optional>

namespace Tavik {

/// What the user asked for on the command line.
struct CommandLine
{
    /// Who wanted this start.
    enum class Starter {
        user,
        login, ///< Nobody waits for something to be seen.
        bus, ///< Somebody does; the bus says what in its first message.
    };

    AppRequest request;
    Starter starter = Starter::user;
    /// A text to print instead of running, in the language that is spoken when it is asked for, and
    /// the exit code that goes with it.
    std::optional<QString> answer;
    int exitCode = 0;
    bool tellsDisplay = false; ///< The answer goes on with how this session's screen is reached.

    /// `arguments` without the program's name.
    [[nodiscard]] static CommandLine parse(const QStringList& arguments);
};

} // namespace Tavik
