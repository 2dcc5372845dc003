// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace Tavik {

struct DesktopEntry;

/// The command lines of desktop entries. Values in, values out; any thread.
namespace CommandLine {

/// What a command line starts.
struct Program
{
    QString name; ///< As written; for an interpreter, the script it runs. Empty when not telling.
    bool hasArguments = false; ///< Words follow that are no field codes.
};

/// The words of a line with its quotes undone; empty for a damaged line.
[[nodiscard]] QStringList words(const QString& command);

/// The program itself, whatever it runs; empty for a damaged line.
[[nodiscard]] QString firstWord(const QString& command);

/// Past an `env` with its assignments. Programs that merely start others, such as the wrappers of
/// packages, tell nothing.
[[nodiscard]] Program programOf(const QString& command);
/// The same for the words of a running process.
[[nodiscard]] Program programOf(const QStringList& words);

/// The words to start an entry with, its field codes filled in; `target` is the page or file to
/// open, empty for none. Absent when the line is damaged or starts nothing.
[[nodiscard]] std::optional<QStringList> expanded(const DesktopEntry& entry,
                                                  const QString& target = {});

} // namespace CommandLine

} // namespace Tavik
