#pragma once

#include "ISpectrumDiagnosticsController.h"
#include "SimulatedCollaborator.h"

#include <cstddef>
#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kSpectrumDiagnosticsControllerOperations{
    "ISpectrumDiagnosticsController", "scanControl", "getResult"};

/// Spectrum scans of a channel. Frequencies in kHz, levels in tenths of a dBm, progress in per cent.
///
/// A channel scan looks at 41 frequencies within the frame's channel spacing around the receive frequency, a
/// sub-band scan at 201 frequencies of the radio type's receive band. Each takes `kScanPointTime` and the
/// requested sleep in milliseconds. What is found: the noise, the far end's signal, and in the band one
/// foreign carrier whose place follows from the seed.
class SimulatedSpectrumDiagnosticsController final
    : public SimulatedCollaborator<ISpectrumDiagnosticsController, kSpectrumDiagnosticsControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// Refuses a channel scan without a receive frequency, any scan while the radio isn't up, and other modes
    /// than 0 to 2. A stopped scan counts as not started.
    zyr_top_api::ETIResult scanControl(unsigned mode, unsigned dmSleep) override;

    /// What has been found so far.
    zyr_top_api::ETIResult getResult(int& count, zyr_top_api::SpectrumDiagnosticsResult* buffer) override;
    std::int32_t getStatus() override;
    std::int32_t getProgress() override;
    zyr_top_api::SpectrumDiagnosticsProperties getProperties() override;

  private:
    std::size_t pointsDone() const;
    void begin(bool isSubBand, unsigned dmSleep) const;
};

} // namespace zyr_simulation
