#pragma once

#include "Zyr.h"

#include <cstdint>
#include <string>

namespace zyr_simulation
{

/// How a simulated node starts. Whatever has a setter on the node can be changed later. Levels are in tenths
/// of a dB or of a dBm.
struct SimulatedNodeOptions
{
    unsigned channels = 2;  ///< Radio channels, 1 or 2.
    std::uint32_t seed = 1; ///< What is left to chance follows from this number and the time alone.

    /// What the node starts behind. A warm restart leaves the channels to carry traffic as they did before
    /// it, see `resumeTraffic`; else nothing is configured yet.
    Zyr::ZyrInitState startUp = Zyr::ZyrInitState::NormalOperation;

    // The radio units and the modem.
    unsigned radioType = 1; ///< 1 to 3, the rows of `radioType`.
    bool carrierAggregation = false;
    bool longHaul = false;
    bool twoTransmitters = false; ///< Radio units with two transmitters and two receivers.
    std::uint32_t duplexType{
        0}; ///< 0 variable, 1 fixed distance between the two directions, others are invalid.
    bool configurationBypassed = false; ///< Channels take no configuration now.

    // The hop to the far end.
    std::int32_t pathLoss_dBTenths = 600;
    std::int32_t diversityPathLoss_dBTenths = 615; ///< To the receivers' second antennas.
    std::int32_t fading_dBTenths = 5;              ///< Amplitude of the slow fading, 0 for none.
    std::int32_t farEndTxPower_dBmTenths = 200;
    bool farEndTransmits = true;
    std::int32_t crossPolarDiscrimination_dBTenths = 200; ///< How far the polarisations are apart.
    std::uint32_t hopLength_m = 5000;

    std::string stateFolder =
        {};                 ///< Where the node may write files, in no folder below it; empty for nowhere.
    bool hostClock = false; ///< The node has the host's clocks, else clocks of its own that start alike.
};

} // namespace zyr_simulation
