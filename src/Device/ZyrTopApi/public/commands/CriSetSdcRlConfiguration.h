#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "RadioChannel.h"

#include <string>

namespace zyr_top_api
{

/// Tells the space diversity combiner (SDC) of one radio channel how its radio link is configured.
class ZYR_EXPORT CriSetSdcRlConfiguration
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetSdcRlConfiguration",
        .className = "CriSetSdcRlConfiguration",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetSdcRlConfiguration",
    };

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel channelId; ///< 1 up to the number of channels
        std::string selectedMaxAcm; ///< greatest constellation as a number, alone ("256") or between dashes
                                    ///< ("a-256-b")
        std::string channelSpacing; ///< decimal, in kHz
        bool xpicEnabled = false;   ///< whether XPIC is on

        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels;
    /// `eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE` for a channel without controller; `eTI_E_FAILED` if the
    /// controller answers 0x8000.
    using Response = StandardResponse;

    virtual ~CriSetSdcRlConfiguration() = default;
};

/// Dispatches "CRI.SetSdcRlConfiguration". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetSdcRlConfiguration(const CriSetSdcRlConfiguration::Command& command);

} // namespace zyr_top_api
