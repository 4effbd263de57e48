#include "CmdWrapper.h"
#include "CriSetRadioChannelNearEndImpl.h"
#include "InterfaceBroker.h"
#include "ModuleManager.h"
#include "SimulatedNode.h"
#include "StartUpState.h"
#include "TraceService.h"
#include "VirtualTime.h"
#include "Zyr.h"
#include "ZyrApiHandler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using namespace zyr_top_api;
using namespace zyr_simulation;
using Command = CriSetRadioChannelNearEnd::Command;

constexpr unsigned kSequences = 10'000;
constexpr unsigned kMaximumCommands = 4;
constexpr const char* kAcmHandlers[] = {"IAcmHandler_1", "IAcmHandler_2"};

// Faults by the text's front, with the phase that gives it. 0: no phase was reached; 19: the closing phases.
struct FailurePoint
{
    std::string_view front;
    int phase;
    bool isRecoverable;
};
constexpr FailurePoint kFailurePoints[] = {
    {"RadioChannelID out of bounds", 0, false},
    {"ChannelId out of bounds: ", 3, false},
    {"Enabling XPIC and MIMO at the same time is not allowed!", 3, false},
    {"syntax error, duplex type not valid", 3, false},
    {"SystemPowerController overrideTxPowerState off failed(ESPCResult = ", 4, false},
    {"TX OFF didn't happen during timeout:15000 ms", 4, false},
    {"CRI.SetRadioChannelNearEnd ", 5, false},
    {"IAcmHandler->muteAcm() failed (EACMHResult = ", 6, true},
    {"HardwareConfigurationHandler isXpicCapable failed(hchResultXpic = ", 7, true},
    {"CCDP start failed(ECCDPCREsult = ", 7, true},
    {"CCDP stop failed(ECCDPCREsult = ", 7, true},
    {"IAcmHandler->SetMinMaxModulationAndCode failed (EACMHResult = ", 9, false},
    {"IHardwareConfigurationHandler->setRadioFrameId failed", 10, true},
    {"IAcmHandler->GetPhyMode failed for minModulationAndCode = ", 12, false},
    {"IRssiHandler->calculateRssiThreshold failed(ERSSIResult = ", 12, false},
    {"IRssiHandler->SetRssiThreshold failed (ERSSIResult = ", 12, false},
    {"ISystemPowerController->setTemporaryPmaxCapability failed (ESPCResult = ", 14, true},
    {"IFrequencyController->setTxFrequency failed (EFCResult = ", 15, false},
    {"ITxIQImbalanceHandler->OnTxFrequencyChanged failed (EFHResult = ", 15, false},
    {"ITxIQImbalanceHandler->OnTxFrequencyChanged failed (ESPCResult = ", 15, false},
    {"IFrequencyController->setRxFrequency failed (EFCResult = ", 15, false},
    {"rauhandler->setTxIfSwitch2T2R failed (ERAUHResult = ", 16, false},
    {"ISystemPowerController->overrideTxPowerState failed(ESPCResult = ", 17, false},
    {"IAcmHandler->enableAcm(true) failed (EACMHResult = ", 18, true},
    {"At least one of the phases failed (", 19, false},
};

constexpr std::array<std::array<std::string_view, 2>, 20> kOperations{{
    {"ISystemPowerController", "overrideTxPowerState"},
    {"ISystemPowerController", "setTemporaryPmaxCapability"},
    {"ISystemPowerController", "onTxFrequencyChanged"},
    {"ISystemPowerController", "setReferenceSec"},
    {"IDspControlApi", "getRequiredRecovery"},
    {"IDspControlApi", "checkDspReconfiguration"},
    {"RecoveryController", "startDspRecovery"},
    {"IAcmHandler", "muteAcm"},
    {"IAcmHandler", "setMinMaxModulationAndCode"},
    {"IAcmHandler", "getPhyMode"},
    {"IAcmHandler", "enableAcm"},
    {"IHardwareConfigurationHandler", "isXpicCapable"},
    {"IHardwareConfigurationHandler", "setRadioFrameId"},
    {"ICcdpController", "start"},
    {"ICcdpController", "stop"},
    {"IRssiHandler", "calculateRssiThreshold"},
    {"IRssiHandler", "setRssiThreshold"},
    {"IFrequencyController", "setTxFrequency"},
    {"IFrequencyController", "setRxFrequency"},
    {"ITxIQImbalanceHandler", "OnTxFrequencyChanged"},
}};

// What the trace and the spies tell of one call.
struct Course
{
    unsigned passes = 0;
    unsigned retries = 0;
    unsigned givenUp = 0;
    unsigned closings = 0;
    // In the last pass:
    unsigned transmittersReturned = 0;
    unsigned acmEnabled = 0;
};

class CourseSink : public zyr_platform::TraceSink
{
  public:
    explicit CourseSink(Course& course) : m_course(course) {}

    void write(const zyr_platform::TraceRecord& record) override
    {
        const std::string_view text = record.text;
        if (text.starts_with("for channel ")) {
            ++m_course.passes;
            m_course.transmittersReturned = 0;
            m_course.acmEnabled = 0;
        } else if (text.starts_with("Return transmitter of CH")) {
            ++m_course.transmittersReturned;
        } else if (text == "Configuration failed, retry with DSP recovery") {
            ++m_course.retries;
        } else if (text == "Configuration failed 3 times, restart needed") {
            ++m_course.givenUp;
        }
    }

  private:
    Course& m_course;
};

// Stands before the simulated handler of a channel and counts.
class AcmSpy : public IAcmHandler
{
  public:
    AcmSpy(IAcmHandler& real, Course& course) : m_real(real), m_course(course) {}

    EACMHResult muteAcm() override { return m_real.muteAcm(); }
    EACMHResult setMinMaxModulationAndCode(ModulationAndCoding min, ModulationAndCoding max) override
    {
        return m_real.setMinMaxModulationAndCode(min, max);
    }
    EACMHResult getPhyMode(ModulationAndCoding modulation, unsigned& phyMode) override
    {
        return m_real.getPhyMode(modulation, phyMode);
    }
    EACMHResult enableAcm(bool enable) override
    {
        EXPECT_TRUE(enable);
        ++m_course.acmEnabled;
        return m_real.enableAcm(enable);
    }

  private:
    IAcmHandler& m_real;
    Course& m_course;
};

// One sequence: a node of its own, with the command on it.
class Walk
{
  public:
    explicit Walk(unsigned seed) : m_random(seed), m_node(options(seed), m_time)
    {
        InterfaceBroker& broker = InterfaceBroker::getInstance();
        for (const char* const name : kAcmHandlers) {
            m_spies.push_back(std::make_unique<AcmSpy>(*broker.getInterface<IAcmHandler>(name), m_course));
            broker.unregisterInterface(name);
            broker.registerInterface(name, m_spies.back().get());
        }
        auto wrapper =
            std::make_shared<CmdWrapper<CriSetRadioChannelNearEndImpl>>("CRI.SetRadioChannelNearEnd");
        EXPECT_EQ(wrapper->impl().initialize(2), 0u);
        ZyrApiHandler::m_cmds = {wrapper};
    }
    ~Walk()
    {
        ZyrApiHandler::m_cmds.clear();
        for (const char* const name : kAcmHandlers) {
            InterfaceBroker::getInstance().unregisterInterface(name);
        }
        Zyr::setInitState(Zyr::ZyrInitState::NormalOperation);
    }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    void run()
    {
        const unsigned commands = upTo(kMaximumCommands - 1) + 1;
        for (unsigned index = 0; index < commands; ++index) {
            changeCircumstances();
            injectFaults();
            step(randomCommand());
            m_node.faults().clear();
        }
    }

  private:
    static SimulatedNodeOptions options(unsigned seed)
    {
        SimulatedNodeOptions options;
        options.seed = seed;
        return options;
    }

    unsigned upTo(unsigned highest) { return std::uniform_int_distribution<unsigned>(0, highest)(m_random); }
    bool oneIn(unsigned number) { return upTo(number - 1) == 0; }
    template <class Values>
    auto oneOf(const Values& values)
    {
        return values[upTo(static_cast<unsigned>(std::size(values)) - 1)];
    }

    void changeCircumstances()
    {
        m_isBypassed = oneIn(20);
        m_isWarmRestart = oneIn(8);
        m_inCarrierAggregation = oneIn(4);
        m_node.setConfigurationBypassed(m_isBypassed);
        m_node.setCarrierAggregation(m_inCarrierAggregation);
        m_node.setDuplexType(oneOf(std::array{0u, 0u, 0u, 1u, 1u, 2u}));
        m_node.setLongHaul(oneIn(4));
        m_node.setTwoTransmitters(oneIn(2));
        for (unsigned channel = 1; channel <= 2; ++channel) {
            m_isRadioAvailable[channel] = !oneIn(6);
            m_node.setRadioAvailable(channel, m_isRadioAvailable[channel]);
        }
        Zyr::setInitState(m_isWarmRestart ? Zyr::ZyrInitState::WarmRestart
                                          : Zyr::ZyrInitState::NormalOperation);
        m_closingResult = oneIn(15) ? 0x8007u : 0u;
    }

    void injectFaults()
    {
        constexpr std::array kCodes{0x8000u, 0x8001u, 0x800Au, 0xFFFFu, 0x7FFFu};
        const unsigned faults = oneIn(2) ? 0 : upTo(2) + 1;
        m_hasIdleSuccess = false;
        for (unsigned index = 0; index < faults; ++index) {
            const auto operation = oneOf(kOperations);
            const std::uint32_t code = oneOf(kCodes);
            m_hasIdleSuccess = m_hasIdleSuccess || code < 0x8000;
            m_node.faults().inject(
                {std::string(operation[0]), std::string(operation[1]), 0, code, upTo(3) + 1});
        }
    }

    Command randomCommand()
    {
        constexpr std::array kChannels{1u, 1u, 1u, 1u, 2u, 2u, 2u, 2u, 0u, 3u};
        constexpr std::array kFrames{101u, 102u, 103u, 201u, 202u, 301u, 302u, 401u, 501u, 0u, 999u};
        constexpr std::array kFrequencies{0u, 18'000'000u, 18'100'000u, 23'000'000u, 7'000'000u};
        const std::vector<std::string> linkTypes{"Disable",  "Disable", "Disable", "Enable_A",
                                                 "Enable_D", "",        "nonsense"};
        const std::vector<std::string> frameTypes{"Standard", "Standard",     "Xpic", "Mimo",
                                                  "Mrc",      "MrcTwoBoards", "Std",  "LongHaulXpic"};
        Command command;
        command.RadioChannelID = RadioChannel(oneOf(kChannels));
        command.radioFrameId = oneOf(kFrames);
        command.minModulation = oneIn(15) ? ModulationAndCoding(13) : ModulationAndCoding::QAM_4_STRONG;
        command.maxModulation = oneIn(15) ? ModulationAndCoding::BPSK : ModulationAndCoding::QAM_1024;
        command.txFrequency_kHz = oneOf(kFrequencies);
        command.rxFrequency_kHz = oneOf(kFrequencies);
        command.xpicParameterPresent = oneIn(2);
        command.xpicEnable = oneOf(linkTypes);
        command.mimoParameterPresent = oneIn(2);
        command.mimoEnable = oneOf(linkTypes);
        command.ffConfigTypePresent = !oneIn(3);
        command.FFConfigType = oneOf(frameTypes);
        command.ppsSlave = oneIn(2);
        if (oneIn(3)) {
            command.rauMultiTrxConfig.ifSwitchMode = upTo(3);
        }
        if (oneIn(12)) { // what the node sends for a channel in reset
            command.radioFrameId = 0;
            command.txFrequency_kHz = 0;
            command.xpicEnable = command.mimoEnable = "Disable";
            command.xpicParameterPresent = command.mimoParameterPresent = true;
        }
        return command;
    }

    static bool isEnabled(const std::string& linkType)
    {
        return linkType == "Enable_A" || linkType == "Enable_D";
    }

    static bool isResetCase(const Command& command)
    {
        return command.txFrequency_kHz == 0 && command.radioFrameId == 0 && command.xpicParameterPresent &&
               command.mimoParameterPresent && !isEnabled(command.xpicEnable) &&
               !isEnabled(command.mimoEnable);
    }

    static const FailurePoint* pointOf(const StandardResponse& response)
    {
        const auto* const point = std::find_if(
            std::begin(kFailurePoints), std::end(kFailurePoints), [&](const FailurePoint& known) {
                return std::string_view(response.faultString).starts_with(known.front);
            });
        return point == std::end(kFailurePoints) ? nullptr : point;
    }

    // Whether the transmitter steps do anything for this channel.
    bool handlesTransmitter(unsigned channel) const
    {
        const unsigned txChannel = m_inCarrierAggregation ? 1 : channel;
        return !m_isWarmRestart && m_isRadioAvailable[txChannel];
    }

    void step(const Command& command)
    {
        m_course = Course();
        const StandardResponse response = criSetRadioChannelNearEnd(command);
        m_course.closings = m_closings;
        m_closings = 0;
        SCOPED_TRACE(command.toString() + response.faultString);

        int reached = 19; // the last phase that was entered
        if (response.tiResult == eTI_S_OK) {
            EXPECT_EQ(response.faultCode, 0);
            EXPECT_EQ(response.faultString, "");
        } else {
            const FailurePoint* const point = pointOf(response);
            ASSERT_NE(point, nullptr) << "an unknown failure";
            reached = point->phase;
            checkFailure(response, *point);
        }
        checkPasses(command, reached);
        if (m_course.passes > 0 && !isResetCase(command)) {
            checkPhases(command, reached);
        }
        if (reached == 19 && m_course.passes > 0 && !isResetCase(command) && !m_hasIdleSuccess) {
            checkConfigured(command);
        }
    }

    void checkFailure(const StandardResponse& response, const FailurePoint& point) const
    {
        if (point.phase == 0) {
            EXPECT_EQ(response.tiResult, 0xA100u);
            EXPECT_EQ(response.faultCode, 2);
            EXPECT_EQ(m_course.passes, 0u);
        } else {
            EXPECT_EQ(response.tiResult, 0x8000u);
            EXPECT_EQ(response.faultCode, 4);
        }
        // Only what a recovery may heal starts a further pass, and only the third failure gives up.
        if (point.phase < 19) {
            EXPECT_EQ(m_course.givenUp, m_course.passes == 3 ? 1u : 0u);
            EXPECT_TRUE(!point.isRecoverable || m_course.passes == 3);
        }
    }

    void checkPasses(const Command& command, int reached) const
    {
        EXPECT_LE(m_course.passes, 3u);
        EXPECT_EQ(m_course.retries, m_course.passes == 0 ? 0 : m_course.passes - 1);
        EXPECT_EQ(m_course.closings, reached == 19 ? 1u : 0u);
        if (m_isBypassed || isResetCase(command)) {
            EXPECT_LE(m_course.passes, m_isBypassed ? 0u : 1u);
            EXPECT_EQ(m_course.transmittersReturned, 0u);
            EXPECT_EQ(m_course.acmEnabled, 0u);
        }
    }

    void checkPhases(const Command& command, int reached) const
    {
        const bool returns = reached >= 17 && handlesTransmitter(command.RadioChannelID);
        EXPECT_EQ(m_course.transmittersReturned, returns ? 1u : 0u);
        EXPECT_EQ(m_course.acmEnabled, reached >= 18 ? 1u : 0u);
    }

    void checkConfigured(const Command& command) const
    {
        const unsigned txChannel = m_inCarrierAggregation ? 1 : std::uint32_t(command.RadioChannelID);
        const ChannelState channel = m_node.channel(command.RadioChannelID);
        EXPECT_EQ(channel.radioFrameId, command.radioFrameId);
        if (handlesTransmitter(command.RadioChannelID)) {
            EXPECT_EQ(m_node.channel(txChannel).transmitter.overridden, ETxPowerOverrideState::AsRequested);
        }
    }

    std::mt19937 m_random;
    zyr_platform::VirtualTime m_time;
    SimulatedNode m_node;
    Course m_course;
    unsigned m_closings = 0;
    std::uint32_t m_closingResult = 0;
    bool m_hasIdleSuccess = false; // an injected code says success where nothing is done
    bool m_isBypassed = false;
    bool m_isWarmRestart = false;
    bool m_inCarrierAggregation = false;
    std::array<bool, 3> m_isRadioAvailable{};
    std::vector<std::unique_ptr<AcmSpy>> m_spies;
    zyr_platform::Registration m_closingPhase =
        zyr_platform::ModuleManager::get().registerPhase(5, "walk", [this](std::uint32_t) {
            ++m_closings;
            return m_closingResult;
        });
    zyr_platform::Registration m_sink =
        zyr_platform::TraceService::get().addSink(std::make_shared<CourseSink>(m_course));
};

TEST(NearEndWalkTest, RandomCommandsWithRandomFaultsKeepTheirPromises)
{
    zyr_platform::TraceService::get().setLevel("ZYR.TI.CriSetRadioChannelNearEnd", 4);
    for (unsigned seed = 1; seed <= kSequences; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Walk(seed).run();
        if (HasFailure()) {
            break; // the first one tells enough
        }
    }
    zyr_platform::TraceService::get().resetLevels();
}

} // namespace
