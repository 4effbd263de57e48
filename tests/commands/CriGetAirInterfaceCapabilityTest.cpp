#include "CommandTest.h"
#include "CriGetAirInterfaceCapabilityImpl.h"
#include "MemorySink.h"
#include "NodeDoubles.h"
#include "Storage.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace zyr_top_api
{
namespace
{

using ReleasedFilter = CriGetAirInterfaceCapability::ReleasedFilter;
using TelecomFilter = CriGetAirInterfaceCapability::TelecomFilter;
using RauFilter = CriGetAirInterfaceCapability::RauFilter;

class CriGetAirInterfaceCapabilityTest : public zyr_test::CommandTest
{
  protected:
    using Response = CriGetAirInterfaceCapability::Response;

    CriGetAirInterfaceCapabilityTest()
    {
        storage.set("common.xpicCapable", 0);
        handler.onGetRadioFrames = std::vector{frame(
            4711, FFConfigType::Xpic, {{"4QAM_STRONG", 11, {}}, {"256QAM", 199, {}}, {"64QAM", 150, {}}})};
        publishNode(node);
        transcript.clear();
    }
    ~CriGetAirInterfaceCapabilityTest() override { storage.remove("common.xpicCapable"); }

    /// A frame with a link type, which its first modulation record carries.
    static RadioFrameRecord frame(std::uint32_t id, FFConfigType linkType,
                                  std::vector<RadioFrameModulationRecord> modulations)
    {
        modulations.front().linkType = linkType;
        return {id, 28000, "ETSI", "QAM", std::move(modulations)};
    }

    static CriGetAirInterfaceCapability::Command command(std::uint32_t channel)
    {
        return {channel, ReleasedFilter::OnlyReleased, TelecomFilter::Etsi, RauFilter::All};
    }

    /// Limits the modulations of channel 1.
    void limit(ModulationAndCoding modulation)
    {
        node.channel1.capabilityHandler.onIsMaxAcmLimitedByHw = true;
        node.channel1.capabilityHandler.onGetMaxAcmLimitedByHw = modulation;
        handler.onGetPerformanceProfileArray = {eTI_S_OK, std::vector<std::int16_t>{1, -2}};
    }

    void initialise() { ASSERT_EQ(impl.initialize(2), eTI_S_OK) << transcript.text(); }

    zyr_platform::Storage& storage = zyr_platform::Storage::get();
    zyr_test::NodeDoubles node{transcript};
    zyr_test::HardwareConfigurationHandlerDouble& handler = node.hardwareConfigurationHandler;
    CriGetAirInterfaceCapabilityImpl impl;
};

TEST_F(CriGetAirInterfaceCapabilityTest, WithoutALimitEveryModulationIsGiven)
{
    enrol<CriGetAirInterfaceCapabilityImpl>();
    tell(criGetAirInterfaceCapability(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IHardwareConfigurationHandler.getRadioFrames(true)
ICapabilityHandler_1.isMaxAcmLimitedByHw()
result 0x0 0 ""
prints RadioFrameID: 4711, ChannelSpacing: 28000, TelecomStd: ETSI, AirInterface: QAM, ActualRxModulation:Xpic, AvailableModulations: \n\x09\x09Modulation: 4QAM_STRONG, Capacity: 11, XpicCapable: 1\n\x09\x09Modulation: 256QAM, Capacity: 199, XpicCapable: 1\n\x09\x09Modulation: 64QAM, Capacity: 150, XpicCapable: 1\nMaxAvailableAcmCa: UNDEFINED\n
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, LimitLeavesOutWhatIsGreaterAndGoesOn)
{
    initialise();
    limit(ModulationAndCoding::QAM_64);
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IHardwareConfigurationHandler.getRadioFrames(true)
ICapabilityHandler_1.isMaxAcmLimitedByHw()
IHardwareConfigurationHandler.getPerformanceProfileArray(1, 4711)
ICapabilityHandler_1.getMaxAcmLimitedByHw([1, -2])
result 0x0 0 ""
prints RadioFrameID: 4711, ChannelSpacing: 28000, TelecomStd: ETSI, AirInterface: QAM, ActualRxModulation:Xpic, AvailableModulations: \n\x09\x09Modulation: 4QAM_STRONG, Capacity: 11, XpicCapable: 1\n\x09\x09Modulation: 64QAM, Capacity: 150, XpicCapable: 1\nMaxAvailableAcmCa: UNDEFINED\n
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, SecondChannelAsksItsOwnHandlerAndProfileForEachFrame)
{
    initialise();
    node.channel2.capabilityHandler.onIsMaxAcmLimitedByHw = true;
    node.channel2.capabilityHandler.onGetMaxAcmLimitedByHw.inTurn(
        {ModulationAndCoding::QAM_4, ModulationAndCoding::QAM_16});
    handler.onGetRadioFrames = std::vector{frame(1, FFConfigType::Std, {{"4QAM", 1, {}}, {"16QAM", 2, {}}}),
                                           frame(2, FFConfigType::Std, {{"4QAM", 3, {}}, {"16QAM", 4, {}}})};
    const Response response = impl.execute(command(2));
    ASSERT_EQ(response.FrameFormatCapabilities.size(), 2U);
    EXPECT_EQ(response.FrameFormatCapabilities[0].AvailableModulations.size(), 1U);
    EXPECT_EQ(response.FrameFormatCapabilities[1].AvailableModulations.size(), 2U);
    EXPECT_EQ(transcript.text(), R"(
IHardwareConfigurationHandler.getRadioFrames(true)
ICapabilityHandler_2.isMaxAcmLimitedByHw()
IHardwareConfigurationHandler.getPerformanceProfileArray(2, 1)
ICapabilityHandler_2.getMaxAcmLimitedByHw([])
ICapabilityHandler_2.isMaxAcmLimitedByHw()
IHardwareConfigurationHandler.getPerformanceProfileArray(2, 2)
ICapabilityHandler_2.getMaxAcmLimitedByHw([])
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, FrameShowsRequestAndResponseAtLevel5)
{
    enrol<CriGetAirInterfaceCapabilityImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriGetAirInterfaceCapability", 7);
    criGetAirInterfaceCapability(command(2));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.GetAirInterfaceCapability Request: RadioChannelID: 2, ReleasedFilter: OnlyReleased, TelecomFilter: Etsi, RauFilter: All\n
IHardwareConfigurationHandler.getRadioFrames(true)
ICapabilityHandler_2.isMaxAcmLimitedByHw()
5 ZYR.COMM: CRI.GetAirInterfaceCapability Response: RadioFrameID: 4711, ChannelSpacing: 28000, TelecomStd: ETSI, AirInterface: QAM, ActualRxModulation:Xpic, AvailableModulations: \n\x09\x09Modulation: 4QAM_STRONG, Capacity: 11, XpicCapable: 1\n\x09\x09Modulation: 256QAM, Capacity: 199, XpicCapable: 1\n\x09\x09Modulation: 64QAM, Capacity: 150, XpicCapable: 1\nMaxAvailableAcmCa: UNDEFINED\n\n----------------------------------------------------\n
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, FrameRunsAndReturnsUnderTheClassName)
{
    enrol<CriGetAirInterfaceCapabilityImpl>();
    setTraceLevel("*", 6);
    setTraceLevel("ZYR.COMM", 3);
    criGetAirInterfaceCapability(command(3));
    const std::string text = transcript.text();
    EXPECT_NE(text.find(": Running CriGetAirInterfaceCapability::Command\n"), std::string::npos) << text;
    EXPECT_NE(text.find(": Return CriGetAirInterfaceCapability::Response\n"), std::string::npos) << text;
}

// Print forms.

TEST_F(CriGetAirInterfaceCapabilityTest, CommandPrintsItsFiltersByTheirTexts)
{
    const auto text = [](unsigned released, unsigned telecom, unsigned rau) {
        return CriGetAirInterfaceCapability::Command{4294967295U, static_cast<ReleasedFilter>(released),
                                                     static_cast<TelecomFilter>(telecom),
                                                     static_cast<RauFilter>(rau)}
            .toString();
    };
    EXPECT_EQ(text(0, 0, 0),
              "RadioChannelID: 4294967295, ReleasedFilter: Undefined, TelecomFilter: Undefined, "
              "RauFilter: Undefined\n");
    EXPECT_EQ(text(1, 1, 1), "RadioChannelID: 4294967295, ReleasedFilter: OnlyReleased, TelecomFilter: Etsi, "
                             "RauFilter: OnlyRauCompatible\n");
    EXPECT_EQ(text(2, 2, 2),
              "RadioChannelID: 4294967295, ReleasedFilter: All, TelecomFilter: Ansi, RauFilter: All\n");
    EXPECT_EQ(text(3, 3, 3), "RadioChannelID: 4294967295, ReleasedFilter: Undefined, TelecomFilter: All, "
                             "RauFilter: Undefined\n");
    EXPECT_EQ(text(4294967295U, 4U, 4294967295U),
              "RadioChannelID: 4294967295, ReleasedFilter: Undefined, TelecomFilter: Undefined, RauFilter: "
              "Undefined\n");
    EXPECT_EQ(CriGetAirInterfaceCapability::Command().toString(),
              "RadioChannelID: 1, ReleasedFilter: Undefined, TelecomFilter: Undefined, RauFilter: "
              "Undefined\n");
}

TEST_F(CriGetAirInterfaceCapabilityTest, ResponseWithoutFramesPrintsNothing)
{
    EXPECT_EQ(Response().printResponse(), "");
}

TEST_F(CriGetAirInterfaceCapabilityTest, DefaultFramePrintsItsDefaults)
{
    Response response;
    response.FrameFormatCapabilities.resize(1);
    EXPECT_EQ(response.printResponse(),
              "RadioFrameID: 0, ChannelSpacing: 0, TelecomStd: , AirInterface: , ActualRxModulation:Unknown, "
              "AvailableModulations: \nMaxAvailableAcmCa: UNDEFINED\n");
    response.FrameFormatCapabilities[0].AvailableModulations.resize(1);
    EXPECT_EQ(response.printResponse(),
              "RadioFrameID: 0, ChannelSpacing: 0, TelecomStd: , AirInterface: , ActualRxModulation:Unknown, "
              "AvailableModulations: \n\t\tModulation: UNDEFINED, Capacity: 0, XpicCapable: "
              "0\nMaxAvailableAcmCa: UNDEFINED\n");
}

TEST_F(CriGetAirInterfaceCapabilityTest, ExtremeFramesPrintEveryField)
{
    Response response;
    FrameFormatCapability capability;
    capability.RadioFrameID = 4294967295U;
    capability.ChannelSpacing = std::numeric_limits<std::int32_t>::min();
    capability.TelecomStd = "a, b";
    capability.AirInterface = "c\n";
    capability.AvailableModulations = {{static_cast<ModulationAndCoding>(4294967295U), 4294967295U, true},
                                       {ModulationAndCoding::QAM_65536_LIGHT, 0, false}};
    capability.FrameLinkType = static_cast<FFConfigType>(15);
    capability.MaxAvailableAcmCa = ModulationAndCoding::HALF_BPSK_STRONG;
    response.FrameFormatCapabilities = {capability, capability};
    response.FrameFormatCapabilities[1].FrameLinkType = FFConfigType::Mrcx;
    response.FrameFormatCapabilities[1].ChannelSpacing = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(response.printResponse(),
              "RadioFrameID: 4294967295, ChannelSpacing: -2147483648, TelecomStd: a, b, AirInterface: c\n, "
              "ActualRxModulation:, AvailableModulations: \n\t\tModulation: UNDEFINED, Capacity: 4294967295, "
              "XpicCapable: 1\n\t\tModulation: 65536QAM_LIGHT, Capacity: 0, XpicCapable: "
              "0\nMaxAvailableAcmCa: HALF_BPSK_STRONG\n"
              "RadioFrameID: 4294967295, ChannelSpacing: 2147483647, TelecomStd: a, b, AirInterface: c\n, "
              "ActualRxModulation:Mrcx, AvailableModulations: \n\t\tModulation: UNDEFINED, Capacity: "
              "4294967295, XpicCapable: 1\n\t\tModulation: 65536QAM_LIGHT, Capacity: 0, XpicCapable: "
              "0\nMaxAvailableAcmCa: HALF_BPSK_STRONG\n");
}

TEST_F(CriGetAirInterfaceCapabilityTest, LinkTypesPrintTheirShortTexts)
{
    const char* const texts[] = {"Unknown", "Other", "Std",    "Xpic",   "Mimo", "LHStd", "LHXpic", "Xpic2",
                                 "LHXpic2", "Mimo2", "SisoCA", "XpicCA", "Mrc",  "Mrc2",  "Mrcx",   ""};
    Response response;
    response.FrameFormatCapabilities.resize(1);
    for (unsigned type = 0; type < 16; ++type) {
        response.FrameFormatCapabilities[0].FrameLinkType = static_cast<FFConfigType>(type);
        const std::string text = response.printResponse();
        EXPECT_NE(
            text.find(std::string(", ActualRxModulation:") + texts[type] + ", AvailableModulations: \n"),
            std::string::npos)
            << text;
    }
}

TEST_F(CriGetAirInterfaceCapabilityTest, FailedResponsePrintsTheResultLineAlone)
{
    Response response;
    response.FrameFormatCapabilities.resize(1);
    setResult(response, eTI_E_FAILED, "why");
    EXPECT_EQ(response.printResponse(), "tiResult: eTI_E_FAILED, faultCode: 4, faultString: why");
}

// The channel.

TEST_F(CriGetAirInterfaceCapabilityTest, ChannelAboveTheNumberOfChannelsIsRefusedWithoutARecord)
{
    initialise();
    setTraceLevel("ZYR.TI.CriGetAirInterfaceCapability", 7);
    tell(impl.execute(command(3)));
    tell(impl.execute(command(4294967295U)));
    EXPECT_EQ(transcript.text(), R"(
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    EXPECT_EQ(outcome(impl.execute(command(1))), "result 0xA100 2 \"RadioChannelID out of bounds\"");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(CriGetAirInterfaceCapabilityTest, Channel0PassesTheBoundCheckAndReachesNoCapabilityHandler)
{
    initialise();
    EXPECT_EQ(missingIn([&] { impl.execute(command(0)); }), "ICapabilityHandler of radio channel 0");
    EXPECT_EQ(transcript.text(), R"(
IHardwareConfigurationHandler.getRadioFrames(true)
)");
}

// Failures.

TEST_F(CriGetAirInterfaceCapabilityTest, NoFramesAtAllFail)
{
    initialise();
    handler.onGetRadioFrames = std::vector<RadioFrameRecord>{};
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IHardwareConfigurationHandler.getRadioFrames(true)
1 ZYR.TI.CriGetAirInterfaceCapability: CRI.GetAirInterfaceCapability failed, no supported radio frames.
result 0x8000 4 "CRI.GetAirInterfaceCapability failed, no supported radio frames."
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetAirInterfaceCapability failed, no supported radio frames.
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, FailedProfileIsAnInvalidArgumentWithoutARecordAndKeepsEarlierFrames)
{
    initialise();
    setTraceLevel("ZYR.TI.CriGetAirInterfaceCapability", 7);
    limit(ModulationAndCoding::QAM_256);
    handler.onGetRadioFrames = std::vector{frame(1, FFConfigType::Std, {{"4QAM", 1, {}}}),
                                           frame(2, FFConfigType::Std, {{"4QAM", 2, {}}}),
                                           frame(3, FFConfigType::Std, {{"4QAM", 3, {}}})};
    handler.onGetPerformanceProfileArray.inTurn({eTI_S_OK, eTI_E_FAILED});
    const Response response = tell(impl.execute(command(1)));
    ASSERT_EQ(response.FrameFormatCapabilities.size(), 1U);
    EXPECT_EQ(response.FrameFormatCapabilities[0].RadioFrameID, 1U);
    EXPECT_EQ(transcript.text(), R"(
IHardwareConfigurationHandler.getRadioFrames(true)
ICapabilityHandler_1.isMaxAcmLimitedByHw()
IHardwareConfigurationHandler.getPerformanceProfileArray(1, 1)
ICapabilityHandler_1.getMaxAcmLimitedByHw([])
ICapabilityHandler_1.isMaxAcmLimitedByHw()
IHardwareConfigurationHandler.getPerformanceProfileArray(1, 2)
result 0xA100 2 "Failed to get PerformanceProfileArray from HardwareConfigurationHandler"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: Failed to get PerformanceProfileArray from HardwareConfigurationHandler
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, GreatestSuccessOfTheProfileIsASuccess)
{
    initialise();
    limit(ModulationAndCoding::QAM_256);
    handler.onGetPerformanceProfileArray = 0x7FFF;
    EXPECT_EQ(outcome(impl.execute(command(1))), "result 0x0 0 \"\"");
}

// Filters.

TEST_F(CriGetAirInterfaceCapabilityTest, OnlyTheReleasedFilterOneAsksForReleasedFramesOnly)
{
    initialise();
    for (const unsigned filter : {0U, 1U, 2U, 3U, 4294967295U}) {
        CriGetAirInterfaceCapability::Command request = command(1);
        request.ReleasedFilter = static_cast<ReleasedFilter>(filter);
        transcript.clear();
        impl.execute(request);
        EXPECT_EQ(transcript.lines().front(), filter == 1
                                                  ? "IHardwareConfigurationHandler.getRadioFrames(true)"
                                                  : "IHardwareConfigurationHandler.getRadioFrames(false)")
            << filter;
    }
}

TEST_F(CriGetAirInterfaceCapabilityTest, TelecomAndRauFiltersChangeNothing)
{
    initialise();
    const std::string expected = impl.execute(command(1)).printResponse();
    const std::string calls = transcript.text();
    ASSERT_FALSE(expected.empty());
    for (const unsigned filter : {0U, 1U, 2U, 3U, 4294967295U}) {
        CriGetAirInterfaceCapability::Command request = command(1);
        request.TelecomFilter = static_cast<TelecomFilter>(filter);
        request.RauFilter = static_cast<RauFilter>(filter);
        transcript.clear();
        EXPECT_EQ(impl.execute(request).printResponse(), expected);
        EXPECT_EQ(transcript.text(), calls);
    }
}

// The limit.

TEST_F(CriGetAirInterfaceCapabilityTest, CapabilityHandlerWithoutBodiesOfItsOwnLimitsNothing)
{
    initialise();
    limit(ModulationAndCoding::QAM_4);
    node.channel1.capabilityHandler.defaultsInForce = true;
    const Response response = impl.execute(command(1));
    ASSERT_EQ(response.FrameFormatCapabilities.size(), 1U);
    EXPECT_EQ(response.FrameFormatCapabilities[0].AvailableModulations.size(), 3U);
    EXPECT_EQ(transcript.text(), R"(
IHardwareConfigurationHandler.getRadioFrames(true)
ICapabilityHandler_1.isMaxAcmLimitedByHw()
)");
}

// Says that there is a limit but has no body of its own for it.
class HalfWrittenCapabilityHandler : public ICapabilityHandler
{
  public:
    bool isMaxAcmLimitedByHw() const override { return true; }
};

TEST_F(CriGetAirInterfaceCapabilityTest, LimitWithoutABodyOfItsOwnIsNone)
{
    withdraw("ICapabilityHandler_1");
    HalfWrittenCapabilityHandler halfWritten;
    publish("ICapabilityHandler_1", halfWritten);
    initialise();
    const Response response = impl.execute(command(1));
    ASSERT_EQ(response.FrameFormatCapabilities.size(), 1U);
    EXPECT_EQ(response.FrameFormatCapabilities[0].AvailableModulations.size(), 3U);
    EXPECT_EQ(transcript.text(), R"(
IHardwareConfigurationHandler.getRadioFrames(true)
IHardwareConfigurationHandler.getPerformanceProfileArray(1, 4711)
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, UnknownNamePassesOnlyWithoutALimitAndAnEmptyOneNever)
{
    initialise();
    handler.onGetRadioFrames = std::vector{
        frame(1, FFConfigType::Std,
              {{"", 1, {}}, {"5QAM", 2, {}}, {"4qam", 3, {}}, {"4QAM ", 4, {}}, {"4QAM", 5, {}}})};
    const Response unlimited = impl.execute(command(1));
    EXPECT_EQ(unlimited.printResponse(),
              "RadioFrameID: 1, ChannelSpacing: 28000, TelecomStd: ETSI, AirInterface: QAM, "
              "ActualRxModulation:Std, AvailableModulations: \n"
              "\t\tModulation: UNDEFINED, Capacity: 2, XpicCapable: 0\n"
              "\t\tModulation: UNDEFINED, Capacity: 3, XpicCapable: 0\n"
              "\t\tModulation: UNDEFINED, Capacity: 4, XpicCapable: 0\n"
              "\t\tModulation: 4QAM, Capacity: 5, XpicCapable: 0\n"
              "MaxAvailableAcmCa: UNDEFINED\n");
    EXPECT_EQ(static_cast<unsigned>(unlimited.FrameFormatCapabilities[0].AvailableModulations[0].Modulation),
              163U);

    limit(ModulationAndCoding::QAM_65536_LIGHT);
    EXPECT_EQ(impl.execute(command(1)).printResponse(),
              "RadioFrameID: 1, ChannelSpacing: 28000, TelecomStd: ETSI, AirInterface: QAM, "
              "ActualRxModulation:Std, AvailableModulations: \n"
              "\t\tModulation: 4QAM, Capacity: 5, XpicCapable: 0\n"
              "MaxAvailableAcmCa: UNDEFINED\n");
}

TEST_F(CriGetAirInterfaceCapabilityTest, LimitIsComparedByNumberAndIncluded)
{
    initialise();
    handler.onGetRadioFrames = std::vector{
        frame(1, FFConfigType::Std, {{"16QAM_LIGHT", 42, {}}, {"32QAM", 51, {}}, {"32QAM_STRONG", 50, {}}})};
    limit(ModulationAndCoding::QAM_32_STRONG);
    const Response response = impl.execute(command(1));
    ASSERT_EQ(response.FrameFormatCapabilities.size(), 1U);
    const auto& modulations = response.FrameFormatCapabilities[0].AvailableModulations;
    ASSERT_EQ(modulations.size(), 2U);
    EXPECT_EQ(modulations[0].Capacity, 42U);
    EXPECT_EQ(modulations[1].Capacity, 50U);
}

TEST_F(CriGetAirInterfaceCapabilityTest, FrameWhoseLimitIs10IsDroppedAndTheNextOneGiven)
{
    initialise();
    limit(ModulationAndCoding::QAM_4);
    node.channel1.capabilityHandler.onGetMaxAcmLimitedByHw.inTurn(
        {ModulationAndCoding::HALF_BPSK_STRONG, ModulationAndCoding::QAM_4});
    handler.onGetRadioFrames =
        std::vector{frame(1, FFConfigType::Std, {{"HALF_BPSK_STRONG", 1, {}}, {"4QAM", 1, {}}}),
                    frame(2, FFConfigType::Std, {{"HALF_BPSK_STRONG", 2, {}}, {"4QAM", 2, {}}})};
    const Response response = impl.execute(command(1));
    ASSERT_EQ(response.FrameFormatCapabilities.size(), 1U);
    EXPECT_EQ(response.FrameFormatCapabilities[0].RadioFrameID, 2U);
    EXPECT_EQ(response.FrameFormatCapabilities[0].AvailableModulations.size(), 2U);
}

TEST_F(CriGetAirInterfaceCapabilityTest, FrameWhoseLimitLiesBelowItsModulationsStaysWithoutAny)
{
    initialise();
    for (const unsigned value : {0U, 9U, 11U, 29U}) {
        limit(static_cast<ModulationAndCoding>(value));
        EXPECT_EQ(impl.execute(command(1)).printResponse(),
                  "RadioFrameID: 4711, ChannelSpacing: 28000, TelecomStd: ETSI, AirInterface: QAM, "
                  "ActualRxModulation:Xpic, AvailableModulations: \nMaxAvailableAcmCa: UNDEFINED\n")
            << value;
    }
}

TEST_F(CriGetAirInterfaceCapabilityTest, ResponseWithoutAFrameIsASuccessIfEveryFrameIsDropped)
{
    initialise();
    limit(ModulationAndCoding::HALF_BPSK_STRONG);
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IHardwareConfigurationHandler.getRadioFrames(true)
ICapabilityHandler_1.isMaxAcmLimitedByHw()
IHardwareConfigurationHandler.getPerformanceProfileArray(1, 4711)
ICapabilityHandler_1.getMaxAcmLimitedByHw([1, -2])
result 0x0 0 ""
prints\x20
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, GreatestModulationOfCarrierAggregationIs163WhateverTheLimit)
{
    initialise();
    for (const unsigned value : {11U, 81U, 163U, 4294967295U}) {
        limit(static_cast<ModulationAndCoding>(value));
        const Response response = impl.execute(command(1));
        ASSERT_EQ(response.FrameFormatCapabilities.size(), 1U);
        EXPECT_EQ(static_cast<unsigned>(response.FrameFormatCapabilities[0].MaxAvailableAcmCa), 163U);
    }
}

TEST_F(CriGetAirInterfaceCapabilityTest, OnlyTheLinkTypeXpicIsXpicCapable)
{
    initialise();
    for (unsigned type = 0; type < 16; ++type) {
        handler.onGetRadioFrames = std::vector{frame(1, static_cast<FFConfigType>(type), {{"4QAM", 1, {}}})};
        const Response response = impl.execute(command(1));
        ASSERT_EQ(response.FrameFormatCapabilities.size(), 1U);
        const FrameFormatCapability& capability = response.FrameFormatCapabilities[0];
        EXPECT_EQ(static_cast<unsigned>(capability.FrameLinkType), type);
        ASSERT_EQ(capability.AvailableModulations.size(), 1U);
        EXPECT_EQ(capability.AvailableModulations[0].XpicCapable, type == 3) << type;
    }
}

TEST_F(CriGetAirInterfaceCapabilityTest, LinkTypeIsThatOfTheFirstModulationRecordEvenIfItIsSkipped)
{
    initialise();
    handler.onGetRadioFrames =
        std::vector{frame(1, FFConfigType::Xpic, {{"", 1, {}}, {"4QAM", 2, FFConfigType::Mimo}})};
    const Response response = impl.execute(command(1));
    ASSERT_EQ(response.FrameFormatCapabilities.size(), 1U);
    const FrameFormatCapability& capability = response.FrameFormatCapabilities[0];
    EXPECT_EQ(static_cast<unsigned>(capability.FrameLinkType), 3U);
    ASSERT_EQ(capability.AvailableModulations.size(), 1U);
    EXPECT_TRUE(capability.AvailableModulations[0].XpicCapable);
}

TEST_F(CriGetAirInterfaceCapabilityTest, ExtremeFrameIsTakenOverUnchanged)
{
    initialise();
    handler.onGetRadioFrames = std::vector{RadioFrameRecord{4294967295U,
                                                            std::numeric_limits<std::int32_t>::min(),
                                                            "",
                                                            "x",
                                                            {{"65536QAM_LIGHT", 4294967295U, {}}}}};
    EXPECT_EQ(impl.execute(command(1)).printResponse(),
              "RadioFrameID: 4294967295, ChannelSpacing: -2147483648, TelecomStd: , AirInterface: x, "
              "ActualRxModulation:Unknown, AvailableModulations: \n\t\tModulation: 65536QAM_LIGHT, Capacity: "
              "4294967295, XpicCapable: 0\nMaxAvailableAcmCa: UNDEFINED\n");
}

// initialize

TEST_F(CriGetAirInterfaceCapabilityTest, InitialiseEntersAtLevel6WithoutAText)
{
    setTraceLevel("ZYR.TI.CriGetAirInterfaceCapability", 7);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriGetAirInterfaceCapability:
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, InitialiseRefusesAnyOtherCountBeforeItLooksForAnything)
{
    withdraw("IHardwareConfigurationHandler");
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(4294967295U), 0xA100);
    EXPECT_EQ(outcome(impl.execute(command(1))), "result 0xA100 2 \"RadioChannelID out of bounds\"");
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetAirInterfaceCapability: Error: numberOfChannels is out of range (0)
1 ZYR.TI.CriGetAirInterfaceCapability: Error: numberOfChannels is out of range (3)
1 ZYR.TI.CriGetAirInterfaceCapability: Error: numberOfChannels is out of range (4294967295)
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, InitialiseTellsTheFirstThatIsMissing)
{
    withdraw("ICapabilityHandler_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    withdraw("ICapabilityHandler_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    storage.remove("common.xpicCapable");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    withdraw("IHardwareConfigurationHandler");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetAirInterfaceCapability: Error getting interface: ICapabilityHandler_2
1 ZYR.TI.CriGetAirInterfaceCapability: Error getting interface: ICapabilityHandler_1
1 ZYR.TI.CriGetAirInterfaceCapability: Failed to get HW XPIC capable variable from hardware database
1 ZYR.TI.CriGetAirInterfaceCapability: Could not find the Hardware Configuration Handler Interface
)");
}

TEST_F(CriGetAirInterfaceCapabilityTest, PresenceOfTheStorageVariableCountsAndNotItsNumber)
{
    for (const std::int32_t number : {-1, 0, 1}) {
        storage.set("common.xpicCapable", number);
        EXPECT_EQ(impl.initialize(2), 0);
        const Response response = impl.execute(command(1));
        ASSERT_EQ(response.FrameFormatCapabilities.size(), 1U);
        EXPECT_TRUE(response.FrameFormatCapabilities[0].AvailableModulations.at(0).XpicCapable);
    }
}

TEST_F(CriGetAirInterfaceCapabilityTest, FailedInitialiseKeepsTheChannelBefore)
{
    withdraw("ICapabilityHandler_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.execute(command(1)).tiResult, 0);
    EXPECT_EQ(missingIn([&] { impl.execute(command(2)); }), "ICapabilityHandler of radio channel 2");
}

TEST_F(CriGetAirInterfaceCapabilityTest, SecondInitialiseFetchesTheCollaboratorsAnew)
{
    initialise();
    withdraw("IHardwareConfigurationHandler");
    zyr_test::HardwareConfigurationHandlerDouble other(transcript, "other");
    other.onGetRadioFrames = std::vector{frame(5, FFConfigType::Std, {{"4QAM", 1, {}}})};
    publish("IHardwareConfigurationHandler", other);
    EXPECT_EQ(impl.initialize(1), 0);
    const Response response = impl.execute(command(1));
    ASSERT_EQ(response.FrameFormatCapabilities.size(), 1U);
    EXPECT_EQ(response.FrameFormatCapabilities[0].RadioFrameID, 5U);
    EXPECT_EQ(impl.execute(command(2)).tiResult, 0xA100);
}

} // namespace
} // namespace zyr_top_api
