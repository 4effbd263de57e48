#include "CriGetRadioChannelStatusImpl.h"
#include "CriGetSpectrumDiagnosticsImpl.h"
#include "CriMimoSpatialMuteImpl.h"
#include "CriSetRadioChannelNearEndImpl.h"
#include "CriSetRadioLinkEncryptionImpl.h"
#include "CriXpicSlaveMuteImpl.h"
#include "DirectCall.h"
#include "SimulatedNode.h"
#include "TiManageMimoImpl.h"
#include "TiManageXpicImpl.h"
#include "VirtualTime.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <string>

namespace
{

using namespace std::chrono_literals;
using namespace zyr_top_api;

// Two channels with the same frequencies, through the commands alone.
class SecondStreamByCommandsTest : public testing::Test
{
  protected:
    static CriSetRadioChannelNearEnd::Command nearEnd(std::uint32_t channel, std::uint32_t frame)
    {
        CriSetRadioChannelNearEnd::Command command;
        command.RadioChannelID = RadioChannel(channel);
        command.radioFrameId = frame;
        command.minModulation = ModulationAndCoding::QAM_4;
        command.maxModulation = ModulationAndCoding::QAM_4096;
        command.txFrequency_kHz = 14'500'000;
        command.rxFrequency_kHz = 14'950'000;
        return command;
    }

    void configureForXpic(const std::string& first, const std::string& second)
    {
        std::uint32_t channel = 0;
        for (const auto& linkType : {first, second}) {
            auto command = nearEnd(++channel, 202);
            command.xpicParameterPresent = true;
            command.xpicEnable = linkType;
            direct<CriSetRadioChannelNearEndImpl>(command);
        }
        time.advance(10s);
    }

    static CriGetRadioChannelStatus::Response status(std::uint32_t channel = 1)
    {
        CriGetRadioChannelStatus::Command command;
        command.RadioChannelID = channel;
        return direct<CriGetRadioChannelStatusImpl>(command);
    }

    // XPIC as the status of a channel shows it, the ratios in whole dB.
    static std::string shown(std::uint32_t channel = 1)
    {
        const auto answer = status(channel);
        return answer.RadioChannelStatus + " " + answer.XpicStatus + ", xpi " +
               std::to_string((answer.ActualXpi + 5) / 10) + ", snir " +
               std::to_string((answer.ActualSNIR + 5) / 10);
    }

    // What the slave shows, the ratio in whole dB.
    static std::string slave(const TiManageXpic::Response& answer)
    {
        return std::to_string((answer.xpdDbTenths + 5) / 10) + " dB, sweeps " +
               std::to_string(answer.slaveSweepInProgress) + ", calibrated " +
               std::to_string(answer.calibStatus) + ", gains " + std::to_string(answer.slaveInternalAgc) +
               " " + std::to_string(answer.slaveExternalAgc) + " " + std::to_string(answer.slaveDiffGain);
    }

    static TiManageXpic::Command askForStatus()
    {
        TiManageXpic::Command command;
        command.xpicStatusGet = true;
        return command;
    }

    void configureForMimo(const std::string& linkType)
    {
        auto command = nearEnd(1, 302);
        command.mimoParameterPresent = true;
        command.mimoEnable = linkType;
        direct<CriSetRadioChannelNearEndImpl>(command);
        time.advance(10s);
    }

    // MIMO as the status shows it, with the blocks of a second.
    std::string mimoShown()
    {
        CriGetRadioChannelStatus::Command command;
        command.RadioChannelID = 1;
        command.ResetErrorBlocks = true;
        direct<CriGetRadioChannelStatusImpl>(command);
        time.advance(1s);
        const auto answer = direct<CriGetRadioChannelStatusImpl>(command);
        return answer.RadioChannelStatus + " " + answer.MimoStatus + ", eta " +
               std::to_string((answer.ActualEta + 500) / 1000) + ", blocks " +
               std::to_string(answer.BackgroundBlocks) + ", bytes " + std::to_string(answer.TotalBytes);
    }

    static void muteSpatialPath(bool mute)
    {
        CriMimoSpatialMute::Command command;
        command.channelId = 1;
        command.mute = mute;
        direct<CriMimoSpatialMuteImpl>(command);
    }

    static MimoCalibrationStatus calibration()
    {
        TiManageMimo::Command command;
        command.crossConnectDelayCalibrationStatusGet = true;
        return direct<TiManageMimoImpl>(command).calibrationStatus;
    }

    static CriGetSpectrumDiagnostics::Response scan(const std::string& option)
    {
        CriGetSpectrumDiagnostics::Command command;
        command.RadioChannelID = 1;
        command.RequestOption = option;
        command.DmSleep = 0;
        return direct<CriGetSpectrumDiagnosticsImpl>(command);
    }

    zyr_platform::VirtualTime time;
    zyr_simulation::SimulatedNode node{{.pathLoss_dBTenths = 600, .fading_dBTenths = 0}, time};
};

TEST_F(SecondStreamByCommandsTest, StatusShowsWhatCancellingIsWorth)
{
    configureForXpic("Disable", "Disable");
    EXPECT_EQ(shown(1), "Up , xpi 0, snir 20");
    EXPECT_EQ(shown(2), "Up , xpi 0, snir 20");
    configureForXpic("Enable_A", "Enable_B");
    EXPECT_EQ(shown(1), "Up Locked, xpi 20, snir 43");
    EXPECT_EQ(shown(2), "Up Locked, xpi 20, snir 43");
}

TEST_F(SecondStreamByCommandsTest, MutedSlaveShowsInTheStatus)
{
    configureForXpic("Enable_A", "Enable_B");
    CriXpicSlaveMute::Command mute;
    mute.channelId = 1;
    mute.mute = true;
    direct<CriXpicSlaveMuteImpl>(mute);
    EXPECT_EQ(shown(1), "Up Mute, xpi 0, snir 20");
    EXPECT_EQ(shown(2), "Up Locked, xpi 20, snir 43");

    auto unmute = askForStatus();
    unmute.xpicMute = false;
    EXPECT_EQ(slave(direct<TiManageXpicImpl>(unmute)), "0 dB, sweeps 1, calibrated 0, gains 50 150 3");
    time.advance(500ms);
    EXPECT_EQ(shown(1), "Up Locked, xpi 20, snir 43");
}

TEST_F(SecondStreamByCommandsTest, PreambleThatDoesntPairKeepsTheSlaveSweeping)
{
    configureForXpic("Enable_A", "Enable_B");
    auto command = askForStatus();
    command.xpicPreambleGet = true;
    EXPECT_EQ(xpicMimoPreambleToString(direct<TiManageXpicImpl>(command).xpicPreambleGet), "Preamble_A");
    command.xpicPreambleSet = XpicMimoPreamble::Preamble_D;
    EXPECT_EQ(xpicMimoPreambleToString(direct<TiManageXpicImpl>(command).xpicPreambleGet), "Preamble_D");
    time.advance(10s);
    EXPECT_EQ(slave(direct<TiManageXpicImpl>(askForStatus())),
              "0 dB, sweeps 1, calibrated 0, gains 50 150 3");
    EXPECT_EQ(shown(1), "Up Unlocked, xpi 0, snir 20");
    EXPECT_EQ(shown(2), "Up Unlocked, xpi 0, snir 20");
    command.radioChannelId = 2;
    command.xpicPreambleSet = XpicMimoPreamble::Preamble_C;
    direct<TiManageXpicImpl>(command);
    time.advance(500ms);
    EXPECT_EQ(shown(1), "Up Locked, xpi 20, snir 43");
    EXPECT_EQ(shown(2), "Up Locked, xpi 20, snir 43");
}

TEST_F(SecondStreamByCommandsTest, ForcedLinkTypeHoldsUnderTheBar)
{
    configureForXpic("Enable_A", "Enable_B");
    TiManageXpic::Command command;
    command.xpicControlBarOn = true;
    command.xpicEnableExt = LinkType::Disable;
    EXPECT_EQ(direct<TiManageXpicImpl>(command).xpicEnableExt, LinkType::Disable);
    EXPECT_EQ(shown(1), "Up , xpi 0, snir 20");
    configureForXpic("Enable_A", "Enable_B");
    EXPECT_EQ(shown(1), "Up , xpi 0, snir 20");
    command.xpicControlBarOn = false;
    command.xpicEnableExt = LinkType::Enable_C;
    EXPECT_EQ(direct<TiManageXpicImpl>(command).xpicEnableExt, LinkType::Enable_C);
    time.advance(500ms);
    EXPECT_EQ(shown(1), "Up Locked, xpi 20, snir 43");
}

TEST_F(SecondStreamByCommandsTest, TransmissionThatIsSwitchedOffTakesTheOtherPolarisationAway)
{
    configureForXpic("Enable_A", "Enable_B");
    auto command = askForStatus();
    command.xpicTxEnable = false;
    const auto answer = direct<TiManageXpicImpl>(command);
    EXPECT_FALSE(answer.xpicTxEnable);
    EXPECT_TRUE(answer.xpicCableConnected);
    EXPECT_EQ(slave(answer), "0 dB, sweeps 1, calibrated 0, gains 640 150 0");
    EXPECT_EQ(shown(1), "Up Unlocked, xpi 0, snir 20");
    EXPECT_EQ(shown(2), "Up Unlocked, xpi 0, snir 20");
}

TEST_F(SecondStreamByCommandsTest, AcquisitionTakesItsTime)
{
    configureForXpic("Enable_A", "Enable_B");
    auto command = askForStatus();
    command.xpicAcquireStart = true;
    command.xpicAcquireMode = XpicAcquireMode{1};
    command.xpicSpectralInversionMode = XpicSpectralInversionMode{0};
    EXPECT_EQ(slave(direct<TiManageXpicImpl>(command)), "0 dB, sweeps 1, calibrated 0, gains 50 150 3");
    EXPECT_EQ(shown(1), "Up Unlocked, xpi 0, snir 20");
    time.advance(500ms);
    EXPECT_EQ(slave(direct<TiManageXpicImpl>(askForStatus())),
              "20 dB, sweeps 0, calibrated 1, gains 50 150 3");
}

TEST_F(SecondStreamByCommandsTest, MutedSpatialPathShowsInTheStatusAndTakesHalfOfTheTraffic)
{
    configureForMimo("Enable_A");
    EXPECT_EQ(mimoShown(), "Up Locked, eta 9, blocks 1000, bytes 200000");
    muteSpatialPath(true);
    EXPECT_EQ(mimoShown(), "Up Mute, eta 0, blocks 500, bytes 100000");
    EXPECT_TRUE(direct<TiManageMimoImpl>(TiManageMimo::Command{}).diversityMute);
    muteSpatialPath(false);
    time.advance(1s);
    EXPECT_EQ(mimoShown(), "Up Locked, eta 9, blocks 1000, bytes 200000");
    TiManageMimo::Command command;
    command.diversityMuteSet = true;
    EXPECT_TRUE(direct<TiManageMimoImpl>(command).diversityMute);
    EXPECT_EQ(mimoShown(), "Up Mute, eta 0, blocks 500, bytes 100000");
}

TEST_F(SecondStreamByCommandsTest, MimoSettlesBehindItsConfiguration)
{
    configureForMimo("Enable_A");
    TiManageMimo::Command command;
    command.configurationSet = true;
    const auto first = direct<TiManageMimoImpl>(command);
    EXPECT_TRUE(first.slaveSweepInProgress);
    EXPECT_TRUE(first.spatialSlaveSweepStatus);
    EXPECT_EQ(first.etaTenThousands, 0U);
    EXPECT_GT(first.spatialCarrierOffsetHz, 11'000);
    time.advance(1s);
    const auto settled = direct<TiManageMimoImpl>(TiManageMimo::Command{});
    EXPECT_FALSE(settled.slaveSweepInProgress);
    EXPECT_FALSE(settled.spatialSlaveSweepStatus);
    EXPECT_NEAR(settled.etaTenThousands, 8'940U, 200U);
    EXPECT_LT(settled.spatialCarrierOffsetHz, 500);
}

TEST_F(SecondStreamByCommandsTest, CalibrationOfTheCrossConnectWaitsRunsAndEnds)
{
    using enum MimoCalibrationStatus;
    TiManageMimo::Command start;
    start.crossConnectDelayCalibrationStart = true;
    start.crossConnectDelayCalibrationStatusGet = true;
    EXPECT_EQ(direct<TiManageMimoImpl>(start).calibrationStatus, WaitingToStart);
    time.advance(1s);
    EXPECT_EQ(calibration(), TimeoutFailure) << "there is no link yet";

    configureForMimo("Enable_A");
    EXPECT_EQ(direct<TiManageMimoImpl>(start).calibrationStatus, WaitingToStart);
    time.advance(1s);
    EXPECT_EQ(calibration(), InProgress);
    time.advance(2s);
    EXPECT_EQ(calibration(), Success);

    node.faults().inject({"MimoCalibration", "correlate", 1, 0x8000, 1});
    direct<TiManageMimoImpl>(start);
    time.advance(3s);
    EXPECT_EQ(calibration(), NoCorrelationFailure);
}

TEST_F(SecondStreamByCommandsTest, DifferentKeysLeaveTheLinkUpWithNothingButErroredBlocks)
{
    direct<CriSetRadioChannelNearEndImpl>(nearEnd(1, 102));
    CriSetRadioLinkEncryption::Command encrypt;
    encrypt.channelId = 1;
    encrypt.masterKey = "a key of this length";
    encrypt.enableRle = true;
    const auto afterASecond = [&] {
        CriGetRadioChannelStatus::Command command;
        command.RadioChannelID = 1;
        command.ResetErrorBlocks = true;
        direct<CriGetRadioChannelStatusImpl>(command);
        time.advance(1s);
        const auto answer = direct<CriGetRadioChannelStatusImpl>(command);
        return answer.RadioChannelStatus + " " + std::to_string(answer.RleStatus.value()) + ", errored " +
               std::to_string(answer.ErroredBlocks) + " of " + std::to_string(answer.BackgroundBlocks);
    };
    time.advance(10s);
    EXPECT_EQ(afterASecond(), "Up 0, errored 0 of 1000");
    direct<CriSetRadioLinkEncryptionImpl>(encrypt);
    EXPECT_EQ(afterASecond(), "Up 1, errored 0 of 1000");
    node.setFarEndKey(1, "another key than that");
    EXPECT_EQ(afterASecond(), "Up 1, errored 1000 of 1000");
    encrypt.masterKey = "another key than that";
    direct<CriSetRadioLinkEncryptionImpl>(encrypt);
    EXPECT_EQ(afterASecond(), "Up 1, errored 0 of 1000");
    encrypt.enableRle = false;
    direct<CriSetRadioLinkEncryptionImpl>(encrypt);
    EXPECT_EQ(afterASecond(), "Up 0, errored 1000 of 1000") << "the far end still encrypts";
}

TEST_F(SecondStreamByCommandsTest, ScanTakesTheLinkAndItsResultStays)
{
    direct<CriSetRadioChannelNearEndImpl>(nearEnd(1, 102));
    time.advance(10s);
    EXPECT_EQ(status().RadioChannelStatus, "Up");
    EXPECT_EQ(scan("channel-scan-start").Status, "channel-scan-ongoing");
    EXPECT_EQ(status().RadioChannelStatus, "Down");
    time.advance(505ms);
    const auto half = scan("get-result");
    EXPECT_EQ(half.Progress, 49);
    EXPECT_EQ(half.Result.size(), 50U);
    const auto stopped = scan("scan-stop");
    EXPECT_EQ(stopped.Status, "scan-not-started");
    EXPECT_EQ(stopped.Progress, 49);
    EXPECT_EQ(status().RadioChannelStatus, "Up");
    time.advance(10s);
    EXPECT_EQ(scan("get-result").Result.size(), 50U);

    EXPECT_EQ(scan("sub-band-scan-start").Status, "sub-band-ongoing");
    time.advance(10s);
    const auto whole = scan("get-result");
    EXPECT_EQ(whole.Status, "sub-band-scan-finished");
    EXPECT_EQ(whole.Progress, 100);
    EXPECT_EQ(whole.Result.size(), 201U);
    EXPECT_EQ(status().RadioChannelStatus, "Up");
}

} // namespace
