// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/SingleInstance.h>

#include <QString>
#include <QStringList>

#include <optional>

namespace Tavik {

/// What the user asked for on the command line.
struct CommandLine
{
    AppRequest request;
    /// A text to print instead of running, and the exit code that goes with it.
    std::optional<QString> answer;
    int exitCode = 0;

    /// `arguments` without the program's name.
    [[nodiscard]] static CommandLine parse(const QStringList& arguments);
};

} // namespace Tavik
