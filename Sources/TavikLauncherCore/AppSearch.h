// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/IndexedApp.h>

#include <QList>
#include <QString>

#include <optional>

/// Finds and ranks applications by what the user types. Pure functions, usable on any thread.
namespace Tavik::AppSearch {

/// How equal scores are ordered.
enum class Ties {
    byName, ///< By name, as `localizedCaseInsensitiveLess` has it.
    asGiven, ///< For records that are sorted by name already.
};

/// The records of `apps` that match `query`, best first, at most max(`limit`, 1) of them. A blank
/// query yields the first records in their given order. Every word of the query must start a word
/// of the name, in the same order. Equal scores are ordered by `ties`, equal names stay in their
/// given order. Records that only one of their other names finds follow after all of these, ordered
/// likewise.
[[nodiscard]] QList<IndexedApp> results(const QString& query,
                                        const QList<IndexedApp>& apps,
                                        qsizetype limit,
                                        Ties ties = Ties::byName);

/// How well `candidate` answers `query`, higher is better and any value is a match; absent when it
/// does not match. Case is ignored, accents are not.
[[nodiscard]] std::optional<qint64> score(const QString& query, const QString& candidate);

/// True when `left` sorts before `right` as the user's language orders names, ignoring case.
[[nodiscard]] bool localizedCaseInsensitiveLess(const QString& left, const QString& right);

/// `apps` in the order of `localizedCaseInsensitiveLess` on their names, equal names in their given
/// order. For whole catalogs: each name is collated once instead of at every comparison. None
/// is that has the same name in `sorted`, an earlier result for the same language: collating takes
/// 2 MB and some milliseconds for its tables alone.
[[nodiscard]] QList<IndexedApp> sortedByName(const QList<IndexedApp>& apps,
                                             const QList<IndexedApp>& sorted = {});

} // namespace Tavik::AppSearch
