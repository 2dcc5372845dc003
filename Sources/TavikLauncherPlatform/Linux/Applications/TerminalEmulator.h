// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace Tavik::TerminalEmulator {

/// What the desktop offers, replaced in tests. Looking at it reads the disk.
struct Surroundings
{
    std::function<QString(const QString& program)> installed; ///< Its path; empty when missing.
    QString desktopsChoice; ///< A command line from the desktop's settings; empty for none.
    QString usersChoice; ///< $TERMINAL

    [[nodiscard]] static Surroundings ofSession();
};

/// The words that run `command` in a terminal; absent when there is no terminal. The first that is
/// installed is taken: the standard's own launcher, what the desktop's settings say, what the
/// user's environment says, the system's alternative, then whatever is known. Any thread.
[[nodiscard]] std::optional<QStringList> around(const QStringList& command,
                                                const Surroundings& surroundings);

} // namespace Tavik::TerminalEmulator
