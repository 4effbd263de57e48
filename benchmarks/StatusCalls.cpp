#include "StatusCalls.h"

#include "CmdWrapper.h"
#include "CriGetRadioChannelStatusImpl.h"
#include "IDspChannelApi.h"
#include "IDspStatusApi.h"
#include "InterfaceBroker.h"
#include "SimulatedNode.h"
#include "VirtualTime.h"
#include "Zyr.h"
#include "ZyrApiHandler.h"

#include <memory>
#include <string>

namespace benchmark_status
{

namespace
{

using namespace zyr_top_api;

// A node on which time stands still.
struct Bench
{
    zyr_platform::VirtualTime time;
    zyr_simulation::SimulatedNode node{{}, time};
};

template <class Interface>
Interface& get(const char* name)
{
    return *InterfaceBroker::getInstance().getInterface<Interface>(name);
}

} // namespace

void dispatched(long calls)
{
    const Bench bench;
    auto wrapper = std::make_shared<CmdWrapper<CriGetRadioChannelStatusImpl>>("CRI.GetRadioChannelStatus");
    wrapper->impl().initialize(1);
    ZyrApiHandler::m_cmds = {wrapper};
    CriGetRadioChannelStatus::Command command;
    command.RadioChannelID = 1;
    for (long call = 0; call < calls; ++call) {
        criGetRadioChannelStatus(command);
    }
    ZyrApiHandler::m_cmds.clear();
}

void collaboratorsAlone(long calls)
{
    const Bench bench;
    auto& systemPower = get<ISystemPowerController>("ISystemPowerController_1");
    auto& outputPower = get<IOutputPowerController>("IOutputPowerController_1");
    auto& acm = get<IAcmHandler>("IAcmHandler_1");
    auto& frequency = get<IFrequencyController>("IFrequencyController_1");
    auto& rssi = get<IRssiHandler>("IRssiHandler_1");
    auto& ccdp = get<ICcdpController>("ICcdpController_1");
    auto& dsp = get<IDspApi>("IDspApi_1");
    auto& rle = get<zyr::IZyrRleHandler>("IZyrRleHandler_1");
    auto& mimo = get<IMimoController>("IMimoController_1");
    auto& pps = get<nord::zyr::pps::IPpsController>("IPpsController1");
    auto& basebandSdc = get<IBasebandSdcController>("IBasebandSdcController_1");
    for (long call = 0; call < calls; ++call) {
        ModulationAndCoding rx{};
        ModulationAndCoding tx{};
        int level = 0;
        DspErrorBlocks blocks;
        bool locked = false;
        unsigned latency = 0;
        outputPower.getTxStatus();
        dsp.getDspStatusApi()->isLinkUp();
        acm.getLowestModulationAndCode(rx, tx, true);
        rssi.getRssi(level);
        dsp.getDspStatusApi()->getErrorBlocks(blocks, false);
        dsp.getDspStatusApi()->getSnir();
        ccdp.isStarted();
        mimo.isStarted();
        basebandSdc.isStarted();
        dsp.getDspChannelApi()->getPpfLockStatus(locked);
        frequency.getTxFrequency();
        frequency.getRxFrequency();
        pps.getHopLengthLatency(latency);
        systemPower.getReportedOutputPower();
        Zyr::getInitState();
        rle.getRleStatus();
    }
}

} // namespace benchmark_status
