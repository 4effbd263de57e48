#pragma once

#include "ValueSink.h"
#include "ValueType.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zyr_registration
{

/// Fills a record from the members of a request. Members that may be left out keep the record's defaults.
/// @param method            the command's wire name, for the error texts
/// @param members           an object
/// @param numberOfChannels  the radio channels of the node
/// @throws RecordError for the first member that is missing, unknown, of the wrong type or out of its range
void readRecord(std::string_view method, std::span<const Field> fields, const Value& members,
                std::uint32_t numberOfChannels, void* record);

/// Checks the strings of a request that the command reads as whole numbers (`FieldNotes::isWholeNumber`), as
/// `std::stoi` does: whatever follows the number doesn't count. For the time behind a command that has given
/// up on one of them, since others never reach the point where they are read.
/// @param members  an object that `readRecord` has taken
/// @throws RecordError (`eTI_E_INVALID_ARGUMENT`) for the first one that doesn't begin with a number that
/// fits
void checkWholeNumbers(std::string_view method, std::span<const Field> fields, const Value& members);

/// Refuses a request that leaves out an option that the command needs for what is asked
/// (`FieldNotes::neededFor`). For the time behind a command that has given up on one of them, since others do
/// without it.
/// @param members  an object that `readRecord` has taken
/// @throws RecordError (`eTI_E_REQUIRED_INPUT_MISSING`) for the first one that is left out
void refuseMissingOption(std::string_view method, std::span<const Field> fields, const Value& members);

/// Writes the fields of a record as members of the struct that the sink has open, in their order. Absent
/// optionals write nothing.
void writeRecord(std::span<const Field> fields, const void* record, ValueSink& sink);

/// The same as an object.
Value valueOf(std::span<const Field> fields, const void* record);

/// What a field takes, for people: "an integer from 1 to 2", "a boolean", "one of \"Off\", \"On\"".
/// @param numberOfChannels  the range of channels; 0: not known, told in words
std::string acceptedText(const ValueType& type, const FieldNotes& notes, std::uint32_t numberOfChannels);

/// The texts that a number or a string of a field can have; null if it has none.
Texts textsOf(const ValueType& type, const FieldNotes& notes);

/// The numbers that an integer field takes.
/// @param numberOfChannels  as above
Range acceptedRange(const ValueType& type, const FieldNotes& notes, std::uint32_t numberOfChannels);

} // namespace zyr_registration
