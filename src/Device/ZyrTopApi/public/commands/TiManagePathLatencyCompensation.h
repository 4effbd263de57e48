#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "ModemChain.h"
#include "Optional.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: sets the delays by which the DSP of a channel compensates the path latency, and gives all
/// that are in force. Sets done before a failure stay.
class ZYR_EXPORT TiManagePathLatencyCompensation
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManagePathLatencyCompensation",
        .className = "TiManagePathLatencyCompensation",
        .responseLabel = "TiManagePathLatencyCompensation::Response",
        .traceChannel = "ZYR.TI.TiManagePathLatencyCompensation",
        .route = Route::Gated,
    };

    struct ZYR_EXPORT Command
    {
        general_classes::Optional<std::uint32_t> radioChannelId; ///< 1 up to the number of channels; else 1
        /// Asymmetry compensation of the pulse per second, in nanoseconds; the DSP gets the low 16 bits.
        general_classes::Optional<std::int32_t> onePpsDelaySet;
        /// The chain of the next two, which count only together with it.
        general_classes::Optional<bcm::types::ModemChain> modemChain;
        /// Delay of the receiver chain (the adjustment FIFO), in samples; the DSP gets the low 8 bits.
        general_classes::Optional<std::int32_t> adjFifoSamplesSet;
        /// Delay of the equaliser's feed-forward filter, in samples; the DSP gets the low 8 bits.
        general_classes::Optional<std::int32_t> fffFifoSamplesSet;

        std::string toString() const;
        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the command or
    /// the channel isn't ready, or if the DSP refuses. A failure that the DSP brought about leaves all fields
    /// at their defaults, the channel among them. Delays of chains are in samples.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::uint32_t radioChannelId = 1;
        std::int16_t onePpsDelayNanosec = 0;
        std::uint8_t adjFifoMain = 0;
        std::uint8_t adjFifoXpicSlave = 0;
        std::uint8_t adjFifoMimoSpatial = 0;
        std::uint8_t adjFifoMimoXSpatialSlave = 0;
        std::uint8_t fffFifoMain = 0;
        std::uint8_t fffFifoXpicSlave = 0;
        std::uint8_t fffFifoMimoSpatial = 0;
        std::uint8_t fffFifoMimoXSpatialSlave = 0;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiManagePathLatencyCompensation() = default;
};

/// Dispatches "TI.ManagePathLatencyCompensation", unless the test gate is closed. From any thread; waits for
/// other commands.
ZYR_EXPORT TiManagePathLatencyCompensation::Response
tiManagePathLatencyCompensation(const TiManagePathLatencyCompensation::Command& command);

} // namespace zyr_top_api
