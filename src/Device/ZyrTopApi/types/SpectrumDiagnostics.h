#pragma once

#include <cstdint>

namespace zyr_top_api
{

/// The level that a scan found at one frequency.
struct SpectrumDiagnosticsResult
{
    std::uint32_t Frequency = 0;
    std::int32_t Rssi = 0;
};

/// What the scan hardware offers: four bytes, handed over by value.
struct SpectrumDiagnosticsProperties
{
    bool isLongHaul = false;
    bool hasAdjustableDiplexer = false;
    bool isRadioCarrierAggrCapable = false;
    bool isSdcSupported = false;
};

static_assert(sizeof(SpectrumDiagnosticsProperties) == 4);

} // namespace zyr_top_api
