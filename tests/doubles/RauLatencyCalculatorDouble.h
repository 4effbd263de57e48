#pragma once

#include "Answer.h"
#include "IRauLatencyCalculator.h"
#include "Recorder.h"

#include <string>
#include <vector>

namespace zyr_test
{

/// Recording double of `IRauLatencyCalculator`. A request stands in the transcript as its six groups, each as
/// "<value>/<hasValue>/<secondFlag>", and whole in `requests`.
class RauLatencyCalculatorDouble : public IRauLatencyCalculator, public Recorder
{
  public:
    RauLatencyCalculatorDouble(Transcript& transcript, std::string name);
    ~RauLatencyCalculatorDouble() override;
    RauLatencyCalculatorDouble(const RauLatencyCalculatorDouble&) = delete;
    RauLatencyCalculatorDouble& operator=(const RauLatencyCalculatorDouble&) = delete;

    zyr_top_api::ETIResult getCurrentLatency(bool& first, bool& isValid, std::uint32_t& third,
                                             std::uint32_t& latency) override
    {
        record("getCurrentLatency");
        return onGetCurrentLatency.next(first, isValid, third, latency);
    }

    zyr_top_api::ETIResult
    calculateAndSetDspDelayCompensation(zyr_top_api::RauLatencyRequest request) override
    {
        requests.push_back(request);
        const auto group = [](const zyr_top_api::RauLatencyGroup& latency) {
            return std::to_string(latency.value) + "/" + std::to_string(latency.hasValue) + "/" +
                   std::to_string(latency.secondFlag);
        };
        transcript().add(name() + ".calculateAndSetDspDelayCompensation(" + group(request.group1) + " " +
                         group(request.group2) + " " + group(request.group3) + " " + group(request.group4) +
                         " " + group(request.group5) + " " + group(request.group6) + ")");
        return onCalculateAndSetDspDelayCompensation.next();
    }

    std::vector<zyr_top_api::RauLatencyRequest> requests; ///< all so far
    Answer<zyr_top_api::ETIResult, bool, bool, std::uint32_t, std::uint32_t> onGetCurrentLatency;
    Answer<zyr_top_api::ETIResult> onCalculateAndSetDspDelayCompensation;
};

} // namespace zyr_test
