#pragma once

#include "CommandTest.h"
#include "CriSetRadioChannelNearEndImpl.h"
#include "NodeDoubles.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <initializer_list>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace zyr_test
{

/// Outcomes of a command in one line, as `CommandTest::outcome` writes them.
inline constexpr const char* kSuccess = R"(result 0x0 0 "")";
inline constexpr const char* kOutOfBounds = R"(result 0xA100 2 "RadioChannelID out of bounds")";
inline std::string failedWith(const std::string& text)
{
    return "result 0x8000 4 \"" + text + "\"";
}

/// A node with two channels whose collaborators all succeed, and a "CRI.SetRadioChannelNearEnd" that was
/// initialised on it.
class NearEndTest : public CommandTest
{
  protected:
    using Command = zyr_top_api::CriSetRadioChannelNearEnd::Command;

    static constexpr const char* kChannel = "ZYR.TI.CriSetRadioChannelNearEnd";

    NearEndTest()
    {
        publishNode(node);
        node.hardwareConfigurationHandler.onIsMimoCapable = true;
        node.hardwareConfigurationHandler.onIsXpicCapable = {eHCH_S_OK, true};
        node.hardwareConfigurationHandler.onGetConfigType = {eHCH_S_OK, zyr_top_api::FFConfigType::Xpic};
        for (ChannelDoubles* const channel : {&node.channel1, &node.channel2}) {
            channel->acmHandler.onGetPhyMode = {eACMH_S_OK, 7U};
            channel->rssiHandler.onCalculateRssiThreshold = {eRSSI_S_OK, -620};
        }
        EXPECT_EQ(impl.initialize(2), zyr_top_api::eTI_S_OK);
        transcript.clear();
    }

    /// A command that gives every step something to do.
    static Command command(std::uint32_t channel = 1)
    {
        Command command;
        command.RadioChannelID = zyr_top_api::RadioChannel(channel);
        command.radioFrameId = 4711;
        command.minModulation = zyr_top_api::ModulationAndCoding::QAM_4;
        command.maxModulation = zyr_top_api::ModulationAndCoding::QAM_256;
        command.referenceSec = zyr_top_api::ReferenceSec::Sec4H;
        command.txFrequency_kHz = 18000000;
        command.rxFrequency_kHz = 19010000;
        command.xpicParameterPresent = true;
        command.xpicEnable = "Enable_A";
        command.mimoParameterPresent = true;
        command.mimoEnable = "Disable";
        command.ffConfigTypePresent = true;
        command.FFConfigType = "Xpic";
        command.ppsSlave = true;
        command.ppsOutputMode = zyr_top_api::PpsOutputMode::Auto;
        command.rauMultiTrxConfig.ifSwitchMode = 3U;
        return command;
    }

    /// Executes, and gives the outcome in one line.
    std::string run(const Command& command) { return outcome(impl.execute(command)); }

    /// Shows all levels of the command's own trace channel.
    static void showAllLevels() { setTraceLevel(kChannel, 7); }

    /// The lines of the transcript that the test accepts, in the form of `Transcript::text`.
    template <class Accepts>
    std::string linesThat(Accepts accepts) const
    {
        std::string text = "\n";
        for (const std::string& line : transcript.lines()) {
            if (accepts(line)) {
                text += line + "\n";
            }
        }
        return text;
    }

    /// The lines that hold one of the texts.
    std::string linesWith(std::initializer_list<std::string_view> texts) const
    {
        return linesThat([&](const std::string& line) {
            return std::ranges::any_of(
                texts, [&](std::string_view text) { return line.find(text) != std::string::npos; });
        });
    }

    /// All but the trace: calls of collaborators, sleeps and runs of phase group 5.
    std::string calls() const
    {
        return linesThat([](const std::string& line) { return line[0] < '0' || line[0] > '9'; });
    }

    /// What the command traced on its own channel: "<level>: <text>".
    std::string logs() const
    {
        const std::string front = std::string(" ") + kChannel;
        std::string text = "\n";
        for (const std::string& line : transcript.lines()) {
            if (line.compare(1, front.size(), front) == 0) {
                text += line[0] + line.substr(1 + front.size()) + "\n";
            }
        }
        return text;
    }

    /// How many lines hold the text.
    unsigned count(std::string_view text) const
    {
        const auto lines = transcript.lines();
        return static_cast<unsigned>(std::ranges::count_if(
            lines, [&](const std::string& line) { return line.find(text) != std::string::npos; }));
    }

    NodeDoubles node{transcript};
    zyr_top_api::CriSetRadioChannelNearEndImpl impl;
};

/// The calls that can fail, in the order in which a pass makes them.
enum class FailurePoint : unsigned
{
    DuplexType,
    ForcedOff,
    TxTimeout,
    RequiredRecovery,
    Reconfiguration,
    StartRecovery,
    MuteAcm,
    XpicCapable,
    CcdpStart,
    CcdpStop, // instead of the start, for a frame that can't carry XPIC
    ModulationRange,
    FrameWrite,
    SecondFrameWrite, // only for MRC over two boards
    PhyMode,
    CalculateThreshold,
    SetThreshold,
    PmaxCapability,
    TxFrequency,
    IqImbalance,
    PowerController,
    RxFrequency,
    IfSwitch,
    GivenBack,
    EnableAcm,
};

struct FailurePointFacts
{
    FailurePoint point;
    const char* name;
    const char* call; // the call that fails, on channel 1
    const char* text; // the failure's text
    bool isHealable;  // whether it asks for a recovery
};

/// The code by which all of them fail; the radio unit prints it by name.
inline constexpr std::uint32_t kFailureCode = 32785;

inline constexpr auto kFailurePoints = std::to_array<FailurePointFacts>({
    {FailurePoint::DuplexType, "DuplexType", "IRadioCapability_1.getFrequencyCapability()",
     "syntax error, duplex type not valid", false},
    {FailurePoint::ForcedOff, "ForcedOff", "ISystemPowerController_1.overrideTxPowerState(0)",
     "SystemPowerController overrideTxPowerState off failed(ESPCResult = 32785)", false},
    {FailurePoint::TxTimeout, "TxTimeout", "IOutputPowerController_1.getTxStatus()",
     "TX OFF didn't happen during timeout:15000 ms", false},
    {FailurePoint::RequiredRecovery, "RequiredRecovery", "IDspControlApi_1.getRequiredRecovery(3)",
     "CRI.SetRadioChannelNearEnd failed to check which kind of DSP Recovery is needed", false},
    {FailurePoint::Reconfiguration, "Reconfiguration", "IDspControlApi_1.checkDspReconfiguration(3)",
     "CRI.SetRadioChannelNearEnd failed to check if the DSP needs to be reconfigured", false},
    {FailurePoint::StartRecovery, "StartRecovery", "RecoveryController.startDspRecovery(1)",
     "CRI.SetRadioChannelNearEnd failed to reconfigure the DSP", false},
    {FailurePoint::MuteAcm, "MuteAcm", "IAcmHandler_1.muteAcm()",
     "IAcmHandler->muteAcm() failed (EACMHResult = 32785)", true},
    {FailurePoint::XpicCapable, "XpicCapable", "IHardwareConfigurationHandler.isXpicCapable(4711)",
     "HardwareConfigurationHandler isXpicCapable failed(hchResultXpic = 32785)", true},
    {FailurePoint::CcdpStart, "CcdpStart", "ICcdpController_1.start(1)",
     "CCDP start failed(ECCDPCREsult = 32785) for link type Enable_A", true},
    {FailurePoint::CcdpStop, "CcdpStop", "ICcdpController_1.stop()", "CCDP stop failed(ECCDPCREsult = 32785)",
     true},
    {FailurePoint::ModulationRange, "ModulationRange", "IAcmHandler_1.setMinMaxModulationAndCode(31, 81)",
     "IAcmHandler->SetMinMaxModulationAndCode failed (EACMHResult = 32785)", false},
    {FailurePoint::FrameWrite, "FrameWrite", "IHardwareConfigurationHandler.setRadioFrameId(1, 4711, 1)",
     "IHardwareConfigurationHandler->setRadioFrameId failed (EHCHResult = 32785)", true},
    {FailurePoint::SecondFrameWrite, "SecondFrameWrite",
     "IHardwareConfigurationHandler.setRadioFrameId(2, 4711, 1)",
     "IHardwareConfigurationHandler->setRadioFrameId failed on CH2 (MRC2)(EHCHResult = 32785)", true},
    {FailurePoint::PhyMode, "PhyMode", "IAcmHandler_1.getPhyMode(31)",
     "IAcmHandler->GetPhyMode failed for minModulationAndCode = 4QAM (EACMHResult = 32785)", false},
    {FailurePoint::CalculateThreshold, "CalculateThreshold", "IRssiHandler_1.calculateRssiThreshold(7)",
     "IRssiHandler->calculateRssiThreshold failed(ERSSIResult = 32785)", false},
    {FailurePoint::SetThreshold, "SetThreshold", "IRssiHandler_1.setRssiThreshold(-620)",
     "IRssiHandler->SetRssiThreshold failed (ERSSIResult = 32785)", false},
    {FailurePoint::PmaxCapability, "PmaxCapability", "ISystemPowerController_1.setTemporaryPmaxCapability()",
     "ISystemPowerController->setTemporaryPmaxCapability failed (ESPCResult = 32785)", true},
    {FailurePoint::TxFrequency, "TxFrequency", "IFrequencyController_1.setTxFrequency(18000000, 1)",
     "IFrequencyController->setTxFrequency failed (EFCResult = 32785)", false},
    {FailurePoint::IqImbalance, "IqImbalance", "ITxIQImbalanceHandler_1.OnTxFrequencyChanged(18000000)",
     "ITxIQImbalanceHandler->OnTxFrequencyChanged failed (EFHResult = 32785)", false},
    {FailurePoint::PowerController, "PowerController",
     "ISystemPowerController_1.onTxFrequencyChanged(18000000)",
     "ITxIQImbalanceHandler->OnTxFrequencyChanged failed (ESPCResult = 32785)", false},
    {FailurePoint::RxFrequency, "RxFrequency", "IFrequencyController_1.setRxFrequency(19010000, 1)",
     "IFrequencyController->setRxFrequency failed (EFCResult = 32785)", false},
    {FailurePoint::IfSwitch, "IfSwitch", "IRauHandler_1.setTxIfSwitch2T2R(3, 0)",
     "rauhandler->setTxIfSwitch2T2R failed (ERAUHResult = RF Loop is not supported by radio)", false},
    {FailurePoint::GivenBack, "GivenBack", "ISystemPowerController_1.overrideTxPowerState(1)",
     "ISystemPowerController->overrideTxPowerState failed(ESPCResult = 32785)", false},
    {FailurePoint::EnableAcm, "EnableAcm", "IAcmHandler_1.enableAcm(true)",
     "IAcmHandler->enableAcm(true) failed (EACMHResult = 32785)", true},
});

/// A node whose calls fail as planned, pass by pass.
class NearEndFailureTest : public NearEndTest
{
  protected:
    NearEndFailureTest()
    {
        installNodeWide();
        installOnChannel(node.channel1);
        installOnChannel(node.channel2);
    }

    /// Executes with the passes counted from 1.
    std::string run(const Command& command)
    {
        pass = 0;
        return NearEndTest::run(command);
    }

    /// Lets a point fail in the given passes.
    void failIn(std::initializer_list<unsigned> passes, FailurePoint point)
    {
        for (const unsigned number : passes) {
            planned.insert({number, point});
        }
    }

    bool isPlanned(FailurePoint point) const { return planned.contains({pass, point}); }

    /// What a call answers in the pass that runs.
    template <class Result>
    Result resultAt(FailurePoint point) const
    {
        return static_cast<Result>(isPlanned(point) ? kFailureCode : 0U);
    }

    unsigned pass = 0; ///< number of the pass that runs, or of the last one
    std::set<std::pair<unsigned, FailurePoint>> planned;

    // What the collaborators report.
    zyr_top_api::Recover neededRecovery = zyr_top_api::Recover::None;
    bool needsReconfiguration = false;
    bool isXpicCapable = true;

  private:
    // A pass begins with the summary of its command.
    class PassCounter : public zyr_platform::TraceSink
    {
      public:
        explicit PassCounter(NearEndFailureTest& test) : m_test(test) {}

        void write(const zyr_platform::TraceRecord& record) override
        {
            if (record.channel == kChannel && record.text.starts_with("for channel ")) {
                ++m_test.pass;
                m_test.m_overrides = 0;
                m_test.m_frameWrites = 0;
            }
        }

      private:
        NearEndFailureTest& m_test;
    };

    template <class Result>
    void install(Answer<Result>& answer, FailurePoint point)
    {
        answer.doInstead([this, point] { return resultAt<Result>(point); });
    }

    void installNodeWide()
    {
        auto& handler = node.hardwareConfigurationHandler;
        handler.onIsXpicCapable.doInstead([this](bool& capable) {
            capable = isXpicCapable;
            return resultAt<EHCHResult>(FailurePoint::XpicCapable);
        });
        handler.onSetRadioFrameId.doInstead([this] {
            return resultAt<EHCHResult>(++m_frameWrites == 1 ? FailurePoint::FrameWrite
                                                             : FailurePoint::SecondFrameWrite);
        });
        install(node.recoveryController.onStartDspRecovery, FailurePoint::StartRecovery);
    }

    void installOnChannel(ChannelDoubles& channel)
    {
        using zyr_top_api::ETIResult;
        using zyr_top_api::ETxPowerActualStatus;

        channel.radioCapability.onGetFrequencyCapability.doInstead([this] {
            zyr_top_api::FrequencyCapability capability;
            capability.DuplexType = isPlanned(FailurePoint::DuplexType) ? 2 : 0;
            return capability;
        });
        channel.systemPowerController.onOverrideTxPowerState.doInstead([this] {
            return resultAt<ESPCResult>(++m_overrides == 1 ? FailurePoint::ForcedOff
                                                           : FailurePoint::GivenBack);
        });
        channel.outputPowerController.onGetTxStatus.doInstead([this] {
            if (!isPlanned(FailurePoint::TxTimeout)) {
                return ETxPowerActualStatus::Off;
            }
            time.advance(std::chrono::milliseconds(15001)); // so that one poll is enough
            return ETxPowerActualStatus::On;
        });
        installOnDsp(channel.dspApi.controlApi);
        install(channel.acmHandler.onMuteAcm, FailurePoint::MuteAcm);
        install(channel.ccdpController.onStart, FailurePoint::CcdpStart);
        install(channel.ccdpController.onStop, FailurePoint::CcdpStop);
        install(channel.acmHandler.onSetMinMaxModulationAndCode, FailurePoint::ModulationRange);
        channel.acmHandler.onGetPhyMode.doInstead([this](unsigned& phyMode) {
            phyMode = 7;
            return resultAt<EACMHResult>(FailurePoint::PhyMode);
        });
        channel.rssiHandler.onCalculateRssiThreshold.doInstead([this](int& threshold) {
            threshold = -620;
            return resultAt<ERSSIResult>(FailurePoint::CalculateThreshold);
        });
        install(channel.rssiHandler.onSetRssiThreshold, FailurePoint::SetThreshold);
        install(channel.systemPowerController.onSetTemporaryPmaxCapability, FailurePoint::PmaxCapability);
        install(channel.frequencyController.onSetTxFrequency, FailurePoint::TxFrequency);
        install(channel.txIqImbalanceHandler.onOnTxFrequencyChanged, FailurePoint::IqImbalance);
        install(channel.systemPowerController.onOnTxFrequencyChanged, FailurePoint::PowerController);
        install(channel.frequencyController.onSetRxFrequency, FailurePoint::RxFrequency);
        install(channel.rauHandler.onSetTxIfSwitch2T2R, FailurePoint::IfSwitch);
        install(channel.acmHandler.onEnableAcm, FailurePoint::EnableAcm);
    }

    void installOnDsp(DspControlApiDouble& dsp)
    {
        using zyr_top_api::ETIResult;

        dsp.onGetRequiredRecovery.doInstead([this](zyr_top_api::Recover& needed, bool&) {
            needed = neededRecovery;
            return resultAt<ETIResult>(FailurePoint::RequiredRecovery);
        });
        dsp.onCheckDspReconfiguration.doInstead([this](bool& needs) {
            needs = needsReconfiguration;
            return resultAt<ETIResult>(FailurePoint::Reconfiguration);
        });
    }

    unsigned m_overrides = 0;
    unsigned m_frameWrites = 0;
    zyr_platform::Registration m_passCounter =
        zyr_platform::TraceService::get().addSink(std::make_shared<PassCounter>(*this));
};

} // namespace zyr_test
