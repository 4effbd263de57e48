#pragma once

#include "IDspControlApi.h"
#include "SimulatedCollaborator.h"

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kDspControlApiOperations{"IDspControlApi", "getRequiredRecovery",
                                                                 "checkDspReconfiguration", "getMimoMode"};

/// Control of the DSP as a whole.
///
/// The recovery that a change of the frame format type takes:
///
/// | From the type in force to | Recovery |
/// |---|---|
/// | the same type, long haul or not | none |
/// | another type, both without aggregation and on one board | `DspWithoutConfig` |
/// | another type, one of both over two boards or with carrier aggregation | `Dsp` |
///
/// It counts as due to carrier aggregation if exactly one of both aggregates. A fresh node runs the type Std.
class SimulatedDspControlApi final : public SimulatedCollaborator<IDspControlApi, kDspControlApiOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// The node's setting.
    bool isCarrierAggregationActive() override;
    zyr_top_api::ETIResult getRequiredRecovery(zyr_top_api::FFConfigType type, zyr_top_api::Recover& needed,
                                               bool& dueToCarrierAggregation) override;

    /// True if the required type isn't the one in force; it then comes into force with the next recovery.
    /// Refuses the types "Unknown" and "Other".
    zyr_top_api::ETIResult checkDspReconfiguration(zyr_top_api::FFConfigType required,
                                                   bool& dspNeedsReconfiguration) override;

    /// False while the DSP recovers.
    bool isAccessible() override;

    /// 0 without MIMO, 4 for 2x2, 9 for 4x4, which is MIMO on both channels.
    zyr_top_api::ETIResult getMimoMode(int& mode) override;
    void injectComError(unsigned resultCode, unsigned counter) override;

  private:
    InjectedFailure& failure() const { return channel().dsp.controlFailure; }
};

} // namespace zyr_simulation
