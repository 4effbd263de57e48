#include "ClockDoubles.h"
#include "CommandTest.h"
#include "Disturbance.h"
#include "DriverDouble.h"
#include "KeptZone.h"
#include "NodeDoubles.h"
#include "Publication.h"
#include "RandomCalls.h"
#include "ServiceInForce.h"
#include "SimulatedNode.h"
#include "StoredVariables.h"
#include "TraceService.h"
#include "VirtualTime.h"
#include "ZyrApiHandler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// Random requests to all commands, on collaborators that answer anything and on a simulated node where
// anything fails.

namespace
{

using zyr_registration::CommandEntry;
using zyr_test::Chance;
using zyr_test::RandomCalls;
using zyr_test::Request;
using zyr_top_api::ZyrApiHandler;

// Calls on one node; then comes another one.
constexpr unsigned kCallsOnANode = 250;
constexpr TylTraceLevel kHighestTraceLevel = 7;
// So many of them come to each exception that may leave a command.
constexpr unsigned kCallsThatSeeAll = 100'000;

// All commands, in the dispatcher's table as far as they belong there, with the gate open.
class AllCommands
{
  public:
    // An initialisation may fail: then the command stands as it is.
    explicit AllCommands(unsigned numberOfChannels)
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
    ~AllCommands()
    {
        ZyrApiHandler::setTiEnabled(false);
        ZyrApiHandler::m_cmds.clear();
    }
    AllCommands(const AllCommands&) = delete;
    AllCommands& operator=(const AllCommands&) = delete;

    void* implementation(const CommandEntry& command) const
    {
        return m_live[static_cast<std::size_t>(&command - zyr_registration::allCommands().data())]
            .implementation.get();
    }

  private:
    std::vector<zyr_registration::LiveCommand> m_live;
};

// One command after the other, until the walk is through or something is wrong.
template <class Step>
void walk(Chance& chance, const Step& step)
{
    const auto commands = zyr_registration::allCommands();
    const unsigned calls = zyr_test::numberOfCalls();
    for (unsigned call = 1; call <= calls && !testing::Test::HasFailure(); ++call) {
        const CommandEntry& command = chance.oneOf(commands);
        SCOPED_TRACE("call " + std::to_string(call) + ", " + std::string(command.name()));
        const auto level = static_cast<TylTraceLevel>(chance.number(0, kHighestTraceLevel));
        zyr_platform::TraceService::get().setLevel("*", chance.oneIn(4) ? level : 0);
        step(call, command);
    }
    zyr_platform::TraceService::get().resetLevels();
}

// Now and then a phase in which any answer is any number.
class RandomAnswers : public zyr_test::Disturbance
{
  public:
    explicit RandomAnswers(Chance& chance) : m_chance(chance) {}

    // One answer in so many is disturbed, none for 0.
    void setRate(unsigned rate) { m_rate = rate; }

  protected:
    std::optional<std::int32_t> next() override
    {
        if (m_rate == 0 || !m_chance.oneIn(m_rate)) {
            return {};
        }
        return static_cast<std::int32_t>(m_chance.code());
    }

  private:
    Chance& m_chance;
    unsigned m_rate = 0;
};

class AllCommandsOnDoublesWalkTest : public zyr_test::CommandTest
{
  protected:
    // New commands, on a node that may lack some of its collaborators.
    void renew()
    {
        answers.setRate(0);
        commands.reset();
        publications.clear();
        isWhole = chance.oneIn(2);
        node.forEach(2, [&](auto& collaborator) {
            if (isWhole || !chance.oneIn(20)) {
                publications.emplace_back(collaborator.name(), collaborator);
            }
        });
        drivers.clear();
        if (chance.oneIn(2)) {
            for (const char* const name : {"channel.1.xpic.connected", "channel.2.xpic.connected",
                                           "channel.1.xpic.tx.enable", "channel.2.xpic.tx.enable"}) {
                drivers.emplace_back(transcript, name);
            }
        }
        channels = chance.oneIn(5) ? 1 : 2;
        commands.emplace(channels);
        transcript.clear();
    }

    void step(unsigned call, const CommandEntry& command)
    {
        if (call % kCallsOnANode == 1) {
            renew();
        }
        const unsigned rate = chance.oneOf(std::array{0U, 0U, 30U, 8U, 2U});
        answers.setRate(rate); // then what a collaborator hands out may be missing
        calls.call(command, commands->implementation(command), isWhole && rate == 0 ? channels : 0,
                   chance.oneIn(4) ? Request::Example : Request::Random);
        transcript.clear();
    }

    Chance chance{1};
    bool isWhole = true;
    unsigned channels = 2;
    zyr_test::StoredVariables variables;
    zyr_test::KeptZone zone;
    zyr_test::SystemTimeDouble systemTime{transcript};
    zyr_test::DeviceFactoryDouble factory{transcript};
    zyr_platform::Replacement<Util::SystemTimeApi> systemTimeInForce{systemTime};
    zyr_platform::Replacement<DDevIo::Factory> factoryInForce{factory};
    zyr_test::NodeDoubles node{transcript};
    std::list<zyr_platform::Publication> publications;
    std::list<zyr_test::DriverDouble> drivers;
    RandomAnswers answers{chance};
    std::optional<AllCommands> commands;
    RandomCalls calls{chance};
};

TEST_F(AllCommandsOnDoublesWalkTest, NothingButTheKnownExceptionsLeavesACommand)
{
    walk(chance, [&](unsigned call, const CommandEntry& command) { step(call, command); });
    EXPECT_EQ(calls.surprises(), "");
    EXPECT_EQ(calls.neverSucceeded(), "");
    if (zyr_test::numberOfCalls() >= kCallsThatSeeAll) {
        EXPECT_EQ(calls.exceptionsNotSeen(), "");
    }
}

class AllCommandsOnTheNodeWalkTest : public testing::Test
{
  protected:
    // Another node, and new commands on it.
    void renew()
    {
        commands.reset();
        node.reset();
        zyr_simulation::SimulatedNodeOptions options;
        options.seed = static_cast<std::uint32_t>(chance.number(1, 1000));
        options.radioType = static_cast<unsigned>(chance.number(1, 3));
        options.channels = chance.oneIn(5) ? 1 : 2;
        channels = options.channels;
        node.emplace(options, time);
        operations = node->faults().operations();
        commands.emplace(options.channels);
        configure();
    }

    // Most commands do little on a node without configured channels.
    void configure()
    {
        const CommandEntry& command = *zyr_registration::findCommand("CRI.SetRadioChannelNearEnd");
        for (int attempt = 0; attempt < 3; ++attempt) {
            calls.call(command, commands->implementation(command), channels, Request::Example);
        }
    }

    void injectFault()
    {
        auto collaborator = operations.begin();
        std::advance(collaborator, chance.number(0, static_cast<std::int64_t>(operations.size()) - 1));
        if (node->faults().list().size() > kMostOrders) {
            node->faults().clear();
        }
        node->faults().inject({collaborator->first, chance.oneOf(collaborator->second), 0, chance.code(),
                               static_cast<unsigned>(chance.number(1, 3))});
    }

    void changeCircumstances()
    {
        const auto channel = static_cast<unsigned>(chance.number(1, channels));
        switch (chance.number(1, 9)) {
        case 1:
            return node->setCarrierAggregation(chance.oneIn(2));
        case 2:
            return node->setDuplexType(static_cast<std::uint32_t>(chance.number(0, 2)));
        case 3:
            return node->setLongHaul(chance.oneIn(2));
        case 4:
            return node->setTwoTransmitters(chance.oneIn(2));
        case 5:
            return node->setConfigurationBypassed(chance.oneIn(4));
        case 6:
            return node->setPathLoss_dBTenths(static_cast<std::int32_t>(chance.number(0, 2000)));
        case 7:
            return node->setFarEndTransmits(!chance.oneIn(4));
        case 8:
            return node->setRadioAvailable(channel, !chance.oneIn(4));
        default:
            return node->setXpicCableConnected(channel, chance.oneIn(2));
        }
    }

    void step(unsigned call, const CommandEntry& command)
    {
        if (call % kCallsOnANode == 1) {
            renew();
        }
        if (chance.oneIn(3)) {
            injectFault();
        }
        if (chance.oneIn(10)) {
            changeCircumstances();
        }
        if (command.notes.isLongPoll) { // it would wait
            node->faults().inject({"IAlarmHandlerTopApi", "getFastAlarms", 0, chance.code(), 1});
        }
        calls.call(command, commands->implementation(command), channels,
                   chance.oneIn(4) ? Request::Example : Request::Random);
        time.advance(std::chrono::milliseconds(chance.number(0, 500)));
    }

    static constexpr std::size_t kMostOrders = 100;

    Chance chance{2};
    unsigned channels = 2;
    zyr_platform::VirtualTime time;
    std::optional<zyr_simulation::SimulatedNode> node;
    std::map<std::string, std::vector<std::string>, std::less<>> operations;
    std::optional<AllCommands> commands;
    RandomCalls calls{chance};
};

TEST_F(AllCommandsOnTheNodeWalkTest, NothingButTheKnownExceptionsLeavesACommand)
{
    walk(chance, [&](unsigned call, const CommandEntry& command) { step(call, command); });
    EXPECT_EQ(calls.surprises(), "");
    EXPECT_EQ(calls.neverSucceeded(), "");
}

} // namespace
