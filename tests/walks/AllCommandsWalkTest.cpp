#include "ClockDoubles.h"
#include "CommandTest.h"
#include "Disturbance.h"
#include "DriverDouble.h"
#include "KeptZone.h"
#include "NodeDoubles.h"
#include "Publication.h"
#include "RandomCalls.h"
#include "ServiceInForce.h"
#include "StoredVariables.h"
#include "TraceService.h"
#include "WalkOnNode.h"

#include <gtest/gtest.h>

#include <array>
#include <list>
#include <optional>
#include <string>
#include <vector>

// Random requests to all commands, on collaborators that answer anything and on a simulated node where
// anything fails.

namespace
{

using zyr_registration::CommandEntry;
using zyr_test::AllCommands;
using zyr_test::Chance;
using zyr_test::RandomCalls;
using zyr_test::Request;

// Calls on one node; then comes another one.
constexpr unsigned kCallsOnANode = 250;
// So many of them come to each exception that may leave a command.
constexpr unsigned kCallsThatSeeAll = 100'000;

// One command after the other, until the walk is through or something is wrong.
template <class Step>
void walk(Chance& chance, const Step& step)
{
    const auto commands = zyr_registration::allCommands();
    const unsigned calls = zyr_test::numberOfCalls();
    for (unsigned call = 1; call <= calls && !testing::Test::HasFailure(); ++call) {
        const CommandEntry& command = chance.oneOf(commands);
        SCOPED_TRACE("call " + std::to_string(call) + ", " + std::string(command.name()));
        zyr_test::setAnyTraceLevel(chance);
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
    Chance chance{2};
    zyr_test::WalkOnNode steps{chance};
};

TEST_F(AllCommandsOnTheNodeWalkTest, NothingButTheKnownExceptionsLeavesACommand)
{
    walk(chance, [&](unsigned call, const CommandEntry& command) {
        if (call % kCallsOnANode == 1) {
            steps.renew();
        }
        steps.step(command);
    });
    EXPECT_EQ(steps.calls().surprises(), "");
    EXPECT_EQ(steps.calls().neverSucceeded(), "");
}

} // namespace
