#pragma once

#include "CriSetRfPower.h"
#include "IAcmHandler.h"
#include "IDspApi.h"
#include "IOutputPowerCalculator.h"
#include "ISystemPowerController.h"
#include "ITapsController.h"
#include "PerChannel.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// The live object of "CRI.SetRFPower".
class ZYR_EXPORT CriSetRfPowerImpl : public CriSetRfPower
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the collaborators of each channel. Refused once it has succeeded; to be called before commands
    /// arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    StandardResponse answerUnconfigured(const Command& command);
    StandardResponse setPower(const Command& command);
    ESPCResult notifyFallback(const Command& command);
    StandardResponse setOptions(const Command& command, ESPCResult adminStateResult);

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<ISystemPowerController> m_systemPowerController;
    PerChannel<IOutputPowerCalculator> m_outputPowerCalculator;
    PerChannel<IDspApi> m_dspApi;
    PerChannel<ITapsController> m_tapsController;
    PerChannel<IAcmHandler> m_acmHandler;
};

} // namespace zyr_top_api
