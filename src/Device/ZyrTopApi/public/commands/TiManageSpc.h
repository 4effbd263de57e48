#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "Optional.h"
#include "RadioChannel.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test command: drives the simulator of power control of a channel. It starts a simulated sweep of the input
/// power, stops it, and reads or sets three groups of gains.
class ZYR_EXPORT TiManageSpc
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManageSpc",
        .className = "TiManageSpc",
        .responseLabel = "TiManageSpc::Response",
        .traceChannel = "ZYR.TI.TiManageSpc",
        .route = Route::Direct,
    };

    enum class Action : std::uint32_t
    {
        StartSweepUp = 0,   ///< needs `Min`, `Max` and `Rate`
        StartSweepDown = 1, ///< needs the same
        StopSweep = 2,
        AtpcGain = 3,
        OpcGainOpenLoop = 4,
        OpcGainClosedLoop = 5,
    };

    struct Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels, not checked by the command
        TiManageSpc::Action Action = {};    ///< others than the named ones do nothing
        general_classes::Optional<std::int32_t> AtpcAif3Gain;     ///< in units, stored times 100
        general_classes::Optional<std::int32_t> OpcTxRampingGain; ///< in units, stored times 100
        general_classes::Optional<std::int32_t> OpcTxOnGain;      ///< in units, stored times 100
        general_classes::Optional<std::int32_t> Min;              ///< the sweep's low end
        general_classes::Optional<std::int32_t> Max;              ///< the sweep's high end
        general_classes::Optional<std::int32_t> Rate;             ///< the sweep's rate
    };

    /// `eTI_E_FAILED` for an object that was not initialised, for a sweep without one of its three options
    /// and for a sweep whose `Max` is below its `Min`. Which values are set depends on the action.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        TiManageSpc::Action Action = {}; ///< the command's
        std::string text;                ///< left empty
        double AtpcAif3Gain = 0.0;       ///< as stored, not in units
        double OpcTxOnGainClosedLoop = 0.0;
        double OpcTxRampingGainClosedLoop = 0.0;
        double OpcTxOnGainOpenLoop = 0.0;
        double OpcTxRampingGainOpenLoop = 0.0;

        std::string printResponse() const override;
        void print(TextWriter& writer) const;
    };

    virtual ~TiManageSpc() = default;
};

} // namespace zyr_top_api
