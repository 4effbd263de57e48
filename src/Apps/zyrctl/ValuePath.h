#pragma once

#include "NodeDescription.h"

#include <set>
#include <string>

// Paths of values in answers: "events[0].isActive". Pure functions.

namespace zyr_ctl
{

/// A part of an answer, with its description where there is one.
struct Picked
{
    Value value;
    const FieldDescription* field = nullptr; ///< points into the description that was handed in
};

/// The part of an answer at a path; an index may stand as "events[0]" or "events.0".
/// @param fields  the description of the answer; empty: not described
/// @throws Failure (usage) if there is no such part
Picked pick(const Value& answer, const std::vector<FieldDescription>& fields, const std::string& path);

/// The path of an element of the list at `path`.
std::string elementPath(const std::string& path, std::size_t index);

/// Where two values differ: the paths of members and elements whose value is another, that are new or that
/// are gone. A list whose length has changed is named itself too. The path of the whole value is empty.
std::set<std::string> changedPaths(const Value& before, const Value& after);

/// Whether one of the paths is this one or leads further into it.
bool touches(const std::set<std::string>& paths, const std::string& path);

} // namespace zyr_ctl
