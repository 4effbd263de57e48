#pragma once

#include "Action.h"
#include "EDspATxMode.h"
#include "EDspChannelState.h"
#include "ETIResult.h"
#include "Export.h"
#include "MimoCalibrationStatus.h"
#include "ModemChain.h"
#include "PpsCalibration.h"
#include "PpsOutputMode.h"
#include "PpsSource.h"

#include <cstdint>

/// Configuration of one channel of the DSP, handed out by `IDspApi::getDspChannelApi`.
///
/// Unless an operation says otherwise, results from 0x8000 are failures. Default bodies answer for a DSP that
/// does not support the operation, mostly with 4100 (`eTI_W_ALREADY_INITIALIZED`), and leave their arguments.
class ZYR_EXPORT IDspChannelApi
{
  public:
    virtual ~IDspChannelApi() = default;

    /// Whether the channel has been configured. Called by `CriSetRfPower`, `CriWarmInitCompleted` and
    /// `TiManagePathLatencyCompensation`.
    virtual bool isConfigured() = 0;

    /// How far the channel has been configured. Called by `CriSetRfPower`, for its log alone.
    virtual zyr_top_api::EDspChannelState getChannelState() = 0;

    /// Gives the signal that a chain transmits. Called by `CriDisableModulation` and `TiGetDspTxMode`.
    virtual zyr_top_api::ETIResult getDspTxMode(bcm::types::ModemChain chain, zyr_top_api::EDspATxMode& mode,
                                                int& sweepTime, int& toneFrequency) = 0;

    /// Sets the signal that a chain transmits. Called by `CriDisableModulation` and `TiSetDspTxMode`.
    virtual zyr_top_api::ETIResult setDspTxMode(bcm::types::ModemChain chain, zyr_top_api::EDspATxMode mode,
                                                int sweepTime, int toneFrequency) = 0;

    /// Gives whether the PPF has locked. Called by `CriGetRadioChannelStatus`, which reports 4100,
    /// the default body's answer, as "notSupported".
    virtual zyr_top_api::ETIResult getPpfLockStatus(bool& /*locked*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Starts a calibration of the pulse per second, repeated every `periodMilliSec` where the mode repeats.
    /// Modes without a meaning come too. Called by `CriCalibrateDspPps`; the default body's 4100 is success.
    virtual zyr_top_api::ETIResult ppsRtcCalibrationStart(zyr_top_api::PpsRtcCalibrationMode /*mode*/,
                                                          std::uint16_t /*periodMilliSec*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Gives how the calibration stands. Called by `CriGetCalibrationStatusDspPps`; the default body's 4100
    /// is success.
    virtual zyr_top_api::ETIResult ppsStatusGet(zyr_top_api::PpsCalibStatus& /*status*/,
                                                zyr_top_api::PpsCalibReasonOfFailure& /*reason*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Gives the travelling time of the hop, in nanoseconds. Called by `CriGetHopLengthTimeDspPps`; the
    /// default body's 4100 is success.
    virtual zyr_top_api::ETIResult ppsHopLengthTimeGet(std::uint32_t& /*nanoSec*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Sets the source of the pulse per second and its offset in nanoseconds. Sources without a meaning come
    /// too. Called by `CriSetSourceDspPps`; the default body's 4100 is success.
    virtual zyr_top_api::ETIResult ppsConfigure(zyr_top_api::PpsSource /*source*/,
                                                std::uint32_t /*offsetNanoSec*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Sets whether the pulse per second is put out. Called by `CriSetOutputModeDspPps`; the default body's
    /// 4100 is success.
    virtual zyr_top_api::ETIResult ppsOutputModeSet(zyr_top_api::PpsOutputMode /*mode*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Reads or writes the asymmetry compensation of the pulse per second, in nanoseconds. Called by
    /// `TiManagePathLatencyCompensation`.
    /// @return True if done; the default body answers false, which is a failure.
    virtual bool onePpsAsymmetryCompensation(Action /*action*/, std::int16_t& /*nanoSec*/) { return false; }

    /// Reads or writes the delay of a receiver chain, in samples. Called by
    /// `TiManagePathLatencyCompensation`. Not the same as `setRxChainDelay`.
    /// @return True if done; the default body answers false, which is a failure.
    virtual bool rxChainDelay(Action /*action*/, bcm::types::ModemChain /*chain*/, std::uint8_t& /*samples*/)
    {
        return false;
    }

    /// Reads or writes the delay of a chain's feed-forward equaliser filter, in samples. Called by
    /// `TiManagePathLatencyCompensation`.
    /// @return True if done; the default body answers false, which is a failure.
    virtual bool rxEqualizerFeedForwardFilterDelay(Action /*action*/, bcm::types::ModemChain /*chain*/,
                                                   std::uint8_t& /*samples*/)
    {
        return false;
    }

    /// Sets the delay of a receiver chain of a MIMO link. Called by `TiManageMimo`, for which warnings from
    /// 0x1000 fail, and so the default body's 4100.
    virtual zyr_top_api::ETIResult setRxChainDelay(bcm::types::ModemChain /*chain*/, unsigned char /*delay*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Mutes the diversity receiver of a MIMO link. Called by `TiManageMimo`; fails from 0x1000.
    virtual zyr_top_api::ETIResult mimoDiversityMute(bool /*mute*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Sets up the channel for MIMO. Called by `TiManageMimo`; fails from 0x1000.
    virtual zyr_top_api::ETIResult mimoConfigurationSet() { return zyr_top_api::eTI_W_ALREADY_INITIALIZED; }

    /// Starts the calibration of the cross-connect delay. Called by `TiManageMimo`; fails from 0x1000.
    virtual zyr_top_api::ETIResult mimoCrossConnectDelayCalibrationStart()
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Gives how the calibration of the cross-connect delay stands. Called by `TiManageMimo`; fails from
    /// 0x1000.
    virtual zyr_top_api::ETIResult
    mimoCrossConnectDelayCalibrationStatusGet(zyr_top_api::MimoCalibrationStatus& /*status*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Makes the next `counter` I2C accesses during a configuration fail. Called by `TiManageDsp`.
    virtual void injectI2cError(unsigned counter) = 0;

    /// Sets the intermediate frequency of the transmitter, in the DSP's unit. Called by `TiSetIfFrequency`;
    /// the default body's 4100 is success.
    virtual zyr_top_api::ETIResult setTxFrequency(int /*frequency*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Sets the intermediate frequency of the receiver, in the DSP's unit. Called by `TiSetIfFrequency`; the
    /// default body's 4100 is success.
    virtual zyr_top_api::ETIResult setRxFrequency(int /*frequency*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Selects the narrow or wide filters, in the DSP's own numbers. Called by `TiSetNarrowWideFilters`,
    /// which has texts of its own for 0x8000 and 0x8003; the default body's 4100 is success.
    virtual zyr_top_api::ETIResult setNarrowWideFilters(std::int32_t /*filter*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Gives the selected filters. Called by `TiGetNarrowWideFilters`; the default body's 4100 is success.
    virtual zyr_top_api::ETIResult getNarrowWideFilters(std::int32_t& /*filter*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }
};
