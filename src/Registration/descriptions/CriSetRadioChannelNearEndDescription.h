#pragma once

#include "CriSetRadioChannelNearEndImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct RecordFields<zyr_top_api::CriSetRadioChannelNearEnd::RauMultiTrxConfig>
{
    using Record = zyr_top_api::CriSetRadioChannelNearEnd::RauMultiTrxConfig;
    static constexpr std::array fields{
        field<&Record::ifSwitchMode>("IF switch mode; left out: nothing is set", {.unit = kNoUnit}),
    };
};

template <>
struct Description<zyr_top_api::CriSetRadioChannelNearEndImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetRadioChannelNearEnd::Command;

    static constexpr std::string_view help =
        "Brings a radio channel of this node to a complete new configuration.";
    static constexpr Group group = Group::Configuration;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    /// Three runs, each with a wait of 15 s for the transmitter, and the recoveries of the DSP between them.
    static constexpr std::chrono::milliseconds longest{60000};
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::radioFrameId>(
            "radio frame to select; 0 marks a channel that is held in reset, if txFrequency_kHz is 0 too, "
            "both present flags are set and both link types are 'Disable'",
            {.unit = kNoUnit, .example = "101"}),
        field<&Command::minModulation>("lowest modulation and coding allowed", {.example = "\"4QAM\""}),
        field<&Command::maxModulation>("highest modulation and coding allowed", {.example = "\"256QAM\""}),
        field<&Command::referenceSec>("reference spectrum efficiency class"),
        field<&Command::txFrequency_kHz>("transmit frequency", {.unit = "kHz", .example = "14500000"}),
        field<&Command::rxFrequency_kHz>(
            "receive frequency; ignored for a radio with a fixed duplex distance",
            {.unit = "kHz", .example = "14920000"}),
        field<&Command::xpicParameterPresent>("whether xpicEnable holds a value", {.hasDefault = true}),
        field<&Command::xpicEnable>(
            "XPIC link type",
            {.texts = oneOf<"Disable", "Enable_A", "Enable_B", "Enable_C", "Enable_D">, .hasDefault = true}),
        field<&Command::mimoParameterPresent>("whether mimoEnable holds a value", {.hasDefault = true}),
        field<&Command::mimoEnable>(
            "MIMO link type; not together with xpicEnable",
            {.texts = oneOf<"Disable", "Enable_A", "Enable_B", "Enable_C", "Enable_D">, .hasDefault = true}),
        field<&Command::splitMode>("logged only", {.hasDefault = true}),
        field<&Command::iduMacAddress>("address of the indoor unit, logged only", {.hasDefault = true}),
        field<&Command::oduMacAddress>("address of the outdoor unit, logged only", {.hasDefault = true}),
        field<&Command::ffConfigTypePresent>("whether FFConfigType holds a value", {.hasDefault = true}),
        field<&Command::FFConfigType>(
            "frame format configuration type; the long haul ones follow from the hardware",
            {.texts = oneOf<"Standard", "Xpic", "Mimo", "XpicTwoBoards", "Mimo2", "SisoCarrierAggregation",
                            "XpicCarrierAggregation", "Mrc", "MrcTwoBoards", "MrcXpicTwoBoards">,
             .hasDefault = true}),
        field<&Command::ppsSlave>("role for the timing pulses: true slave, false master",
                                  {.hasDefault = true}),
        field<&Command::ppsOutputMode>("whether timing pulses are put out", {.hasDefault = true}),
        field<&Command::rauMultiTrxConfig>("settings of a radio unit with two transmitters",
                                           {.hasDefault = true}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "ChannelId out of bounds: <id>", "RadioChannelID is none of 1 and 2."},
        FaultNote{eTI_E_FAILED, "Enabling XPIC and MIMO at the same time is not allowed!",
                  "Both xpicEnable and mimoEnable ask for a link."},
        FaultNote{eTI_E_FAILED, "syntax error, duplex type not valid",
                  "The radio unit tells a duplex type that does not exist."},
        FaultNote{eTI_E_FAILED, "SystemPowerController overrideTxPowerState off failed(ESPCResult = <n>)",
                  "Power control refused to force the transmitter off."},
        FaultNote{eTI_E_FAILED, "TX OFF didn't happen during timeout:<ms> ms",
                  "The transmitter did not go off in time."},
        FaultNote{eTI_E_FAILED, "CRI.SetRadioChannelNearEnd invalid FF config type: <text>",
                  "FFConfigType is none of the types that a command may ask for."},
        FaultNote{eTI_E_FAILED,
                  "CRI.SetRadioChannelNearEnd failed to check which kind of DSP Recovery is needed",
                  "The DSP did not tell which recovery the frame format needs."},
        FaultNote{eTI_E_FAILED,
                  "CRI.SetRadioChannelNearEnd could not check if LongHaul, CapHandler NULL interface",
                  "Nothing tells whether the hardware is of the long haul kind."},
        FaultNote{eTI_E_FAILED,
                  "CRI.SetRadioChannelNearEnd failed to check if the DSP needs to be reconfigured",
                  "The DSP did not tell whether the frame format changes its configuration."},
        FaultNote{eTI_E_FAILED, "CRI.SetRadioChannelNearEnd failed to reconfigure the DSP",
                  "The recovery of the DSP could not be started."},
        FaultNote{eTI_E_FAILED, "IAcmHandler->muteAcm() failed (EACMHResult = <n>)",
                  "ACM could not be held during the change."},
        FaultNote{eTI_E_FAILED, "HardwareConfigurationHandler isXpicCapable failed(hchResultXpic = <n>)",
                  "The hardware did not tell whether the frame can carry XPIC."},
        FaultNote{eTI_E_FAILED, "CCDP start failed(ECCDPCREsult = <n>) for link type <name>",
                  "XPIC could not be started."},
        FaultNote{eTI_E_FAILED, "CCDP stop failed(ECCDPCREsult = <n>)", "XPIC could not be stopped."},
        FaultNote{eTI_E_FAILED, "IAcmHandler->SetMinMaxModulationAndCode failed (EACMHResult = <n>)",
                  "ACM refused the range of modulations."},
        FaultNote{eTI_E_FAILED, "IHardwareConfigurationHandler->setRadioFrameId failed (EHCHResult = <n>)",
                  "The hardware refused the radio frame."},
        FaultNote{eTI_E_FAILED,
                  "IHardwareConfigurationHandler->setRadioFrameId failed on CH2 (MRC2)(EHCHResult = <n>)",
                  "The hardware refused the radio frame for the second board."},
        FaultNote{eTI_E_FAILED,
                  "IAcmHandler->GetPhyMode failed for minModulationAndCode = <name> (EACMHResult = <n>)",
                  "ACM does not know minModulation."},
        FaultNote{eTI_E_FAILED, "IRssiHandler->calculateRssiThreshold failed(ERSSIResult = <n>)",
                  "The threshold of the received level could not be worked out."},
        FaultNote{eTI_E_FAILED, "IRssiHandler->SetRssiThreshold failed (ERSSIResult = <n>)",
                  "The threshold of the received level was refused."},
        FaultNote{eTI_E_FAILED,
                  "ISystemPowerController->setTemporaryPmaxCapability failed (ESPCResult = <n>)",
                  "Power control could not work out the greatest power."},
        FaultNote{eTI_E_FAILED, "IFrequencyController->setTxFrequency failed (EFCResult = <n>)",
                  "The transmit frequency was refused."},
        FaultNote{eTI_E_FAILED, "ITxIQImbalanceHandler->OnTxFrequencyChanged failed (EFHResult = <n>)",
                  "The IQ compensation could not follow the transmit frequency."},
        FaultNote{
            eTI_E_FAILED, "ITxIQImbalanceHandler->OnTxFrequencyChanged failed (ESPCResult = <n>)",
            "Power control could not follow the transmit frequency."}, // sic: not the power controller's name
        FaultNote{eTI_E_FAILED, "IFrequencyController->setRxFrequency failed (EFCResult = <n>)",
                  "The receive frequency was refused."},
        FaultNote{eTI_E_FAILED, "rauhandler->setTxIfSwitch2T2R failed (ERAUHResult = <name>)",
                  "The radio unit refused ifSwitchMode."},
        FaultNote{eTI_E_FAILED, "ISystemPowerController->overrideTxPowerState failed(ESPCResult = <n>)",
                  "Power control refused to give the transmitter back."},
        FaultNote{eTI_E_FAILED, "IAcmHandler->enableAcm(true) failed (EACMHResult = <n>)",
                  "ACM could not be switched on again."},
        FaultNote{eTI_E_FAILED, "At least one of the phases failed (<n>)",
                  "A module refused the closing phases of the configuration."},
    };
};

} // namespace zyr_registration
