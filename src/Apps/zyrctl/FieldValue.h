#pragma once

#include "NodeDescription.h"

#include <string>

// Values of fields, checked before anything is sent. Pure functions; all throw Failure (usage) with a text
// that names the field, what was given and what is accepted, and that holds no value of a secret field.

namespace zyr_ctl
{

/// Makes a field's value of a word of the command line: booleans as true, false, on, off, 1 or 0, integers in
/// decimal or with 0x, enumerations by text or number, strings as they are, all else as JSON. A word that is
/// the text of one number and is another number itself is refused.
/// @param path  the field's name with those of the records it stands in, for the error text
Value valueOfText(const FieldDescription& field, const std::string& path, const std::string& text);

/// Checks a field's value that has come as JSON, and puts the number for the text of an enumeration.
Value checkedValue(const FieldDescription& field, const std::string& path, const Value& value);

/// Checks the members of a record: known ones only, none missing, each a value of its field. Members that are
/// null are left out.
/// @param owner  who has the fields, for the error text: a command's name, or a field's path
/// @param path   of the record, empty for a request itself
Value checkedMembers(const std::vector<FieldDescription>& fields, const std::string& owner,
                     const std::string& path, const Value& members);

/// What a field takes, for people: "an integer from 1 to 2", "one of "Off" (0) or "On" (1)".
std::string acceptedText(const FieldDescription& field);

/// The path of a member of the record at `path`.
std::string memberPath(const std::string& path, const std::string& name);

/// The refusal of a name that is none of the fields.
/// @throws Failure (usage), always
[[noreturn]] void refuseUnknownField(const std::vector<FieldDescription>& fields, const std::string& owner,
                                     const std::string& name);

/// Reads JSON that a user has given.
/// @param what  where it comes from, to begin the error text with
Value parseJson(const std::string& what, const std::string& text);

} // namespace zyr_ctl
