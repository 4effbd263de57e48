#pragma once

#include "Description.h"
#include "TiManageXpicImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiManageXpicImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManageXpic::Command;
    using Response = zyr_top_api::TiManageXpic::Response;

    static constexpr std::string_view help =
        "Tests XPIC of a radio channel; without fields it reads the status alone.";
    static constexpr Group group = Group::XpicMimo;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::radioChannelId>("radio channel, 1 if left out", {.isChannel = true}),
        field<&Command::xpicControlBarOn>("bars XPIC, so that it stays as a test sets it"),
        field<&Command::xpicEnable>("refused, whatever its value"),
        field<&Command::xpicEnableExt>("link type to force"),
        field<&Command::txMessage>("refused unless it is empty"),
        field<&Command::xpicLockStateMachine>("refused, whatever its value"),
        field<&Command::xpicTxEnable>("switches the transmit enable driver, where there is one"),
        field<&Command::xpicMute>("true mutes the slave, false unmutes it"),
        field<&Command::xpicAcquireStart>("true makes the slave acquire anew"),
        field<&Command::xpicAcquireMode>("how the slave acquires, in the controller's numbers",
                                         {.unit = kNoUnit, .neededFor = "xpicAcquireStart"}),
        field<&Command::xpicSpectralInversionMode>(
            "whether the spectrum is taken for inverted, in the controller's numbers",
            {.unit = kNoUnit, .neededFor = "xpicAcquireStart"}),
        field<&Command::xpicPreambleGet>("true reads the preamble"),
        field<&Command::xpicPreambleSet>("preamble to set"),
        field<&Command::xpicStatusGet>("true reads the last four fields of the answer"),
    };
    static constexpr std::array response{
        field<&Response::radioChannelId>("radio channel that was served", {.isChannel = true}),
        field<&Response::xpicControlBarOn>("whether XPIC is barred"),
        field<&Response::xpicEnable>("never filled"),
        field<&Response::averageI>("never filled", {.unit = kNoUnit}),
        field<&Response::averageQ>("never filled", {.unit = kNoUnit}),
        field<&Response::txMessage>("never filled"),
        field<&Response::rxMessage>("never filled"),
        field<&Response::xpicLockStateMachine>("never filled"),
        field<&Response::xpicState>("never filled"),
        field<&Response::slaveInternalAgc>("internal gain control of the slave, 0 without support",
                                           {.unit = kNoUnit}),
        field<&Response::slaveExternalAgc>("external gain control of the slave, 0 without support",
                                           {.unit = kNoUnit}),
        field<&Response::xpicCableConnected>("whether the cable between the two ends of XPIC is connected"),
        field<&Response::xpicTxEnable>("whether the transmit enable driver is on"),
        field<&Response::xpicEnableExt>("link type in force, Disable without support"),
        field<&Response::slaveDiffGain>("differential gain of the slave, 0 without support",
                                        {.unit = kNoUnit}),
        field<&Response::xpicPreambleGet>("preamble, 4 while it has not been read"),
        field<&Response::xpdDbTenths>("cross-polar discrimination", {.unit = "0.1 dB"}),
        field<&Response::slaveCarrierOffsetHz>("carrier offset of the slave", {.unit = "Hz"}),
        field<&Response::slaveSweepInProgress>("whether the slave sweeps, in the controller's numbers",
                                               {.unit = kNoUnit}),
        field<&Response::calibStatus>("state of the calibration, in the controller's numbers",
                                      {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "TiManageXpicImpl has not been initialized",
                  "The node lacks what the command needs."},
        FaultNote{eTI_E_FAILED, "ICcdpController::setBar failed for radiochannel <id> with status <n>",
                  "The controller took no bar."},
        FaultNote{eTI_E_FAILED, "XpicEnable is not supported anymore",
                  "The field is there only to be refused."},
        FaultNote{eTI_E_FAILED,
                  "ICcdpController::getLinkType failed for radiochannel id <id> with status <n>",
                  "The link type that was to be replaced could not be read; 4098 is a controller without "
                  "link types."},
        FaultNote{eTI_E_FAILED, "ICcdpController::forceXpic failed for radiochannel <id> with status<n>",
                  "The controller took no link type."},
        FaultNote{eTI_E_FAILED, "ICcdpController::getLinkType failed for radioChannel <id> with status <n>",
                  "The link type could not be read back."},
        FaultNote{eTI_E_FAILED, "TxMessage is not supported anymore",
                  "The field is there only to be refused."},
        FaultNote{eTI_E_FAILED, "XpicLockStateMachine is not supported anymore",
                  "The field is there only to be refused."},
        FaultNote{eTI_E_FAILED, "XpicTxEnable is not supported in this product",
                  "The product has no transmit enable driver."},
        FaultNote{eTI_E_FAILED, "XpicTxEnableDriver::Write failed for radiochannel <id> with status <n>",
                  "The transmit enable driver could not be switched."},
        FaultNote{eTI_E_FAILED, "XpicTxEnableDriver::Read failed for radiochannel <id> with status <n>",
                  "The transmit enable driver could not be read."},
        FaultNote{eTI_E_FAILED, "DspStatusApi::getSlaveAgc failed for radiochannel <id> with status <n>",
                  "The slave's gain control could not be read."},
        FaultNote{eTI_E_FAILED,
                  "DspStatusApi::getIqSlaveImbalance failed for radiochannel <id> with status <n>",
                  "The slave's differential gain could not be read."},
        FaultNote{eTI_E_FAILED, "XpicCableConnected::Read failed for radiochannel <id> with status <n>",
                  "The cable driver could not be read."},
        FaultNote{eTI_E_FAILED, "xpicMute, on radioChannel <id>, failed",
                  "The slave could not be muted or unmuted."},
        FaultNote{eTI_E_FAILED, "setPreamble(<name>), on radioChannel <id>, failed",
                  "The controller took no preamble."},
        FaultNote{eTI_E_FAILED, "getPreamble, on radioChannel <id>, failed",
                  "The preamble could not be read."},
        FaultNote{eTI_E_FAILED, "xpicAcquireStart: XpicAcquireMode and/or XpicSpectralInversionMode not set",
                  "The acquisition needs both modes; with only one of them the call ends in an error of the "
                  "server."},
        FaultNote{eTI_E_FAILED, "xpicAcquireStart, on radioChannel <id>, failed",
                  "The acquisition could not be started."},
        FaultNote{eTI_E_FAILED, "getXpicStatusStruct, on radioChannel <id>, failed",
                  "The slave's status could not be read."},
    };
};

} // namespace zyr_registration
