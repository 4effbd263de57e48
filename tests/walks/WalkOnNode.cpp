#include "WalkOnNode.h"

#include "TraceService.h"
#include "ZyrApiHandler.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace zyr_test
{

namespace
{

using zyr_registration::CommandEntry;
using zyr_top_api::ZyrApiHandler;

constexpr std::size_t kMostOrders = 100;

} // namespace

AllCommands::AllCommands(unsigned numberOfChannels)
{
    for (const CommandEntry& command : zyr_registration::allCommands()) {
        m_live.push_back(command.create());
        command.initialize(m_live.back().implementation.get(), numberOfChannels);
        if (!command.isDirect()) {
            ZyrApiHandler::m_cmds.push_back(m_live.back().wrapper);
        }
    }
    ZyrApiHandler::setTiEnabled(true);
}

AllCommands::~AllCommands()
{
    ZyrApiHandler::setTiEnabled(false);
    ZyrApiHandler::m_cmds.clear();
}

void* AllCommands::implementation(const CommandEntry& command) const
{
    return m_live[static_cast<std::size_t>(&command - zyr_registration::allCommands().data())]
        .implementation.get();
}

void WalkOnNode::renew()
{
    m_commands.reset();
    m_node.reset();
    zyr_simulation::SimulatedNodeOptions options;
    options.seed = static_cast<std::uint32_t>(m_chance.number(1, 1000));
    options.radioType = static_cast<unsigned>(m_chance.number(1, 3));
    options.channels = m_chance.oneIn(5) ? 1 : 2;
    m_channels = options.channels;
    m_node.emplace(options, m_time);
    m_operations = m_node->faults().operations();
    m_commands.emplace(options.channels);
    configure();
}

// Most commands do little on a node without configured channels.
void WalkOnNode::configure()
{
    const CommandEntry& command = *zyr_registration::findCommand("CRI.SetRadioChannelNearEnd");
    for (int attempt = 0; attempt < 3; ++attempt) {
        m_calls.call(command, m_commands->implementation(command), m_channels, Request::Example);
    }
}

void WalkOnNode::step(const CommandEntry& command)
{
    if (m_chance.oneIn(3)) {
        injectFault();
    }
    if (m_chance.oneIn(10)) {
        changeCircumstances();
    }
    if (command.notes.isLongPoll) { // it would wait
        m_node->faults().inject({"IAlarmHandlerTopApi", "getFastAlarms", 0, m_chance.code(), 1});
    }
    m_calls.call(command, m_commands->implementation(command), m_channels,
                 m_chance.oneIn(4) ? Request::Example : Request::Random);
    m_time.advance(std::chrono::milliseconds(m_chance.number(0, 500)));
}

void WalkOnNode::injectFault()
{
    auto collaborator = m_operations.begin();
    std::advance(collaborator, m_chance.number(0, static_cast<std::int64_t>(m_operations.size()) - 1));
    if (m_node->faults().list().size() > kMostOrders) {
        m_node->faults().clear();
    }
    m_node->faults().inject({collaborator->first, m_chance.oneOf(collaborator->second), 0, m_chance.code(),
                             static_cast<unsigned>(m_chance.number(1, 3))});
}

void WalkOnNode::changeCircumstances()
{
    const auto channel = static_cast<unsigned>(m_chance.number(1, m_channels));
    switch (m_chance.number(1, 9)) {
    case 1:
        return m_node->setCarrierAggregation(m_chance.oneIn(2));
    case 2:
        return m_node->setDuplexType(static_cast<std::uint32_t>(m_chance.number(0, 2)));
    case 3:
        return m_node->setLongHaul(m_chance.oneIn(2));
    case 4:
        return m_node->setTwoTransmitters(m_chance.oneIn(2));
    case 5:
        return m_node->setConfigurationBypassed(m_chance.oneIn(4));
    case 6:
        return m_node->setPathLoss_dBTenths(static_cast<std::int32_t>(m_chance.number(0, 2000)));
    case 7:
        return m_node->setFarEndTransmits(!m_chance.oneIn(4));
    case 8:
        return m_node->setRadioAvailable(channel, !m_chance.oneIn(4));
    default:
        return m_node->setXpicCableConnected(channel, m_chance.oneIn(2));
    }
}

void setAnyTraceLevel(Chance& chance)
{
    using zyr_platform::TraceService;
    const auto level =
        static_cast<TylTraceLevel>(chance.number(TraceService::kSilent, TraceService::kHighestLevel));
    TraceService::get().setLevel("*", chance.oneIn(4) ? level : TraceService::kSilent);
}

} // namespace zyr_test
