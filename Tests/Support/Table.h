// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>

#include <tuple>

namespace Tavik::Test {

/// The table of a test function; each row is tried on its own.
///
///     void textsAreCounted_data()
///     {
///         const Table<QString, int> row;
///         row("a word", u"word"_s, 4);
///     }
///     void textsAreCounted()
///     {
///         const auto [text, count] = fetch<QString, int>();
template <typename... Columns> class Table
{
public:
    Table() { QTest::addColumn<std::tuple<Columns...>>("row"); }
    void operator()(const char* name, const Columns&... values) const
    {
        QTest::newRow(name) << std::tuple<Columns...>(values...);
    }
};

/// The row that is being tried, of the table with those columns.
template <typename... Columns> [[nodiscard]] std::tuple<Columns...> fetch()
{
    using Row = std::tuple<Columns...>;
    return *static_cast<Row*>(QTest::qData("row", qMetaTypeId<Row>()));
}

} // namespace Tavik::Test
