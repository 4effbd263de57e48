#pragma once

#include "CallSite.h"
#include "ETIResult.h"
#include "IInterface.h"
#include "NodeWide.h"
#include "PerChannel.h"
#include "StorageVariable.h"
#include "TylTrace.h"

#include <concepts>
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

/// How `initialize` of a command that keeps its number of channels behaves, apart from its collaborators.
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

/// How `initialize` of a command without a number of channels of its own behaves.
struct UncountedRules
{
    bool isRangeTested = false;
    RangeRule range = {};
    bool entryTellsCount = false; ///< as above
};

/// The families of `initialize`, by their habits.
namespace family
{

inline constexpr RangeRule kBounds{
    .form = RangeRule::Text::Plain, .text = "numberOfChannels is out of bounds", .result = eTI_E_FAILED};

inline constexpr InitialiseRules kPlain{};
inline constexpr UncountedRules kNodeWide{};
inline constexpr InitialiseRules kGuarded{
    .secondCall = {SecondCallRule::Guard::AfterRange, "Already initialized"}, .entryTellsCount = true};

/// Guarded by the class's own text, range failure without the number.
constexpr InitialiseRules
classGuarded(SecondCallRule::Guard guard, std::string_view text,
             InitialiseRules::CountStored countStored = InitialiseRules::CountStored::Last)
{
    return {
        .range = kBounds, .secondCall = {guard, text}, .countStored = countStored, .entryTellsCount = true};
}

/// A range failure without a line in the trace.
constexpr RangeRule silentRange(ETIResult result)
{
    return {.form = RangeRule::Text::None, .text = {}, .result = result};
}

} // namespace family

/// What is logged when a collaborator is missing: a text, a value and a text behind it.
struct MissingText
{
    enum class Value
    {
        None,
        Name,          // that was looked up
        Channel,       // its number
        ChannelPrefix, // "channel <n>: "
    };
    // sic: the common text has a leading blank
    std::string_view text = " Error getting interface to ";
    Value value = Value::Name;
    std::string_view textBehind = {};
    TylTraceLevel level = 1;
};

/// A missing text without a value.
constexpr MissingText plainText(std::string_view text, TylTraceLevel level = 1)
{
    return {.text = text, .value = MissingText::Value::None, .level = level};
}

/// A missing text that ends in the name that was looked up.
constexpr MissingText textAndName(std::string_view text, TylTraceLevel level = 1)
{
    return {.text = text, .value = MissingText::Value::Name, .level = level};
}

/// A missing text with the name that was looked up in its middle.
constexpr MissingText textAroundName(std::string_view front, std::string_view behind, TylTraceLevel level = 1)
{
    return {.text = front, .value = MissingText::Value::Name, .textBehind = behind, .level = level};
}

/// A missing text that ends in the channel's number.
constexpr MissingText textAndChannel(std::string_view text, TylTraceLevel level = 1)
{
    return {.text = text, .value = MissingText::Value::Channel, .level = level};
}

/// A missing text with "channel <n>: " in front.
constexpr MissingText channelAndText(std::string_view text, TylTraceLevel level = 1)
{
    return {.text = {}, .value = MissingText::Value::ChannelPrefix, .textBehind = text, .level = level};
}

/// Nothing is logged.
inline constexpr MissingText kSilent{.text = {}, .value = MissingText::Value::None, .level = 0};

/// The name under which something is looked up, for one of the channels or for the node.
struct LookupName
{
    std::string_view front;
    bool hasChannel = false;
    std::string_view separator = "_"; ///< in front of the channel's number
    std::string_view behind = {};     ///< behind the channel's number

    std::string of(std::uint32_t channel) const;
};

struct Collaborator;

/// One lookup: what `take` is told.
struct Lookup
{
    const Collaborator& collaborator;
    const std::string& name;
    std::uint32_t channel; ///< 0 for the node
};

/// One collaborator that `initialize` takes, or another thing that it looks up.
struct Collaborator
{
    /// Whether an absence fails `initialize` or leaves the slot empty.
    enum class Absence
    {
        Fails,
        StaysNull,
    };

    LookupName name;
    bool isPerChannel;
    void* slot;                         ///< where it goes
    bool (*take)(const Lookup& lookup); ///< false: missing
    MissingText missing = {};
    Absence absence = Absence::Fails;
    const void* owner = nullptr; ///< of a part: where the collaborators are that hand it out
    /// Called when it was found; may be null.
    void (*whenFound)(const std::string& name, std::uint32_t channel, void* slot) = nullptr;
};

/// A collaborator that isn't one of a channel's.
struct NodeWideCollaborator : Collaborator
{};

namespace detail
{

/// What is published under this name, of whatever type; null if nothing is.
IInterface* published(const std::string& name);

template <class Interface>
bool takePerChannel(const Lookup& lookup)
{
    auto* const found = dynamic_cast<Interface*>(published(lookup.name));
    static_cast<PerChannel<Interface>*>(lookup.collaborator.slot)->set(lookup.channel, found);
    return found != nullptr;
}

template <class Interface>
bool takeNodeWide(const Lookup& lookup)
{
    auto* const found = dynamic_cast<Interface*>(published(lookup.name));
    static_cast<NodeWide<Interface>*>(lookup.collaborator.slot)->set(found);
    return found != nullptr;
}

template <auto Getter, class Owner, class Part>
bool takePart(const Lookup& lookup)
{
    const auto& owners = *static_cast<const PerChannel<Owner>*>(lookup.collaborator.owner);
    Part* const found = (owners[lookup.channel].*Getter)();
    static_cast<PerChannel<Part>*>(lookup.collaborator.slot)->set(lookup.channel, found);
    return found != nullptr;
}

} // namespace detail

/// A collaborator of each channel, published as "<name>_<channel>". It must be there.
template <class Interface>
Collaborator perChannel(std::string_view name, PerChannel<Interface>& slot, MissingText missing = {})
{
    return {.name = {.front = name, .hasChannel = true},
            .isPerChannel = true,
            .slot = &slot,
            .take = &detail::takePerChannel<Interface>,
            .missing = missing};
}

/// A part that a collaborator of each channel hands out; to stand behind that collaborator. It must be there.
/// @tparam Getter  the collaborator's operation that gives it
template <auto Getter, class Owner, class Part>
Collaborator part(const PerChannel<Owner>& owner, PerChannel<Part>& slot, MissingText missing)
{
    return {.name = {.front = typeName<Part>()},
            .isPerChannel = true,
            .slot = &slot,
            .take = &detail::takePart<Getter, Owner, Part>,
            .missing = missing,
            .owner = &owner};
}

/// A hardware driver of each channel, named "<front><channel><behind>". Its handle is empty where there is
/// none, and `initialize` goes on.
Collaborator driver(std::string_view front, std::string_view behind, DriverPerChannel& slot,
                    MissingText missing);

/// A collaborator of the whole node, published under its plain name. It must be there.
template <class Interface>
NodeWideCollaborator nodeWide(std::string_view name, NodeWide<Interface>& slot, MissingText missing = {})
{
    return {{.name = {.front = name},
             .isPerChannel = false,
             .slot = &slot,
             .take = &detail::takeNodeWide<Interface>,
             .missing = missing}};
}

/// A variable of the hardware storage. It must be there.
NodeWideCollaborator storageVariable(StorageVariable& slot, MissingText missing);

/// A variable of the hardware storage of which only the presence is tested.
NodeWideCollaborator storageVariablePresence(std::string_view name, MissingText missing);

/// The same collaborator, but one that may be absent: its slot stays empty then.
template <std::derived_from<Collaborator> AnyCollaborator>
constexpr AnyCollaborator optional(AnyCollaborator collaborator)
{
    collaborator.absence = Collaborator::Absence::StaysNull;
    return collaborator;
}

/// The same collaborator, but published as "<name><channel>".
constexpr Collaborator withoutUnderscore(Collaborator collaborator)
{
    collaborator.name.separator = {};
    return collaborator;
}

/// `initialize` of a command that keeps its number of channels: the rules of its family, then its
/// collaborators in the order of the list, each run of per-channel ones channel by channel. Ends at the first
/// absence that fails; what was taken before stays.
/// @param storedCount  the command's number of channels
ETIResult initialise(const TylTrace& trace, const InitialiseRules& rules, unsigned numberOfChannels,
                     std::uint32_t& storedCount, std::initializer_list<Collaborator> collaborators,
                     CallSite at = CallSite());

/// `initialize` of a command that keeps no number of channels and so has no collaborator of a channel.
ETIResult initialise(const TylTrace& trace, const UncountedRules& rules, unsigned numberOfChannels,
                     std::initializer_list<NodeWideCollaborator> collaborators, CallSite at = CallSite());

/// `initialize` of a command without collaborators: traces nothing, but makes the command's trace channel
/// known, so that it can be listed and set. Always `eTI_S_OK`.
ETIResult initialiseNothing(const TylTrace& trace);

} // namespace zyr_top_api
