// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/Symbol.h>

#include <QList>
#include <QString>

namespace Tavik {

struct HotKeyConfig;

/// One row of the first-run tour.
struct TourRow
{
    Symbol symbol = Symbol::keyboard;
    QString title;
    QString detail;
};

/// What the first-run tour says, for the trigger shortcut in force.
[[nodiscard]] QList<TourRow> tourRows(const HotKeyConfig& hotKey);

} // namespace Tavik
