#pragma once

#include "CiGetEventsDescription.h"
#include "CiGetFastEventsDescription.h"
#include "CiManageLoopsDescription.h"
#include "CiReleaseFastEventsRequestsDescription.h"
#include "CriCalibrateDspPpsDescription.h"
#include "CriDisableModulationDescription.h"
#include "CriEnableAcmDescription.h"
#include "CriGetAcmModeDescription.h"
#include "CriGetAirInterfaceCapabilityDescription.h"
#include "CriGetCalibrationStatusDspPpsDescription.h"
#include "CriGetHopLengthTimeDspPpsDescription.h"
#include "CriGetIsRau2T2RDescription.h"
#include "CriGetRadioChannelCapabilityDescription.h"
#include "CriGetRadioChannelStatusDescription.h"
#include "CriGetRauPowerModeDescription.h"
#include "CriGetRauPowerSuppliedDescription.h"
#include "CriGetSdcStatusDescription.h"
#include "CriGetSpectrumDiagnosticsDescription.h"
#include "CriManagePathLatencyDescription.h"
#include "CriMimoSpatialMuteDescription.h"
#include "CriRestartRadioDescription.h"
#include "CriSetAcmModeDescription.h"
#include "CriSetAcmRlpControlDescription.h"
#include "CriSetActiveSubBandDescription.h"
#include "CriSetBasebandSdcChannelDescription.h"
#include "CriSetBasebandSdcDadeCalibrationDescription.h"
#include "CriSetBasebandSdcDadeParamsDescription.h"
#include "CriSetBasebandSdcDadeResetCalibrationDescription.h"
#include "CriSetBasebandSdcEnableDescription.h"
#include "CriSetBoosterPresenceDescription.h"
#include "CriSetFarEndPmaxCapabilityDescription.h"
#include "CriSetOutputModeDspPpsDescription.h"
#include "CriSetRadioChannelNearEndDescription.h"
#include "CriSetRadioLinkEncryptionDescription.h"
#include "CriSetRauCarrierAggregationDescription.h"
#include "CriSetRauPowerModeDescription.h"
#include "CriSetRauPowerSuppliedDescription.h"
#include "CriSetRfPowerDescription.h"
#include "CriSetRoutingDescription.h"
#include "CriSetSdcDadeCalibrationDescription.h"
#include "CriSetSdcEnableDescription.h"
#include "CriSetSdcPathControlDescription.h"
#include "CriSetSdcRlConfigurationDescription.h"
#include "CriSetSourceDspPpsDescription.h"
#include "CriStartRecoveryDescription.h"
#include "CriWarmInitCompletedDescription.h"
#include "CriXpicSlaveMuteDescription.h"
#include "TiGetAcmThresholdsDescription.h"
#include "TiGetAllCommandsDataDescription.h"
#include "TiGetDspTxModeDescription.h"
#include "TiGetEventsDescription.h"
#include "TiGetIfLoopDescription.h"
#include "TiGetNarrowWideFiltersDescription.h"
#include "TiGetRxXcStatusLevelDescription.h"
#include "TiGetTXRFDetectedOutputPowerDescription.h"
#include "TiManageDspDescription.h"
#include "TiManageMimoDescription.h"
#include "TiManagePathLatencyCompensationDescription.h"
#include "TiManagePmDescription.h"
#include "TiManageRadioChannelStatusDescription.h"
#include "TiManageRealTimeClockDescription.h"
#include "TiManageRfPowerDescription.h"
#include "TiManageSpcDescription.h"
#include "TiManageTXIFOutputPowerDescription.h"
#include "TiManageTXRFGainDescription.h"
#include "TiManageTapsDescription.h"
#include "TiManageXpicDescription.h"
#include "TiSetDspTxModeDescription.h"
#include "TiSetEventsDescription.h"
#include "TiSetIfFrequencyDescription.h"
#include "TiSetIfLoopDescription.h"
#include "TiSetNarrowWideFiltersDescription.h"

namespace zyr_registration
{

template <class... Types>
struct TypeList
{};

/// The one list of all commands, in the order of their wire names (capitals before small letters). All that
/// lists, registers, describes or calls commands is derived from it.
// clang-format off
using CommandList = TypeList<
    zyr_top_api::CiGetEventsImpl,
    zyr_top_api::CiGetFastEventsImpl,
    zyr_top_api::CiManageLoopsImpl,
    zyr_top_api::CiReleaseFastEventsRequestsImpl,
    zyr_top_api::CriCalibrateDspPpsImpl,
    zyr_top_api::CriGetIsRau2T2RImpl,
    zyr_top_api::CriGetRauPowerModeImpl,
    zyr_top_api::CriSetBasebandSdcDadeResetCalibrationImpl,
    zyr_top_api::CriSetRauPowerModeImpl,
    zyr_top_api::CriSetBasebandSdcDadeCalibrationImpl,
    zyr_top_api::CriDisableModulationImpl,
    zyr_top_api::CriEnableAcmImpl,
    zyr_top_api::CriGetAcmModeImpl,
    zyr_top_api::CriGetAirInterfaceCapabilityImpl,
    zyr_top_api::CriGetCalibrationStatusDspPpsImpl,
    zyr_top_api::CriGetHopLengthTimeDspPpsImpl,
    zyr_top_api::CriGetRadioChannelCapabilityImpl,
    zyr_top_api::CriGetRadioChannelStatusImpl,
    zyr_top_api::CriGetRauPowerSuppliedImpl,
    zyr_top_api::CriGetSdcStatusImpl,
    zyr_top_api::CriGetSpectrumDiagnosticsImpl,
    zyr_top_api::CriManagePathLatencyImpl,
    zyr_top_api::CriMimoSpatialMuteImpl,
    zyr_top_api::CriRestartRadioImpl,
    zyr_top_api::CriSetAcmModeImpl,
    zyr_top_api::CriSetAcmRlpControlImpl,
    zyr_top_api::CriSetActiveSubBandImpl,
    zyr_top_api::CriSetBasebandSdcChannelImpl,
    zyr_top_api::CriSetBasebandSdcDadeParamsImpl,
    zyr_top_api::CriSetBasebandSdcEnableImpl,
    zyr_top_api::CriSetBoosterPresenceImpl,
    zyr_top_api::CriSetFarEndPmaxCapabilityImpl,
    zyr_top_api::CriSetOutputModeDspPpsImpl,
    zyr_top_api::CriSetRfPowerImpl,
    zyr_top_api::CriSetRadioChannelNearEndImpl,
    zyr_top_api::CriSetRadioLinkEncryptionImpl,
    zyr_top_api::CriSetRauCarrierAggregationImpl,
    zyr_top_api::CriSetRauPowerSuppliedImpl,
    zyr_top_api::CriSetRoutingImpl,
    zyr_top_api::CriSetSdcDadeCalibrationImpl,
    zyr_top_api::CriSetSdcEnableImpl,
    zyr_top_api::CriSetSdcPathControlImpl,
    zyr_top_api::CriSetSdcRlConfigurationImpl,
    zyr_top_api::CriSetSourceDspPpsImpl,
    zyr_top_api::CriStartRecoveryImpl,
    zyr_top_api::CriWarmInitCompletedImpl,
    zyr_top_api::CriXpicSlaveMuteImpl,
    zyr_top_api::TiGetAcmThresholdsImpl,
    zyr_top_api::TiGetAllCommandsDataImpl,
    zyr_top_api::TiGetDspTxModeImpl,
    zyr_top_api::TiGetEventsImpl,
    zyr_top_api::TiGetIfLoopImpl,
    zyr_top_api::TiGetNarrowWideFiltersImpl,
    zyr_top_api::TiGetRxXcStatusLevelImpl,
    zyr_top_api::TiGetTXRFDetectedOutputPowerImpl,
    zyr_top_api::TiManageDspImpl,
    zyr_top_api::TiManageMimoImpl,
    zyr_top_api::TiManagePathLatencyCompensationImpl,
    zyr_top_api::TiManagePmImpl,
    zyr_top_api::TiManageRadioChannelStatusImpl,
    zyr_top_api::TiManageRealTimeClockImpl,
    zyr_top_api::TiManageRfPowerImpl,
    zyr_top_api::TiManageSpcImpl,
    zyr_top_api::TiManageTXIFOutputPowerImpl,
    zyr_top_api::TiManageTXRFGainImpl,
    zyr_top_api::TiManageTapsImpl,
    zyr_top_api::TiManageXpicImpl,
    zyr_top_api::TiSetDspTxModeImpl,
    zyr_top_api::TiSetEventsImpl,
    zyr_top_api::TiSetIfFrequencyImpl,
    zyr_top_api::TiSetIfLoopImpl,
    zyr_top_api::TiSetNarrowWideFiltersImpl>;
// clang-format on

} // namespace zyr_registration
