#pragma once

#include "ISpectrumDiagnosticsController.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kSpectrumDiagnosticsControllerOperations{
    "ISpectrumDiagnosticsController", "scanControl", "getResult"};

/// Spectrum scans of a channel. Frequencies in kHz, levels in tenths of a dBm, progress in per cent.
///
/// A channel scan looks at 101 frequencies within twice the frame's channel spacing about the receive
/// frequency, a sub-band scan at 201 frequencies of the radio type's receive band. Each takes
/// `kScanPointTime` and the requested sleep in milliseconds, and while the scan runs the channel receives
/// nothing. What is found: the noise, the far end's carriers and the interferers that have been added to the
/// node.
class SimulatedSpectrumDiagnosticsController final
    : public SimulatedCollaborator<ISpectrumDiagnosticsController, kSpectrumDiagnosticsControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// Refuses a channel scan without a receive frequency, any scan while the radio isn't up, and other modes
    /// than 0 to 2. A start while a scan runs begins anew. A stopped scan counts as not started, but what it
    /// has found and its progress stay.
    zyr_top_api::ETIResult scanControl(unsigned mode, unsigned dmSleep) override;

    /// What has been found so far, be the scan over or not.
    zyr_top_api::ETIResult getResult(int& count, zyr_top_api::SpectrumDiagnosticsResult* buffer) override;
    std::int32_t getStatus() override;
    std::int32_t getProgress() override;
    zyr_top_api::SpectrumDiagnosticsProperties getProperties() override;
};

} // namespace zyr_simulation
