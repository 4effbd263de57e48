#pragma once

#include "DspErrorBlocks.h"
#include "ETIResult.h"
#include "Export.h"
#include "MimoStatusStruct.h"

#include <cstdint>

/// Status of one channel of the DSP, handed out by `IDspApi::getDspStatusApi`.
///
/// Unless an operation says otherwise, results from 0x8000 are failures. Default bodies answer for a DSP that
/// does not support the operation.
class ZYR_EXPORT IDspStatusApi
{
  public:
    virtual ~IDspStatusApi() = default;

    /// Whether the radio link is up. Called by `CriGetRadioChannelStatus` and `TiManageRadioChannelStatus`.
    virtual bool isLinkUp() = 0;

    /// Gives the counts of received blocks and bytes, and then sets them to zero if `reset` is true. Called
    /// by `CriGetRadioChannelStatus`, and by `TiManageRadioChannelStatus`, which never resets.
    virtual zyr_top_api::ETIResult getErrorBlocks(zyr_top_api::DspErrorBlocks& blocks, bool reset) = 0;

    /// The signal to noise and interference ratio now, which `CriGetRadioChannelStatus` and
    /// `TiManageRadioChannelStatus` report negated.
    virtual std::int32_t getSnir() = 0;

    /// The lowest ratio since the last reset, and resets it if `reset` is true. `TiManageRadioChannelStatus`
    /// reports it negated.
    virtual std::int32_t getLowestSnir(bool reset) = 0;

    /// The errored blocks since the receiver locked last. Called by `TiManageRadioChannelStatus`.
    virtual std::int32_t getEbSinceLastRxLock() = 0;

    /// How many times the receiver has locked. Called by `TiManageRadioChannelStatus`.
    virtual std::int32_t getRxLockedCounter() = 0;

    /// Gives the gain control values of the XPIC slave. Called by `TiManageXpic`, which reports 0 and 0 on
    /// exactly 4100. The default body writes -500 to both and answers 4100.
    virtual zyr_top_api::ETIResult getSlaveAgc(std::int16_t& internalAgc, std::int16_t& externalAgc)
    {
        internalAgc = -500;
        externalAgc = -500;
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Gives the IQ imbalance of the XPIC slave as five values. Called by `TiManageXpic`, which uses the
    /// second, the differential gain, and reports 0 on exactly 4100. The default body writes 0 to all and
    /// answers 4100.
    virtual zyr_top_api::ETIResult getIqSlaveImbalance(std::int16_t& first, std::int16_t& differentialGain,
                                                       std::int16_t& third, std::int16_t& fourth,
                                                       std::int16_t& fifth)
    {
        first = 0;
        differentialGain = 0;
        third = 0;
        fourth = 0;
        fifth = 0;
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Gives what the receivers of a MIMO link measure. Called by `TiManageMimo`, for which warnings from
    /// 0x1000 fail, and so the default body's 4100.
    virtual zyr_top_api::ETIResult mimoStatusGet(zyr_top_api::MimoStatusStruct& /*status*/)
    {
        return zyr_top_api::eTI_W_ALREADY_INITIALIZED;
    }

    /// Starts or stops injecting errored blocks: `percentage` of the blocks, for a number of cycles. Called
    /// by `TiManagePm`. The default body keeps the values and injects nothing.
    virtual void injectErrorBlocks(bool inject, int cycles, unsigned percentage)
    {
        m_injectErrorBlocks = inject;
        m_injectCycles = cycles;
        m_injectPercentage = percentage;
    }

    /// Gives the cycles that are left of the injection. Called by `TiManagePm`. The default body gives what
    /// was kept.
    /// @return Whether an injection is on.
    virtual bool getInjectErrorBlocksData(int& cycles)
    {
        cycles = m_injectCycles;
        return m_injectErrorBlocks;
    }

    /// Makes the next `counter` accesses to the DSP fail with `resultCode`. Called by `TiManageDsp` with
    /// 0x800C.
    virtual void injectComError(unsigned resultCode, unsigned counter) = 0;

    /// Gives the levels at the receiver's cross-connect, one for each chain. Called by
    /// `TiGetRxXcStatusLevel`. The default body answers 0x8001, which is a failure.
    virtual zyr_top_api::ETIResult getRxXcStatusLevel(std::int16_t* /*ch0*/, std::int16_t* /*ch1*/)
    {
        return zyr_top_api::eTI_E_NOT_IMPLEMENTED;
    }

  protected:
    /// Kept by the default body of `injectErrorBlocks`.
    bool m_injectErrorBlocks = false;
    int m_injectCycles = 0;
    unsigned m_injectPercentage = 0;
};
