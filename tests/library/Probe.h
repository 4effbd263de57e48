#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "TextWriter.h"

#include <functional>
#include <string>

namespace zyr_test
{

/// A command that does what a test tells it, for tests of the frame.
template <zyr_top_api::Route Route>
class Probe
{
  public:
    static constexpr zyr_top_api::CommandIdentity identity{
        .wireName = Route == zyr_top_api::Route::Gated ? "TI.Probe" : "CRI.Probe",
        .className = Route == zyr_top_api::Route::Gated ? "TiProbe" : "CriProbe",
        .responseLabel = Route == zyr_top_api::Route::Gated ? "TiProbe::Response" : "CriProbe::Response",
        .traceChannel = "ZYR.TEST.Probe",
        .route = Route,
    };

    struct Command
    {
        int number = 0;

        void print(zyr_top_api::TextWriter& text) const { text << "Number: " << number << "\n"; }
    };

    class Response : public zyr_top_api::BaseResponse
    {
      public:
        int number = -1;

        std::string printResponse() const override { return zyr_top_api::printed(*this); }
        void print(zyr_top_api::TextWriter& text) const { text << "number=" << number; }
    };

    virtual ~Probe() = default;

    virtual Response execute(const Command& command)
    {
        ++executions;
        return behaviour ? behaviour(command) : answer(command);
    }

    /// The default behaviour: a success with ten times the command's number.
    static Response answer(const Command& command)
    {
        Response response;
        response.number = 10 * command.number;
        return response;
    }

    int executions = 0;
    std::function<Response(const Command&)> behaviour;
};

using OpenProbe = Probe<zyr_top_api::Route::Dispatched>;
using GatedProbe = Probe<zyr_top_api::Route::Gated>;

} // namespace zyr_test
