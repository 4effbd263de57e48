#include "AtpcControllerDouble.h"
#include "CommandTest.h"
#include "OutputPowerControllerDouble.h"
#include "SpcSimulatorDouble.h"
#include "TiManageSpcImpl.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <stdexcept>

namespace zyr_top_api
{
namespace
{

// Only its address is known.
ISpcSimulatedObject* anObject()
{
    static char place = 0;
    return reinterpret_cast<ISpcSimulatedObject*>(&place); // NOLINT
}

class TiManageSpcTest : public zyr_test::CommandTest
{
  protected:
    TiManageSpcTest()
    {
        atpc1.onGetGain = 1234.5;
        atpc2.onGetGain = -250.0;
        publish(output1);
        publish(output2);
        publish(simulator1);
        publish(simulator2);
        publish(atpc1);
        publish(atpc2);
        transcript.clear();
    }

    static TiManageSpc::Command command(std::uint32_t channel, unsigned action)
    {
        TiManageSpc::Command command;
        command.RadioChannelID = channel;
        command.Action = static_cast<TiManageSpc::Action>(action);
        return command;
    }

    static TiManageSpc::Command sweep(std::uint32_t channel, unsigned action, std::int32_t min,
                                      std::int32_t max, std::int32_t rate)
    {
        TiManageSpc::Command command = TiManageSpcTest::command(channel, action);
        command.Min = min;
        command.Max = max;
        command.Rate = rate;
        return command;
    }

    static TiManageSpc::Command gains(std::uint32_t channel, unsigned action, std::int32_t ramping,
                                      std::int32_t on)
    {
        TiManageSpc::Command command = TiManageSpcTest::command(channel, action);
        command.OpcTxRampingGain = ramping;
        command.OpcTxOnGain = on;
        return command;
    }

    zyr_test::OutputPowerControllerDouble output1{transcript, "IOutputPowerController_1"};
    zyr_test::OutputPowerControllerDouble output2{transcript, "IOutputPowerController_2"};
    zyr_test::SpcSimulatorDouble simulator1{transcript, "ISpcSimulator_1"};
    zyr_test::SpcSimulatorDouble simulator2{transcript, "ISpcSimulator_2"};
    zyr_test::AtpcControllerDouble atpc1{transcript, "IAtpcController_1"};
    zyr_test::AtpcControllerDouble atpc2{transcript, "IAtpcController_2"};
    TiManageSpcImpl impl;
};

TEST_F(TiManageSpcTest, SweepUpStartsAtTheLowEndAndHandsTheObjectOver)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    simulator1.onSimulate = 0x8000;
    atpc2.onGetSimulatedObject = anObject();
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(sweep(1, 0, -900, -300, 7)));
    tell(impl.execute(sweep(2, 0, 5, 5, -1)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageSpc:
ISpcSimulator_1.simulate(0, -900, -300, -900, 4.2)
IAtpcController_1.getSimulatedObject()
ISpcSimulator_1.setSimulated(null, true)
result 0x0 0 ""
prints StandardResponse OK
6 ZYR.TI.TiManageSpc:
ISpcSimulator_2.simulate(0, 5, 5, 5, -0.6)
IAtpcController_2.getSimulatedObject()
ISpcSimulator_2.setSimulated(object, true)
result 0x0 0 ""
prints StandardResponse OK
)");
}

TEST_F(TiManageSpcTest, SweepDownStartsAtTheHighEndAndHandsNothingOver)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(sweep(2, 1, -900, -300, 1)));
    tell(impl.execute(sweep(1, 1, 5, 5, 0)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageSpc:
ISpcSimulator_2.simulate(1, -900, -300, -300, 0.6)
result 0x0 0 ""
prints StandardResponse OK
6 ZYR.TI.TiManageSpc:
ISpcSimulator_1.simulate(1, 5, 5, 5, 0)
result 0x0 0 ""
prints StandardResponse OK
)");
}

TEST_F(TiManageSpcTest, StepIsReckonedInDoubleArithmetic)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    tell(impl.execute(sweep(1, 1, kLeast, kMost, kMost)));
    tell(impl.execute(sweep(1, 1, kLeast, kMost, kLeast)));
    EXPECT_EQ(transcript.text(), R"(
ISpcSimulator_1.simulate(1, -2147483648, 2147483647, 2.14748e+09, 1.28849e+09)
result 0x0 0 ""
prints StandardResponse OK
ISpcSimulator_1.simulate(1, -2147483648, 2147483647, 2.14748e+09, -1.28849e+09)
result 0x0 0 ""
prints StandardResponse OK
)");
}

TEST_F(TiManageSpcTest, SweepWithoutOneOfItsOptionsIsRefusedBeforeItsEndsAreCompared)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageSpc", 7);
    for (unsigned options = 0; options < 7; ++options) {
        for (const unsigned action : {0U, 1U}) {
            TiManageSpc::Command incomplete = command(1, action);
            if ((options & 1) != 0) {
                incomplete.Min = 2;
            }
            if ((options & 2) != 0) {
                incomplete.Max = 1;
            }
            if ((options & 4) != 0) {
                incomplete.Rate = 3;
            }
            transcript.clear();
            tell(impl.execute(incomplete));
            EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageSpc:
1 ZYR.TI.TiManageSpc: Min, Max or Rate option missing for 1
result 0x8000 4 "Min, Max or Rate option missing for 1"
prints StandardResponse OK
)") << options;
        }
    }
}

TEST_F(TiManageSpcTest, SweepWhoseHighEndIsBelowItsLowEndIsRefusedWithTwoBlanks)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(sweep(2, 0, 1, 0, 3)));
    tell(impl.execute(sweep(7, 1, -1, -2, 3)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageSpc:
1 ZYR.TI.TiManageSpc: Max < Min  for 2
result 0x8000 4 "Max < Min  for 2"
prints StandardResponse OK
6 ZYR.TI.TiManageSpc:
1 ZYR.TI.TiManageSpc: Max < Min  for 7
result 0x8000 4 "Max < Min  for 7"
prints StandardResponse OK
)");
}

TEST_F(TiManageSpcTest, StopReleasesTheSimulatorsObjectIfASimulationRuns)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    simulator1.onIsSimulating = true;
    simulator1.onGetSimulatedObject = anObject();
    tell(impl.execute(command(1, 2)));
    tell(impl.execute(command(2, 2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageSpc:
ISpcSimulator_1.simulate(2, -100000, -100000, -100000, -100000)
ISpcSimulator_1.isSimulating()
ISpcSimulator_1.getSimulatedObject()
IAtpcController_1.release(object)
ISpcSimulator_1.setSimulated(object, false)
result 0x0 0 ""
prints StandardResponse OK
6 ZYR.TI.TiManageSpc:
ISpcSimulator_2.simulate(2, -100000, -100000, -100000, -100000)
ISpcSimulator_2.isSimulating()
result 0x0 0 ""
prints StandardResponse OK
)");
}

TEST_F(TiManageSpcTest, AtpcGainIsStoredTimesAHundredAndReadUnscaled)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    TiManageSpc::Command setting = command(2, 3);
    setting.AtpcAif3Gain = -3;
    tell(impl.execute(command(1, 3)));
    tell(impl.execute(setting));
    setting.AtpcAif3Gain = std::numeric_limits<std::int32_t>::max();
    tell(impl.execute(setting));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageSpc:
IAtpcController_1.getGain(3)
result 0x0 0 ""
prints AtpcAif3Gain: 1234.5
6 ZYR.TI.TiManageSpc:
IAtpcController_2.setGain(3, -300)
IAtpcController_2.getGain(3)
result 0x0 0 ""
prints AtpcAif3Gain: -250
6 ZYR.TI.TiManageSpc:
IAtpcController_2.setGain(3, 2.14748e+11)
IAtpcController_2.getGain(3)
result 0x0 0 ""
prints AtpcAif3Gain: -250
)");
}

TEST_F(TiManageSpcTest, OpenLoopGainsAreTwoKinds)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    output1.onGetGain.inTurn({150.0, 275.0});
    output2.onGetGain.inTurn({-1.0, 0.0, 100.0, 200.0, 300.0, 400.0});
    tell(impl.execute(gains(1, 4, 5, -6)));
    TiManageSpc::Command one = command(2, 4);
    tell(impl.execute(one));
    one.OpcTxRampingGain = 7;
    tell(impl.execute(one));
    one = command(2, 4);
    one.OpcTxOnGain = std::numeric_limits<std::int32_t>::min();
    tell(impl.execute(one));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageSpc:
IOutputPowerController_1.setGain(1, 5, 500)
IOutputPowerController_1.setGain(1, 6, -600)
IOutputPowerController_1.getGain(1, 6)
IOutputPowerController_1.getGain(1, 5)
result 0x0 0 ""
prints OpcTxOnGainOpenLoop: 1.5, OpcTxRampingGainOpenLoop: 2.75
6 ZYR.TI.TiManageSpc:
IOutputPowerController_2.getGain(1, 6)
IOutputPowerController_2.getGain(1, 5)
result 0x0 0 ""
prints OpcTxOnGainOpenLoop: -0.01, OpcTxRampingGainOpenLoop: 0
6 ZYR.TI.TiManageSpc:
IOutputPowerController_2.setGain(1, 5, 700)
IOutputPowerController_2.getGain(1, 6)
IOutputPowerController_2.getGain(1, 5)
result 0x0 0 ""
prints OpcTxOnGainOpenLoop: 1, OpcTxRampingGainOpenLoop: 2
6 ZYR.TI.TiManageSpc:
IOutputPowerController_2.setGain(1, 6, -2.14748e+11)
IOutputPowerController_2.getGain(1, 6)
IOutputPowerController_2.getGain(1, 5)
result 0x0 0 ""
prints OpcTxOnGainOpenLoop: 3, OpcTxRampingGainOpenLoop: 4
)");
}

TEST_F(TiManageSpcTest, ClosedLoopGainsAreSetInOneKindAndReadInTwo)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    output2.onGetGain.inTurn({150.0, 275.0});
    output1.onGetGain.inTurn({-1.0, 0.0, 100.0, 200.0, 300.0, 400.0});
    tell(impl.execute(gains(2, 5, 5, -6)));
    TiManageSpc::Command one = command(1, 5);
    tell(impl.execute(one));
    one.OpcTxRampingGain = 7;
    tell(impl.execute(one));
    one = command(1, 5);
    one.OpcTxOnGain = 8;
    const TiManageSpc::Response response = tell(impl.execute(one));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageSpc:
IOutputPowerController_2.setGain(0, 5, 500)
IOutputPowerController_2.setGain(0, 5, -600)
IOutputPowerController_2.getGain(0, 6)
IOutputPowerController_2.getGain(0, 5)
result 0x0 0 ""
prints OpcTxOnGainClosedLoop: 1.5, OpcTxRampingGainClosedLoop: 2.75
6 ZYR.TI.TiManageSpc:
IOutputPowerController_1.getGain(0, 6)
IOutputPowerController_1.getGain(0, 5)
result 0x0 0 ""
prints OpcTxOnGainClosedLoop: -0.01, OpcTxRampingGainClosedLoop: 0
6 ZYR.TI.TiManageSpc:
IOutputPowerController_1.setGain(0, 5, 700)
IOutputPowerController_1.getGain(0, 6)
IOutputPowerController_1.getGain(0, 5)
result 0x0 0 ""
prints OpcTxOnGainClosedLoop: 1, OpcTxRampingGainClosedLoop: 2
6 ZYR.TI.TiManageSpc:
IOutputPowerController_1.setGain(0, 5, 800)
IOutputPowerController_1.getGain(0, 6)
IOutputPowerController_1.getGain(0, 5)
result 0x0 0 ""
prints OpcTxOnGainClosedLoop: 3, OpcTxRampingGainClosedLoop: 4
)");
    EXPECT_EQ(response.text, "");
    EXPECT_EQ(response.AtpcAif3Gain, 0.0);
    EXPECT_EQ(response.OpcTxOnGainOpenLoop, 0.0);
    EXPECT_EQ(response.OpcTxRampingGainOpenLoop, 0.0);
}

TEST_F(TiManageSpcTest, OptionsOfOtherActionsAreNotLookedAt)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    TiManageSpc::Command all = sweep(1, 3, 2, 1, 3);
    all.OpcTxRampingGain = 4;
    all.OpcTxOnGain = 5;
    impl.execute(all);
    all.AtpcAif3Gain = 6;
    all.OpcTxRampingGain = {};
    all.OpcTxOnGain = {};
    all.Action = TiManageSpc::Action::OpcGainOpenLoop;
    impl.execute(all);
    EXPECT_EQ(transcript.text(), R"(
IAtpcController_1.getGain(3)
IOutputPowerController_1.getGain(1, 6)
IOutputPowerController_1.getGain(1, 5)
)");
}

TEST_F(TiManageSpcTest, OtherActionsDoNothingAndSucceedOnAnyChannel)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(sweep(1, 6, 2, 1, 3)));
    const TiManageSpc::Response response = tell(impl.execute(gains(9, 0xFFFFFFFF, 1, 2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageSpc:
result 0x0 0 ""
prints StandardResponse OK
6 ZYR.TI.TiManageSpc:
result 0x0 0 ""
prints StandardResponse OK
)");
    EXPECT_EQ(static_cast<std::uint32_t>(response.Action), 0xFFFFFFFF);
}

TEST_F(TiManageSpcTest, ObjectThatWasNotInitialisedIsNamedAndPrintsByItsAction)
{
    withdraw("IAtpcController_2");
    EXPECT_EQ(impl.initialize(2), eTI_E_FAILED);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(sweep(1, 0, 2, 1, 3)));
    tell(impl.execute(command(9, 3)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageSpc:
result 0x8000 4 "TiManageSpcImpl has not been initialized"
prints StandardResponse OK
6 ZYR.TI.TiManageSpc:
result 0x8000 4 "TiManageSpcImpl has not been initialized"
prints AtpcAif3Gain: 0
)");
}

TEST_F(TiManageSpcTest, ChannelsOutsideTheCountThrowBeforeAnyCall)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    for (const std::uint32_t channel : {0U, 2U, 0xFFFFFFFF}) {
        const auto missing = [&](const TiManageSpc::Command& command) {
            return missingIn([&] { impl.execute(command); });
        };
        const std::string ofChannel = " of radio channel " + std::to_string(channel);
        EXPECT_EQ(missing(sweep(channel, 0, 1, 2, 3)), "ISpcSimulator" + ofChannel);
        EXPECT_EQ(missing(sweep(channel, 1, 1, 2, 3)), "ISpcSimulator" + ofChannel);
        EXPECT_EQ(missing(command(channel, 2)), "ISpcSimulator" + ofChannel);
        EXPECT_EQ(missing(command(channel, 3)), "IAtpcController" + ofChannel);
        EXPECT_EQ(missing(command(channel, 4)), "IOutputPowerController" + ofChannel);
        EXPECT_EQ(missing(command(channel, 5)), "IOutputPowerController" + ofChannel);
    }
    EXPECT_EQ(transcript.text(), "\n");
}

// The next one that is missing is told when the one before is there.
TEST_F(TiManageSpcTest, InitialiseTellsTheMissingInterfacesInOrderChannelByChannel)
{
    setTraceLevel("ZYR.TI.TiManageSpc", 7);
    for (const char* name : {"IOutputPowerController_1", "ISpcSimulator_1", "IAtpcController_1",
                             "IOutputPowerController_2", "ISpcSimulator_2", "IAtpcController_2"}) {
        withdraw(name);
    }
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(output1);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(simulator1);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(atpc1);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(output2);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(simulator2);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(atpc2);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageSpc: numberOfChannels=2
1 ZYR.TI.TiManageSpc: Could not find IOutputPowerController_1
6 ZYR.TI.TiManageSpc: numberOfChannels=2
1 ZYR.TI.TiManageSpc: Could not find ISpcSimulator_1
6 ZYR.TI.TiManageSpc: numberOfChannels=2
1 ZYR.TI.TiManageSpc: Could not find IAtpcController_1
6 ZYR.TI.TiManageSpc: numberOfChannels=2
1 ZYR.TI.TiManageSpc: Could not find IOutputPowerController_2
6 ZYR.TI.TiManageSpc: numberOfChannels=2
1 ZYR.TI.TiManageSpc: Could not find ISpcSimulator_2
6 ZYR.TI.TiManageSpc: numberOfChannels=2
1 ZYR.TI.TiManageSpc: Could not find IAtpcController_2
6 ZYR.TI.TiManageSpc: numberOfChannels=2
)");
}

} // namespace
} // namespace zyr_top_api
