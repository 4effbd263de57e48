#include "CommandTest.h"
#include "CriSetSdcPathControlImpl.h"
#include "SpaceDiversityCombinerControllerDouble.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

// What this setter makes of its text; what it has in common with others is in CombinerSettersTest.

namespace zyr_top_api
{
namespace
{

class CriSetSdcPathControlTest : public zyr_test::CommandTest
{
  protected:
    CriSetSdcPathControlTest()
    {
        publish(controller);
        EXPECT_EQ(impl.initialize(1), eTI_S_OK);
        transcript.clear();
    }

    zyr_test::SpaceDiversityCombinerControllerDouble controller{transcript,
                                                                "ISpaceDiversityCombinerController_1"};
    CriSetSdcPathControlImpl impl;
};

TEST_F(CriSetSdcPathControlTest, TextsAreComparedExactlyAndAnyOtherGoesAsNoPath)
{
    const std::vector<std::pair<std::string, std::string>> texts{
        {"invalid", "3"}, {"auto", "2"}, {"main", "0"},      {"diversity", "1"},
        {"", "3"},        {"Main", "3"}, {"MAIN", "3"},      {"main ", "3"},
        {" main", "3"},   {"mai", "3"},  {"Diversity", "3"}, {"diversity2", "3"},
        {"Auto", "3"},    {"0", "3"},    {"1", "3"},         {"main-diversity", "3"},
    };
    for (const auto& [text, value] : texts) {
        transcript.clear();
        tell(impl.execute({1U, text}));
        EXPECT_EQ(transcript.text(), "\n3 ZYR.TI.CriSetSdcPathControl: RadioChannelID: 1, sdcPath: " + text +
                                         R"(\n
ISpaceDiversityCombinerController_1.setSdcPath()" +
                                         value + R"()
result 0x0 0 ""
prints StandardResponse Sent\n
)");
    }
}

} // namespace
} // namespace zyr_top_api
