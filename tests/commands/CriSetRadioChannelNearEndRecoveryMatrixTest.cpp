// "CRI.SetRadioChannelNearEnd": every failure on the first pass, behind every failure that asks for a
// recovery, and three times in a row.

#include "CriSetRadioChannelNearEndFixture.h"

#include <gtest/gtest.h>

#include <string>

namespace zyr_top_api
{
namespace
{

using zyr_test::failedWith;
using zyr_test::FailurePoint;
using zyr_test::FailurePointFacts;
using zyr_test::kFailurePoints;
using zyr_test::kSuccess;

constexpr std::string_view kWeak = "RecoveryController.startDspRecovery(1)\n";
constexpr std::string_view kFull = "RecoveryController.startDspRecovery(2)\n";

class NearEndRecoveryMatrixTest : public zyr_test::NearEndFailureTest
{
  protected:
    // The DSP wants the weaker recovery of itself in every pass, so that it can fail to be recovered.
    NearEndRecoveryMatrixTest() { neededRecovery = Recover::DspWithoutConfig; }

    // Makes the command meet the point, on a frame that leads there.
    Command commandFor(FailurePoint first, FailurePoint second)
    {
        Command command = NearEndTest::command();
        const auto isMet = [&](FailurePoint point) { return first == point || second == point; };
        isXpicCapable = !isMet(FailurePoint::CcdpStop);
        if (isMet(FailurePoint::SecondFrameWrite)) {
            command.FFConfigType = "MrcTwoBoards";
        }
        return command;
    }

    void clear()
    {
        transcript.clear();
        planned.clear();
    }

    // No pass can meet both the start and the stop of the CCDP controller.
    static bool canBothBeMet(FailurePoint first, FailurePoint second)
    {
        return !(first == FailurePoint::CcdpStart && second == FailurePoint::CcdpStop) &&
               !(first == FailurePoint::CcdpStop && second == FailurePoint::CcdpStart);
    }

    template <class Function>
    static void forEachPair(Function function)
    {
        for (const FailurePointFacts& first : kFailurePoints) {
            for (const FailurePointFacts& second : kFailurePoints) {
                if (first.isHealable && canBothBeMet(first.point, second.point)) {
                    SCOPED_TRACE(std::string(first.name) + ", then " + second.name);
                    function(first, second);
                }
            }
        }
    }

    // The recoveries of the passes behind the first one, whose own wish is that of the DSP.
    std::string recoveries() const { return linesWith({"startDspRecovery"}).substr(1); }

    // Whether the closing phases ran, once.
    bool isClosed() const { return count("group 5 for channel 1") == 1; }
};

TEST_F(NearEndRecoveryMatrixTest, FailureOfTheFirstPass)
{
    for (const FailurePointFacts& facts : kFailurePoints) {
        SCOPED_TRACE(facts.name);
        clear();
        failIn({1}, facts.point);
        const std::string result = run(commandFor(facts.point, facts.point));
        if (facts.isHealable) {
            EXPECT_EQ(result, kSuccess);
            EXPECT_EQ(pass, 2U);
            EXPECT_TRUE(isClosed());
            EXPECT_EQ(count("retry with DSP recovery"), 1U);
            EXPECT_EQ(recoveries(), std::string(kWeak) + std::string(kFull));
        } else {
            EXPECT_EQ(pass, 1U);
            EXPECT_EQ(count("group 5"), 0U);
            EXPECT_EQ(count("1 ZYR.TI.CriSetRadioChannelNearEnd: Recovery cannot solve this failure, return"),
                      1U);
            EXPECT_TRUE(result.starts_with("result 0x8000 4 \"")) << result;
            EXPECT_EQ(count("startDspRecovery(2)"), 0U);
        }
    }
}

TEST_F(NearEndRecoveryMatrixTest, FailureThreeTimesInARow)
{
    for (const FailurePointFacts& facts : kFailurePoints) {
        SCOPED_TRACE(facts.name);
        clear();
        failIn({1, 2, 3, 4}, facts.point);
        const std::string result = run(commandFor(facts.point, facts.point));
        EXPECT_EQ(result, failedWith(facts.text));
        EXPECT_EQ(count("group 5"), 0U);
        EXPECT_EQ(pass, facts.isHealable ? 3U : 1U);
        EXPECT_EQ(count("2 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed 3 times, restart needed"),
                  facts.isHealable ? 1U : 0U);
        EXPECT_EQ(count("3 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed, retry with DSP recovery"),
                  facts.isHealable ? 2U : 0U);
        EXPECT_EQ(count("Recovery cannot solve"), facts.isHealable ? 0U : 1U);
    }
}

TEST_F(NearEndRecoveryMatrixTest, FailureOfTheSecondPassBehindAHealableOneIsHealedByTheThird)
{
    forEachPair([this](const FailurePointFacts& first, const FailurePointFacts& second) {
        clear();
        failIn({1}, first.point);
        failIn({2}, second.point);
        EXPECT_EQ(run(commandFor(first.point, second.point)), kSuccess);
        EXPECT_EQ(pass, 3U);
        EXPECT_TRUE(isClosed());
        EXPECT_EQ(count("Recovery cannot solve"), 0U);
        EXPECT_EQ(count(std::string("2 ZYR.TI.CriSetRadioChannelNearEnd: ") + second.text),
                  first.point == second.point ? 2U : 1U);
        EXPECT_EQ(count("retry with DSP recovery"), 2U);
        // A pass that ends before the recovery runs none.
        const bool isBeforeRecovery = second.point < FailurePoint::StartRecovery;
        EXPECT_EQ(recoveries(),
                  std::string(kWeak) + std::string(isBeforeRecovery ? "" : kFull) + std::string(kFull));
    });
}

TEST_F(NearEndRecoveryMatrixTest, FailureOfTheSecondAndThirdPassBehindAHealableOneEndsTheCommand)
{
    forEachPair([this](const FailurePointFacts& first, const FailurePointFacts& second) {
        clear();
        failIn({1}, first.point);
        failIn({2, 3}, second.point);
        EXPECT_EQ(run(commandFor(first.point, second.point)).substr(0, 15), "result 0x8000 4");
        EXPECT_EQ(pass, 3U);
        EXPECT_EQ(count("group 5"), 0U);
        EXPECT_EQ(count("2 ZYR.TI.CriSetRadioChannelNearEnd: Configuration failed 3 times, restart needed"),
                  1U);
    });
}

TEST_F(NearEndRecoveryMatrixTest, FailureOfTheThirdPassGivesItsOwnText)
{
    forEachPair([this](const FailurePointFacts& first, const FailurePointFacts& third) {
        clear();
        failIn({1, 2}, first.point);
        failIn({3}, third.point);
        EXPECT_EQ(run(commandFor(first.point, third.point)), failedWith(third.text));
        EXPECT_EQ(pass, 3U);
        EXPECT_EQ(count("Recovery cannot solve"), 0U);
        EXPECT_EQ(count("restart needed"), 1U);
    });
}

// What a pass asks for stays until a later pass asks for something else.
TEST_F(NearEndRecoveryMatrixTest, LaterHealableFailureAsksAnew)
{
    neededRecovery = Recover::None;
    failIn({1, 2}, FailurePoint::PmaxCapability);
    node.channel1.dspApi.controlApi.onCheckDspReconfiguration.inTurn({{eTI_S_OK, true}, {eTI_S_OK, false}});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(recoveries(), std::string(kWeak) + std::string(kFull));
}

TEST_F(NearEndRecoveryMatrixTest, LaterFailureThatAsksForNothingKeepsWhatWasAskedFor)
{
    neededRecovery = Recover::None;
    failIn({1}, FailurePoint::PmaxCapability);
    failIn({2}, FailurePoint::GivenBack);
    node.channel1.dspApi.controlApi.onCheckDspReconfiguration.inTurn({{eTI_S_OK, true}, {eTI_S_OK, false}});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(recoveries(), std::string(kWeak) + std::string(kWeak));
}

TEST_F(NearEndRecoveryMatrixTest, FullRecoveryMayBeFollowedByTheWeakerOne)
{
    neededRecovery = Recover::None;
    failIn({1, 2}, FailurePoint::EnableAcm);
    node.channel1.dspApi.controlApi.onCheckDspReconfiguration.inTurn({{eTI_S_OK, false}, {eTI_S_OK, true}});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(recoveries(), std::string(kFull) + std::string(kWeak));
    // Only the pass behind the full one switches the frame update mode.
    EXPECT_EQ(count("setFrameUpdateMode(1)"), 1U);
}

} // namespace
} // namespace zyr_top_api
