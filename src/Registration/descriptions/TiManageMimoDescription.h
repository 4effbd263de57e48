#pragma once

#include "Description.h"
#include "TiManageMimoImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiManageMimoImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManageMimo::Command;
    using Response = zyr_top_api::TiManageMimo::Response;

    static constexpr std::string_view help =
        "Tests MIMO of a radio channel; without fields it reads the status alone.";
    static constexpr Group group = Group::XpicMimo;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::radioChannelId>("radio channel, 1 if left out", {.isChannel = true}),
        field<&Command::configurationSet>("applies the configuration, whatever its value"),
        field<&Command::diversityMuteSet>("true mutes the diversity path, false unmutes it"),
        field<&Command::crossConnectDelayCalibrationStart>(
            "starts the calibration of the cross-connect delay, whatever its value"),
        field<&Command::crossConnectDelayCalibrationStatusGet>(
            "reads the status of that calibration and nothing else, whatever its value"),
        field<&Command::rxChainDelaySet>("delay of a receiver chain; its low 8 bits are used",
                                         {.unit = kNoUnit}),
        field<&Command::rxChainDelayModemChain>("the chain that the delay is for, Max if left out"),
    };
    static constexpr std::array response{
        field<&Response::radioChannelId>("radio channel that was served", {.isChannel = true}),
        field<&Response::gainDifferenceDbTenths>("gain difference", {.unit = "0.1 dB"}),
        field<&Response::etaTenThousands>("MIMO quality", {.unit = "0.0001"}),
        field<&Response::slaveSweepInProgress>("whether the slave sweeps"),
        field<&Response::spatialSlaveSweepStatus>("whether the spatial slave sweeps"),
        field<&Response::xpdDbTenths>("cross-polar discrimination", {.unit = "0.1 dB"}),
        field<&Response::spatialXpdDbTenths>("cross-polar discrimination of the spatial path",
                                             {.unit = "0.1 dB"}),
        field<&Response::spatialCarrierOffsetHz>("carrier offset of the spatial path", {.unit = "Hz"}),
        field<&Response::slaveCarrierOffsetHz>("carrier offset of the slave", {.unit = "Hz"}),
        field<&Response::spatialSlaveCarrierOffsetHz>("carrier offset of the spatial slave", {.unit = "Hz"}),
        field<&Response::diversityMute>("whether the diversity path is muted"),
        field<&Response::calibrationStatus>(
            "how the calibration of the cross-connect delay stands; 6 while it has not been read"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds: <id>",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "TiManageMimoImpl has not been initialized",
                  "The node lacks what the command needs."},
        FaultNote{eTI_E_FAILED, "channel <id>: setRxChainDelay(<chain>, <delay>) failed: <n>",
                  "The DSP took no delay; the delay is one raw byte here."},
        FaultNote{eTI_E_FAILED, "channel <id>: diversityMuteSet(<true or false>) failed: <n>",
                  "The DSP could not mute or unmute the path."},
        FaultNote{eTI_E_FAILED, "channel <id>: mimoConfigurationSet() failed: <n>",
                  "The DSP could not apply the configuration."},
        FaultNote{eTI_E_FAILED, "channel <id>: crossConnectDelayCalibrationStart() failed: <n>",
                  "The DSP could not start the calibration."},
        FaultNote{eTI_E_FAILED, "channel <id>: crossConnectDelayCalibrationStatusGet() failed: <n>",
                  "The DSP could not tell how the calibration stands."},
        FaultNote{eTI_E_FAILED, "channel <id>: mimoStatusGet() failed: <n>",
                  "The DSP has no MIMO status to give; 4100 is a DSP without MIMO."},
    };
};

} // namespace zyr_registration
