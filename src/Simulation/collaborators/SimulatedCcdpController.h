#pragma once

#include "ICcdpController.h"
#include "SimulatedCollaborator.h"

#include <string>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kCcdpControllerOperations{
    "ICcdpController", "setBar",           "forceXpic",           "xpicMute", "getLinkType", "setPreamble",
    "getPreamble",     "xpicAcquireStart", "getXpicStatusStruct", "start",    "stop",        "getXpi",
    "getState"};

/// XPIC of a channel. It is started while its link type isn't "Disable". With the bar on, `start` and `stop`
/// succeed without effect.
class SimulatedCcdpController final : public SimulatedCollaborator<ICcdpController, kCcdpControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    zyr_top_api::ETIResult setBar(bool on) override;
    unsigned getBar() const override;
    zyr_top_api::ETIResult forceXpic(zyr_top_api::LinkType linkType) override;
    zyr_top_api::ETIResult xpicMute(bool mute) override;
    zyr_top_api::ETIResult getLinkType(zyr_top_api::LinkType& linkType) const override;
    zyr_top_api::ETIResult setPreamble(zyr_top_api::XpicMimoPreamble preamble) override;
    zyr_top_api::ETIResult getPreamble(zyr_top_api::XpicMimoPreamble& preamble) override;

    /// The slave sweeps anew, for `kXpicSweepTime` if it finds the other polarisation, whatever the modes.
    zyr_top_api::ETIResult xpicAcquireStart(zyr_top_api::XpicAcquireMode mode,
                                            zyr_top_api::XpicSpectralInversionMode inversion) override;

    /// The calibration counts as done (1) once the slave has locked.
    zyr_top_api::ETIResult getXpicStatusStruct(zyr_top_api::XpicStatusStruct& status) override;
    zyr_top_api::ETIResult start(zyr_top_api::LinkType linkType) override;
    zyr_top_api::ETIResult stop() override;
    bool isStarted() override;

    /// In tenths of a dB, 0 while the slave hasn't locked.
    zyr_top_api::ETIResult getXpi(int& xpi) override;

    /// "Locked", "Unlocked" or, while muted, "Mute".
    zyr_top_api::ETIResult getState(std::string& state) override;

  private:
    XpicState& xpic() const { return channel().xpic; }
};

} // namespace zyr_simulation
