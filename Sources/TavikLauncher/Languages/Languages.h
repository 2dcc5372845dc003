// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QCoreApplication;

/// The languages that the program speaks besides the English of its code. Their catalogs are in the
/// program; English has none and costs nothing.
namespace Tavik::Languages {

/// Their two letters.
[[nodiscard]] QStringList all();
/// Of what a user wants ("de-AT", "en-US", most wanted first) the first that there is; empty for
/// English.
[[nodiscard]] QString chosen(const QStringList& wanted);
/// Speaks `language` from now on, in the toolkit's own dialogs, too, where its catalogs are
/// installed. To be called before the first text is said.
void speak(QCoreApplication& application, const QString& language);

} // namespace Tavik::Languages
