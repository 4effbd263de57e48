#pragma once

#include "BaseResponse.h"
#include "CmdDescription.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <string>
#include <vector>

namespace zyr_top_api
{

/// Test command: reports which commands exist.
class ZYR_EXPORT TiGetAllCommandsData
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.GetAllCommandsData",
        .className = "TiGetAllCommandsData",
        .responseLabel = "TiGetAllCommandsData::Response",
        .traceChannel = "ZYR.TI.TiGetAllCommandsData",
        .route = Route::Direct,
    };

    struct Command
    {};

    /// Never fails. Prints as an empty text: the catalogue is read from the record.
    class ZYR_EXPORT Response : public StandardResponse
    {
      public:
        std::vector<CmdDescription> commands;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiGetAllCommandsData() = default;
};

} // namespace zyr_top_api
