// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>

namespace Tavik::LaunchEnvironment {

using Variables = QMap<QByteArray, QByteArray>;

/// What the session gave this program when it started: nothing that the program has set for itself
/// since then is in it. Any thread.
[[nodiscard]] Variables atStart();

/// `variables` without what was meant for this program alone: its own start-up notification and
/// launch marks, its systemd unit, and the folders of the image it was started from.
[[nodiscard]] Variables forOthers(Variables variables);

/// Reads an environment block: `NAME=value`, each ended by a zero byte.
[[nodiscard]] Variables parse(const QByteArray& block);

} // namespace Tavik::LaunchEnvironment
