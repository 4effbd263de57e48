#pragma once

#include "CriWarmInitCompleted.h"
#include "IAcmHandler.h"
#include "IDspApi.h"
#include "ISystemPowerController.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.WarmInitCompleted".
class ZYR_EXPORT CriWarmInitCompletedImpl : public CriWarmInitCompleted
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the collaborators of each channel. Refused once it has succeeded; to be called before commands
    /// arrive.
    ETIResult initialize(unsigned numberOfChannels);

  protected:
    /// Of system tests that want no warm completion from KORA: the call is swallowed as long as this file can
    /// be opened.
    const char* m_markerFile = "/mnt/config/usr/dontAllowKoraInitCompletedCall";

  private:
    bool canOpenMarkerFile() const;
    void synchroniseChannels();

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IDspApi> m_dspApi;
    PerChannel<ISystemPowerController> m_systemPowerController;
    PerChannel<IAcmHandler> m_acmHandler;
};

} // namespace zyr_top_api
