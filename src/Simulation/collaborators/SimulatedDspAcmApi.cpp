#include "SimulatedDspAcmApi.h"

#include "CollaboratorResults.h"
#include "Hop.h"

namespace zyr_simulation
{

using zyr_top_api::AcmMode;
using zyr_top_api::AcmModePosition;
using zyr_top_api::AcmThreshold;
using zyr_top_api::ETIResult;

ETIResult SimulatedDspAcmApi::setAcmRlpControl(zyr_top_api::AcmRlpControl control)
{
    return perform<ETIResult>("setAcmRlpControl", [&] { channel().dsp.rlpControl = control; });
}

ETIResult SimulatedDspAcmApi::setAcmMode(AcmMode mode, AcmModePosition position)
{
    return perform<ETIResult>("setAcmMode", [&] {
        channel().dsp.acmMode = mode;
        channel().dsp.acmModePosition = position;
    });
}

ETIResult SimulatedDspAcmApi::getAcmMode(AcmMode& mode, AcmModePosition& position)
{
    return ask<ETIResult>("getAcmMode", [&] {
        mode = channel().dsp.acmMode;
        position = channel().dsp.acmModePosition;
    });
}

std::vector<AcmThreshold> SimulatedDspAcmApi::getAcmThresholds()
{
    return read([&] { return acmThresholds(channel()); });
}

void SimulatedDspAcmApi::injectEnableFailure(unsigned counter)
{
    locked([&] { channel().dsp.acmEnableFailure = {eACMH_E_FAILED, counter}; });
}

void SimulatedDspAcmApi::injectThresholdFailure(unsigned counter)
{
    locked([&] { channel().dsp.acmThresholdFailure = {eACMH_E_FAILED, counter}; });
}

} // namespace zyr_simulation
