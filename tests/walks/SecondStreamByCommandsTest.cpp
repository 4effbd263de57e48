#include "CriGetRadioChannelStatusImpl.h"
#include "CriGetSpectrumDiagnosticsImpl.h"
#include "CriSetRadioChannelNearEndImpl.h"
#include "CriXpicSlaveMuteImpl.h"
#include "DirectCall.h"
#include "SimulatedNode.h"
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
