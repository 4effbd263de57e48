#pragma once

#include "NodeDescription.h"

#include <set>
#include <string>
#include <vector>

// Answers as people read them. Pure functions.

namespace zyr_ctl
{

/// A line of output, without its end.
struct Line
{
    std::string text;
    bool isChanged = false;
    bool mayBeCut = false; ///< in a terminal that is too narrow, as tables are

    bool operator==(const Line&) const = default;
};

/// A value as it stands behind its name: a number with its text or in the unit that people use, a list with
/// commas.
/// @param field  null: not described
std::string shownValue(const Value& value, const FieldDescription* field);

/// An answer in lines: fields aligned, lists of records as tables, or one below the other where a table has
/// no room.
/// @param fields   the description of the answer; empty: not described
/// @param changed  paths of what has changed since the last time; see changedPaths
/// @param room     columns of the terminal; 0: as many as it takes
std::vector<Line> renderAnswer(const Value& answer, const std::vector<FieldDescription>& fields,
                               const std::set<std::string>& changed = {}, std::size_t room = 0);

/// A part of an answer in lines. A single value stands alone, as it travels: no unit, no text for a number.
std::vector<Line> renderPicked(const Value& value, const FieldDescription* field, std::size_t room = 0);

/// A table in lines, the columns aligned; columns of numbers to the right.
/// @param rows  each as long as the headings
std::vector<std::string> renderTable(const std::vector<std::string>& headings,
                                     const std::vector<std::vector<std::string>>& rows);

} // namespace zyr_ctl
