#pragma once

#include "AcmThreshold.h"
#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <string>
#include <vector>

namespace zyr_top_api
{

/// Test command: the thresholds at which one radio channel switches its modulation.
class ZYR_EXPORT TiGetAcmThresholds
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.GetAcmThresholds",
        .className = "TiGetAcmThresholds",
        .responseLabel = "TiGetAcmThresholds::Response",
        .traceChannel = "ZYR.TI.GetAcmThresholds", // sic: shorter than the class
        .route = Route::Direct,
    };

    struct Command
    {
        RadioChannel channelId; ///< 1 up to the number of channels
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels. Prints its result alone, always.
    class ZYR_EXPORT Response : public StandardResponse
    {
      public:
        std::vector<AcmThreshold> thresholds; ///< as the DSP gives them

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiGetAcmThresholds() = default;
};

} // namespace zyr_top_api
