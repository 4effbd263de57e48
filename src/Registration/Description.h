#pragma once

#include "ETIResult.h"
#include "Field.h"
#include "MemberCount.h"

#include <array>
#include <span>
#include <string_view>

namespace zyr_registration
{

/// A fault that a command can give.
struct FaultNote
{
    zyr_top_api::ETIResult result;
    std::string_view text; ///< the fault's text; "<n>" and the like stand for what differs from call to call
    std::string_view meaning; ///< what to make of it
};

/// What is to be known of a method to call it.
struct MethodNotes
{
    std::string_view name;
    std::string_view help; ///< one sentence
    std::span<const Field> request = {};
    std::span<const Field> response = {};
    std::span<const FaultNote> faults = {};
    bool isTest = false;          ///< refused while the test family is closed
    bool isLongPoll = false;      ///< blocks as long as its caller wishes
    bool disturbsTraffic = false; ///< people should be asked before it runs
};

/// What a description leaves out.
struct DescriptionDefaults
{
    static constexpr std::array<Field, 0> request = {}; ///< fields of the command's `Command`
    static constexpr std::array<Field, 0> response =
        {}; ///< fields of its `Response`, without the result and the fault
    static constexpr std::array<FaultNote, 0> faults = {};
    static constexpr bool disturbsTraffic = false; ///< whether people should be asked before it runs
};

/// The machine description of a command, by its implementation type. Every command has one, in
/// `descriptions/<Command>Description.h`: a specialisation that derives from `DescriptionDefaults`, has a
/// `help` (one sentence) and hides the defaults that don't fit.
template <class XImpl>
struct Description;

} // namespace zyr_registration
