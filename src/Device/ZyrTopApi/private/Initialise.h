#pragma once

#include "ETIResult.h"
#include "InterfaceBroker.h"
#include "NodeWide.h"
#include "PerChannel.h"
#include "TylTrace.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace zyr_top_api
{

/// What happens when the number of channels is neither 1 nor 2.
struct RangeRule
{
    enum class Text
    {
        None,
        WithNumber, // the text, the number and ")"
        Plain,
    };
    bool isTested = true;
    Text form = Text::WithNumber;
    std::string_view text = "Error: numberOfChannels is out of range (";
    ETIResult result = eTI_E_INVALID_ARGUMENT;
};

/// What happens when `initialize` is called a second time.
struct SecondCallRule
{
    enum class Guard
    {
        None, // the collaborators are fetched anew
        BeforeRange,
        AfterRange,
    };
    Guard guard = Guard::None;
    std::string_view text = {};
};

/// How `initialize` of a command behaves apart from its collaborators.
struct InitialiseRules
{
    RangeRule range = {};
    SecondCallRule secondCall = {};
    /// Whether the count is stored before the lookups, so that a failed call counts as a call, or behind
    /// them.
    enum class CountStored
    {
        First,
        Last,
    } countStored = CountStored::First;
    bool entryTellsCount = false; ///< entry with the text "numberOfChannels=<n>", else without one
};

/// The families of `initialize`, by their habits.
namespace family
{

inline constexpr RangeRule kBounds{
    .form = RangeRule::Text::Plain, .text = "numberOfChannels is out of bounds", .result = eTI_E_FAILED};

inline constexpr InitialiseRules kPlain{};
inline constexpr InitialiseRules kNodeWide{.range = {.isTested = false}};
inline constexpr InitialiseRules kGuarded{
    .secondCall = {SecondCallRule::Guard::AfterRange, "Already initialized"}, .entryTellsCount = true};

/// Guarded by the class's own text, range failure without the number; the count is stored last.
constexpr InitialiseRules classGuarded(SecondCallRule::Guard guard, std::string_view text)
{
    return {.range = kBounds,
            .secondCall = {guard, text},
            .countStored = InitialiseRules::CountStored::Last,
            .entryTellsCount = true};
}

} // namespace family

/// What is logged when a collaborator is missing: a text, with the collaborator's name in the broker or the
/// channel's number behind it if the text wants it.
struct MissingText
{
    enum class Value
    {
        None,
        Name,
        Channel,
    };
    std::string_view text = " Error getting interface to ";
    Value value = Value::Name;
    TylTraceLevel level = 1;
};

/// A missing text without a value.
constexpr MissingText plainText(std::string_view text, TylTraceLevel level = 1)
{
    return {text, MissingText::Value::None, level};
}

/// A missing text that ends in the name that was looked up.
constexpr MissingText textAndName(std::string_view text, TylTraceLevel level = 1)
{
    return {text, MissingText::Value::Name, level};
}

/// A missing text that ends in the channel's number.
constexpr MissingText textAndChannel(std::string_view text, TylTraceLevel level = 1)
{
    return {text, MissingText::Value::Channel, level};
}

/// The collaborator may be absent without a word.
inline constexpr MissingText kSilent{{}, MissingText::Value::None, 0};

/// One collaborator that `initialize` takes, or another thing that it looks up by name.
struct Collaborator
{
    /// Whether an absence fails `initialize` or leaves the pointer null.
    enum class Absence
    {
        Fails,
        StaysNull,
    };

    std::string_view name;                                  // broker name, or its front
    std::string (*nameOf)(std::string_view, std::uint32_t); // from the front and the channel; null: node-wide
    void* slot;                                             // where it goes
    bool (*take)(const std::string& name, std::uint32_t channel, void* slot); // false: missing
    MissingText missing = {};
    Absence absence = Absence::Fails;
    /// Called when it was found; may be null.
    void (*whenFound)(const std::string& name, std::uint32_t channel, void* slot) = nullptr;

    constexpr bool isPerChannel() const { return nameOf != nullptr; }
};

namespace detail
{

template <class Interface>
bool takePerChannel(const std::string& name, std::uint32_t channel, void* slot)
{
    auto* const found = InterfaceBroker::getInstance().getInterface<Interface>(name);
    static_cast<PerChannel<Interface>*>(slot)->set(channel, found);
    return found != nullptr;
}

template <class Interface>
bool takeNodeWide(const std::string& name, std::uint32_t, void* slot)
{
    auto* const found = InterfaceBroker::getInstance().getInterface<Interface>(name);
    static_cast<NodeWide<Interface>*>(slot)->set(found);
    return found != nullptr;
}

/// "<name>_<channel>", the rule for collaborators of one channel.
std::string nameWithChannel(std::string_view name, std::uint32_t channel);
/// "<name><channel>".
std::string nameWithNumber(std::string_view name, std::uint32_t channel);

} // namespace detail

/// A collaborator of each channel, published as "<name>_<channel>". It must be there.
template <class Interface>
Collaborator perChannel(std::string_view name, PerChannel<Interface>& slot, MissingText missing = {})
{
    return {name, &detail::nameWithChannel, &slot, &detail::takePerChannel<Interface>, missing};
}

/// A collaborator of the whole node, published under its plain name. It must be there.
template <class Interface>
Collaborator nodeWide(std::string_view name, NodeWide<Interface>& slot, MissingText missing = {})
{
    return {name, nullptr, &slot, &detail::takeNodeWide<Interface>, missing};
}

/// A variable of the hardware storage, whose address is kept: it stays valid for the life of the process. It
/// must be there.
Collaborator storageVariable(std::string_view name, NodeWide<const std::int32_t>& slot, MissingText missing);

/// A variable of the hardware storage of which only the presence is tested.
Collaborator storageVariablePresence(std::string_view name, MissingText missing);

/// The same collaborator, but one that may be absent: its pointer stays null then.
constexpr Collaborator optional(Collaborator collaborator)
{
    collaborator.absence = Collaborator::Absence::StaysNull;
    return collaborator;
}

/// The same collaborator, but published as "<name><channel>".
constexpr Collaborator withoutUnderscore(Collaborator collaborator)
{
    collaborator.nameOf = &detail::nameWithNumber;
    return collaborator;
}

/// `initialize` of every command: the rules of its family, then its collaborators in the order of the list,
/// each run of per-channel ones channel by channel. Ends at the first absence that fails; what was taken
/// before stays.
/// @param storedCount  the command's number of channels; null if it keeps none
ETIResult initialise(const TylTrace& trace, const InitialiseRules& rules, unsigned numberOfChannels,
                     std::uint32_t* storedCount, std::initializer_list<Collaborator> collaborators,
                     const char* file = __builtin_FILE(), int line = __builtin_LINE(),
                     const char* function = __builtin_FUNCTION());

} // namespace zyr_top_api
