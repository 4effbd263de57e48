#include "AcmThreshold.h"
#include "FeatureCapability.h"
#include "FrequencyCapability.h"
#include "IAcmHandler.h"
#include "IAlarmHandlerTopApi.h"
#include "IAtpcController.h"
#include "IBasebandSdcController.h"
#include "ICapabilityHandler.h"
#include "ICcdpController.h"
#include "IDspApi.h"
#include "IFrequencyController.h"
#include "IHardwareConfigurationHandler.h"
#include "IIfLoopDriver.h"
#include "ILoopController.h"
#include "IMimoController.h"
#include "IOutputPowerCalculator.h"
#include "IOutputPowerController.h"
#include "IOutputPowerHandler.h"
#include "IPpsController.h"
#include "IRadioCapability.h"
#include "IRauHandler.h"
#include "IRauLatencyCalculator.h"
#include "IRouteUpdater.h"
#include "IRssiHandler.h"
#include "ISpaceDiversityCombinerController.h"
#include "ISpcSimulator.h"
#include "ISpectrumDiagnosticsController.h"
#include "ISystemPowerController.h"
#include "ITapsController.h"
#include "ITapsControllerLog.h"
#include "ITxIQImbalanceHandler.h"
#include "IZyrRleHandler.h"
#include "RecoveryController.h"
#include "SlotOrder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

using namespace zyr_top_api;

namespace
{

using zyr_test::slotOf;

/// All operations of an interface in their expected order, the first one behind the destructor.
template <class... Members>
void expectSlotsBehindDestructor(Members... members)
{
    const std::vector<std::ptrdiff_t> slots{slotOf(members)...};
    for (std::size_t index = 0; index < slots.size(); ++index) {
        EXPECT_EQ(slots[index], static_cast<std::ptrdiff_t>(index) + 2) << "operation " << index;
    }
}

} // namespace

TEST(SlotOrderTest, HelperTellsVirtualFromPlainOperations)
{
    struct Plain
    {
        void operation() const {}
    };
    struct Virtual
    {
        virtual ~Virtual() = default;
        virtual void first() = 0;
        virtual void second() = 0;
    };
    EXPECT_EQ(slotOf(&Plain::operation), -1);
    EXPECT_EQ(slotOf(&Virtual::first), 2);
    EXPECT_EQ(slotOf(&Virtual::second), 3);
}

TEST(SlotOrderTest, AlarmHandler)
{
    using I = IAlarmHandlerTopApi;
    expectSlotsBehindDestructor(&I::getAlarms, &I::getFastAlarms, &I::releaseFastAlarmRequests,
                                &I::getAlarmsByOption, &I::setAlarmEvents);
}

TEST(SlotOrderTest, LoopController)
{
    using I = nord::zyr::loops::ILoopController;
    expectSlotsBehindDestructor(&I::getLoops, &I::setLoop);
}

TEST(SlotOrderTest, DspAcm)
{
    using I = IDspAcmApi;
    expectSlotsBehindDestructor(&I::setAcmRlpControl, &I::setAcmMode, &I::getAcmMode, &I::getAcmThresholds);
}

TEST(SlotOrderTest, OutputPowerHandler)
{
    using I = IOutputPowerHandler;
    expectSlotsBehindDestructor(&I::getReducedGain, &I::getTxRfGain, &I::setTxRfGain, &I::setBarOn,
                                &I::isBarOn, &I::getTxIfOutputPower, &I::setTxIfOutputPower, &I::setTxIfBarOn,
                                &I::isTxIfBarOn, &I::getDacValue, &I::testGetDetectedPower,
                                &I::testGetDetectorInUse, &I::testGetDetectorData);
}

TEST(SlotOrderTest, CcdpController)
{
    using I = ICcdpController;
    expectSlotsBehindDestructor(&I::setBar, &I::getBar, &I::forceXpic, &I::xpicMute, &I::getLinkType,
                                &I::setPreamble, &I::getPreamble, &I::xpicAcquireStart,
                                &I::getXpicStatusStruct);
}

TEST(SlotOrderTest, RauLatencyCalculator)
{
    using I = IRauLatencyCalculator;
    expectSlotsBehindDestructor(&I::getCurrentLatency, &I::calculateAndSetDspDelayCompensation);
}

TEST(SlotOrderTest, SpaceDiversityCombiner)
{
    using I = ISpaceDiversityCombinerController;
    expectSlotsBehindDestructor(&I::reservedOperation, &I::setSdcEnable, &I::getSdcOperStatus,
                                &I::setDadeCalibration, &I::getSdcDadeStatus, &I::setSdcPath,
                                &I::getSdcActualPath, &I::getSdcSignalStatus, &I::setRlConfiguration,
                                &I::getSdcDadeDelay);
}

TEST(SlotOrderTest, BasebandSdc)
{
    using I = IBasebandSdcController;
    expectSlotsBehindDestructor(&I::start, &I::stop, &I::startDadeCalibration, &I::abortDadeCalibration,
                                &I::resetDadeCalibration, &I::setDadeParams, &I::setChannels);
}

TEST(SlotOrderTest, IfLoopDriver)
{
    using I = IIfLoopDriver;
    expectSlotsBehindDestructor(&I::getIfLoop, &I::setIfLoop);
}

TEST(BasesTest, CollaboratorsHaveTheInterfaceRoot)
{
    EXPECT_TRUE((std::is_base_of_v<IInterface, IRadio>));
    EXPECT_TRUE((std::is_base_of_v<IRadio, IRauHandler>));
    EXPECT_TRUE((std::is_base_of_v<IInterface, ITapsController>));
    EXPECT_TRUE((std::is_base_of_v<SpcObservee<ITapsController>, ITapsController>));
    EXPECT_FALSE((std::is_base_of_v<IInterface, nord::zyr::services::recovery::RecoveryController>));
    EXPECT_FALSE((std::is_base_of_v<IInterface, IDspChannelApi>));
    EXPECT_FALSE((std::is_base_of_v<IInterface, IDspStatusApi>));
    EXPECT_FALSE((std::is_base_of_v<IInterface, IDspControlApi>));
    EXPECT_FALSE((std::is_base_of_v<IInterface, IDspAcmApi>));
}

TEST(BasesTest, EveryBaseHasAVirtualDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<IInterface>);
    EXPECT_TRUE(std::has_virtual_destructor_v<IDspChannelApi>);
    EXPECT_TRUE(std::has_virtual_destructor_v<IDspStatusApi>);
    EXPECT_TRUE(std::has_virtual_destructor_v<IDspControlApi>);
    EXPECT_TRUE(std::has_virtual_destructor_v<IDspAcmApi>);
    EXPECT_TRUE(std::has_virtual_destructor_v<SpcObservee<ITapsController>>);
    EXPECT_TRUE(std::has_virtual_destructor_v<nord::zyr::services::recovery::RecoveryController>);
}

TEST(BasesTest, RecoveryControllerIsFoundAcrossFromTheInterfaceRoot)
{
    using nord::zyr::services::recovery::RecoveryController;
    struct Published : IInterface, RecoveryController
    {
        ETIResult startDspRecovery(Recover) override { return static_cast<ETIResult>(0x8123); }
    };
    Published published;
    IInterface* root = &published;
    auto* found = dynamic_cast<RecoveryController*>(root);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->startDspRecovery(Recover::Dsp), 0x8123U);
    EXPECT_EQ(dynamic_cast<IRadio*>(root), nullptr);
}

TEST(InterfaceNameTest, NumberFormLeavesOutZero)
{
    EXPECT_EQ(IInterface::interfaceName("X", 0U), "X");
    EXPECT_EQ(IInterface::interfaceName("X", 1U), "X_1");
    EXPECT_EQ(IInterface::interfaceName("X", 4294967295U), "X_4294967295");
    EXPECT_EQ(IInterface::interfaceName("", 2U), "_2");
}

TEST(InterfaceNameTest, ChannelFormKeepsZero)
{
    EXPECT_EQ(IInterface::interfaceName("X", RadioChannel(0)), "X_0");
    EXPECT_EQ(IInterface::interfaceName("X", RadioChannel(2)), "X_2");
    EXPECT_EQ(IInterface::interfaceName("X", MutableRadioChannel(0)), "X_0");
    EXPECT_EQ(IInterface::interfaceName("X", MutableRadioChannel(1)), "X_1");
}

TEST(InterfaceNameTest, NamesOfTheInterfacesThatFormTheirOwn)
{
    EXPECT_EQ(IRauHandler::interfaceName(RadioChannel(1)), "IRauHandler_1");
    EXPECT_EQ(ISystemPowerController::interfaceName(RadioChannel(2)), "ISystemPowerController_2");
    EXPECT_EQ(IOutputPowerController::interfaceName(RadioChannel(1)), "IOutputPowerController_1");
    EXPECT_EQ(ITapsController::interfaceName(RadioChannel(0)), "ITapsController_0");
    EXPECT_EQ(IBasebandSdcController::interfaceName(0), "IBasebandSdcController");
    EXPECT_EQ(IBasebandSdcController::interfaceName(2), "IBasebandSdcController_2");
    EXPECT_EQ(nord::zyr::pps::IPpsController::interfaceName(RadioChannel(1)), "IPpsController1");
    EXPECT_EQ(nord::zyr::pps::IPpsController::interfaceName(RadioChannel(2)), "IPpsController2");
}

// What follows is checked by the compiler: the layouts that modules built apart from this library rely on.

static_assert(sizeof(RauLatencyGroup) == 12);
static_assert(offsetof(RauLatencyGroup, value) == 0);
static_assert(offsetof(RauLatencyGroup, hasValue) == 4);
static_assert(offsetof(RauLatencyGroup, secondFlag) == 5);
static_assert(offsetof(RauLatencyGroup, reserved) == 6);
static_assert(sizeof(RauLatencyRequest) == 80);
static_assert(offsetof(RauLatencyRequest, reserved) == 0);
static_assert(offsetof(RauLatencyRequest, group1) == 8);
static_assert(offsetof(RauLatencyRequest, group2) == 20);
static_assert(offsetof(RauLatencyRequest, group3) == 32);
static_assert(offsetof(RauLatencyRequest, group4) == 44);
static_assert(offsetof(RauLatencyRequest, group5) == 56);
static_assert(offsetof(RauLatencyRequest, group6) == 68);
static_assert(std::is_trivially_copyable_v<RauLatencyRequest>);

static_assert(offsetof(XpicStatusStruct, xpdDbTenths) == 0);
static_assert(offsetof(XpicStatusStruct, slaveCarrierOffsetHz) == 4);
static_assert(offsetof(XpicStatusStruct, slaveSweepInProgress) == 8);
static_assert(offsetof(XpicStatusStruct, calibStatus) == 9);

static_assert(offsetof(MimoStatusStruct, gainDifferenceDbTenths) == 0);
static_assert(offsetof(MimoStatusStruct, etaTenThousands) == 4);
static_assert(offsetof(MimoStatusStruct, slaveSweepInProgress) == 8);
static_assert(offsetof(MimoStatusStruct, spatialSlaveSweepStatus) == 9);
static_assert(offsetof(MimoStatusStruct, xpdDbTenths) == 12);
static_assert(offsetof(MimoStatusStruct, spatialXpdDbTenths) == 16);
static_assert(offsetof(MimoStatusStruct, spatialCarrierOffsetHz) == 20);
static_assert(offsetof(MimoStatusStruct, slaveCarrierOffsetHz) == 24);
static_assert(offsetof(MimoStatusStruct, spatialSlaveCarrierOffsetHz) == 28);
static_assert(offsetof(MimoStatusStruct, diversityMute) == 32);

static_assert(sizeof(FrequencyCapability) == 14 * 4);
static_assert(offsetof(FrequencyCapability, FrequencyBand) == 0);
static_assert(offsetof(FrequencyCapability, FrequencySubBand) == 4);
static_assert(offsetof(FrequencyCapability, MinTXFrequency) == 8);
static_assert(offsetof(FrequencyCapability, MaxTXFrequency) == 12);
static_assert(offsetof(FrequencyCapability, MinRXFrequency) == 16);
static_assert(offsetof(FrequencyCapability, MaxRXFrequency) == 20);
static_assert(offsetof(FrequencyCapability, FrequencyStepSize) == 24);
static_assert(offsetof(FrequencyCapability, TXBaseFrequency) == 28);
static_assert(offsetof(FrequencyCapability, RXBaseFrequency) == 32);
static_assert(offsetof(FrequencyCapability, MinTXFrequencyStep) == 36);
static_assert(offsetof(FrequencyCapability, MaxTXFrequencyStep) == 40);
static_assert(offsetof(FrequencyCapability, MinRXFrequencyStep) == 44);
static_assert(offsetof(FrequencyCapability, MaxRXFrequencyStep) == 48);
static_assert(offsetof(FrequencyCapability, DuplexType) == 52);

static_assert(sizeof(FeatureCapability) == 6);
static_assert(offsetof(FeatureCapability, RfLoopAvailable) == 0);
static_assert(offsetof(FeatureCapability, CarrierAggregationCapable) == 1);
static_assert(offsetof(FeatureCapability, SpaceDiversityCombinerCapable) == 2);
static_assert(offsetof(FeatureCapability, LongHaulBoosterCapable) == 3);
static_assert(offsetof(FeatureCapability, PathLatencyCapable) == 4);
static_assert(offsetof(FeatureCapability, Is2T2R) == 5);

static_assert(sizeof(SpectrumDiagnosticsProperties) == 4);
static_assert(offsetof(SpectrumDiagnosticsProperties, isLongHaul) == 0);
static_assert(offsetof(SpectrumDiagnosticsProperties, hasAdjustableDiplexer) == 1);
static_assert(offsetof(SpectrumDiagnosticsProperties, isRadioCarrierAggrCapable) == 2);
static_assert(offsetof(SpectrumDiagnosticsProperties, isSdcSupported) == 3);
static_assert(sizeof(SpectrumDiagnosticsResult) == 8);
static_assert(offsetof(SpectrumDiagnosticsResult, Rssi) == 4);

static_assert(sizeof(RauPowerMode) == 2);
static_assert(offsetof(RauPowerMode, trxId) == 0);
static_assert(offsetof(RauPowerMode, powerMode) == 1);

static_assert(sizeof(DspErrorBlocks) == 16);
static_assert(offsetof(DspErrorBlocks, erroredBlocks) == 0);
static_assert(offsetof(DspErrorBlocks, backgroundBlocks) == 4);
static_assert(offsetof(DspErrorBlocks, errorBytes) == 8);
static_assert(offsetof(DspErrorBlocks, totalBytes) == 12);

static_assert(sizeof(TxDetectorData) == 8 * 4);
static_assert(offsetof(TxDetectorData, highDetector) == 0);
static_assert(offsetof(TxDetectorData, adcValue) == 4);
static_assert(offsetof(TxDetectorData, powerFromVoltage) == 8);
static_assert(offsetof(TxDetectorData, powerTemperatureCompensation) == 12);
static_assert(offsetof(TxDetectorData, powerFrequencyTemperatureCompensation) == 16);
static_assert(offsetof(TxDetectorData, modulationCompensation) == 20);
static_assert(offsetof(TxDetectorData, bandwidthCompensation) == 24);
static_assert(offsetof(TxDetectorData, detectedPower) == 28);

static_assert(std::is_trivially_destructible_v<AcmThreshold>);
static_assert(std::is_empty_v<TiSetEventsCommand>);

static_assert(sizeof(Action) == 4);
static_assert(static_cast<std::uint32_t>(Action::Read) == 0);
static_assert(static_cast<std::uint32_t>(Action::Write) == 1);
static_assert(static_cast<std::uint32_t>(ETxPowerOverrideState::ForcedOff) == 0);
static_assert(static_cast<std::uint32_t>(ETxPowerOverrideState::AsRequested) == 1);
static_assert(sizeof(EDspATxMode) == 4 && sizeof(LinkType) == 4 && sizeof(SdcStatus) == 4 &&
              sizeof(MimoLockStatus) == 4 && sizeof(RouteType) == 4 && sizeof(XpicAcquireMode) == 4 &&
              sizeof(XpicSpectralInversionMode) == 4 && sizeof(EACMHResult) == 4 && sizeof(ERAUHResult) == 4);

TEST(RecordTest, LatencyRequestStartsAsZeroButForTheSecondFlags)
{
    const RauLatencyRequest request{};
    std::array<unsigned char, 80> bytes{};
    std::memcpy(bytes.data(), &request, bytes.size());
    for (std::size_t offset = 0; offset < bytes.size(); ++offset) {
        const auto isSecondFlag = offset >= 8 && (offset - 8) % 12 == 5;
        EXPECT_EQ(bytes[offset], isSecondFlag ? 1 : 0) << "offset " << offset;
    }
}

TEST(RecordTest, PowerModeStartsAsTransmitterOneAndZero)
{
    const RauPowerMode mode{};
    EXPECT_EQ(mode.trxId, 1);
    EXPECT_EQ(mode.powerMode, 0);
}

TEST(RecordTest, TapsSampleStartsEmpty)
{
    const TapsLogData sample{};
    EXPECT_EQ(sample.samplesRemaining, 0);
    EXPECT_EQ(sample.timeStamp, "");
    EXPECT_EQ(sample.maxPowerOut, 0);
    EXPECT_FALSE(sample.atpcEnabled);
}

TEST(DefaultBodyTest, AcmHandlerAnswers0x8001)
{
    class Handler : public IAcmHandler
    {
    } handler;
    unsigned phyMode = 7;
    auto rx = ModulationAndCoding::QAM_4;
    auto tx = ModulationAndCoding::QAM_16;
    const std::map<Modulation, int> capability;
    EXPECT_EQ(handler.enableAcm(true), 0x8001U);
    EXPECT_EQ(handler.muteAcm(), 0x8001U);
    EXPECT_EQ(handler.restoreAcm(), 0x8001U);
    EXPECT_EQ(handler.setMinMaxModulationAndCode(rx, tx), 0x8001U);
    EXPECT_EQ(handler.getPhyMode(rx, phyMode), 0x8001U);
    EXPECT_EQ(handler.isFarEndPmaxCapabilityDifferent(capability), 0x8001U);
    EXPECT_EQ(handler.setFarEndPmaxCapability(capability), 0x8001U);
    EXPECT_EQ(handler.syncAfterWarmRestart(), 0x8001U);
    EXPECT_EQ(handler.getLowestModulationAndCode(rx, tx, true), 0x8001U);
    EXPECT_EQ(phyMode, 7U);
    EXPECT_EQ(rx, ModulationAndCoding::QAM_4);
    EXPECT_EQ(tx, ModulationAndCoding::QAM_16);
    EXPECT_EQ(static_cast<std::uint32_t>(handler.getCurrentTxModulationAndCode()), 163U);
    EXPECT_EQ(static_cast<std::uint32_t>(handler.getCurrentRxModulationAndCode()), 163U);
    EXPECT_NO_THROW(handler.cacheThresholds());
    EXPECT_NO_THROW(handler.disableModulation());
    EXPECT_NO_THROW(handler.enableModulation());
}

namespace
{

/// A DSP channel that has nothing but its obligatory operations.
class BareDspChannel : public IDspChannelApi
{
  public:
    bool isConfigured() override { return true; }
    EDspChannelState getChannelState() override { return EDspChannelState::Blocked; }
    ETIResult getDspTxMode(bcm::types::ModemChain, EDspATxMode&, int&, int&) override { return eTI_S_OK; }
    ETIResult setDspTxMode(bcm::types::ModemChain, EDspATxMode, int, int) override { return eTI_S_OK; }
    void injectI2cError(unsigned) override {}
};

/// A DSP status that has nothing but its obligatory operations.
class BareDspStatus : public IDspStatusApi
{
  public:
    bool isLinkUp() override { return true; }
    ETIResult getErrorBlocks(DspErrorBlocks&, bool) override { return eTI_S_OK; }
    std::int32_t getSnir() override { return 0; }
    std::int32_t getLowestSnir(bool) override { return 0; }
    std::int32_t getEbSinceLastRxLock() override { return 0; }
    std::int32_t getRxLockedCounter() override { return 0; }
    void injectComError(unsigned, unsigned) override {}
};

/// An XPIC controller that has nothing but its obligatory operations.
class BareCcdpController : public ICcdpController
{
  public:
    ETIResult setBar(bool on) override
    {
        m_bar = on;
        return eTI_S_OK;
    }
    ETIResult forceXpic(LinkType) override { return eTI_S_OK; }
    ETIResult xpicMute(bool) override { return eTI_S_OK; }
    ETIResult getPreamble(XpicMimoPreamble&) override { return eTI_S_OK; }
    ETIResult xpicAcquireStart(XpicAcquireMode, XpicSpectralInversionMode) override { return eTI_S_OK; }
    ETIResult getXpicStatusStruct(XpicStatusStruct&) override { return eTI_S_OK; }
    ETIResult start(LinkType) override { return eTI_S_OK; }
    ETIResult stop() override { return eTI_S_OK; }
    bool isStarted() override { return false; }
    ETIResult getXpi(int&) override { return eTI_S_OK; }
    ETIResult getState(std::string&) override { return eTI_S_OK; }
};

} // namespace

TEST(DefaultBodyTest, DspChannelAnswers4100AndLeavesItsArguments)
{
    BareDspChannel channel;
    bool locked = true;
    auto status = PpsCalibStatus::Successful;
    auto reason = PpsCalibReasonOfFailure::CoarseNeeded;
    std::uint32_t nanoSec = 9;
    std::int32_t filter = 9;
    auto calibration = MimoCalibrationStatus::Success;
    EXPECT_EQ(channel.getPpfLockStatus(locked), 4100U);
    EXPECT_EQ(channel.ppsRtcCalibrationStart(PpsRtcCalibrationMode::Auto, 1), 4100U);
    EXPECT_EQ(channel.ppsStatusGet(status, reason), 4100U);
    EXPECT_EQ(channel.ppsHopLengthTimeGet(nanoSec), 4100U);
    EXPECT_EQ(channel.ppsConfigure(PpsSource::External, 1), 4100U);
    EXPECT_EQ(channel.ppsOutputModeSet(PpsOutputMode::On), 4100U);
    EXPECT_EQ(channel.setRxChainDelay(bcm::types::ModemChain::Main, 1), 4100U);
    EXPECT_EQ(channel.mimoDiversityMute(true), 4100U);
    EXPECT_EQ(channel.mimoConfigurationSet(), 4100U);
    EXPECT_EQ(channel.mimoCrossConnectDelayCalibrationStart(), 4100U);
    EXPECT_EQ(channel.mimoCrossConnectDelayCalibrationStatusGet(calibration), 4100U);
    EXPECT_EQ(channel.setTxFrequency(1), 4100U);
    EXPECT_EQ(channel.setRxFrequency(1), 4100U);
    EXPECT_EQ(channel.setNarrowWideFilters(1), 4100U);
    EXPECT_EQ(channel.getNarrowWideFilters(filter), 4100U);
    EXPECT_TRUE(locked);
    EXPECT_EQ(status, PpsCalibStatus::Successful);
    EXPECT_EQ(reason, PpsCalibReasonOfFailure::CoarseNeeded);
    EXPECT_EQ(nanoSec, 9U);
    EXPECT_EQ(filter, 9);
    EXPECT_EQ(calibration, MimoCalibrationStatus::Success);
}

TEST(DefaultBodyTest, DspChannelDelaysAnswerFalseAndLeaveTheirArguments)
{
    BareDspChannel channel;
    std::int16_t nanoSec = 9;
    std::uint8_t samples = 9;
    EXPECT_FALSE(channel.onePpsAsymmetryCompensation(Action::Read, nanoSec));
    EXPECT_FALSE(channel.rxChainDelay(Action::Read, bcm::types::ModemChain::Main, samples));
    EXPECT_FALSE(
        channel.rxEqualizerFeedForwardFilterDelay(Action::Write, bcm::types::ModemChain::Main, samples));
    EXPECT_EQ(nanoSec, 9);
    EXPECT_EQ(samples, 9);
}

TEST(DefaultBodyTest, DspStatusAnswersNotSupported)
{
    BareDspStatus status;
    std::int16_t internal = 1;
    std::int16_t external = 2;
    EXPECT_EQ(status.getSlaveAgc(internal, external), 4100U);
    EXPECT_EQ(internal, -500);
    EXPECT_EQ(external, -500);

    std::array<std::int16_t, 5> values{1, 2, 3, 4, 5};
    EXPECT_EQ(status.getIqSlaveImbalance(values[0], values[1], values[2], values[3], values[4]), 4100U);
    EXPECT_EQ(values, (std::array<std::int16_t, 5>{0, 0, 0, 0, 0}));

    MimoStatusStruct mimo;
    EXPECT_EQ(status.mimoStatusGet(mimo), 4100U);

    std::int16_t ch0 = 5;
    std::int16_t ch1 = 6;
    EXPECT_EQ(status.getRxXcStatusLevel(&ch0, &ch1), 32769U);
    EXPECT_EQ(ch0, 5);
    EXPECT_EQ(ch1, 6);
}

TEST(DefaultBodyTest, DspStatusKeepsTheInjection)
{
    BareDspStatus status;
    int cycles = 77;
    EXPECT_FALSE(status.getInjectErrorBlocksData(cycles));
    EXPECT_EQ(cycles, 0);
    status.injectErrorBlocks(true, 12, 50);
    EXPECT_TRUE(status.getInjectErrorBlocksData(cycles));
    EXPECT_EQ(cycles, 12);
    status.injectErrorBlocks(false, 3, 0);
    EXPECT_FALSE(status.getInjectErrorBlocksData(cycles));
    EXPECT_EQ(cycles, 3);
}

TEST(DefaultBodyTest, CcdpControllerAnswers4098AndTheStoredBar)
{
    BareCcdpController controller;
    auto linkType = LinkType::Enable_C;
    EXPECT_EQ(controller.getLinkType(linkType), 4098U);
    EXPECT_EQ(linkType, LinkType::Enable_C);
    EXPECT_EQ(controller.setPreamble(XpicMimoPreamble::Preamble_B), 4098U);
    EXPECT_EQ(controller.getBar(), 0U);
    controller.setBar(true);
    EXPECT_EQ(controller.getBar(), 1U);
    controller.setBar(false);
    EXPECT_EQ(controller.getBar(), 0U);
}

TEST(DefaultBodyTest, CapabilityHandlerCanNothing)
{
    class Handler : public ICapabilityHandler
    {
    } handler;
    EXPECT_FALSE(handler.isLonghaul());
    EXPECT_FALSE(handler.isTapsCapable());
    EXPECT_FALSE(handler.isMaxAcmLimitedByHw());
    EXPECT_EQ(static_cast<std::uint32_t>(handler.getMaxAcmLimitedByHw({})), 163U);
}

TEST(DefaultBodyTest, RssiHandlerHasNoMinimum)
{
    class Handler : public IRssiHandler
    {
      public:
        ERSSIResult calculateRssiThreshold(unsigned, int&) override { return eRSSI_S_OK; }
        ERSSIResult setRssiThreshold(int) override { return eRSSI_S_OK; }
        ETIResult getRssi(int&) override { return eTI_S_OK; }
    } handler;
    EXPECT_EQ(handler.getRssiMin(true), -9999);
    EXPECT_EQ(handler.getRssiMin(false), -9999);
}
