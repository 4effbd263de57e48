#include "Initialise.h"

#include "CStorageManager.h"
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
    const InitialiseRules& rules;
    unsigned numberOfChannels;
    std::uint32_t* storedCount;
    TylTraceHeader at;

    template <class Text>
    void say(TylTraceLevel level, const Text& text) const
    {
        log(trace, level, text, at.file, at.line, at.function);
    }
};

void logEntry(const Run& run)
{
    const TylTraceHeader& at = run.at;
    if (run.rules.entryTellsCount) {
        logEnter(
            run.trace, [&](TextWriter& text) { text << "numberOfChannels=" << run.numberOfChannels; },
            at.file, at.line, at.function);
    } else {
        logEnter(run.trace, at.file, at.line, at.function);
    }
}

bool isSecondCall(const Run& run, Guard place)
{
    if (run.rules.secondCall.guard != place || *run.storedCount == 0) {
        return false;
    }
    run.say(1, run.rules.secondCall.text);
    return true;
}

bool isOutOfRange(const Run& run)
{
    const RangeRule& range = run.rules.range;
    if (!range.isTested || run.numberOfChannels - 1 <= 1) {
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
        if (missing.value == MissingText::Value::Name) {
            text << name;
        } else if (missing.value == MissingText::Value::Channel) {
            text << channel;
        }
    });
}

// False ends `initialise`.
bool take(const Run& run, const Collaborator& collaborator, std::uint32_t channel)
{
    const std::string name = collaborator.isPerChannel() ? collaborator.nameOf(collaborator.name, channel)
                                                         : std::string(collaborator.name);
    if (collaborator.take(name, channel, collaborator.slot)) {
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

void storeCount(const Run& run, CountStored when)
{
    if (run.storedCount != nullptr && run.rules.countStored == when) {
        *run.storedCount = run.numberOfChannels;
    }
}

} // namespace

Collaborator storageVariable(std::string_view name, NodeWide<const std::int32_t>& slot, MissingText missing)
{
    const auto take = [](const std::string& variable, std::uint32_t, void* address) {
        void* content = nullptr;
        if (failed(CStorageManager_GetVariableContentAddressByName(variable.c_str(), &content))) {
            return false;
        }
        static_cast<NodeWide<const std::int32_t>*>(address)->set(static_cast<const std::int32_t*>(content));
        return true;
    };
    return {name, nullptr, &slot, take, missing};
}

Collaborator storageVariablePresence(std::string_view name, MissingText missing)
{
    const auto take = [](const std::string& variable, std::uint32_t, void*) {
        void* content = nullptr;
        return !failed(CStorageManager_GetVariableContentAddressByName(variable.c_str(), &content));
    };
    return {name, nullptr, nullptr, take, missing};
}

namespace detail
{

std::string nameWithChannel(std::string_view name, std::uint32_t channel)
{
    std::string text;
    TextWriter(text) << name << "_" << channel;
    return text;
}

std::string nameWithNumber(std::string_view name, std::uint32_t channel)
{
    std::string text;
    TextWriter(text) << name << channel;
    return text;
}

} // namespace detail

ETIResult initialise(const TylTrace& trace, const InitialiseRules& rules, unsigned numberOfChannels,
                     std::uint32_t* storedCount, std::initializer_list<Collaborator> collaborators,
                     const char* file, int line, const char* function)
{
    const Run run{trace, rules, numberOfChannels, storedCount, {file, line, function}};
    logEntry(run);
    if (isSecondCall(run, Guard::BeforeRange)) {
        return eTI_E_FAILED;
    }
    if (isOutOfRange(run)) {
        return rules.range.result;
    }
    if (isSecondCall(run, Guard::AfterRange)) {
        return eTI_E_FAILED;
    }
    storeCount(run, CountStored::First);
    if (!takeAll(run, {collaborators.begin(), collaborators.size()})) {
        return eTI_E_FAILED;
    }
    storeCount(run, CountStored::Last);
    return eTI_S_OK;
}

} // namespace zyr_top_api
