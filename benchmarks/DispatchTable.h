#pragma once

#include "CmdWrapper.h"
#include "CriEnableAcmImpl.h"
#include "IAcmHandler.h"
#include "InterfaceBroker.h"
#include "ZyrApiHandler.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

/// A command table of full length, with "CRI.EnableAcm" at a chosen place and entries of other commands'
/// names elsewhere.
namespace benchmark_table
{

inline constexpr std::array<std::string_view, 51> kOtherNames{
    "CI.GetEvents",
    "CI.GetFastEvents",
    "CI.ManageLoops",
    "CI.ReleaseFastEventsRequests",
    "CRI.CalibrateDspPps",
    "CRI.CriGetIsRau2T2R",
    "CRI.CriGetRauPowerMode",
    "CRI.CriSetBasebandSdcDadeResetCalibration",
    "CRI.CriSetRauPowerMode",
    "CRI.CriSetSdcBasebandDadeCalibration",
    "CRI.DisableModulation",
    "CRI.GetAcmMode",
    "CRI.GetAirInterfaceCapability",
    "CRI.GetCalibrationStatusDspPps",
    "CRI.GetHopLengthTimeDspPps",
    "CRI.GetRadioChannelCapability",
    "CRI.GetRadioChannelStatus",
    "CRI.GetRauPowerSupplied",
    "CRI.GetSdcStatus",
    "CRI.GetSpectrumDiagnostics",
    "CRI.ManagePathLatency",
    "CRI.MimoSpatialMute",
    "CRI.RestartRadio",
    "CRI.SetAcmMode",
    "CRI.SetAcmRlpControl",
    "CRI.SetActiveSubBand",
    "CRI.SetBasebandSdcChannel",
    "CRI.SetBasebandSdcDadeParams",
    "CRI.SetBasebandSdcEnable",
    "CRI.SetBoosterPresence",
    "CRI.SetFarEndPmaxCapability",
    "CRI.SetOutputModeDspPps",
    "CRI.SetRFPower",
    "CRI.SetRadioChannelNearEnd",
    "CRI.SetRadioLinkEncryption",
    "CRI.SetRauCarrierAggregation",
    "CRI.SetRauPowerSupplied",
    "CRI.SetRouting",
    "CRI.SetSdcDadeCalibration",
    "CRI.SetSdcEnable",
    "CRI.SetSdcPathControl",
    "CRI.SetSdcRlConfiguration",
    "CRI.SetSourceDspPps",
    "CRI.StartRecovery",
    "CRI.WarmInitCompleted",
    "CRI.XpicSlaveMute",
    "TI.GetRxXcStatusLevel",
    "TI.ManageMimo",
    "TI.ManagePathLatencyCompensation",
    "TI.ManageRealTimeClock",
    "TI.ManageXPIC",
};

/// The collaborator that the measured command calls: it does next to nothing.
class QuietAcmHandler final : public IAcmHandler
{
  public:
    EACMHResult enableAcm(bool enable) override
    {
        m_enabled = enable;
        return eACMH_S_OK;
    }

  private:
    bool m_enabled = false;
};

struct OtherCommand
{};

/// Fills the table, with the measured command behind so many others, and initialises it on the handler.
inline void fill(std::size_t place, IAcmHandler& handler)
{
    using namespace zyr_top_api;
    InterfaceBroker::getInstance().unregisterInterface("IAcmHandler_1");
    InterfaceBroker::getInstance().registerInterface("IAcmHandler_1", &handler);
    auto measured = std::make_shared<CmdWrapper<CriEnableAcmImpl>>("CRI.EnableAcm");
    measured->impl().initialize(1);
    auto& table = ZyrApiHandler::m_cmds;
    table.clear();
    for (const std::string_view name : kOtherNames) {
        if (table.size() == place) {
            table.push_back(measured);
        }
        table.push_back(std::make_shared<CmdWrapper<OtherCommand>>(std::string(name)));
    }
    if (table.size() == place) {
        table.push_back(measured);
    }
}

} // namespace benchmark_table
