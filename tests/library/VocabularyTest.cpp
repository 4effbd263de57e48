#include "AcmMode.h"
#include "AlarmEvent.h"
#include "BasebandSdcStatus.h"
#include "CollaboratorResults.h"
#include "EDspATxMode.h"
#include "EDspChannelState.h"
#include "ERAUHResult.h"
#include "ETIResult.h"
#include "ETxPowerActualStatus.h"
#include "FFConfigType.h"
#include "ForceLoopMode.h"
#include "FrequencyCapability.h"
#include "LinkType.h"
#include "MimoCalibrationStatus.h"
#include "MimoLockStatus.h"
#include "ModemChain.h"
#include "Modulation.h"
#include "ModulationAndCoding.h"
#include "Optional.h"
#include "PpsCalibration.h"
#include "PpsOutputMode.h"
#include "PpsSource.h"
#include "RadioChannel.h"
#include "RadioRestartStatus.h"
#include "Recover.h"
#include "ReferenceSec.h"
#include "ResultLaw.h"
#include "RouteType.h"
#include "SdcPath.h"
#include "SdcStatus.h"
#include "TxRequestedStatus.h"
#include "XpicMimoPreamble.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <exception>
#include <ios>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

using namespace zyr_top_api;

namespace
{

/// One row of a text table.
struct Row
{
    std::uint32_t value;
    std::string_view text;
};

template <class Enum>
void expectTexts(std::string_view (*toString)(Enum), const std::vector<Row>& rows)
{
    for (const auto& row : rows) {
        EXPECT_EQ(toString(static_cast<Enum>(row.value)), row.text) << "value " << row.value;
    }
}

/// The first number behind the table, the greatest number, and whatever else the caller adds.
template <class Enum>
void expectFallback(std::string_view (*toString)(Enum), std::string_view fallback,
                    std::vector<std::uint32_t> values)
{
    values.push_back(0x7FFFFFFFU);
    values.push_back(0x80000000U);
    values.push_back(0xFFFFFFFFU);
    for (const auto value : values) {
        EXPECT_EQ(toString(static_cast<Enum>(value)), fallback) << "value " << value;
    }
}

template <class T>
std::string streamed(const T& value)
{
    std::ostringstream stream;
    // A format that somebody has left in the stream must not change a text.
    stream << std::hex << std::showbase << value;
    return stream.str();
}

/// One row of the modulation table.
struct ModulationRow
{
    std::uint32_t value;
    std::string_view text;
    std::uint32_t modulation;
    std::int32_t variant;
    std::int32_t coding;
};

const std::vector<ModulationRow> kModulationRows{
    {10, "HALF_BPSK_STRONG", 2, 2, 0},
    {11, "HALF_BPSK", 2, 2, 1},
    {12, "HALF_BPSK_LIGHT", 2, 2, 2},
    {20, "BPSK_STRONG", 2, 0, 0},
    {21, "BPSK", 2, 0, 1},
    {22, "BPSK_LIGHT", 2, 0, 2},
    {23, "4QAM_ULTRA_STRONG", 4, 0, 3},
    {30, "4QAM_STRONG", 4, 0, 0},
    {31, "4QAM", 4, 0, 1},
    {32, "4QAM_LIGHT", 4, 0, 2},
    {33, "16QAM_ULTRA_STRONG", 16, 0, 3},
    {40, "16QAM_STRONG", 16, 0, 0},
    {41, "16QAM", 16, 0, 1},
    {42, "16QAM_LIGHT", 16, 0, 2},
    {50, "32QAM_STRONG", 32, 0, 0},
    {51, "32QAM", 32, 0, 1},
    {52, "32QAM_LIGHT", 32, 0, 2},
    {53, "64QAM_ULTRA_STRONG", 64, 0, 3},
    {60, "64QAM_STRONG", 64, 0, 0},
    {61, "64QAM", 64, 0, 1},
    {62, "64QAM_LIGHT", 64, 0, 2},
    {70, "128QAM_STRONG", 128, 0, 0},
    {71, "128QAM", 128, 0, 1},
    {72, "128QAM_LIGHT", 128, 0, 2},
    {73, "256QAM_ULTRA_STRONG", 256, 0, 3},
    {80, "256QAM_STRONG", 256, 0, 0},
    {81, "256QAM", 256, 0, 1},
    {82, "256QAM_LIGHT", 256, 0, 2},
    {90, "512QAM_STRONG", 512, 0, 0},
    {91, "512QAM", 512, 0, 1},
    {92, "512QAM_LIGHT", 512, 0, 2},
    {93, "1024QAM_ULTRA_STRONG", 1024, 0, 3},
    {100, "1024QAM_STRONG", 1024, 0, 0},
    {101, "1024QAM", 1024, 0, 1},
    {102, "1024QAM_LIGHT", 1024, 0, 2},
    {110, "2048QAM_STRONG", 2048, 0, 0},
    {111, "2048QAM", 2048, 0, 1},
    {112, "2048QAM_LIGHT", 2048, 0, 2},
    {113, "4096QAM_ULTRA_STRONG", 4096, 0, 3},
    {120, "4096QAM_STRONG", 4096, 0, 0},
    {121, "4096QAM", 4096, 0, 1},
    {122, "4096QAM_LIGHT", 4096, 0, 2},
    {130, "8192QAM_STRONG", 8192, 0, 0},
    {131, "8192QAM", 8192, 0, 1},
    {132, "8192QAM_LIGHT", 8192, 0, 2},
    {133, "16384QAM_ULTRA_STRONG", 16384, 0, 3},
    {140, "16384QAM_STRONG", 16384, 0, 0},
    {141, "16384QAM", 16384, 0, 1},
    {142, "16384QAM_LIGHT", 16384, 0, 2},
    {143, "65536QAM_ULTRA_STRONG", 65536, 0, 3},
    {160, "65536QAM_STRONG", 65536, 0, 0},
    {161, "65536QAM", 65536, 0, 1},
    {162, "65536QAM_LIGHT", 65536, 0, 2},
    {163, "UNDEFINED", 100000, 5, 4},
};

const std::vector<Row> kResults{
    {0, "eTI_S_OK"},
    {1, "eTI_S_TRUE"},
    {2, "eTI_S_FALSE"},
    {256, "eTI_I_INFO"},
    {2048, "eTI_DEBUG"},
    {2080, "eTI_DEBUG2"},
    {2112, "eTI_DEBUG3"},
    {2304, "eTI_I_LOG_ALWAYS"},
    {4096, "eTI_W_WARNING"},
    {4097, "eTI_W_DUPLICATE_IGNORED"},
    {4098, "eTI_W_NO_MORE_DATA"},
    {4099, "eTI_W_ALREADY_STARTED"},
    {4100, "eTI_W_ALREADY_INITIALIZED"},
    {32768, "eTI_E_FAILED"},
    {32769, "eTI_E_NOT_IMPLEMENTED"},
    {32770, "eTI_E_UNKNOWN_OBJECT"},
    {32771, "eTI_E_OPERATION_NOT_ALLOWED"},
    {32772, "eTI_E_CAN_NOT_CREATE_OBJECT"},
    {32773, "eTI_E_COULD_NOT_REGISTER_HANDLER_METHOD"},
    {32774, "eTI_E_MODULE_REGISTRATION_ERROR"},
    {32775, "eTI_E_FAILED_TO_REGISTER_MODULE_CALLBACK"},
    {32776, "eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE"},
    {32777, "eTI_E_INTERFACE_MANAGER_REGISTRATION_ERROR"},
    {40960, "eTI_E_REQUIRED_PARAMETER_INVALID"},
    {40961, "eTI_E_PARAMETER_TYPE_INVALID"},
    {40962, "eTI_E_PARAMETER_INVALID"},
    {41216, "eTI_E_INVALID_ARGUMENT"},
    {41217, "eTI_E_MALFORMED_REQUEST"},
    {41218, "eTI_E_REQUIRED_INPUT_MISSING"},
    {41219, "eTI_E_TOP_API_MUTEX_TIMEOUT"},
    {41472, "eTI_E_METHOD_UNKNOWN"},
};

const std::vector<Row> kRauFailures{
    {0x8000, "General Failure"},
    {0x8001, "Radio is not connected"},
    {0x8002, "No response to TOM"},
    {0x8003, "TOM not accepted"},
    {0x8004, "Rau handler is not implemented"},
    {0x8005, "Invalid argument"},
    {0x8007, "Rau is already initialized"},
    {0x8008, "Rau module registeration error"},
    {0x8009, "Failed to register module callback"},
    {0x800A, "Unknown Rau Handler Phase"},
    {0x800B, "Uneven data length"},
    {0x800C, "Data is out of range"},
    {0x800D, "Radio is not up"},
    {0x800E, "TOM is not recognized"},
    {0x800F, "TOM is not performed"},
    {0x8010, "TOM is not allowed"},
    {0x8011, "RF Loop is not supported by radio"},
    {0x8012, "SDC is not supported by radio"},
    {0x8013, "Radio Path latency reset needed"},
};

/// One row of the frame format types.
struct FrameFormatRow
{
    std::uint32_t value;
    std::string_view shortForm;
    std::string_view longForm;
};

const std::vector<FrameFormatRow> kFrameFormats{
    {0, "Unknown", "Unknown"},
    {1, "Other", "Other"},
    {2, "Std", "Standard"},
    {3, "Xpic", "Xpic"},
    {4, "Mimo", "Mimo"},
    {5, "LHStd", "LongHaulStandard"},
    {6, "LHXpic", "LongHaulXpic"},
    {7, "Xpic2", "XpicTwoBoards"},
    {8, "LHXpic2", "LongHaulXpicTwoBoards"},
    {9, "Mimo2", "Mimo2"},
    {10, "SisoCA", "SisoCarrierAggregation"},
    {11, "XpicCA", "XpicCarrierAggregation"},
    {12, "Mrc", "Mrc"},
    {13, "Mrc2", "MrcTwoBoards"},
    {14, "Mrcx", "MrcXpicTwoBoards"},
};

} // namespace

TEST(ETIResultTest, EveryRowPrintsItsName)
{
    ASSERT_EQ(kResults.size(), 31U);
    expectTexts(etiResultToString, kResults);
}

TEST(ETIResultTest, NumbersBetweenTheRowsAreUnknown)
{
    expectFallback(etiResultToString, "Unknown",
                   {3, 255, 257, 2049, 4095, 4101, 32767, 32778, 32787, 40959, 40963, 41215, 41220, 41473});
}

TEST(ETIResultTest, StreamsAsADecimalNumber)
{
    std::ostringstream stream;
    stream << eTI_E_FAILED << ' ' << static_cast<ETIResult>(0x8013);
    EXPECT_EQ(stream.str(), "32768 32787");
}

TEST(ETIResultTest, NumbersOfTheNamesAreFixed)
{
    EXPECT_EQ(code(eTI_S_OK), 0U);
    EXPECT_EQ(code(eTI_W_NO_MORE_DATA), 4098U);
    EXPECT_EQ(code(eTI_W_ALREADY_INITIALIZED), 4100U);
    EXPECT_EQ(code(eTI_E_NOT_IMPLEMENTED), 32769U);
    EXPECT_EQ(code(eTI_E_INVALID_ARGUMENT), 41216U);
    EXPECT_EQ(code(eTI_E_METHOD_UNKNOWN), 41472U);
}

TEST(CollaboratorResultTest, CodesThatCommandsTellApartAreFixed)
{
    EXPECT_EQ(code(eACMH_S_DIFFERENT), 3U);
    EXPECT_EQ(code(eACMH_E_NOT_IMPLEMENTED), 32769U);
    EXPECT_EQ(code(eACMH_E_CACHED), 32780U);
    for (const auto failure : {code(eSPC_E_FAILED), code(eACMH_E_FAILED), code(eRSSI_E_FAILED),
                               code(eFC_E_FAILED), code(eFH_E_FAILED), code(eHCH_E_FAILED)}) {
        EXPECT_EQ(failure, 32768U);
    }
    for (const auto success : {code(eSPC_S_OK), code(eACMH_S_OK), code(eRSSI_S_OK), code(eFC_S_OK),
                               code(eFH_S_OK), code(eHCH_S_OK)}) {
        EXPECT_EQ(success, 0U);
    }
}

TEST(ResultLawTest, CommonLawFailsFrom0x8000)
{
    EXPECT_FALSE(failed(eTI_S_OK));
    EXPECT_FALSE(failed(0x7FFFU));
    EXPECT_TRUE(failed(static_cast<ESPCResult>(0x8000)));
    EXPECT_TRUE(failed(0xFFFFFFFFU));
    EXPECT_TRUE(failed(-1));
}

TEST(ResultLawTest, StrictLawFailsFrom0x1000)
{
    EXPECT_FALSE(failedFromWarning(static_cast<ETIResult>(4095)));
    EXPECT_TRUE(failedFromWarning(static_cast<ETIResult>(4096)));
    EXPECT_TRUE(failedFromWarning(static_cast<ETIResult>(4100)));
}

TEST(ResultLawTest, DriverLawFailsOnAllButZero)
{
    EXPECT_FALSE(failedUnlessZero(0));
    EXPECT_TRUE(failedUnlessZero(1));
    EXPECT_TRUE(failedUnlessZero(-1));
    EXPECT_TRUE(failedUnlessZero(static_cast<ESPCResult>(1)));
}

TEST(ResultLawTest, CombinerLawFailsOn0x8000Alone)
{
    EXPECT_FALSE(failedExactly(static_cast<ETIResult>(0x7FFF)));
    EXPECT_TRUE(failedExactly(static_cast<ETIResult>(0x8000)));
    EXPECT_FALSE(failedExactly(static_cast<ETIResult>(0x8001)));
    EXPECT_FALSE(failedExactly(static_cast<ETIResult>(0x18000)));
}

TEST(RadioChannelTest, KeepsAnyNumber)
{
    for (const std::uint32_t number : {0U, 1U, 2U, 3U, 4294967295U}) {
        EXPECT_EQ(std::uint32_t{RadioChannel(number)}, number);
        EXPECT_EQ(std::uint32_t{MutableRadioChannel(number)}, number);
    }
}

TEST(RadioChannelTest, IsChannelOneByDefault)
{
    EXPECT_EQ(RadioChannel{}, 1U);
    EXPECT_EQ(MutableRadioChannel{}, 1U);
}

TEST(RadioChannelTest, LogStringEndsInABlank)
{
    EXPECT_EQ(RadioChannel(1).logString(), "channel 1: ");
    EXPECT_EQ(MutableRadioChannel(2).logString(), "channel 2: ");
    EXPECT_EQ(RadioChannel(0).logString(), "channel 0: ");
    EXPECT_EQ(RadioChannel(4294967295U).logString(), "channel 4294967295: ");
}

TEST(RadioChannelTest, NumberTurnsIntoTheMutableFormOnly)
{
    EXPECT_FALSE((std::is_convertible_v<std::uint32_t, RadioChannel>));
    EXPECT_TRUE((std::is_constructible_v<RadioChannel, std::uint32_t>));
    EXPECT_FALSE((std::is_assignable_v<RadioChannel&, std::uint32_t>));
    EXPECT_TRUE((std::is_convertible_v<std::uint32_t, MutableRadioChannel>));
    EXPECT_TRUE((std::is_assignable_v<MutableRadioChannel&, std::uint32_t>));
    EXPECT_TRUE((std::is_assignable_v<MutableRadioChannel&, RadioChannel>));
    EXPECT_TRUE((std::is_move_assignable_v<RadioChannel>));
    EXPECT_EQ(sizeof(RadioChannel), 4U);
    EXPECT_EQ(sizeof(MutableRadioChannel), 4U);
}

TEST(RadioChannelTest, MutableFormIsSetFromNumbersAndChannels)
{
    MutableRadioChannel channel;
    channel = 2U;
    EXPECT_EQ(channel, 2U);
    channel = RadioChannel(3);
    EXPECT_EQ(channel, 3U);
    const RadioChannel fixed = channel;
    EXPECT_EQ(fixed, 3U);
}

TEST(RadioChannelTest, ComparesAndOrdersByNumber)
{
    EXPECT_TRUE(RadioChannel(1) == MutableRadioChannel(1));
    EXPECT_TRUE(RadioChannel(1) != RadioChannel(2));
    EXPECT_TRUE(RadioChannel(1) < MutableRadioChannel(2));
    EXPECT_TRUE(MutableRadioChannel(3) > 2U);
    const std::map<RadioChannel, std::string> byChannel{{RadioChannel(2), "two"}, {RadioChannel(1), "one"}};
    EXPECT_EQ(byChannel.begin()->second, "one");
    EXPECT_EQ(byChannel.at(RadioChannel(2)), "two");
}

TEST(ModulationTest, EveryConstellationHasATextInBothDirections)
{
    const std::vector<Row> rows{
        {0, "CW"},         {2, "BPSK"},       {4, "4QAM"},       {16, "16QAM"},       {32, "32QAM"},
        {64, "64QAM"},     {128, "128QAM"},   {256, "256QAM"},   {512, "512QAM"},     {1024, "1024QAM"},
        {2048, "2048QAM"}, {4096, "4096QAM"}, {8192, "8192QAM"}, {16384, "16384QAM"}, {65536, "65536QAM"},
    };
    expectTexts(modulationToString, rows);
    for (const auto& row : rows) {
        EXPECT_EQ(static_cast<std::uint32_t>(modulationStringToEnum(row.text)), row.value) << row.text;
    }
}

TEST(ModulationTest, AllElseIsUndefined)
{
    expectFallback(modulationToString, "UNDEFINED", {1, 3, 8, 100000, 32768});
    for (const auto* text : {"", "256qam", "UNDEFINED", "QAM", "8QAM"}) {
        EXPECT_EQ(static_cast<std::uint32_t>(modulationStringToEnum(text)), 100000U) << text;
    }
}

TEST(ModulationAndCodingTest, TableHasAllRowsInOrder)
{
    const auto& rows = getModulationAndCodeVector();
    ASSERT_EQ(rows.size(), 54U);
    ASSERT_EQ(kModulationRows.size(), 54U);
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const auto& row = rows[index];
        const auto& expected = kModulationRows[index];
        SCOPED_TRACE(expected.text);
        EXPECT_EQ(static_cast<std::uint32_t>(row.modulationAndCoding), expected.value);
        EXPECT_EQ(row.name, expected.text);
        EXPECT_EQ(static_cast<std::uint32_t>(row.modulation), expected.modulation);
        EXPECT_EQ(row.variant, expected.variant);
        EXPECT_EQ(row.coding, expected.coding);
    }
}

TEST(ModulationAndCodingTest, TableIsTheSameObjectAtEachCall)
{
    EXPECT_EQ(&getModulationAndCodeVector(), &getModulationAndCodeVector());
}

TEST(ModulationAndCodingTest, EveryRowConvertsInBothDirections)
{
    for (const auto& row : kModulationRows) {
        const auto value = static_cast<ModulationAndCoding>(row.value);
        EXPECT_EQ(convertCodeAndModulationEnumToString(value), row.text);
        EXPECT_EQ(streamed(value), row.text);
        EXPECT_EQ(convertStringToCodeAndModulationEnum(std::string{row.text}), value) << row.text;
        ASSERT_NE(findModulationAndCode(value), nullptr) << row.text;
        EXPECT_EQ(findModulationAndCode(value)->name, row.text);
    }
}

TEST(ModulationAndCodingTest, ValuesWithoutARowAreUndefined)
{
    for (const std::uint32_t value : {0U, 9U, 13U, 19U, 24U, 34U, 63U, 150U, 159U, 164U, 4294967295U}) {
        const auto modulation = static_cast<ModulationAndCoding>(value);
        EXPECT_EQ(convertCodeAndModulationEnumToString(modulation), "UNDEFINED") << value;
        EXPECT_EQ(streamed(modulation), "UNDEFINED") << value;
        EXPECT_EQ(findModulationAndCode(modulation), nullptr) << value;
    }
}

TEST(ModulationAndCodingTest, TextsWithoutARowReadAs163)
{
    for (const auto* text : {"", "4qam", "4QAM ", "8QAM", "QAM_4"}) {
        EXPECT_EQ(static_cast<std::uint32_t>(convertStringToCodeAndModulationEnum(text)), 163U) << text;
    }
}

TEST(LinkTypeTest, EveryRowConvertsInBothDirections)
{
    const std::vector<Row> rows{
        {0, "Disable"}, {1, "Enable_A"}, {2, "Enable_B"}, {3, "Enable_C"}, {4, "Enable_D"}};
    for (const auto& row : rows) {
        const auto value = static_cast<LinkType>(row.value);
        EXPECT_EQ(LinkTypeXpicMimo::enumToString(value), row.text);
        EXPECT_EQ(LinkTypeXpicMimo::stringToEnum(std::string{row.text}), value);
    }
}

TEST(LinkTypeTest, ValueAboveFourHasAnEmptyText)
{
    EXPECT_EQ(LinkTypeXpicMimo::enumToString(static_cast<LinkType>(5)), "");
    EXPECT_EQ(LinkTypeXpicMimo::enumToString(static_cast<LinkType>(4294967295U)), "");
}

TEST(LinkTypeTest, UnknownTextReadsAsZero)
{
    for (const auto* text : {"enable_a", "Enable_E", "", "Enable_A ", "disable"}) {
        EXPECT_EQ(static_cast<std::uint32_t>(LinkTypeXpicMimo::stringToEnum(text)), 0U) << text;
    }
}

TEST(XpicMimoPreambleTest, TextsAndFallback)
{
    expectTexts(xpicMimoPreambleToString,
                {{0, "Preamble_A"}, {1, "Preamble_B"}, {2, "Preamble_C"}, {3, "Preamble_D"}});
    expectFallback(xpicMimoPreambleToString, "", {4, 5});
}

TEST(FFConfigTypeTest, ShortFormIsPrintedAndLongFormIsRead)
{
    ASSERT_EQ(kFrameFormats.size(), 15U);
    for (const auto& row : kFrameFormats) {
        const auto value = static_cast<FFConfigType>(row.value);
        EXPECT_EQ(ffConfigTypeToString(value), row.shortForm);
        EXPECT_EQ(streamed(value), row.shortForm);
        EXPECT_EQ(ffConfigTypeStringToEnum(std::string{row.longForm}), value) << row.longForm;
    }
}

TEST(FFConfigTypeTest, ValueAboveFourteenPrintsNothing)
{
    EXPECT_EQ(streamed(static_cast<FFConfigType>(15)), "");
    expectFallback(ffConfigTypeToString, "", {15, 16});
}

TEST(FFConfigTypeTest, ShortFormsAndUnknownTextsReadAsZero)
{
    for (const auto* text : {"Std", "LHStd", "LHXpic", "Xpic2", "LHXpic2", "SisoCA", "XpicCA", "Mrc2", "Mrcx",
                             "", "standard", "XPIC"}) {
        EXPECT_EQ(static_cast<std::uint32_t>(ffConfigTypeStringToEnum(text)), 0U) << text;
    }
}

TEST(PpsOutputModeTest, TextsAndFallback)
{
    expectTexts(ppsOutputModeToString, {{0, "Off"}, {1, "On"}, {2, "Auto"}});
    expectFallback(ppsOutputModeToString, "Unknown", {3, 4});
    EXPECT_EQ(streamed(PpsOutputMode::Auto), "Auto");
    EXPECT_EQ(streamed(static_cast<PpsOutputMode>(3)), "Unknown");
}

TEST(ERAUHResultTest, EveryFailureWithATextPrintsIt)
{
    ASSERT_EQ(kRauFailures.size(), 19U);
    for (const auto& row : kRauFailures) {
        EXPECT_EQ(rauhResultToString(static_cast<ERAUHResult>(row.value)), row.text);
        EXPECT_EQ(streamed(static_cast<ERAUHResult>(row.value)), row.text);
    }
}

TEST(ERAUHResultTest, AllElsePrintsAsADecimalNumber)
{
    const std::vector<Row> rows{{0, "0"},          {1, "1"},          {0x7FFF, "32767"},
                                {0x8006, "32774"}, {0x8014, "32788"}, {0xFFFFFFFF, "4294967295"}};
    for (const auto& row : rows) {
        EXPECT_EQ(rauhResultToString(static_cast<ERAUHResult>(row.value)), row.text);
        EXPECT_EQ(streamed(static_cast<ERAUHResult>(row.value)), row.text);
    }
}

TEST(AlarmEventTest, PrintsAllFieldsAndALineFeed)
{
    const AlarmEvent raised{"RfLoop", true, 3, 2U};
    EXPECT_EQ(raised.toString(),
              "eventName: RfLoop, isActive: true, numberOfTimesEventHasBeenActive: 3, radioChannelId: 2\n");
    const AlarmEvent ceased{"", false, -1, 0U};
    EXPECT_EQ(ceased.toString(),
              "eventName: , isActive: false, numberOfTimesEventHasBeenActive: -1, radioChannelId: 0\n");
}

TEST(AlarmEventTest, DefaultIsACeasedAlarmOfChannelOne)
{
    EXPECT_EQ(AlarmEvent{}.toString(),
              "eventName: , isActive: false, numberOfTimesEventHasBeenActive: 0, radioChannelId: 1\n");
}

TEST(OptionalTest, EmptyOneThrowsWhenRead)
{
    general_classes::Optional<std::int32_t> empty;
    EXPECT_FALSE(empty.hasValue());
    EXPECT_THROW(static_cast<void>(empty.value()), general_classes::BadOptional);
    EXPECT_THROW(static_cast<void>(std::as_const(empty).value()), general_classes::BadOptional);
    EXPECT_EQ(empty.valueOr(7), 7);
}

TEST(OptionalTest, ExceptionIsAStandardOneWithItsText)
{
    try {
        static_cast<void>(general_classes::Optional<std::string>{}.value());
        FAIL() << "nothing thrown";
    } catch (const std::exception& exception) {
        EXPECT_STREQ(exception.what(), "bad optional access");
    }
}

TEST(OptionalTest, HoldsWhatItWasGiven)
{
    general_classes::Optional<std::uint32_t> number = 5;
    EXPECT_TRUE(number.hasValue());
    EXPECT_EQ(number.value(), 5U);
    EXPECT_EQ(number.valueOr(7), 5U);
    number = 6U;
    EXPECT_EQ(number.value(), 6U);
    number.value() = 0;
    EXPECT_TRUE(number.hasValue());
    EXPECT_EQ(number.value(), 0U);
    const auto copy = number;
    number.reset();
    EXPECT_FALSE(number.hasValue());
    EXPECT_TRUE(copy.hasValue());
}

TEST(OptionalTest, FalseIsAValue)
{
    general_classes::Optional<bool> flag;
    EXPECT_FALSE(flag.hasValue());
    flag = false;
    EXPECT_TRUE(flag.hasValue());
    EXPECT_FALSE(flag.value());
}

TEST(ModemChainTest, TextsAndFallback)
{
    expectTexts(bcm::types::modemChainToString, {{0, "Main"},
                                                 {1, "XpicSlave"},
                                                 {2, "MrcDiversity"},
                                                 {3, "MrcDiversitySlave"},
                                                 {4, "MimoSpatial"},
                                                 {5, "MimoXSpatialSlave"},
                                                 {6, "Max"}});
    expectFallback(bcm::types::modemChainToString, "Max", {7, 8});
}

TEST(RecoverTest, TextsAndFallback)
{
    expectTexts(recoverToString, {{0, "Undefined"}, {1, "DspWithoutConfig"}, {2, "Dsp"}});
    expectFallback(recoverToString, "Undefined", {3});
    EXPECT_LT(Recover::DspWithoutConfig, Recover::Dsp);
}

TEST(ReferenceSecTest, TextsAndFallback)
{
    expectTexts(referenceSecToString, {{0, "2"},
                                       {1, "4L"},
                                       {2, "4H"},
                                       {3, "5B"},
                                       {4, "6B"},
                                       {5, "5LB"},
                                       {6, "5HB"},
                                       {7, "6LB"},
                                       {8, "6HB"},
                                       {9, "7B"}});
    expectFallback(referenceSecToString, "UNDEFINED", {10, 11});
}

TEST(AcmModeTest, TextsAndFallbacks)
{
    expectTexts(acmModeToString, {{0, "Active"}, {1, "Passive"}, {2, "Basic"}, {3, "Undefined"}});
    expectFallback(acmModeToString, "Undefined", {4});
    expectTexts(acmModePositionToString, {{0, "Internal"}, {1, "External"}, {2, "Undefined"}});
    expectFallback(acmModePositionToString, "Undefined", {3});
    expectTexts(acmRlpControlToString, {{0, "Normal"}, {1, "ActiveTx"}, {2, "StandbyTx"}, {3, "Undefined"}});
    expectFallback(acmRlpControlToString, "", {4});
}

TEST(TransmitterStatusTest, TextsAndFallbacks)
{
    expectTexts(txPowerActualStatusToString, {{0, "Off"}, {1, "On"}, {2, "Standby"}});
    expectFallback(txPowerActualStatusToString, "UNDEFINED", {3});
    expectTexts(txRequestedStatusToString, {{0, "Off"}, {1, "On"}});
    expectFallback(txRequestedStatusToString, "Undefined", {2});
    expectTexts(
        forceLoopModeToString,
        {{0, "NormalOperation"}, {1, "NormalOperationNoHysteresis"}, {2, "ClosedLoop"}, {3, "OpenLoop"}});
    expectFallback(forceLoopModeToString, "Undefined", {4});
}

TEST(DspTest, TextsAndFallbacks)
{
    expectTexts(dspATxModeToString, {{0, "eDspATxModeNormal"},
                                     {1, "eDspATxModeOneTone"},
                                     {2, "eDspATxModeTwoTone"},
                                     {3, "eDspATxModeToneSweep"},
                                     {4, "eDspATxModeWhiteNoise"},
                                     {5, "eDspATxModeMute"},
                                     {6, "eDspATxModePrbs"},
                                     {7, "eDspATxModeStub"},
                                     {8, "eDspATxModeUndefined"}});
    expectFallback(dspATxModeToString, "Unknown mode", {9});
    expectTexts(dspChannelStateToString,
                {{0, "blocked"}, {1, "configured"}, {2, "acm configured"}, {3, "incomplete configuration"}});
    expectFallback(dspChannelStateToString, "invalid", {4});
}

TEST(PpsTest, TextsAndFallbacks)
{
    expectTexts(ppsRtcCalibrationModeToString,
                {{0, "CoarseAndFine"}, {1, "Fine"}, {2, "Auto"}, {3, "AutoOff"}});
    expectFallback(ppsRtcCalibrationModeToString, "Unknown", {4});
    expectTexts(ppsCalibStatusToString, {{0, "NotCalibrated"},
                                         {1, "CoarseInProgress"},
                                         {2, "FineInProgress"},
                                         {3, "AutoFineInProgress"},
                                         {4, "Successful"},
                                         {5, "Failed"},
                                         {6, "Undefined"}});
    expectFallback(ppsCalibStatusToString, "Unknown", {7});
    expectTexts(ppsCalibReasonOfFailureToString, {{0, "NotRelevant"},
                                                  {1, "SlaveLOL"},
                                                  {2, "NoResponseFromMaster"},
                                                  {3, "SlaveAcmSwitch"},
                                                  {4, "CoarseNeeded"},
                                                  {5, "GeneralFailure"},
                                                  {6, "OtherMessageReceived"},
                                                  {7, "Undefined"}});
    expectFallback(ppsCalibReasonOfFailureToString, "Unknown", {8});
    expectTexts(ppsSourceToString, {{0, "Internal"}, {1, "External"}, {2, "PeerSC"}, {3, "External2"}});
    expectFallback(ppsSourceToString, "Unknown", {4, 7});
}

TEST(RadioUnitTest, TextsAndFallbacks)
{
    expectTexts(radioRestartStatusToString,
                {{1, "Idle"}, {2, "Restarting"}, {3, "RestartSuccessful"}, {4, "RestartFailed"}});
    expectFallback(radioRestartStatusToString, "Invalid", {0, 5});
    expectTexts(routeTypeToString, {{1, "RcchToPhyRccMap"}, {2, "RcchToRfPortMap"}});
    expectFallback(routeTypeToString, "UndefinedRoute", {0, 3});
    expectTexts(duplexTypeToString, {{0, "Variable"}, {1, "Fixed"}});
    expectFallback(duplexTypeToString, "UNDEFINED", {2});
}

TEST(MimoTest, TextsAndFallbacks)
{
    expectTexts(mimoLockStatusToString, {{0, "Locked"}, {1, "Unlocked"}, {2, "Mute"}});
    expectFallback(mimoLockStatusToString, "", {3});
    expectTexts(mimoCalibrationStatusToString, {{0, "Disabled"},
                                                {1, "InProgress"},
                                                {2, "Success"},
                                                {3, "NoCorrelationFailure"},
                                                {4, "TimeoutFailure"},
                                                {5, "WaitingToStart"}});
    expectFallback(mimoCalibrationStatusToString, "Unknown", {6});
}

TEST(CombinerTest, TextsAndFallbacks)
{
    expectTexts(basebandSdcDadeStatusToString, {{0, "CalibrationNotStarted"},
                                                {1, "CalibrationOngoing"},
                                                {2, "CalibrationStopping"},
                                                {3, "CalibrationFailed"},
                                                {4, "Calibrated"}});
    expectFallback(basebandSdcDadeStatusToString, "UndefinedStatus", {5});
    expectTexts(sdcOperStatusToString, {{0, "disabled"}, {1, "enabled"}, {2, "in-progress"}});
    expectFallback(sdcOperStatusToString, "invalid", {3, 4});
    expectTexts(sdcDadeStatusToString, {{0, "not-calibrated"}, {1, "calibrated"}, {2, "in-progress"}});
    expectFallback(sdcDadeStatusToString, "invalid", {3, 4});
    expectTexts(sdcPathToString, {{0, "main"}, {1, "diversity"}, {2, "auto"}});
    expectFallback(sdcPathToString, "invalid", {3, 4});
}

TEST(CombinerTest, PathTextsReadExactly)
{
    EXPECT_EQ(static_cast<std::int32_t>(sdcPathStringToEnum("main")), 0);
    EXPECT_EQ(static_cast<std::int32_t>(sdcPathStringToEnum("diversity")), 1);
    EXPECT_EQ(static_cast<std::int32_t>(sdcPathStringToEnum("auto")), 2);
    for (const auto* text : {"invalid", "", "Main", "main "}) {
        EXPECT_EQ(static_cast<std::int32_t>(sdcPathStringToEnum(text)), 3) << text;
    }
}
