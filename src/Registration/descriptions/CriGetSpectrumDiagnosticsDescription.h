#pragma once

#include "CriGetSpectrumDiagnosticsImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct RecordFields<zyr_top_api::SpectrumDiagnosticsResult>
{
    using Record = zyr_top_api::SpectrumDiagnosticsResult;
    static constexpr std::array fields{
        field<&Record::Frequency>("frequency", {.unit = "kHz"}),
        field<&Record::Rssi>("level found there", {.unit = "0.1 dBm"}),
    };
};

template <>
struct RecordFields<zyr_top_api::SpectrumDiagnosticsProperties>
{
    using Record = zyr_top_api::SpectrumDiagnosticsProperties;
    static constexpr std::array fields{
        field<&Record::isLongHaul>("whether the radio is a long haul one"),
        field<&Record::hasAdjustableDiplexer>("whether its diplexer can be adjusted"),
        field<&Record::isRadioCarrierAggrCapable>("whether it can aggregate carriers"),
        field<&Record::isSdcSupported>("whether it can combine space diversity"),
    };
};

template <>
struct Description<zyr_top_api::CriGetSpectrumDiagnosticsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetSpectrumDiagnostics::Command;
    using Response = zyr_top_api::CriGetSpectrumDiagnostics::Response;

    static constexpr std::string_view help =
        "Starts, stops or reads a spectrum scan of a radio channel; a running scan takes the link.";
    static constexpr Group group = Group::Status;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr ExampleNeeds needs{.before = "CRI.SetRadioChannelNearEnd"};
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel", {.isChannel = true}),
        field<&Command::RequestOption>(
            "what to do", {.texts = oneOf<"channel-scan-start", "sub-band-scan-start", "scan-stop",
                                          "get-status", "get-result", "get-scan-properties">}),
        field<&Command::DmSleep>("pause at each point of a scan",
                                 {.unit = "ms", .example = "1", .neededFor = "the two starts and the stop"}),
    };
    static constexpr std::array response{
        field<&Response::Status>(
            "how the scan stands",
            {.texts = oneOf<"scan-not-started", "sub-band-ongoing", "channel-scan-ongoing",
                            "sub-band-scan-finished", "channel-scan-finished", "unknown">}),
        field<&Response::Progress>("how far the scan has come", {.unit = "%"}),
        field<&Response::Result>("the points that have been measured, at most 500; of get-result alone"),
        field<&Response::SpectrumDiagnosticsProperties>("what the scan hardware offers"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_INVALID_ARGUMENT, "Missing argument for command <option>",
                  "A scan is started without DmSleep."},
        FaultNote{eTI_E_INVALID_ARGUMENT, "Command failed <option>",
                  "There is no such option, or the scan hardware refused it; the points that a failed read "
                  "has given are in the response."},
    };
};

} // namespace zyr_registration
