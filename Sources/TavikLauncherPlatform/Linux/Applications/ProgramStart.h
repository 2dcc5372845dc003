// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/LaunchEnvironment.h>

#include <QString>
#include <QStringList>

#include <optional>

namespace Tavik {

/// A program, ready to be handed to the kernel.
struct ProgramStart
{
    QStringList words; ///< The program, looked for along the environment's PATH, and its arguments.
    QString folder; ///< Where it starts; the home folder when that is not there.
    LaunchEnvironment::Variables environment;
    QString entry; ///< The desktop entry it comes from, which it is told; empty for none.
    QString name; ///< Under which its output goes to the journal.
};

struct LaunchResult
{
    std::optional<QString> error; ///< Nothing means done.
    qint64 processId = 0; ///< 0 when another program (the session bus) did the starting.
};

/// Starts a program that outlives this one: in a session of its own, without our standard streams,
/// with no descriptor of ours. Its output goes to the journal where there is one. Nobody has to
/// wait for its end. Takes some 10 ms; any thread, and leaves nothing behind in it.
[[nodiscard]] LaunchResult startProgram(const ProgramStart& start);

} // namespace Tavik
