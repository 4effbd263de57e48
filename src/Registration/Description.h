#pragma once

#include "ETIResult.h"
#include "Field.h"
#include "MemberCount.h"

#include <array>
#include <chrono>
#include <span>
#include <string_view>

namespace zyr_registration
{

using enum zyr_top_api::ETIResult;

/// What a method belongs to.
enum class Group
{
    Catalogue,
    Events,
    Loops,
    Acm,
    Configuration,
    Power,
    Lifecycle,
    Status,
    RadioUnit,
    Diversity,
    Timing,
    XpicMimo,
    Encryption,
    TestPower,
    TestDsp,
    TestRf,
    Simulation, ///< of the simulated node, no command
};

/// The name of a group, in small letters: "acm", "radio-unit".
std::string_view groupName(Group group);

/// What a method does to the node.
enum class Effect
{
    /// Nothing, as long as the fields that are marked with `changes` keep their defaults.
    Reads,
    Changes,         ///< it can change something
    DisturbsTraffic, ///< it can interrupt or endanger traffic: people should be asked before it runs
};

/// A fault that a command can give.
struct FaultNote
{
    zyr_top_api::ETIResult result;
    std::string_view text; ///< the fault's text; "<n>" and the like stand for what differs from call to call
    std::string_view meaning; ///< what to make of it
};

/// The fault of most commands with a radio channel.
inline constexpr FaultNote kRadioChannelOutOfBounds{eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds",
                                                    "The node has no such radio channel."};

/// The longest time of a method that waits for nothing.
inline constexpr std::chrono::milliseconds kPrompt{1000};

/// What the example of a method needs to serve on a simulated node that has just started.
struct ExampleNeeds
{
    std::string_view options = {}; ///< of `zyrnode`: "--radio-type 3"
    std::string_view before = {};  ///< a method whose example has to run before
};

/// What is to be known of a method to call it.
struct MethodNotes
{
    std::string_view name;
    std::string_view help; ///< one sentence
    Group group = Group::Simulation;
    Effect effect = Effect::Changes;
    std::chrono::milliseconds longest = kPrompt; ///< from its start to its answer; of no long poll
    std::span<const Field> request = {};
    std::span<const Field> response = {};
    std::span<const FaultNote> faults = {};
    ExampleNeeds needs = {};
    bool isTest = false;              ///< refused while the test family is closed
    bool isLongPoll = false;          ///< blocks as long as its caller wishes
    MakeRecord makeRequest = nullptr; ///< the record of the request
};

/// What a description leaves out.
struct DescriptionDefaults
{
    static constexpr std::chrono::milliseconds longest = kPrompt; ///< with all waits and retries
    static constexpr std::array<Field, 0> request = {};           ///< fields of the command's `Command`
    static constexpr std::array<Field, 0> response =
        {}; ///< fields of its `Response`, without the result and the fault
    static constexpr std::array<FaultNote, 0> faults = {}; ///< all that it can give by itself
    static constexpr ExampleNeeds needs = {};
};

/// The machine description of a command, by its implementation type. Every command has one, in
/// `descriptions/<Command>Description.h`: a specialisation that derives from `DescriptionDefaults`, has a
/// `help` (one sentence), a `group` and an `effect`, and hides the defaults that don't fit.
template <class XImpl>
struct Description;

} // namespace zyr_registration
