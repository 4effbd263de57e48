#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// Test command: injects one error into the DSP of a channel, and can hold its caller for a while behind it,
/// outside any lock of the library.
class ZYR_EXPORT TiManageDsp
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManageDsp",
        .className = "TiManageDsp",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.TiManageDsp",
        .route = Route::Direct,
    };

    enum class InjectError : std::uint32_t
    {
        ComFailure = 0,             ///< the DSP can't be reached
        ComNotInitialized = 1,      ///< the way to the DSP is not initialised
        AcmEngineEnableFailure = 2, ///< ACM can't be enabled
        I2CErrorDuringDspConfiguration = 3,
        UpdateThresholdFailure = 4,
    };

    struct Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        InjectError injectError = {};
        std::uint32_t injectCounter = 0; ///< how many times the error is to strike
        std::uint32_t WaitInSeconds = 0; ///< wait behind the injection, at most 100
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels; `eTI_E_FAILED` for a DSP that
    /// lacks an interface, for a longer wait and for another error.
    using Response = StandardResponse;

    virtual ~TiManageDsp() = default;
};

/// The text of an error, "Undefined" for a value without one.
ZYR_EXPORT std::string_view injectErrorToString(TiManageDsp::InjectError value);

} // namespace zyr_top_api
