#pragma once

#include "ETIResult.h"
#include "IInterface.h"
#include "SpectrumDiagnostics.h"

#include <cstdint>

/// Spectrum scans of one channel, published as "ISpectrumDiagnosticsController_<n>". Called by
/// `CriGetSpectrumDiagnostics`; results from 0x8000 are failures.
class ZYR_EXPORT ISpectrumDiagnosticsController : public IInterface
{
  public:
    /// Starts a channel scan (mode 0) or a sub-band scan (1), or stops the scan (2); `dmSleep` is the
    /// request's.
    virtual zyr_top_api::ETIResult scanControl(unsigned mode, unsigned dmSleep) = 0;

    /// Puts the results of the scan into `buffer`: `count` is its capacity on the way in (500), the number of
    /// results on the way out. Results are reported also on failure.
    virtual zyr_top_api::ETIResult getResult(int& count, zyr_top_api::SpectrumDiagnosticsResult* buffer) = 0;

    /// How the scan stands: 0 not started, 1 sub-band scan and 2 channel scan on the way, 3 sub-band scan and
    /// 4 channel scan finished.
    virtual std::int32_t getStatus() = 0;

    /// How far the scan has come.
    virtual std::int32_t getProgress() = 0;

    /// What the scan hardware offers.
    virtual zyr_top_api::SpectrumDiagnosticsProperties getProperties() = 0;
};
