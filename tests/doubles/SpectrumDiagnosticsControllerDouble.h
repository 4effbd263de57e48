#pragma once

#include "Answer.h"
#include "ISpectrumDiagnosticsController.h"
#include "Recorder.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace zyr_test
{

/// Recording double of `ISpectrumDiagnosticsController`.
class SpectrumDiagnosticsControllerDouble : public ISpectrumDiagnosticsController, public Recorder
{
  public:
    SpectrumDiagnosticsControllerDouble(Transcript& transcript, std::string name);
    ~SpectrumDiagnosticsControllerDouble() override;
    SpectrumDiagnosticsControllerDouble(const SpectrumDiagnosticsControllerDouble&) = delete;
    SpectrumDiagnosticsControllerDouble& operator=(const SpectrumDiagnosticsControllerDouble&) = delete;

    zyr_top_api::ETIResult scanControl(unsigned mode, unsigned dmSleep) override
    {
        record("scanControl", mode, dmSleep);
        return onScanControl.next();
    }

    zyr_top_api::ETIResult getResult(int& count, zyr_top_api::SpectrumDiagnosticsResult* buffer) override
    {
        record("getResult", count);
        std::vector<zyr_top_api::SpectrumDiagnosticsResult> results;
        const zyr_top_api::ETIResult result = onGetResult.next(results);
        const auto capacity = static_cast<std::size_t>(count);
        results.resize(std::min(results.size(), capacity));
        std::ranges::copy(results, buffer);
        count = reportedCount.value_or(static_cast<int>(results.size()));
        return result;
    }

    std::int32_t getStatus() override
    {
        record("getStatus");
        return onGetStatus.next();
    }

    std::int32_t getProgress() override
    {
        record("getProgress");
        return onGetProgress.next();
    }

    zyr_top_api::SpectrumDiagnosticsProperties getProperties() override
    {
        record("getProperties");
        return onGetProperties.next();
    }

    Answer<zyr_top_api::ETIResult> onScanControl;
    Answer<zyr_top_api::ETIResult, std::vector<zyr_top_api::SpectrumDiagnosticsResult>> onGetResult;
    /// What `getResult` says it has put into the buffer, whatever it has.
    std::optional<int> reportedCount;
    Answer<std::int32_t> onGetStatus;
    Answer<std::int32_t> onGetProgress;
    Answer<zyr_top_api::SpectrumDiagnosticsProperties> onGetProperties;
};

} // namespace zyr_test
