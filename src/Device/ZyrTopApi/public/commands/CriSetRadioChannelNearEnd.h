#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "ModulationAndCoding.h"
#include "Optional.h"
#include "PpsOutputMode.h"
#include "RadioChannel.h"
#include "ReferenceSec.h"

#include <cstdint>
#include <string>

#include <netinet/ether.h>

namespace zyr_top_api
{

/// Brings one radio channel of this node to a complete new configuration. Traffic is muted meanwhile. What
/// fails may be healed by a restart of the DSP and a further pass, three passes at most; nothing is rolled
/// back.
class ZYR_EXPORT CriSetRadioChannelNearEnd
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetRadioChannelNearEnd",
        .className = "CriSetRadioChannelNearEnd",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetRadioChannelNearEnd",
    };

    /// Settings of a radio unit with two transmitters.
    struct RauMultiTrxConfig
    {
        general_classes::Optional<std::uint32_t> ifSwitchMode; ///< IF switch mode; absent: nothing to set
    };

    struct ZYR_EXPORT Command
    {
        RadioChannel RadioChannelID; ///< 1 up to the number of channels
        std::uint32_t radioFrameId =
            0; ///< frame to select; 0 with a zero `txFrequency_kHz`: channel in reset
        ModulationAndCoding minModulation = {}; ///< lowest modulation and coding allowed
        ModulationAndCoding maxModulation = {}; ///< highest modulation and coding allowed
        ReferenceSec referenceSec = {};         ///< reference spectrum efficiency class
        std::uint32_t txFrequency_kHz = 0;
        std::uint32_t rxFrequency_kHz = 0; ///< ignored for a radio of duplex type 1
        bool xpicParameterPresent = false; ///< whether `xpicEnable` holds a value
        std::string xpicEnable;            ///< "Disable", "Enable_A" to "Enable_D"
        bool mimoParameterPresent = false; ///< whether `mimoEnable` holds a value
        std::string mimoEnable;            ///< as `xpicEnable`; only one of the two may be enabled
        bool splitMode = false;            ///< logged only
        ether_addr iduMacAddress = {};     ///< logged only
        ether_addr oduMacAddress = {};     ///< logged only
        bool ffConfigTypePresent = false;  ///< whether `FFConfigType` holds a value
        std::string FFConfigType;          ///< frame format configuration type by its long name ("Standard")
        bool ppsSlave = false;             ///< role for the timing pulses: true slave, false master
        PpsOutputMode ppsOutputMode = {};
        RauMultiTrxConfig rauMultiTrxConfig;

        std::string toString() const;
        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` with the text of
    /// the step that failed.
    using Response = StandardResponse;

    virtual ~CriSetRadioChannelNearEnd() = default;
};

/// Dispatches "CRI.SetRadioChannelNearEnd". From any thread; waits for other commands, and holds them up for
/// up to three waits for the transmitter and its DSP recoveries.
ZYR_EXPORT StandardResponse criSetRadioChannelNearEnd(const CriSetRadioChannelNearEnd::Command& command);

} // namespace zyr_top_api
