#include "CmdWrapper.h"
#include "CriRestartRadioImpl.h"
#include "CriSetRadioChannelNearEndImpl.h"
#include "CriSetRauPowerSuppliedImpl.h"
#include "CriSetRfPowerImpl.h"
#include "CriStartRecoveryImpl.h"
#include "CriWarmInitCompletedImpl.h"
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
#include <chrono>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using namespace zyr_top_api;
using namespace zyr_simulation;
using Command = CriSetRadioChannelNearEnd::Command;

constexpr unsigned kSequences = 10'000;
constexpr unsigned kMaximumCommands = 6;
constexpr auto kLongEnough = 6s; // for all that a command starts
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

constexpr std::array<std::array<std::string_view, 2>, 30> kOperations{{
    {"IRauHandler", "triggerRestart"},
    {"IRauHandler", "endRestart"},
    {"IRauHandler", "setPowerSupplied"},
    {"IOutputPowerCalculator", "setPowerCutBack"},
    {"ISystemPowerController", "configurePowerSettings"},
    {"ISystemPowerController", "setAdminRequestedTxPowerState"},
    {"ISystemPowerController", "prepareRadioRestart"},
    {"ISystemPowerController", "syncAfterWarmRestart"},
    {"IAcmHandler", "restoreAcm"},
    {"IAcmHandler", "syncAfterWarmRestart"},
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

// What a failing power command can say.
constexpr std::string_view kPowerFailures[] = {
    "SetPowerCutBack failed(ESPCResult = ",
    "IAcmHandler->muteAcm() failed (EACMHResult = ",
    "configurePowerSettings failed(ESPCResult = ",
    "setAdminRequestedTxPowerState failed(ESPCResult = ",
    "IAcmHandler->restoreAcm() failed (EACMHResult = ",
};

// What the trace and the spies tell of one near-end command.
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
    EACMHResult restoreAcm() override { return m_real.restoreAcm(); }
    EACMHResult syncAfterWarmRestart() override { return m_real.syncAfterWarmRestart(); }
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

// One sequence: a node of its own, with the commands on it.
class Walk
{
  public:
    // @param met  where it tells what has come about
    Walk(unsigned seed, std::set<std::string>& met)
        : m_random(seed), m_met(met), m_node(options(seed), m_time)
    {
        InterfaceBroker& broker = InterfaceBroker::getInstance();
        for (const char* const name : kAcmHandlers) {
            m_spies.push_back(std::make_unique<AcmSpy>(*broker.getInterface<IAcmHandler>(name), m_course));
            broker.unregisterInterface(name);
            broker.registerInterface(name, m_spies.back().get());
        }
        enrol<CriSetRadioChannelNearEndImpl>();
        enrol<CriSetRfPowerImpl>();
        enrol<CriRestartRadioImpl>();
        enrol<CriStartRecoveryImpl>();
        enrol<CriSetRauPowerSuppliedImpl>();
        enrol<CriWarmInitCompletedImpl>();
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

    void run();

  private:
    template <class XImpl>
    static void enrol()
    {
        auto wrapper = std::make_shared<CmdWrapper<XImpl>>(std::string(XImpl::identity.wireName));
        EXPECT_EQ(wrapper->impl().initialize(2), 0u);
        ZyrApiHandler::m_cmds.push_back(wrapper);
    }

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
        m_inCarrierAggregation = oneIn(4);
        m_node.setConfigurationBypassed(m_isBypassed);
        m_node.setCarrierAggregation(m_inCarrierAggregation);
        m_node.setDuplexType(oneOf(std::array{0u, 0u, 0u, 1u, 1u, 2u}));
        m_node.setLongHaul(oneIn(4));
        m_node.setTwoTransmitters(oneIn(2));
        for (unsigned channel = 1; channel <= 2; ++channel) {
            m_node.setRadioAvailable(channel, !oneIn(6));
        }
        if (oneIn(6)) {
            using enum Zyr::ZyrInitState;
            Zyr::setInitState(oneOf(std::array{WarmRestart, WarmRestart, ColdRestart, NormalOperation}));
        }
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

    // Channel 3 is one too many.
    unsigned randomChannel() { return oneOf(std::array{1u, 1u, 1u, 1u, 2u, 2u, 2u, 2u, 3u}); }

    void step()
    {
        switch (upTo(10)) {
        case 0:
            return completeWarmInit();
        case 1:
            return startRecovery();
        case 2:
            return supplyPower();
        case 3:
        case 4:
            return restartRadio();
        case 5:
        case 6:
            return setPower();
        default:
            return configure(randomCommand());
        }
    }

    Command randomCommand()
    {
        constexpr std::array kChannels{1u, 1u, 1u, 1u, 2u, 2u, 2u, 2u, 0u, 3u};
        constexpr std::array kFrames{101u, 102u, 103u, 201u, 202u, 301u, 302u, 401u, 501u, 0u, 999u};
        constexpr std::array kTxFrequencies{14'500'000u, 14'560'000u, 14'620'000u, 14'620'250u, 0u};
        constexpr std::array kRxFrequencies{14'920'000u, 14'980'000u, 15'040'000u, 14'919'750u, 0u};
        const std::vector<std::string> linkTypes{"Disable",  "Disable", "Disable", "Enable_A",
                                                 "Enable_D", "",        "nonsense"};
        const std::vector<std::string> frameTypes{"Standard", "Standard",     "Xpic", "Mimo",
                                                  "Mrc",      "MrcTwoBoards", "Std",  "LongHaulXpic"};
        Command command;
        command.RadioChannelID = RadioChannel(oneOf(kChannels));
        command.radioFrameId = oneOf(kFrames);
        command.minModulation = oneIn(15) ? ModulationAndCoding(13) : ModulationAndCoding::QAM_4_STRONG;
        command.maxModulation = oneIn(15) ? ModulationAndCoding::BPSK : ModulationAndCoding::QAM_1024;
        command.txFrequency_kHz = oneOf(kTxFrequencies);
        command.rxFrequency_kHz = oneOf(kRxFrequencies);
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
        return !Zyr::isWarmRestartInProgress() && m_isRadioUp[txChannel];
    }

    void configure(const Command& command)
    {
        m_course = Course();
        for (const unsigned channel : {1u, 2u}) {
            m_isRadioUp[channel] = m_node.channel(channel).radio.isUp(); // none comes or goes meanwhile
        }
        const StandardResponse response = criSetRadioChannelNearEnd(command);
        m_course.closings = m_closings;
        m_closings = 0;
        SCOPED_TRACE(command.toString() + response.faultString);

        meet(response.tiResult == eTI_S_OK ? "configured" : "not configured");
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

    // Whether the operation will answer a code that was ordered, and do nothing.
    bool isStruck(std::string_view collaborator, std::string_view operation)
    {
        return std::ranges::any_of(m_node.faults().list(), [&](const Fault& fault) {
            return fault.collaborator == collaborator && fault.operation == operation;
        });
    }

    void setPower()
    {
        const unsigned number = randomChannel();
        CriSetRfPower::Command command;
        command.RadioChannelID = number;
        command.txRequestedStatus = oneIn(4) ? TxRequestedStatus::Off : TxRequestedStatus::On;
        command.minRfOutputPower = oneOf(std::array{0, 50, 100, 250});
        command.maxRfOutputPower = oneOf(std::array{100, 150, 250});
        command.targetRfInputPowerFarEnd = -400;
        const bool isKnown = number <= 2;
        const ChannelState before = m_node.channel(isKnown ? number : 1);
        const StandardResponse response = criSetRfPower(command);
        SCOPED_TRACE(command.toString() + response.faultString);

        const ChannelState after = m_node.channel(before.number);
        if (!isKnown || !before.isConfigured()) {
            const bool isRefused = !isKnown || command.txRequestedStatus == TxRequestedStatus::On;
            const std::string refusal = isKnown ? "DSP needs to be configured before SetRfPower"
                                                : "command.channelId > m_numberOfChannels";
            EXPECT_EQ(response.faultString, isRefused ? refusal : "");
            EXPECT_EQ(after.transmitter.requested, before.transmitter.requested);
            EXPECT_EQ(after.acmMuted, before.acmMuted);
        } else if (response.tiResult != eTI_S_OK) {
            meet("power not set");
            EXPECT_EQ(response.tiResult, eTI_E_FAILED);
            EXPECT_TRUE(std::ranges::any_of(kPowerFailures, [&](std::string_view front) {
                return std::string_view(response.faultString).starts_with(front);
            })) << "an unknown failure";
        } else if (!m_hasIdleSuccess) {
            meet("power set");
            EXPECT_EQ(after.transmitter.requested, command.txRequestedStatus);
            EXPECT_EQ(after.transmitter.minPower, command.minRfOutputPower);
            EXPECT_EQ(after.transmitter.maxPower, command.maxRfOutputPower);
            EXPECT_FALSE(after.acmMuted);
        }
    }

    void restartRadio()
    {
        using enum CriRestartRadio::Action;
        const unsigned number = randomChannel();
        CriRestartRadio::Command command;
        command.RadioChannelID = number;
        command.Action = oneOf(std::array{TriggerRestart, TriggerRestart, GetStatus, EndRestart});
        const bool isKnown = number <= 2;
        const RadioState before = m_node.channel(isKnown ? number : 1).radio;
        const bool restartIsStruck = isStruck("IRauHandler", "triggerRestart");
        const bool endIsStruck = isStruck("IRauHandler", "endRestart");
        const unsigned preparations = isStruck("ISystemPowerController", "prepareRadioRestart") ? 0 : 1;
        const CriRestartRadio::Response response = criRestartRadio(command);
        const RadioState after = m_node.channel(isKnown ? number : 1).radio;
        SCOPED_TRACE(response.printResponse());

        if (!isKnown) {
            EXPECT_EQ(response.tiResult, eTI_E_INVALID_ARGUMENT);
            EXPECT_EQ(after.restart, before.restart);
        } else if (command.Action == TriggerRestart && !before.isUp()) {
            meet("radio down");
            EXPECT_TRUE(response.faultString.ends_with("Radio is DOWN"));
            EXPECT_EQ(response.Status, RadioRestartStatus{});
            EXPECT_EQ(after.restart, before.restart);
            EXPECT_EQ(after.preparations, before.preparations);
        } else {
            using enum RadioRestartStatus;
            EXPECT_EQ(response.tiResult, eTI_S_OK);
            EXPECT_EQ(response.Status, after.restart);
            meet(std::string(radioRestartStatusToString(response.Status)));
            const bool isEnded = command.Action == EndRestart && !endIsStruck && before.restart != Restarting;
            EXPECT_EQ(after.restart, command.Action == TriggerRestart
                                         ? (restartIsStruck ? RestartFailed : Restarting)
                                         : (isEnded ? Idle : before.restart));
            EXPECT_EQ(after.preparations,
                      before.preparations + (command.Action == TriggerRestart ? preparations : 0));
        }
    }

    void startRecovery()
    {
        const CriStartRecovery::Command command{oneIn(5) ? Recover::DspWithoutConfig : Recover::Dsp};
        const NodeSnapshot before = m_node.snapshot();
        const bool isFaulty = isStruck("RecoveryController", "startDspRecovery");
        const StandardResponse response = criStartRecovery(command);
        SCOPED_TRACE(response.faultString);

        const NodeSnapshot after = m_node.snapshot();
        if (command.Recover != Recover::Dsp) {
            EXPECT_EQ(response.faultString, "CRI.StartRecovery recovery type not supported");
            EXPECT_EQ(after.dsp.recoveries, before.dsp.recoveries);
        } else if (response.tiResult != eTI_S_OK) {
            EXPECT_EQ(response.faultString, "CRI.StartRecovery failed to recover dsp");
            EXPECT_TRUE(isFaulty || before.dsp.isRecovering);
            meet(isFaulty ? "recovery failed" : "recovery refused");
            EXPECT_EQ(after.dsp.recoveries, before.dsp.recoveries);
        } else if (!isFaulty) {
            meet(before.dsp.isRecovering ? "recovery begun again" : "recovery begun");
            EXPECT_EQ(after.dsp.recoveries, before.dsp.recoveries + 1);
            EXPECT_TRUE(after.dsp.isRecovering);
            EXPECT_TRUE(isActive(after, "DspRecovery", 0));
        }
    }

    void supplyPower()
    {
        CriSetRauPowerSupplied::Command command;
        command.RadioChannelID = oneIn(9) ? 0 : randomChannel();
        command.RauPowerSupplied = oneIn(2) ? 0 : oneOf(std::array{1u, 7u});
        const bool isGiven = command.RauPowerSupplied != 0;
        const unsigned served = command.RadioChannelID == 2 ? 2 : 1;
        const RadioState before = m_node.channel(served).radio;
        const bool isDone = command.RadioChannelID <= 2 && !isStruck("IRauHandler", "setPowerSupplied");
        const StandardResponse response = criSetRauPowerSupplied(command);

        meet(isGiven ? "power given" : "power taken");
        const RadioState after = m_node.channel(served).radio;
        EXPECT_EQ(response.faultString, command.RadioChannelID > 2 ? "RadioChannelId out of bounds" : "");
        EXPECT_EQ(after.isPowerSupplied, isDone ? isGiven : before.isPowerSupplied);
        EXPECT_EQ(after.isStarting,
                  isDone ? isGiven && (before.isStarting || !before.isPowerSupplied) : before.isStarting);
    }

    void completeWarmInit()
    {
        const std::string state = Zyr::getInitState();
        const NodeSnapshot before = m_node.snapshot();
        const unsigned powerSyncs = isStruck("ISystemPowerController", "syncAfterWarmRestart") ? 0 : 1;
        const unsigned acmSyncs = isStruck("IAcmHandler", "syncAfterWarmRestart") ? 0 : 1;
        const StandardResponse response = criWarmInitCompleted({});
        const NodeSnapshot after = m_node.snapshot();
        SCOPED_TRACE(state);
        meet(state + " completed");

        EXPECT_EQ(response.tiResult, state == "NormalOperation" ? eTI_W_WARNING : eTI_S_OK);
        EXPECT_EQ(response.faultString, "");
        EXPECT_EQ(Zyr::getInitState(), "NormalOperation");
        for (const unsigned index : {0u, 1u}) {
            const ChannelState& was = before.channels[index];
            const ChannelState& is = after.channels[index];
            const bool isSynchronised = state == "WarmRestart" && was.isConfigured();
            // A fault can strike one channel and be used up then.
            EXPECT_GE(is.transmitter.warmRestartSyncs,
                      was.transmitter.warmRestartSyncs + (isSynchronised ? powerSyncs : 0));
            EXPECT_GE(is.acmSyncs, was.acmSyncs + (isSynchronised ? acmSyncs : 0));
            EXPECT_LE(is.transmitter.warmRestartSyncs,
                      was.transmitter.warmRestartSyncs + (isSynchronised ? 1 : 0));
            EXPECT_LE(is.acmSyncs, was.acmSyncs + (isSynchronised ? 1 : 0));
            EXPECT_EQ(is.transmitter.status, was.transmitter.status);
        }
    }

    static bool isActive(const NodeSnapshot& node, std::string_view name, unsigned channel)
    {
        return std::ranges::any_of(node.alarms, [&](const AlarmEvent& event) {
            return event.isActive && event.eventName == name && event.radioChannelId == channel;
        });
    }

    // A node that is left alone comes to rest, and shows what its state says.
    void checkRest()
    {
        m_time.advance(kLongEnough);
        const NodeSnapshot node = m_node.snapshot();
        EXPECT_FALSE(node.dsp.isRecovering);
        EXPECT_FALSE(isActive(node, "DspRecovery", 0));
        for (const ChannelState& channel : node.channels) {
            SCOPED_TRACE("channel " + std::to_string(channel.number));
            checkChannelAtRest(node, channel);
            meet(channel.receiver.isLinkUp ? "link up" : "link down");
            meet(channel.transmitter.power > kNoLevel_dBmTenths ? "transmitter on" : "transmitter off");
        }
    }

    static void checkChannelAtRest(const NodeSnapshot& node, const ChannelState& channel)
    {
        const RadioState& radio = channel.radio;
        const TransmitterState& transmitter = channel.transmitter;
        const bool isRadioUp = radio.isAvailable && radio.isPowerSupplied;
        EXPECT_NE(radio.restart, RadioRestartStatus::Restarting);
        EXPECT_FALSE(radio.isStarting);
        const bool transmits = isRadioUp && transmitter.requested == TxRequestedStatus::On &&
                               transmitter.overridden == ETxPowerOverrideState::AsRequested;
        EXPECT_EQ(transmitter.status, transmits ? ETxPowerActualStatus::On : ETxPowerActualStatus::Off);
        EXPECT_EQ(transmitter.target, transmitter.status);
        EXPECT_NE(channel.pps.calibration, PpsCalibStatus::CoarseInProgress);
        EXPECT_NE(channel.pps.calibration, PpsCalibStatus::FineInProgress);
        EXPECT_NE(channel.mimo.calibration, MimoCalibrationStatus::InProgress);

        const bool isConfigured = channel.radioFrameId != 0 && channel.txFrequency_kHz != 0 &&
                                  channel.rxFrequency_kHz != 0 && channel.acmConfigured &&
                                  channel.closingPhasesRun;
        EXPECT_EQ(channel.receiver.isLinkUp, isRadioUp && isConfigured);

        EXPECT_EQ(isActive(node, "RadioDown", channel.number), !isRadioUp);
        // These are raised when something goes, so a channel that never had it has no alarm.
        EXPECT_TRUE(!isActive(node, "LinkDown", channel.number) || !channel.receiver.isLinkUp);
        EXPECT_TRUE(!isActive(node, "TxOff", channel.number) || !transmits);
        EXPECT_TRUE(!isActive(node, "AcmDisabled", channel.number));
        EXPECT_TRUE(!isActive(node, "LoopClosed", channel.number));
        EXPECT_TRUE(!isActive(node, "EncryptionKeyMismatch", channel.number));
        // The far end needs to know the least modulation.
        EXPECT_TRUE(!isActive(node, "FarEndLinkDown", channel.number) ||
                    channel.minModulation == ModulationAndCoding::UNDEFINED);
    }

    void meet(const std::string& outcome) { m_met.insert(outcome); }

    std::mt19937 m_random;
    std::set<std::string>& m_met;
    zyr_platform::VirtualTime m_time;
    SimulatedNode m_node;
    Course m_course;
    unsigned m_closings = 0;
    std::uint32_t m_closingResult = 0;
    bool m_hasIdleSuccess = false; // an injected code says success where nothing is done
    bool m_isBypassed = false;
    bool m_inCarrierAggregation = false;
    std::array<bool, 3> m_isRadioUp{};
    std::vector<std::unique_ptr<AcmSpy>> m_spies;
    zyr_platform::Registration m_closingPhase =
        zyr_platform::ModuleManager::get().registerPhase(5, "walk", [this](std::uint32_t) {
            ++m_closings;
            return m_closingResult;
        });
    zyr_platform::Registration m_sink =
        zyr_platform::TraceService::get().addSink(std::make_shared<CourseSink>(m_course));
};

void Walk::run()
{
    const unsigned commands = upTo(kMaximumCommands - 1) + 1;
    for (unsigned index = 0; index < commands; ++index) {
        changeCircumstances();
        injectFaults();
        step();
        m_node.faults().clear();
        m_time.advance(oneOf(std::array{0ms, 0ms, 50ms, 400ms, 2500ms}));
    }
    checkRest();
}

TEST(NearEndWalkTest, RandomCommandsWithRandomFaultsKeepTheirPromisesAndComeToRest)
{
    zyr_platform::TraceService::get().setLevel("ZYR.TI.CriSetRadioChannelNearEnd", 4);
    std::set<std::string> met;
    for (unsigned seed = 1; seed <= kSequences; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Walk(seed, met).run();
        if (HasFailure()) {
            break; // the first one tells enough
        }
    }
    zyr_platform::TraceService::get().resetLevels();
    if (!HasFailure()) {
        const std::set<std::string> all{"configured",
                                        "not configured",
                                        "power set",
                                        "power not set",
                                        "radio down",
                                        "Idle",
                                        "Restarting",
                                        "RestartSuccessful",
                                        "RestartFailed",
                                        "recovery begun",
                                        "recovery begun again",
                                        "recovery refused",
                                        "recovery failed",
                                        "power given",
                                        "power taken",
                                        "WarmRestart completed",
                                        "ColdRestart completed",
                                        "NormalOperation completed",
                                        "link up",
                                        "link down",
                                        "transmitter on",
                                        "transmitter off"};
        EXPECT_EQ(met, all) << "the walk has been everywhere";
    }
}

} // namespace
