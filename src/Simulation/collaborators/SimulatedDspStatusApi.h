#pragma once

#include "IDspStatusApi.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kDspStatusApiOperations{"IDspStatusApi", "getErrorBlocks",
                                                                "getSlaveAgc",   "getIqSlaveImbalance",
                                                                "mimoStatusGet", "getRxXcStatusLevel"};

/// Status of a channel of the DSP. Ratios in tenths of a dB, levels in tenths of a dBm.
class SimulatedDspStatusApi final : public SimulatedCollaborator<IDspStatusApi, kDspStatusApiOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    bool isLinkUp() override;

    /// Background blocks are all blocks received since the last reset, the errored ones among them. Counts
    /// stay at the greatest number.
    zyr_top_api::ETIResult getErrorBlocks(zyr_top_api::DspErrorBlocks& blocks, bool reset) override;

    /// As a noise ratio: the negated SNIR. 0 while there is nothing to receive.
    std::int32_t getSnir() override;

    /// The negated lowest SNIR since the last reset, 0 if the link was down all the time.
    std::int32_t getLowestSnir(bool reset) override;
    std::int32_t getEbSinceLastRxLock() override;
    std::int32_t getRxLockedCounter() override;

    /// Gains in tenths of a dB, which are the greater the weaker the slave gets the other polarisation.
    zyr_top_api::ETIResult getSlaveAgc(std::int16_t& internalAgc, std::int16_t& externalAgc) override;
    zyr_top_api::ETIResult getIqSlaveImbalance(std::int16_t& first, std::int16_t& differentialGain,
                                               std::int16_t& third, std::int16_t& fourth,
                                               std::int16_t& fifth) override;
    zyr_top_api::ETIResult mimoStatusGet(zyr_top_api::MimoStatusStruct& status) override;

    /// A cycle is a second.
    void injectErrorBlocks(bool inject, int cycles, unsigned percentage) override;
    bool getInjectErrorBlocksData(int& cycles) override;
    void injectComError(unsigned resultCode, unsigned counter) override;
    zyr_top_api::ETIResult getRxXcStatusLevel(std::int16_t* ch0, std::int16_t* ch1) override;

  private:
    ReceiverState& receiver() const { return channel().receiver; }

    /// Reads what an operation that accesses the DSP tells, which so fails as often as it was told to.
    template <class Work>
    zyr_top_api::ETIResult access(Operation operation, Work&& work) const
    {
        return ask<zyr_top_api::ETIResult>(operation, [&] {
            return channel().dsp.statusFailure.orElse<zyr_top_api::ETIResult>(std::forward<Work>(work));
        });
    }
};

} // namespace zyr_simulation
