#include "IBasebandSdcController.h"
#include "ICcdpController.h"
#include "IPpsController.h"
#include "IRauHandler.h"
#include "ITapsController.h"
#include "ITxIQImbalanceHandler.h"
#include "IZyrRleHandler.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace
{

using namespace std::chrono_literals;
using bcm::types::ModemChain;
using zyr_top_api::BasebandSdcDadeStatus;
using zyr_top_api::LinkType;
using enum zyr_top_api::ModulationAndCoding;

class ControllersTest : public SimulationFixture
{
  protected:
    static ICcdpController& xpic() { return require<ICcdpController>("ICcdpController", 1); }
    static IBasebandSdcController& sdc()
    {
        return require<IBasebandSdcController>("IBasebandSdcController", 1);
    }
    static IRauHandler& rau() { return require<IRauHandler>("IRauHandler", 1); }

    static std::string xpicState()
    {
        std::string state;
        EXPECT_EQ(xpic().getState(state), 0U);
        return state;
    }
};

TEST_F(ControllersTest, xpicLocksOnceStartedWithTheLinkUp)
{
    int xpi = -1;
    EXPECT_FALSE(xpic().isStarted());
    EXPECT_EQ(xpic().start(LinkType::Enable_A), 0U);
    EXPECT_TRUE(xpic().isStarted());
    EXPECT_EQ(xpicState(), "Unlocked");
    EXPECT_EQ(xpic().getXpi(xpi), 0U);
    EXPECT_EQ(xpi, 0);
    configure(1, 202);
    EXPECT_EQ(xpicState(), "Unlocked");
    time().advance(500ms);
    EXPECT_EQ(xpicState(), "Locked");
    EXPECT_EQ(xpic().getXpi(xpi), 0U);
    EXPECT_NEAR(xpi, 200, 5);
    EXPECT_EQ(xpic().xpicMute(true), 0U);
    EXPECT_EQ(xpicState(), "Mute");
    EXPECT_EQ(xpic().stop(), 0U);
    EXPECT_FALSE(xpic().isStarted());
}

TEST_F(ControllersTest, xpicStartedWithDisableIsNotStarted)
{
    EXPECT_EQ(xpic().start(LinkType::Enable_A), 0U);
    EXPECT_EQ(xpic().start(LinkType::Disable), 0U);
    EXPECT_FALSE(xpic().isStarted());
}

TEST_F(ControllersTest, barredXpicStaysAsTheTestHasSetIt)
{
    EXPECT_EQ(xpic().getBar(), 0U);
    EXPECT_EQ(xpic().setBar(true), 0U);
    EXPECT_EQ(xpic().getBar(), 1U);
    EXPECT_EQ(xpic().start(LinkType::Enable_A), 0U);
    EXPECT_FALSE(xpic().isStarted());
    EXPECT_EQ(xpic().forceXpic(LinkType::Enable_B), 0U);
    EXPECT_EQ(xpic().stop(), 0U);
    auto linkType = LinkType::Disable;
    EXPECT_EQ(xpic().getLinkType(linkType), 0U);
    EXPECT_EQ(linkType, LinkType::Enable_B);
}

TEST_F(ControllersTest, slaveSweepsForAWhileAndIsUnlockedMeanwhile)
{
    configure(1, 202);
    EXPECT_EQ(xpic().start(LinkType::Enable_A), 0U);
    EXPECT_EQ(xpic().xpicAcquireStart({}, {}), 0U);
    zyr_top_api::XpicStatusStruct status;
    EXPECT_EQ(xpic().getXpicStatusStruct(status), 0U);
    EXPECT_EQ(status.slaveSweepInProgress, 1);
    EXPECT_EQ(status.calibStatus, 0);
    EXPECT_EQ(xpicState(), "Unlocked");
    time().advance(500ms);
    EXPECT_EQ(xpic().getXpicStatusStruct(status), 0U);
    EXPECT_EQ(status.slaveSweepInProgress, 0);
    EXPECT_EQ(status.calibStatus, 1);
    EXPECT_NEAR(status.xpdDbTenths, 200, 5);
}

TEST_F(ControllersTest, preambleIsKept)
{
    using zyr_top_api::XpicMimoPreamble;
    auto preamble = XpicMimoPreamble::Preamble_D;
    EXPECT_EQ(xpic().getPreamble(preamble), 0U);
    EXPECT_EQ(preamble, XpicMimoPreamble::Preamble_A);
    EXPECT_EQ(xpic().setPreamble(XpicMimoPreamble::Preamble_C), 0U);
    EXPECT_EQ(xpic().getPreamble(preamble), 0U);
    EXPECT_EQ(preamble, XpicMimoPreamble::Preamble_C);
}

TEST_F(ControllersTest, combinerCalibratesWhenItIsStartedSo)
{
    EXPECT_FALSE(sdc().isStarted());
    EXPECT_EQ(sdc().startDadeCalibration(), 0x8000U) << "not started";
    EXPECT_EQ(sdc().start(true), 0U);
    time().advance(399ms);
    EXPECT_FALSE(sdc().isStarted());
    EXPECT_EQ(sdc().startDadeCalibration(), 0x8000U) << "still starting";
    time().advance(1ms);
    EXPECT_TRUE(sdc().isStarted());
    EXPECT_EQ(sdc().getDadeStatus(), BasebandSdcDadeStatus::CalibrationOngoing);
    EXPECT_EQ(sdc().resetDadeCalibration(), 0x1003U);
    time().advance(2s);
    EXPECT_EQ(sdc().getDadeStatus(), BasebandSdcDadeStatus::Calibrated);
    EXPECT_EQ(sdc().setDadeParams(0x1234, 0x00F0), 0U);
    EXPECT_EQ(sdc().getCalibrationData(), 0x00F01234U);
    EXPECT_EQ(sdc().getDadeDelay(), 0x1234 - 0x00F0);
    EXPECT_EQ(sdc().resetDadeCalibration(), 0U);
    EXPECT_EQ(sdc().getDadeStatus(), BasebandSdcDadeStatus::CalibrationNotStarted);
    EXPECT_EQ(sdc().getDadeDelay(), 0);
}

TEST_F(ControllersTest, combinerCalibrationStopsAWhileAfterItIsAborted)
{
    EXPECT_EQ(sdc().start(true), 0U);
    time().advance(400ms);
    EXPECT_EQ(sdc().abortDadeCalibration(), 0U);
    EXPECT_EQ(sdc().getDadeStatus(), BasebandSdcDadeStatus::CalibrationStopping);
    EXPECT_EQ(sdc().resetDadeCalibration(), 0x1003U);
    time().advance(200ms);
    EXPECT_EQ(sdc().getDadeStatus(), BasebandSdcDadeStatus::CalibrationNotStarted);
    EXPECT_EQ(sdc().abortDadeCalibration(), 0U);
    EXPECT_EQ(sdc().getDadeStatus(), BasebandSdcDadeStatus::CalibrationNotStarted);
    EXPECT_EQ(sdc().stop(), 0U);
    time().advance(399ms);
    EXPECT_TRUE(sdc().isStarted());
    time().advance(1ms);
    EXPECT_FALSE(sdc().isStarted());
}

TEST_F(ControllersTest, combinerKeepsAnOlderCalibrationWhenANewOneIsAborted)
{
    EXPECT_EQ(sdc().start(true), 0U);
    time().advance(2400ms);
    EXPECT_EQ(sdc().setDadeParams(30, 10), 0U);
    EXPECT_EQ(sdc().startDadeCalibration(), 0U);
    EXPECT_EQ(sdc().abortDadeCalibration(), 0U);
    time().advance(200ms);
    EXPECT_EQ(sdc().getDadeStatus(), BasebandSdcDadeStatus::Calibrated);
    EXPECT_EQ(sdc().getDadeDelay(), 20);
    EXPECT_EQ(sdc().stop(), 0U);
    time().advance(400ms);
    EXPECT_EQ(sdc().getDadeStatus(), BasebandSdcDadeStatus::CalibrationNotStarted);
    EXPECT_EQ(sdc().getDadeDelay(), 0);
}

TEST_F(ControllersTest, combinerMeasuresThePathsThatAreOn)
{
    startNode({.pathLoss_dBTenths = 905, .diversityPathLoss_dBTenths = 920, .fading_dBTenths = 0});
    configure(1);
    EXPECT_EQ(sdc().start(false), 0U);
    EXPECT_EQ(sdc().getStatus().gain, 0) << "still starting";
    time().advance(400ms);
    EXPECT_EQ(sdc().getStatus().snirMain, -200);
    EXPECT_EQ(sdc().getStatus().snirDiversity, -185);
    EXPECT_EQ(sdc().getStatus().gain, 6) << "not calibrated";
    EXPECT_EQ(sdc().startDadeCalibration(), 0U);
    time().advance(2s);
    EXPECT_EQ(sdc().getStatus().gain, 18);
    EXPECT_EQ(sdc().setChannels(true, false), 0U);
    EXPECT_EQ(sdc().getStatus().snirMain, -200);
    EXPECT_EQ(sdc().getStatus().snirDiversity, 0);
    EXPECT_EQ(sdc().getStatus().gain, 0);
}

TEST_F(ControllersTest, delaysAreWrittenAndRead)
{
    std::int16_t asymmetry = -300;
    EXPECT_TRUE(dspChannel(1).onePpsAsymmetryCompensation(Action::Write, asymmetry));
    asymmetry = 0;
    EXPECT_TRUE(dspChannel(1).onePpsAsymmetryCompensation(Action::Read, asymmetry));
    EXPECT_EQ(asymmetry, -300);

    std::uint8_t samples = 17;
    EXPECT_TRUE(dspChannel(1).rxChainDelay(Action::Write, ModemChain::XpicSlave, samples));
    samples = 0;
    EXPECT_TRUE(dspChannel(1).rxChainDelay(Action::Read, ModemChain::XpicSlave, samples));
    EXPECT_EQ(samples, 17);
    EXPECT_TRUE(
        dspChannel(1).rxEqualizerFeedForwardFilterDelay(Action::Read, ModemChain::XpicSlave, samples));
    EXPECT_EQ(samples, 0);
    EXPECT_EQ(dspChannel(1).setRxChainDelay(ModemChain::MimoSpatial, 5), 0U);
    EXPECT_TRUE(dspChannel(1).rxChainDelay(Action::Read, ModemChain::MimoSpatial, samples));
    EXPECT_EQ(samples, 5);

    node().faults().inject({"IDspChannelApi", "rxChainDelay", 1, 0x8000, 1});
    EXPECT_FALSE(dspChannel(1).rxChainDelay(Action::Read, ModemChain::Main, samples));
}

TEST_F(ControllersTest, settingsOverI2cFailAsOftenAsInjected)
{
    dspChannel(1).injectI2cError(2);
    EXPECT_EQ(dspChannel(1).setTxFrequency(140), 0x8000U);
    EXPECT_EQ(dspChannel(1).setNarrowWideFilters(1), 0x8000U);
    EXPECT_EQ(dspChannel(1).setTxFrequency(140), 0U);
    EXPECT_EQ(dspChannel(1).setRxFrequency(350), 0U);
    EXPECT_EQ(dspChannel(1).setNarrowWideFilters(1), 0U);
    std::int32_t filter = 0;
    EXPECT_EQ(dspChannel(1).getNarrowWideFilters(filter), 0U);
    EXPECT_EQ(filter, 1);
    EXPECT_EQ(node().channel(1).dsp.txIfFrequency, 140);
    EXPECT_EQ(node().channel(1).dsp.rxIfFrequency, 350);
}

TEST_F(ControllersTest, signalOfEachChainIsKept)
{
    EXPECT_EQ(dspChannel(1).setDspTxMode(ModemChain::XpicSlave, zyr_top_api::eDspATxModeToneSweep, 7, 9), 0U);
    auto mode = zyr_top_api::eDspATxModeUndefined;
    int sweepTime = -1;
    int toneFrequency = -1;
    EXPECT_EQ(dspChannel(1).getDspTxMode(ModemChain::XpicSlave, mode, sweepTime, toneFrequency), 0U);
    EXPECT_EQ(mode, zyr_top_api::eDspATxModeToneSweep);
    EXPECT_EQ(sweepTime, 7);
    EXPECT_EQ(toneFrequency, 9);
    EXPECT_EQ(dspChannel(1).getDspTxMode(ModemChain::Main, mode, sweepTime, toneFrequency), 0U);
    EXPECT_EQ(mode, zyr_top_api::eDspATxModeNormal);
}

TEST_F(ControllersTest, acmOfTheDspIsKept)
{
    using zyr_top_api::AcmMode;
    using zyr_top_api::AcmModePosition;
    auto& acmApi = *dsp(1).getAcmApi();
    EXPECT_EQ(acmApi.setAcmMode(AcmMode::Basic, AcmModePosition::External), 0U);
    EXPECT_EQ(acmApi.setAcmRlpControl(zyr_top_api::AcmRlpControl::StandbyTx), 0U);
    auto mode = AcmMode::Undefined;
    auto position = AcmModePosition::Undefined;
    EXPECT_EQ(acmApi.getAcmMode(mode, position), 0U);
    EXPECT_EQ(mode, AcmMode::Basic);
    EXPECT_EQ(position, AcmModePosition::External);
    EXPECT_EQ(node().channel(1).dsp.rlpControl, zyr_top_api::AcmRlpControl::StandbyTx);
}

TEST_F(ControllersTest, thresholdsAreThoseOfTheRange)
{
    EXPECT_TRUE(dsp(1).getAcmApi()->getAcmThresholds().empty());
    EXPECT_EQ(acm(1).setMinMaxModulationAndCode(QAM_4_LIGHT, QAM_16_STRONG), 0U);
    const auto thresholds = dsp(1).getAcmApi()->getAcmThresholds();
    ASSERT_EQ(thresholds.size(), 2U);
    EXPECT_EQ(thresholds[0].modulationAndCoding, QAM_4_LIGHT);
    EXPECT_EQ(thresholds[0].threshold, 82);
    EXPECT_EQ(thresholds[1].modulationAndCoding, QAM_16_STRONG);
    EXPECT_EQ(thresholds[1].threshold, 115);
}

TEST_F(ControllersTest, acmFailsAsOftenAsTheDspWasTold)
{
    dsp(1).getAcmApi()->injectEnableFailure(1);
    EXPECT_EQ(acm(1).enableAcm(false), 0U) << "only enabling fails";
    EXPECT_EQ(acm(1).enableAcm(true), 0x8000U);
    EXPECT_EQ(acm(1).enableAcm(true), 0U);
    configure(1);
    dsp(1).getAcmApi()->injectThresholdFailure(1);
    EXPECT_EQ(acm(1).setFarEndPmaxCapability({}), 0x8000U);
    EXPECT_EQ(acm(1).setFarEndPmaxCapability({}), 0U);
}

TEST_F(ControllersTest, slaveReadingsAreThere)
{
    std::int16_t internalAgc = 0;
    std::int16_t externalAgc = 0;
    EXPECT_EQ(dspStatus(1).getSlaveAgc(internalAgc, externalAgc), 0U);
    EXPECT_EQ(internalAgc, 640);
    EXPECT_EQ(externalAgc, 150) << "it hears nothing yet";
    std::int16_t first = 9;
    std::int16_t gain = 9;
    std::int16_t third = 9;
    std::int16_t fourth = 9;
    std::int16_t fifth = 9;
    EXPECT_EQ(dspStatus(1).getIqSlaveImbalance(first, gain, third, fourth, fifth), 0U);
    EXPECT_EQ(gain, 0);
    EXPECT_EQ(fifth, 0);
    EXPECT_EQ(dspStatus(1).getRxXcStatusLevel(&first, &third), 0U);
    EXPECT_EQ(first, -990);
    EXPECT_EQ(third, -990);
}

TEST_F(ControllersTest, encryptionIsKeptAndTheKeyIsNot)
{
    auto& encryption = require<zyr::IZyrRleHandler>("IZyrRleHandler", 1);
    EXPECT_EQ(encryption.getRleStatus(), 0);
    EXPECT_FALSE(encryption.setRadioLinkEncryption("", 14'560'000, 14'980'000, true));
    EXPECT_EQ(encryption.getRleStatus(), 0);
    EXPECT_TRUE(encryption.setRadioLinkEncryption("a key of this length", 14'560'000, 14'980'000, true));
    EXPECT_EQ(encryption.getRleStatus(), 2);
    configure(1);
    EXPECT_EQ(encryption.getRleStatus(), 1);
    EXPECT_EQ(node().channel(1).encryption.txFrequency_kHz, 14'560'000U);
    EXPECT_TRUE(encryption.setRadioLinkEncryption("", 0, 0, false));
    EXPECT_EQ(encryption.getRleStatus(), 0);
}

TEST_F(ControllersTest, powerModesOfBothTransmittersStandInOneField)
{
    EXPECT_EQ(rau().setPowerMode({1, 0b0010}), 0U);
    EXPECT_EQ(rau().setPowerMode({2, 0b0100}), 0U);
    unsigned char mode = 0;
    EXPECT_EQ(rau().getPowerMode(1, mode), 0U);
    EXPECT_EQ(mode, 0b0010);
    EXPECT_EQ(rau().getPowerMode(2, mode), 0U);
    EXPECT_EQ(mode, 0b0100);
    EXPECT_EQ(rau().getPowerMode(255, mode), 0U);
    EXPECT_EQ(mode, 0b0110);
    EXPECT_EQ(rau().setPowerMode({255, 0b1001}), 0U);
    EXPECT_EQ(rau().getPowerMode(255, mode), 0U);
    EXPECT_EQ(mode, 0b1001);
    EXPECT_EQ(rau().setPowerMode({3, 0}), 0x800CU);
    EXPECT_EQ(rau().getPowerMode(0, mode), 0x800CU);
}

TEST_F(ControllersTest, radioThatIsNotUpRefuses)
{
    node().setTwoTransmitters(true);
    node().setRadioAvailable(1, false);
    unsigned char mode = 0;
    EXPECT_EQ(rau().setPowerMode({1, 1}), 0x800DU);
    EXPECT_EQ(rau().getPowerMode(1, mode), 0x800DU);
    EXPECT_EQ(rau().setTxIfSwitch2T2R(1, 0), 0x800DU);
    EXPECT_EQ(rau().setActiveSubBand(3), 0x8003U);
    node().setRadioAvailable(1, true);
    EXPECT_EQ(rau().setTxIfSwitch2T2R(1, 0), 0U);
    EXPECT_EQ(rau().setActiveSubBand(3), 0U);
    EXPECT_EQ(node().channel(1).radio.subBand, 3U);
    EXPECT_EQ(node().channel(1).radio.ifSwitchModes.at(0), 1U);
}

TEST_F(ControllersTest, switchOfTwoTransmittersNeedsTwoTransmitters)
{
    EXPECT_FALSE(rau().isRau2T2R());
    EXPECT_EQ(rau().setTxIfSwitch2T2R(1, 0), 0x8004U);
    node().setTwoTransmitters(true);
    EXPECT_TRUE(rau().isRau2T2R());
    EXPECT_EQ(rau().setTxIfSwitch2T2R(1, 0), 0U);
}

TEST_F(ControllersTest, tapsKeepsItsSettings)
{
    auto& taps = require<ITapsController>("ITapsController", 2);
    EXPECT_EQ(taps.setTapsEnable(true), 0U);
    EXPECT_EQ(taps.setHrlbEnabled(true), 0U);
    EXPECT_EQ(taps.setIdleRateOffset(-12, 1), 0U);
    EXPECT_EQ(taps.setIdleRateThresholdFactor(1.25), 0U);
    EXPECT_EQ(taps.setKvalue(8), 0U);
    EXPECT_TRUE(taps.getTapsEnable());
    EXPECT_TRUE(taps.getHrlbEnabled());
    EXPECT_EQ(taps.getIdleRateOffset(), -12);
    EXPECT_EQ(taps.getIdleRateThresholdFactor(), 1.25);
    EXPECT_EQ(taps.getKvalue(), 8);
    EXPECT_FALSE(node().channel(1).taps.enabled);
}

TEST_F(ControllersTest, frequencyListenersKeepWhatTheyAreTold)
{
    EXPECT_EQ(require<ITxIQImbalanceHandler>("ITxIQImbalanceHandler", 1).OnTxFrequencyChanged(123), 0U);
    EXPECT_EQ(power(1).onTxFrequencyChanged(456), 0U);
    EXPECT_EQ(node().channel(1).transmitter.iqFrequency_kHz, 123U);
    EXPECT_EQ(node().channel(1).transmitter.toldFrequency_kHz, 456U);
}

} // namespace
