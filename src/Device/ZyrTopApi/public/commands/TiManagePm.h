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

/// Test command: makes the DSP of a channel inject errored blocks, and tells the state of the injection.
class ZYR_EXPORT TiManagePm
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManagePm",
        .className = "TiManagePm",
        .responseLabel = "TiManagePm::Response",
        .traceChannel = "ZYR.TI.TiManagePm",
        .route = Route::Direct,
    };

    /// The three options count only together; with fewer of them the command only reads.
    struct Command
    {
        MutableRadioChannel RadioChannelID;                    ///< 1 up to the number of channels
        general_classes::Optional<bool> injectEb;              ///< switches the injection
        general_classes::Optional<std::int32_t> ebCycles;      ///< for how many cycles
        general_classes::Optional<std::uint32_t> ebPercentage; ///< share of errored blocks in percent
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` for a DSP without
    /// a status interface.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        MutableRadioChannel RadioChannelID;
        bool injectingEb = false;
        std::int32_t cyclesLeft = 0;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiManagePm() = default;
};

} // namespace zyr_top_api
