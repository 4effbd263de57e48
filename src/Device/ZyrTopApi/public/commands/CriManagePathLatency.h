#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "Optional.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Hands the latencies of a channel's secondary receive paths to the latency calculator, which works out the
/// DSP's delay compensation, and gives the latency that results. Without latencies it only reads. If the
/// calculator needs it, the DSP is recovered, once, which interrupts the traffic of the whole node. Latencies
/// are in the calculator's unit.
class ZYR_EXPORT CriManagePathLatency
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.ManagePathLatency",
        .className = "CriManagePathLatency",
        .responseLabel = "CriManagePathLatency::Response",
        .traceChannel = "TI.CriManagePathLatency", // sic: no "ZYR."
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< 1 up to the number of channels
        general_classes::Optional<std::int32_t> rxPathLatencyXpicSlave;
        general_classes::Optional<std::int32_t> rxPathLatencyMimoSpatial;
        general_classes::Optional<std::int32_t> rxPathLatencyMimoSpatialSlave;

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` if the calculator
    /// or the recovery fails, both fields at their defaults.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        bool isValidValues = false;      ///< whether the latency counts
        std::uint32_t rxPathLatency = 0; ///< of the receive path, as the calculator reports it

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriManagePathLatency() = default;
};

/// Dispatches "CRI.ManagePathLatency". From any thread; waits for other commands.
ZYR_EXPORT CriManagePathLatency::Response criManagePathLatency(const CriManagePathLatency::Command& command);

} // namespace zyr_top_api
