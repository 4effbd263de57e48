#pragma once

#include "ISpaceDiversityCombinerController.h"
#include "SimulatedCollaborator.h"

#include <cstdint>
#include <utility>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kSpaceDiversityCombinerControllerOperations{
    "ISpaceDiversityCombinerController", "setSdcEnable", "setDadeCalibration", "setSdcPath",
    "setRlConfiguration"};

/// The space diversity combiner in the radio unit of a channel. A radio type without one answers nothing and
/// refuses everything. Switching on takes `kSdcSwitchTime`, a calibration `kDadeCalibrationTime`.
class SimulatedSpaceDiversityCombinerController final
    : public SimulatedCollaborator<ISpaceDiversityCombinerController,
                                   kSpaceDiversityCombinerControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    zyr_top_api::ETIResult setSdcEnable(bool enable) override;
    zyr_top_api::SdcStatus getSdcOperStatus() override;

    /// Starts a calibration, or aborts it: an older one holds then.
    zyr_top_api::ETIResult setDadeCalibration(bool start) override;
    zyr_top_api::SdcStatus getSdcDadeStatus() override;

    /// Refuses a value that is no path.
    zyr_top_api::ETIResult setSdcPath(zyr_top_api::SdcPath path) override;

    /// The path in use: of the automatic ones `Auto` as long as the weaker path adds to the level, else the
    /// better path.
    zyr_top_api::SdcPath getSdcActualPath() override;

    /// No hardware errors ('0'); levels in tenths of a dBm.
    void getSdcSignalStatus(char& hwErrorSdcMain, char& hwErrorSdcDiversity, std::int32_t& sdcInputPowerMain,
                            std::int32_t& sdcInputPowerDiversity, std::int32_t& sdcGain) override;
    zyr_top_api::ETIResult setRlConfiguration(zyr_top_api::Modulation modulation, std::int32_t spacingCode,
                                              bool xpicEnabled) override;
    std::int32_t getSdcDadeDelay() override;

  private:
    SdcState& sdc() const { return channel().sdc; }
    bool isThere() const;

    /// Does the work of a setter, or refuses it if there is no combiner.
    template <class Work>
    zyr_top_api::ETIResult change(Operation operation, Work&& work) const
    {
        return perform<zyr_top_api::ETIResult>(
            operation, [&] { return isThere() ? std::forward<Work>(work)() : zyr_top_api::eTI_E_FAILED; });
    }
};

} // namespace zyr_simulation
