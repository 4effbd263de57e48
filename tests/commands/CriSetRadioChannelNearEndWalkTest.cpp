// A random walk: sequences of commands, good and bad, over a node whose calls fail at random. What comes out
// is compared with a model of the command that knows only the order of the phases.

#include "CriSetRadioChannelNearEndFixture.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <optional>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace zyr_top_api
{
namespace
{

using zyr_test::failedWith;
using zyr_test::FailurePoint;
using zyr_test::kFailurePoints;
using zyr_test::kOutOfBounds;
using zyr_test::kSuccess;

constexpr unsigned kSequences = 10000;
constexpr std::uint32_t kSeed = 20240607; // of the first sequence; the next ones count on
constexpr unsigned kLastPhase = 18;

// Random choices, the same ones on every machine.
class Dice
{
  public:
    explicit Dice(std::uint32_t seed) : m_engine(seed) {}

    unsigned below(unsigned limit) { return static_cast<unsigned>(m_engine() % limit); }
    bool isOneIn(unsigned chances) { return below(chances) == 0; }

    template <std::size_t Size>
    const char* oneOf(const std::array<const char*, Size>& texts)
    {
        return texts[below(Size)];
    }

  private:
    std::mt19937 m_engine;
};

constexpr std::array<const char*, 6> kOptional = {"ICcdpController_1", "IRauHandler_1",
                                                  "IRadio_1",          "ITxIQImbalanceHandler_1",
                                                  "IPpsController1",   "RecoveryController"};
constexpr std::array<const char*, 12> kConfigTypes = {
    "Standard",      "Xpic",         "Mimo",
    "XpicTwoBoards", "Mimo2",        "XpicCarrierAggregation",
    "Mrc",           "MrcTwoBoards", "MrcXpicTwoBoards",
    "LongHaulXpic",  "MrcTwoBoards", "rubbish"};
constexpr std::array<const char*, 6> kLinkTypes = {"Disable", "Enable_A", "Enable_B",
                                                   "Disable", "Enable_D", ""};

// The node as one command finds it.
struct Situation
{
    bool isWarm = false;
    bool isBypassed = false;
    bool isCarrierAggregationActive = false;
    std::array<bool, 2> isRadioAvailable{true, true}; // of channel 1 and 2
    bool isChannel2InUse = false;
    std::uint32_t group5 = 0;
    unsigned throwingPass = 0; // in which muting ACM throws; 0: never
};

// How a pass ends.
struct PassEnd
{
    unsigned phase = kLastPhase + 1; // that failed; behind the last one: none did
    std::string text;
    bool isHealable = false;
    bool isThrown = false;
};

class NearEndWalkTest : public zyr_test::NearEndFailureTest
{
  protected:
    NearEndWalkTest() : object(enrol<CriSetRadioChannelNearEndImpl>())
    {
        for (zyr_test::ChannelDoubles* const channel : {&node.channel1, &node.channel2}) {
            channel->acmHandler.onMuteAcm.doInstead([this] {
                if (pass == situation.throwingPass) {
                    throw std::runtime_error("the handler has thrown");
                }
                return resultAt<EACMHResult>(FailurePoint::MuteAcm);
            });
        }
    }

    // --- the choices

    void chooseNode(Dice& dice)
    {
        absent.clear();
        for (const char* const name : kOptional) {
            if (dice.isOneIn(6)) {
                absent.insert(name);
                withdraw(name);
            }
        }
        numberOfChannels = 1 + dice.below(2);
        ASSERT_EQ(object.initialize(numberOfChannels), eTI_S_OK);
    }

    void restoreNode()
    {
        node.forEach(1, [this](auto& collaborator) {
            if (absent.contains(collaborator.name())) {
                publish(collaborator);
            }
        });
    }

    void chooseSituation(Dice& dice)
    {
        situation = {.isWarm = dice.isOneIn(5),
                     .isBypassed = dice.isOneIn(12),
                     .isCarrierAggregationActive = dice.isOneIn(4),
                     .isRadioAvailable = {!dice.isOneIn(6), !dice.isOneIn(6)},
                     .isChannel2InUse = dice.isOneIn(2),
                     .group5 = dice.isOneIn(8) ? 0x8000U + dice.below(3) : dice.below(2) * 0x7FFF,
                     .throwingPass = dice.isOneIn(20) ? 1 + dice.below(3) : 0};
        neededRecovery = static_cast<Recover>(dice.below(3));
        needsReconfiguration = dice.isOneIn(2);
        isXpicCapable = dice.isOneIn(2);
        planned.clear();
        for (unsigned number = 1; number <= 3; ++number) {
            for (unsigned failures = dice.below(4); failures > 0; --failures) {
                planned.insert({number, kFailurePoints[dice.below(kFailurePoints.size())].point});
            }
        }
        applySituation();
    }

    void applySituation()
    {
        Zyr::setInitState(situation.isWarm ? Zyr::ZyrInitState::WarmRestart
                                           : Zyr::ZyrInitState::NormalOperation);
        const auto apply = [this](zyr_test::ChannelDoubles& channel, bool isRadioAvailable) {
            channel.systemPowerController.onIsConfigurationBypassed = situation.isBypassed;
            channel.dspApi.controlApi.onIsCarrierAggregationActive = situation.isCarrierAggregationActive;
            channel.radio.onIsAvailable = isRadioAvailable;
        };
        apply(node.channel1, situation.isRadioAvailable[0]);
        apply(node.channel2, situation.isRadioAvailable[1]);
        node.hardwareConfigurationHandler.onIsChannelInUse = situation.isChannel2InUse;
        resultOfPhaseGroup5 = situation.group5;
    }

    static Command chooseCommand(Dice& dice)
    {
        constexpr std::array<std::uint32_t, 8> channels = {0, 1, 1, 1, 2, 2, 2, 3};
        Command command = NearEndTest::command(channels[dice.below(channels.size())]);
        command.xpicParameterPresent = !dice.isOneIn(4);
        command.xpicEnable = dice.oneOf(kLinkTypes);
        command.mimoParameterPresent = !dice.isOneIn(4);
        command.mimoEnable = dice.isOneIn(8) ? dice.oneOf(kLinkTypes) : "Disable";
        command.ffConfigTypePresent = !dice.isOneIn(4);
        command.FFConfigType = dice.oneOf(kConfigTypes);
        command.ppsSlave = dice.isOneIn(2);
        if (dice.isOneIn(3)) {
            command.rauMultiTrxConfig.ifSwitchMode.reset();
        }
        if (dice.isOneIn(6)) {
            command.radioFrameId = dice.below(2);
            command.txFrequency_kHz = 0;
        }
        return command;
    }

    // --- the model

    static bool isOff(const std::string& linkType) { return linkType == "Disable" || linkType.empty(); }

    static bool isReset(const Command& command)
    {
        return command.txFrequency_kHz == 0 && command.radioFrameId == 0 && isOff(command.xpicEnable) &&
               isOff(command.mimoEnable) && command.xpicParameterPresent && command.mimoParameterPresent;
    }

    bool isRadioThere(std::uint32_t channel) const
    {
        return (channel == 1 && absent.contains("IRadio_1")) || situation.isRadioAvailable[channel - 1];
    }

    // Whether the transmitter is forced off and given back.
    bool isTransmitterHandled(const Command& command) const
    {
        const std::uint32_t channel = situation.isCarrierAggregationActive ? 1U : command.RadioChannelID;
        return !situation.isWarm && isRadioThere(channel);
    }

    // Of collaborators that only channel 1 may lack here.
    bool isThere(const Command& command, const char* nameOnChannel1) const
    {
        return command.RadioChannelID == 2 || !absent.contains(nameOnChannel1);
    }

    bool isMet(const Command& command, FailurePoint point, unsigned number) const
    {
        switch (point) {
        case FailurePoint::DuplexType:
        case FailurePoint::TxFrequency:
        case FailurePoint::PowerController:
        case FailurePoint::RxFrequency:
            return isRadioThere(command.RadioChannelID);
        case FailurePoint::IqImbalance:
            return isRadioThere(command.RadioChannelID) && isThere(command, "ITxIQImbalanceHandler_1");
        case FailurePoint::ForcedOff:
        case FailurePoint::TxTimeout:
        case FailurePoint::GivenBack:
            return isTransmitterHandled(command);
        case FailurePoint::RequiredRecovery:
        case FailurePoint::Reconfiguration:
            return command.ffConfigTypePresent;
        case FailurePoint::StartRecovery:
            return !absent.contains("RecoveryController") &&
                   (number > 1 || (command.ffConfigTypePresent && neededRecovery != Recover::None));
        case FailurePoint::CcdpStart:
            return isXpicCapable && isThere(command, "ICcdpController_1");
        case FailurePoint::CcdpStop:
            return !isXpicCapable && isThere(command, "ICcdpController_1");
        case FailurePoint::SecondFrameWrite:
            return command.RadioChannelID == 1 && command.ffConfigTypePresent && !situation.isChannel2InUse &&
                   !situation.isWarm && command.FFConfigType == "MrcTwoBoards";
        case FailurePoint::IfSwitch:
            return command.rauMultiTrxConfig.ifSwitchMode.hasValue() && isThere(command, "IRauHandler_1");
        default:
            return true;
        }
    }

    static unsigned phaseOf(FailurePoint point)
    {
        constexpr std::array<unsigned, 24> phases = {3,  4,  4,  5,  5,  5,  6,  7,  7,  7,  9,  10,
                                                     10, 12, 12, 12, 14, 15, 15, 15, 15, 16, 17, 18};
        return phases[static_cast<unsigned>(point)];
    }

    static std::string textOf(const Command& command, FailurePoint point)
    {
        if (point == FailurePoint::CcdpStart) {
            const bool isOn = command.xpicParameterPresent && !isOff(command.xpicEnable);
            return "CCDP start failed(ECCDPCREsult = 32785) for link type " +
                   (isOn ? command.xpicEnable : std::string("Disable"));
        }
        return kFailurePoints[static_cast<unsigned>(point)].text;
    }

    // What a command brings about by itself, before or in the given phase.
    static std::optional<PassEnd> badInput(const Command& command, unsigned phase)
    {
        if (phase >= 3 && command.RadioChannelID == 0) {
            return PassEnd{3, "ChannelId out of bounds: 0"};
        }
        if (phase >= 3 && !isOff(command.xpicEnable) && !isOff(command.mimoEnable)) {
            return PassEnd{3, "Enabling XPIC and MIMO at the same time is not allowed!"};
        }
        if (phase >= 5 && command.ffConfigTypePresent &&
            (command.FFConfigType == "LongHaulXpic" || command.FFConfigType == "rubbish")) {
            return PassEnd{5, "CRI.SetRadioChannelNearEnd invalid FF config type: " + command.FFConfigType};
        }
        return {};
    }

    PassEnd expectedPass(const Command& command, unsigned number) const
    {
        if (isReset(command)) {
            return {};
        }
        for (const auto& facts : kFailurePoints) {
            const unsigned phase = phaseOf(facts.point);
            if (const auto end = badInput(command, phase)) {
                return *end;
            }
            if (facts.point == FailurePoint::MuteAcm && situation.throwingPass == number) {
                return {phase, "", false, true};
            }
            if (planned.contains({number, facts.point}) && isMet(command, facts.point, number)) {
                return {phase, textOf(command, facts.point), facts.isHealable};
            }
        }
        return {};
    }

    std::vector<PassEnd> expectedPasses(const Command& command) const
    {
        std::vector<PassEnd> passes;
        if (command.RadioChannelID > numberOfChannels || situation.isBypassed) {
            return passes;
        }
        bool isHealable = false;
        do {
            passes.push_back(expectedPass(command, static_cast<unsigned>(passes.size()) + 1));
            isHealable = isHealable || passes.back().isHealable;
        } while (passes.back().phase <= kLastPhase && !passes.back().isThrown && isHealable &&
                 passes.size() < 3);
        return passes;
    }

    // --- one step

    // Dispatches; nothing if the command has thrown.
    std::optional<StandardResponse> dispatch(const Command& command)
    {
        transcript.clear();
        pass = 0;
        try {
            return criSetRadioChannelNearEnd(command);
        } catch (const std::runtime_error&) {
            return {};
        }
    }

    void step(const Command& command)
    {
        const std::vector<PassEnd> passes = expectedPasses(command);
        const std::optional<StandardResponse> response = dispatch(command);
        ASSERT_LE(pass, 3U);
        ASSERT_EQ(pass, passes.size());
        expectPasses(command, passes);
        const bool isFailed = !passes.empty() && passes.back().phase <= kLastPhase;
        const bool isThrown = isFailed && passes.back().isThrown;
        waysSeen.insert(isThrown   ? "thrown"
                        : isFailed ? passes.back().text
                                   : std::to_string(passes.size()) + " passes" +
                                         (isReset(command) ? " in reset" : ""));
        ASSERT_EQ(response.has_value(), !isThrown);
        if (!isThrown) {
            expectResponse(command, *response, isFailed ? passes.back().text : "");
        }
        // The closing phases run once, unless the configuration has failed or was never due.
        const bool isRefused = command.RadioChannelID > numberOfChannels;
        EXPECT_EQ(count("group 5 for channel"), isFailed || isRefused ? 0U : 1U);
    }

    void expectResponse(const Command& command, const StandardResponse& response,
                        const std::string& failure) const
    {
        const std::string group = std::to_string(situation.group5);
        EXPECT_EQ(outcome(response), command.RadioChannelID > numberOfChannels ? kOutOfBounds
                                     : !failure.empty()                        ? failedWith(failure)
                                     : situation.group5 >= 0x8000
                                         ? failedWith("At least one of the phases failed (" + group + ")")
                                         : kSuccess);
        EXPECT_EQ(response.printResponse(), "StandardResponse Sent\n");
    }

    // What every pass has to leave behind, by the phase that it came to.
    void expectPasses(const Command& command, const std::vector<PassEnd>& passes) const
    {
        std::vector<unsigned> enabled(passes.size());
        std::vector<unsigned> muted(passes.size());
        std::vector<unsigned> givenBack(passes.size());
        std::size_t passesSeen = 0;
        for (const std::string& line : transcript.lines()) {
            const auto holds = [&](const char* text) {
                return line.find(text) != std::string::npos ? 1U : 0U;
            };
            passesSeen += holds("NearEnd: for channel ");
            if (passesSeen > 0) {
                enabled[passesSeen - 1] += holds(".enableAcm(true)");
                muted[passesSeen - 1] += holds(".muteAcm()");
                givenBack[passesSeen - 1] += holds(".overrideTxPowerState(1)");
            }
        }
        for (std::size_t index = 0; index < passes.size(); ++index) {
            const unsigned phase = isReset(command) ? 0 : passes[index].phase;
            EXPECT_EQ(muted[index], phase >= 6 ? 1U : 0U) << "pass " << index + 1;
            EXPECT_EQ(enabled[index], phase >= 18 ? 1U : 0U) << "pass " << index + 1;
            EXPECT_EQ(givenBack[index], phase >= 17 && isTransmitterHandled(command) ? 1U : 0U)
                << "pass " << index + 1;
        }
    }

    void walk(std::uint32_t seed)
    {
        Dice dice(seed);
        chooseNode(dice);
        const unsigned steps = 1 + dice.below(6);
        for (unsigned number = 1; number <= steps && !HasFailure(); ++number) {
            chooseSituation(dice);
            const Command command = chooseCommand(dice);
            step(command);
            if (HasFailure()) {
                ADD_FAILURE() << "seed " << seed << ", step " << number << ", channels " << numberOfChannels
                              << ", " << command.toString() << transcript.text();
            }
        }
        restoreNode();
    }

    CriSetRadioChannelNearEndImpl& object;
    Situation situation;
    std::set<std::string> absent;
    unsigned numberOfChannels = 2;
    std::set<std::string> waysSeen;
};

TEST_F(NearEndWalkTest, KeepsItsPromisesOnEveryWay)
{
    const zyr_platform::StartUpState stateToReturnTo(Zyr::ZyrInitState::NormalOperation);
    for (unsigned sequence = 0; sequence < kSequences && !HasFailure(); ++sequence) {
        walk(kSeed + sequence);
    }
    // The walk has been everywhere.
    for (const auto& facts : kFailurePoints) {
        EXPECT_TRUE(waysSeen.contains(facts.text)) << facts.text;
    }
    for (const char* const way :
         {"ChannelId out of bounds: 0", "Enabling XPIC and MIMO at the same time is not allowed!",
          "CRI.SetRadioChannelNearEnd invalid FF config type: LongHaulXpic", "thrown", "0 passes", "1 passes",
          "2 passes", "3 passes", "1 passes in reset"}) {
        EXPECT_TRUE(waysSeen.contains(way)) << way;
    }
}

} // namespace
} // namespace zyr_top_api
