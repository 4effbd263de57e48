#pragma once

#include "BaseResponse.h"
#include "CallSite.h"
#include "Failure.h"
#include "Log.h"
#include "PerChannel.h"
#include "ResultLaw.h"
#include "TextWriter.h"
#include "TylTrace.h"

#include <concepts>
#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// How a command that sets something at a combiner fails, apart from a channel that is out of bounds.
struct CombinerSetterTexts
{
    std::string_view controllerMissing; ///< answered; nothing is logged
    std::string_view failedLogged;      ///< logged when the controller fails
    std::string_view failed;            ///< answered when the controller fails
};

/// What all commands that set something at a combiner do behind their entry: they tell their input, check
/// the channel and the controller, do their own step and judge its result.
/// @param ownStep  calls the controller and gives its result, of which 0x8000 alone is a failure
template <class Command, class Controller, std::invocable<Controller&> OwnStep>
StandardResponse setCombiner(const TylTrace& trace, const CombinerSetterTexts& texts, const Command& command,
                             std::uint32_t numberOfChannels, const PerChannel<Controller>& controllers,
                             const OwnStep& ownStep, CallSite at = CallSite())
{
    const auto input = [&](TextWriter& text) { command.print(text); };
    log(trace, 3, input, at);
    if (numberOfChannels < command.channelId) {
        const auto outOfBounds = [&](TextWriter& text) {
            text << "command.channelId: " << command.channelId << " m_numberOfChannels " << numberOfChannels;
        };
        log(trace, 1, outOfBounds, at);
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    Controller* const controller = controllers.find(command.channelId);
    if (controller == nullptr) {
        return refusal(eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, texts.controllerMissing);
    }
    if (failedExactly(ownStep(*controller))) {
        return failedResponse(trace, texts.failedLogged, texts.failed, eTI_E_FAILED, at);
    }
    return {};
}

} // namespace zyr_top_api
