#pragma once

#include "Answer.h"
#include "IDspStatusApi.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IDspStatusApi`.
class DspStatusApiDouble : public IDspStatusApi, public Recorder
{
  public:
    DspStatusApiDouble(Transcript& transcript, std::string name);
    ~DspStatusApiDouble() override;
    DspStatusApiDouble(const DspStatusApiDouble&) = delete;
    DspStatusApiDouble& operator=(const DspStatusApiDouble&) = delete;

    bool isLinkUp() override
    {
        record("isLinkUp");
        return onIsLinkUp.next();
    }

    zyr_top_api::ETIResult getErrorBlocks(zyr_top_api::DspErrorBlocks& blocks, bool reset) override
    {
        record("getErrorBlocks", reset);
        return onGetErrorBlocks.next(blocks);
    }

    std::int32_t getSnir() override
    {
        record("getSnir");
        return onGetSnir.next();
    }

    std::int32_t getLowestSnir(bool reset) override
    {
        record("getLowestSnir", reset);
        return onGetLowestSnir.next();
    }

    std::int32_t getEbSinceLastRxLock() override
    {
        record("getEbSinceLastRxLock");
        return onGetEbSinceLastRxLock.next();
    }

    std::int32_t getRxLockedCounter() override
    {
        record("getRxLockedCounter");
        return onGetRxLockedCounter.next();
    }

    zyr_top_api::ETIResult getSlaveAgc(std::int16_t& internalAgc, std::int16_t& externalAgc) override
    {
        record("getSlaveAgc");
        return defaultsInForce ? IDspStatusApi::getSlaveAgc(internalAgc, externalAgc)
                               : onGetSlaveAgc.next(internalAgc, externalAgc);
    }

    zyr_top_api::ETIResult getIqSlaveImbalance(std::int16_t& first, std::int16_t& differentialGain,
                                               std::int16_t& third, std::int16_t& fourth,
                                               std::int16_t& fifth) override
    {
        record("getIqSlaveImbalance");
        return defaultsInForce
                   ? IDspStatusApi::getIqSlaveImbalance(first, differentialGain, third, fourth, fifth)
                   : onGetIqSlaveImbalance.next(first, differentialGain, third, fourth, fifth);
    }

    zyr_top_api::ETIResult mimoStatusGet(zyr_top_api::MimoStatusStruct& status) override
    {
        record("mimoStatusGet");
        return defaultsInForce ? IDspStatusApi::mimoStatusGet(status) : onMimoStatusGet.next(status);
    }

    void injectErrorBlocks(bool inject, int cycles, unsigned percentage) override
    {
        record("injectErrorBlocks", inject, cycles, percentage);
        IDspStatusApi::injectErrorBlocks(inject, cycles, percentage);
    }

    bool getInjectErrorBlocksData(int& cycles) override
    {
        record("getInjectErrorBlocksData");
        return defaultsInForce ? IDspStatusApi::getInjectErrorBlocksData(cycles)
                               : onGetInjectErrorBlocksData.next(cycles);
    }

    void injectComError(unsigned resultCode, unsigned counter) override
    {
        record("injectComError", resultCode, counter);
    }

    zyr_top_api::ETIResult getRxXcStatusLevel(std::int16_t* ch0, std::int16_t* ch1) override
    {
        record("getRxXcStatusLevel");
        return defaultsInForce ? IDspStatusApi::getRxXcStatusLevel(ch0, ch1)
                               : onGetRxXcStatusLevel.next(*ch0, *ch1);
    }

    Answer<bool> onIsLinkUp{true};
    Answer<zyr_top_api::ETIResult, zyr_top_api::DspErrorBlocks> onGetErrorBlocks;
    Answer<std::int32_t> onGetSnir;
    Answer<std::int32_t> onGetLowestSnir;
    Answer<std::int32_t> onGetEbSinceLastRxLock;
    Answer<std::int32_t> onGetRxLockedCounter;
    Answer<zyr_top_api::ETIResult, std::int16_t, std::int16_t> onGetSlaveAgc;
    Answer<zyr_top_api::ETIResult, std::int16_t, std::int16_t, std::int16_t, std::int16_t, std::int16_t>
        onGetIqSlaveImbalance;
    Answer<zyr_top_api::ETIResult, zyr_top_api::MimoStatusStruct> onMimoStatusGet;
    Answer<bool, int> onGetInjectErrorBlocksData;
    Answer<zyr_top_api::ETIResult, std::int16_t, std::int16_t> onGetRxXcStatusLevel;
};

} // namespace zyr_test
