#pragma once

#include "Description.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// What all renderings of a method's notes have in common.

namespace zyr_registration
{

/// The fields of one record, and what is to be known to render them.
struct FieldList
{
    std::span<const Field> fields;
    bool isRequest;
    std::uint32_t numberOfChannels;    ///< 0: not known
    const void* defaults = nullptr;    ///< a record with its defaults; null if that doesn't matter
    std::string_view holdersUnit = {}; ///< of the field that holds the record
};

/// The faults of a method, that of a closed test family included.
std::vector<FaultNote> faultsOf(const MethodNotes& method);

std::int32_t faultCodeOf(const FaultNote& fault);

/// The unit of a field; empty if it has none.
std::string_view unitOf(const Field& field, std::string_view holdersUnit);

/// What the record's own default of a field is.
Value defaultOf(const Field& field, const void* defaults);

/// A value of a field that serves on the simulated node.
Value exampleOf(const Field& field, std::uint32_t numberOfChannels);

/// A method's record of its request with its defaults; null if it has none.
std::shared_ptr<void> defaultRequest(const MethodNotes& method);

/// The help of a field, with its numbers that are no value and whether it is secret.
std::string fullHelp(const Field& field);

/// What is to be known of a method as a whole, in sentences.
std::string methodText(const MethodNotes& method);

} // namespace zyr_registration
