#include "BaseResponse.h"

#include "TextWriter.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace zyr_top_api
{
namespace
{

ETIResult result(std::uint32_t code)
{
    return static_cast<ETIResult>(code);
}

TEST(BaseResponseTest, DefaultIsASuccessWithoutText)
{
    const BaseResponse response;
    EXPECT_EQ(response.tiResult, 0U);
    EXPECT_EQ(response.faultCode, 0);
    EXPECT_EQ(response.faultString, "");
}

struct FaultCase
{
    std::uint32_t result;
    std::int32_t faultCode;
};

class FaultCodeTest : public ::testing::TestWithParam<FaultCase>
{};

TEST_P(FaultCodeTest, FollowsTheRangeOfTheResult)
{
    const BaseResponse response(result(GetParam().result), "x");
    EXPECT_EQ(response.tiResult, GetParam().result);
    EXPECT_EQ(response.faultCode, GetParam().faultCode);
    EXPECT_EQ(response.faultString, GetParam().faultCode == 0 ? "" : "x");
}

INSTANTIATE_TEST_SUITE_P(Bounds, FaultCodeTest,
                         ::testing::Values(FaultCase{0x0, 0}, FaultCase{0x1, 0}, FaultCase{0x1000, 0},
                                           FaultCase{0x7FFF, 0}, FaultCase{0x8000, 4}, FaultCase{0x9FFF, 4},
                                           FaultCase{0xA000, 3}, FaultCase{0xA0FF, 3}, FaultCase{0xA100, 2},
                                           FaultCase{0xA1FF, 2}, FaultCase{0xA200, 1}, FaultCase{0xA2FF, 1},
                                           FaultCase{0xFFFFFFFF, 1}),
                         [](const auto& parameter) {
                             return "Result" + std::to_string(parameter.param.result);
                         });

TEST(BaseResponseTest, WarningDropsItsText)
{
    const StandardResponse response(eTI_W_WARNING, "x");
    EXPECT_EQ(response.tiResult, 0x1000U);
    EXPECT_EQ(response.faultCode, 0);
    EXPECT_EQ(response.faultString, "");
}

TEST(BaseResponseTest, SetResultReplacesResultFaultAndTextBothWays)
{
    BaseResponse response;
    setResult(response, eTI_E_PARAMETER_INVALID, "first");
    EXPECT_EQ(response.tiResult, 0xA002U);
    EXPECT_EQ(response.faultCode, 3);
    EXPECT_EQ(response.faultString, "first");
    setResult(response, eTI_S_TRUE, "second");
    EXPECT_EQ(response.tiResult, 1U);
    EXPECT_EQ(response.faultCode, 0);
    EXPECT_EQ(response.faultString, "");
}

TEST(BaseResponseTest, PrintsSentWhateverItsResult)
{
    EXPECT_EQ(BaseResponse().printResponse(), "Sent\n");
    EXPECT_EQ(BaseResponse(eTI_E_FAILED, "x").printResponse(), "Sent\n");
}

TEST(BaseResponseTest, StandardResponsePrintsItsNameWhateverItsResultAndText)
{
    StandardResponse response;
    response.additionalText = "more";
    EXPECT_EQ(response.printResponse(), "StandardResponse Sent\n");
    EXPECT_EQ(StandardResponse(eTI_E_FAILED, "x").printResponse(), "StandardResponse Sent\n");
}

TEST(BaseResponseTest, StandardResponsePrintsItsNameThroughTheRoot)
{
    const StandardResponse response;
    const BaseResponse& root = response;
    EXPECT_EQ(root.printResponse(), "StandardResponse Sent\n");
}

TEST(BaseResponseTest, AdditionalTextStartsEmptyAndIsCopiedAndMoved)
{
    StandardResponse response;
    EXPECT_EQ(response.additionalText, "");
    response.additionalText = "more";
    const StandardResponse copy = response;
    EXPECT_EQ(copy.additionalText, "more");
    StandardResponse assigned;
    assigned = std::move(response);
    EXPECT_EQ(assigned.additionalText, "more");
}

TEST(BaseResponseTest, MoveTakesTheTextInsteadOfCopyingIt)
{
    StandardResponse response(eTI_E_FAILED, std::string(100, 'x'));
    const char* const text = response.faultString.data();
    const StandardResponse moved = std::move(response);
    EXPECT_EQ(moved.faultString.data(), text);
    StandardResponse assigned;
    assigned = StandardResponse(moved);
    EXPECT_EQ(assigned.faultCode, 4);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<StandardResponse>);
}

TEST(BaseResponseTest, FaultlessMeansAFaultCodeBelow1)
{
    BaseResponse response;
    EXPECT_TRUE(isFaultless(response));
    response.faultCode = -1;
    EXPECT_TRUE(isFaultless(response));
    response.faultCode = 1;
    EXPECT_FALSE(isFaultless(response));
}

std::string resultLine(const BaseResponse& response)
{
    return written([&](TextWriter& text) { printResultLine(response, text); });
}

TEST(BaseResponseTest, ResultLineNamesTheResult)
{
    EXPECT_EQ(resultLine(BaseResponse(eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds")),
              "tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds");
    EXPECT_EQ(resultLine(BaseResponse()), "tiResult: eTI_S_OK, faultCode: 0, faultString: ");
}

TEST(BaseResponseTest, ResultLineSaysUnknownForAResultWithoutAName)
{
    EXPECT_EQ(resultLine(BaseResponse(result(0xA2FF), "x")),
              "tiResult: Unknown, faultCode: 1, faultString: x");
    EXPECT_EQ(resultLine(BaseResponse(result(3), "x")), "tiResult: Unknown, faultCode: 0, faultString: ");
}

} // namespace
} // namespace zyr_top_api
