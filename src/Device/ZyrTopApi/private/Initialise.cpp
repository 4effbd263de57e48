#include "Initialise.h"

#include "CStorageManager.h"
#include "InterfaceBroker.h"
#include "Log.h"
#include "ResultLaw.h"

#include <algorithm>
#include <span>

namespace zyr_top_api
{

namespace
{

using Guard = SecondCallRule::Guard;
using CountStored = InitialiseRules::CountStored;

// One call of `initialise`: all that its steps share.
struct Run
{
    const TylTrace& trace;
    unsigned numberOfChannels;
    CallSite at;

    template <class Text>
    void say(TylTraceLevel level, const Text& text) const
    {
        log(trace, level, text, at);
    }
};

void logEntry(const Run& run, bool tellsCount)
{
    if (tellsCount) {
        const auto count = [&](TextWriter& text) { text << "numberOfChannels=" << run.numberOfChannels; };
        logEnter(run.trace, count, run.at);
    } else {
        logEnter(run.trace, run.at);
    }
}

bool isSecondCall(const Run& run, const SecondCallRule& rule, Guard place, std::uint32_t storedCount)
{
    if (rule.guard != place || storedCount == 0) {
        return false;
    }
    run.say(1, rule.text);
    return true;
}

bool isOutOfRange(const Run& run, const RangeRule& range)
{
    if (run.numberOfChannels - 1 <= 1) {
        return false;
    }
    if (range.form == RangeRule::Text::Plain) {
        run.say(1, range.text);
    } else if (range.form == RangeRule::Text::WithNumber) {
        run.say(1, [&](TextWriter& text) { text << range.text << run.numberOfChannels << ")"; });
    }
    return true;
}

void logMissing(const Run& run, const MissingText& missing, std::string_view name, std::uint32_t channel)
{
    if (missing.level == 0) {
        return;
    }
    run.say(missing.level, [&](TextWriter& text) {
        text << missing.text;
        switch (missing.value) {
        case MissingText::Value::None:
            break;
        case MissingText::Value::Name:
            text << name;
            break;
        case MissingText::Value::Channel:
            text << channel;
            break;
        case MissingText::Value::ChannelPrefix:
            text << "channel " << channel << ": ";
            break;
        }
        text << missing.textBehind;
    });
}

// False ends `initialise`.
bool take(const Run& run, const Collaborator& collaborator, std::uint32_t channel)
{
    const std::string name = collaborator.name.of(channel);
    if (collaborator.take({collaborator, name, channel})) {
        if (collaborator.whenFound != nullptr) {
            collaborator.whenFound(name, channel, collaborator.slot);
        }
        return true;
    }
    logMissing(run, collaborator.missing, name, channel);
    return collaborator.absence == Collaborator::Absence::StaysNull;
}

bool takeForEachChannel(const Run& run, std::span<const Collaborator> collaborators)
{
    for (std::uint32_t channel = 1; channel <= run.numberOfChannels; ++channel) {
        for (const Collaborator& collaborator : collaborators) {
            if (!take(run, collaborator, channel)) {
                return false;
            }
        }
    }
    return true;
}

bool takeAll(const Run& run, std::span<const Collaborator> collaborators)
{
    while (!collaborators.empty()) {
        const auto nodeWide = std::ranges::find_if_not(collaborators, &Collaborator::isPerChannel);
        const auto perChannel = static_cast<std::size_t>(nodeWide - collaborators.begin());
        if (!takeForEachChannel(run, collaborators.first(perChannel))) {
            return false;
        }
        collaborators = collaborators.subspan(perChannel);
        if (!collaborators.empty()) {
            if (!take(run, collaborators.front(), 0)) {
                return false;
            }
            collaborators = collaborators.subspan(1);
        }
    }
    return true;
}

} // namespace

IInterface* detail::published(const std::string& name)
{
    return InterfaceBroker::getInstance().getInterface<IInterface>(name);
}

std::string LookupName::of(std::uint32_t channel) const
{
    return written([&](TextWriter& text) {
        text << front;
        if (hasChannel) {
            text << separator << channel << behind;
        }
    });
}

Collaborator driver(std::string_view front, std::string_view behind, DriverPerChannel& slot,
                    MissingText missing)
{
    const auto take = [](const Lookup& lookup) {
        CDriverHandle handle;
        const bool isThere = !failed(CDriver_GetInterface(&handle, lookup.name.c_str()));
        static_cast<DriverPerChannel*>(lookup.collaborator.slot)
            ->set(lookup.channel, isThere ? handle : CDriverHandle());
        return isThere;
    };
    return {.name = {.front = front, .hasChannel = true, .separator = {}, .behind = behind},
            .isPerChannel = true,
            .slot = &slot,
            .take = take,
            .missing = missing,
            .absence = Collaborator::Absence::StaysNull};
}

NodeWideCollaborator storageVariable(StorageVariable& slot, MissingText missing)
{
    const auto take = [](const Lookup& lookup) {
        void* content = nullptr;
        if (failed(CStorageManager_GetVariableContentAddressByName(lookup.name.c_str(), &content))) {
            return false;
        }
        static_cast<StorageVariable*>(lookup.collaborator.slot)
            ->set(static_cast<const std::int32_t*>(content));
        return true;
    };
    return {{.name = {.front = slot.name()},
             .isPerChannel = false,
             .slot = &slot,
             .take = take,
             .missing = missing}};
}

NodeWideCollaborator storageVariablePresence(std::string_view name, MissingText missing)
{
    const auto take = [](const Lookup& lookup) {
        void* content = nullptr;
        return !failed(CStorageManager_GetVariableContentAddressByName(lookup.name.c_str(), &content));
    };
    return {
        {.name = {.front = name}, .isPerChannel = false, .slot = nullptr, .take = take, .missing = missing}};
}

ETIResult initialise(const TylTrace& trace, const InitialiseRules& rules, unsigned numberOfChannels,
                     std::uint32_t& storedCount, std::initializer_list<Collaborator> collaborators,
                     CallSite at)
{
    const Run run{trace, numberOfChannels, at};
    logEntry(run, rules.entryTellsCount);
    if (isSecondCall(run, rules.secondCall, Guard::BeforeRange, storedCount)) {
        return eTI_E_FAILED;
    }
    if (isOutOfRange(run, rules.range)) {
        return rules.range.result;
    }
    if (isSecondCall(run, rules.secondCall, Guard::AfterRange, storedCount)) {
        return eTI_E_FAILED;
    }
    if (rules.countStored == CountStored::First) {
        storedCount = numberOfChannels;
    }
    if (!takeAll(run, {collaborators.begin(), collaborators.size()})) {
        return eTI_E_FAILED;
    }
    storedCount = numberOfChannels;
    return eTI_S_OK;
}

ETIResult initialise(const TylTrace& trace, const UncountedRules& rules, unsigned numberOfChannels,
                     std::initializer_list<NodeWideCollaborator> collaborators, CallSite at)
{
    const Run run{trace, numberOfChannels, at};
    logEntry(run, rules.entryTellsCount);
    if (rules.isRangeTested && isOutOfRange(run, rules.range)) {
        return rules.range.result;
    }
    const bool areAllTaken = std::ranges::all_of(
        collaborators, [&](const Collaborator& collaborator) { return take(run, collaborator, 0); });
    return areAllTaken ? eTI_S_OK : eTI_E_FAILED;
}

ETIResult initialiseNothing(const TylTrace& trace)
{
    trace.isEnabled(1); // asked for a level, a channel makes itself known to the trace service
    return eTI_S_OK;
}

} // namespace zyr_top_api
