#pragma once

#include "CriGetSpectrumDiagnostics.h"
#include "ISpectrumDiagnosticsController.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.GetSpectrumDiagnostics".
class ZYR_EXPORT CriGetSpectrumDiagnosticsImpl : public CriGetSpectrumDiagnostics
{
  public:
    /// @throws general_classes::BadOptional for "scan-stop" without `DmSleep`
    virtual Response execute(const Command& command);

    /// Takes the scan controller of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    ETIResult readResults(std::uint32_t channel, Response& response);

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<ISpectrumDiagnosticsController> m_controller;
};

} // namespace zyr_top_api
