#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "ModulationAndCoding.h"
#include "RadioChannel.h"
#include "ReferenceSec.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zyr_top_api
{

/// Tells what a radio channel can do. Temperatures, powers and frequencies are in the units of the
/// collaborators.
class ZYR_EXPORT CriGetRadioChannelCapability
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.GetRadioChannelCapability",
        .className = "CriGetRadioChannelCapability",
        .responseLabel = "CriGetRadioChannelCapability::Response",
        .traceChannel = "ZYR.TI.CriGetRadioChannelCapability",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID;        ///< 1 up to the number of channels
        std::int32_t radioFrameId = 0;             ///< frame for which the power is asked
        ModulationAndCoding minModulation = {};    ///< lowest modulation of the power table
        ModulationAndCoding maxModulation = {};    ///< highest modulation of the power table
        ReferenceSec referenceSec = {};            ///< reference spectrum efficiency class
        std::int32_t availableMaxPowerCutback = 0; ///< counts only if `isMaxPowerCutbackValid`
        bool isMaxPowerCutbackValid = false;       ///< whether the cutback applies to this read

        std::string toString() const;
        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the radio has
    /// no capabilities to tell or the power calculator fails, with what was read before.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::uint32_t NumberOfChannels = 0;
        std::int32_t MinTemp = 0;
        std::int32_t MaxTemp = 0;
        std::int32_t AvailableMinRFOutputPower = 0;
        std::vector<std::pair<ModulationAndCoding, std::int32_t>> AvailableMaxRFOutputPower;
        std::uint32_t MinTXFrequency = 0;
        std::uint32_t MaxTXFrequency = 0;
        std::uint32_t MinRXFrequency = 0;
        std::uint32_t MaxRXFrequency = 0;
        std::uint32_t FrequencyStepSize = 0;
        std::uint32_t MinTXFrequencyStep = 0;
        std::uint32_t MaxTXFrequencyStep = 0;
        std::uint32_t MinRXFrequencyStep = 0;
        std::uint32_t MaxRXFrequencyStep = 0;
        std::uint32_t TXBaseFrequency = 0;
        std::uint32_t RXBaseFrequency = 0;
        std::uint32_t FrequencyBand = 0;
        std::uint32_t FrequencySubBand = 0;
        std::string DuplexType; ///< "Variable", "Fixed" or "UNDEFINED"
        std::vector<ReferenceSec> AvailableRSECs;
        bool TapsCapable = false;
        bool RfLoopAvailable = false;
        bool CarrierAggregationCapable = false;
        bool SpaceDiversityCombinerCapable = false;
        bool LongHaulBoosterCapable = false;
        bool PathLatencyCapable = false;
        bool Is2T2R = false;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriGetRadioChannelCapability() = default;
};

/// Dispatches "CRI.GetRadioChannelCapability". From any thread; waits for other commands.
ZYR_EXPORT CriGetRadioChannelCapability::Response
criGetRadioChannelCapability(const CriGetRadioChannelCapability::Command& command);

} // namespace zyr_top_api
