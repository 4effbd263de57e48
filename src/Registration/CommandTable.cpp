#include "CommandEntry.h"
#include "CommandList.h"
#include "CommandMessageBase.h"
#include "ZyrApiHandler.h"

#include <algorithm>
#include <concepts>

namespace zyr_registration
{

namespace
{

using zyr_top_api::CmdWrapper;
using zyr_top_api::Route;
using zyr_top_api::ZyrApiHandler;

template <class XImpl>
LiveCommand create()
{
    if constexpr (XImpl::identity.isDispatched()) {
        const auto wrapper = std::make_shared<CmdWrapper<XImpl>>(std::string(XImpl::identity.wireName));
        return {wrapper, std::shared_ptr<void>(wrapper, &wrapper->impl())};
    } else {
        return {nullptr, std::make_shared<XImpl>()};
    }
}

// The clock's command counts in another type than the rest.
template <class XImpl, class Count>
zyr_top_api::ETIResult initialize(XImpl& implementation, zyr_top_api::ETIResult (XImpl::*member)(Count),
                                  unsigned numberOfChannels)
{
    return (implementation.*member)(static_cast<Count>(numberOfChannels));
}

template <class XImpl>
zyr_top_api::ETIResult initialize(void* implementation, unsigned numberOfChannels)
{
    return initialize(*static_cast<XImpl*>(implementation), &XImpl::initialize, numberOfChannels);
}

template <class XImpl>
constexpr auto selfDescription() -> std::string (*)(void*)
{
    if constexpr (std::derived_from<XImpl, zyr_top_api::CommandMessageBase>) {
        return
            [](void* implementation) { return static_cast<XImpl*>(implementation)->getCommandDescription(); };
    } else {
        return nullptr;
    }
}

template <class XImpl>
void run(void* implementation, Exchange& exchange)
{
    typename XImpl::Command command{};
    exchange.fill(&command);
    if constexpr (XImpl::identity.isDispatched()) {
        const auto response = ZyrApiHandler::executeCommand(XImpl(), command);
        exchange.take(response, &response);
    } else {
        const auto response = static_cast<XImpl*>(implementation)->execute(command);
        exchange.take(response, &response);
    }
}

template <class Class>
void declaredTogether(std::string (Class::*printResponse)() const,
                      void (Class::*print)(zyr_top_api::TextWriter&) const); // only looked at

// The frame prints with `print` and all others with `printResponse`: a response that declares one of the two
// and inherits the other would tell the same outcome in two ways.
template <class Response>
concept PrintsInOneWay = requires
{
    declaredTogether(&Response::printResponse, &Response::print);
};

template <class XImpl>
constexpr CommandEntry entryOf()
{
    using Notes = Description<XImpl>;
    static_assert(PrintsInOneWay<typename XImpl::Response>,
                  "the response declares only one of `printResponse` and `print`");
    static_assert(memberCount<typename XImpl::Command>() == Notes::request.size(),
                  "a field of the command's record is not described");
    constexpr const zyr_top_api::CommandIdentity& identity = XImpl::identity;
    return {.identity = &identity,
            .notes = {.name = identity.wireName,
                      .help = Notes::help,
                      .group = Notes::group,
                      .effect = Notes::effect,
                      .longest = Notes::longest,
                      .request = Notes::request,
                      .response = Notes::response,
                      .faults = Notes::faults,
                      .needs = Notes::needs,
                      .isTest = identity.isGated() || !identity.isDispatched(),
                      .isLongPoll = identity.route == Route::DispatchedUnlocked,
                      .makeRequest = &detail::makeRecord<typename XImpl::Command>},
            .create = &create<XImpl>,
            .initialize = static_cast<zyr_top_api::ETIResult (*)(void*, unsigned)>(&initialize<XImpl>),
            .describeItself = selfDescription<XImpl>(),
            .run = &run<XImpl>};
}

template <class... XImpl>
constexpr std::array<CommandEntry, sizeof...(XImpl)> entriesOf(TypeList<XImpl...>)
{
    return {entryOf<XImpl>()...};
}

constexpr auto kCommands = entriesOf(CommandList());

// The wire names ascend without a doubled one.
constexpr bool areNamesInOrder()
{
    return std::ranges::adjacent_find(kCommands, [](const CommandEntry& one, const CommandEntry& next) {
               return one.name() >= next.name();
           }) == kCommands.end();
}

constexpr bool areTraceChannelsUnique()
{
    std::array<std::string_view, kCommands.size()> channels;
    std::ranges::transform(kCommands, channels.begin(),
                           [](const CommandEntry& entry) { return entry.identity->traceChannel; });
    std::ranges::sort(channels);
    return std::ranges::adjacent_find(channels) == channels.end();
}

template <class Predicate>
constexpr auto countOf(Predicate predicate)
{
    return std::ranges::count_if(kCommands, predicate);
}

static_assert(areNamesInOrder());
static_assert(areTraceChannelsUnique());
static_assert(countOf([](const CommandEntry& entry) { return !entry.isDirect(); }) == 52);
static_assert(countOf([](const CommandEntry& entry) { return entry.isDirect(); }) == 20);
static_assert(countOf([](const CommandEntry& entry) { return entry.identity->isGated(); }) == 6);
static_assert(countOf([](const CommandEntry& entry) { return entry.notes.isLongPoll; }) == 1);

} // namespace

const CommandEntry* findCommand(std::string_view name)
{
    const auto* const found = std::ranges::lower_bound(kCommands, name, {}, &CommandEntry::name);
    return found != kCommands.end() && found->name() == name ? found : nullptr;
}

std::span<const CommandEntry> allCommands()
{
    return kCommands;
}

} // namespace zyr_registration
