// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/IndexedApp.h>

#include <QList>
#include <QString>

#include <optional>

namespace Tavik::AppSearch {

/// The records of `apps` that match `query`, best first, at most max(`limit`, 1) of them. A blank
/// query yields the first records in their given order. Only names are searched: every word of the
/// query must start a word of the name, in the same order.
[[nodiscard]] QList<IndexedApp> results(const QString& query, const QList<IndexedApp>& apps, qsizetype limit);

/// How well `candidate` answers `query`, higher is better; absent when it does not match.
[[nodiscard]] std::optional<qint64> score(const QString& query, const QString& candidate);

/// True when `left` sorts before `right` as the user's language orders names, ignoring case.
[[nodiscard]] bool localizedCaseInsensitiveLess(const QString& left, const QString& right);

}
