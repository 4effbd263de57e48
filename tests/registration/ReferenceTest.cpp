#include "Reference.h"

#include "CommandEntry.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>

namespace
{

using zyr_registration::MethodNotes;

const MethodNotes& notesOf(std::string_view name)
{
    return std::ranges::find(zyr_registration::allCommands(), name, &zyr_registration::CommandEntry::name)
        ->notes;
}

TEST(ReferenceTest, CommandIsDescribedForPrograms)
{
    EXPECT_EQ(
        zyr_registration::describe(notesOf("CRI.EnableAcm"), 2).dump(),
        R"({"name":"CRI.EnableAcm",)"
        R"("help":"Switches adaptive coding and modulation (ACM) of a radio channel on or off.",)"
        R"("test":false,"longPoll":false,"disturbsTraffic":true,)"
        R"("request":[{"name":"channelId","type":"int","minimum":1,"maximum":2,"isChannel":true,)"
        R"("help":"radio channel","required":true},)"
        R"({"name":"enable","type":"boolean","help":"true switches ACM on, false off","required":true}],)"
        R"("response":[],)"
        R"("faults":[{"result":"eTI_E_INVALID_ARGUMENT","faultCode":2,"text":"RadioChannelID out of bounds",)"
        R"("meaning":"The node has no such radio channel."},)"
        R"({"result":"eTI_E_FAILED","faultCode":4,"text":"CRI.EnableAcm failed to enable ACM",)"
        R"("meaning":"The ACM handler refused to switch ACM on."},)"
        R"({"result":"eTI_E_FAILED","faultCode":4,"text":"CRI.EnableAcm failed to disable ACM",)"
        R"("meaning":"The ACM handler refused to switch ACM off."}]})");
}

TEST(ReferenceTest, ElementsOfAnArrayAreDescribed)
{
    const auto described = zyr_registration::describe(notesOf("CI.GetFastEvents"), 2);
    EXPECT_EQ(described["longPoll"], true);
    EXPECT_EQ(described["request"][0]["type"], "array");
    EXPECT_EQ(described["request"][0]["required"], false);
    EXPECT_EQ(described["request"][0]["element"]["type"], "struct");
    EXPECT_EQ(described["request"][0]["element"]["fields"][3].dump(),
              R"({"name":"radioChannelId","type":"int","minimum":0,"maximum":4294967295,"isChannel":true,)"
              R"("help":"radio channel that the alarm concerns","required":true})");
}

TEST(ReferenceTest, CommandIsDescribedForPeople)
{
    EXPECT_EQ(
        zyr_registration::helpText(notesOf("TI.GetEvents"), 2),
        "Reads the alarm events that an option selects.\n"
        "Refused while the test family is closed.\n"
        "Request:\n"
        "  requestOption: what to report; its meaning is the alarm handler's; an integer from -2147483648 "
        "to 2147483647\n"
        "Response:\n"
        "  events: the selected alarm events; an array, each element a struct of "
        "eventName, "
        "isActive, numberOfTimesEventHasBeenActive, radioChannelId\n"
        "  requestOption: the request's; an integer from -2147483648 to 2147483647\n"
        "Faults:\n"
        "  4 \"TI.GetEvents failed to get alarms\": The alarm handler failed.\n");
}

TEST(ReferenceTest, MarkdownHasASectionForEachCommand)
{
    const std::string text = zyr_registration::referenceMarkdown();
    EXPECT_TRUE(text.starts_with("# Commands\n\n"));
    EXPECT_NE(
        text.find(
            "## CRI.EnableAcm\n\n"
            "Switches adaptive coding and modulation (ACM) of a radio channel on or off.\n\n"
            "Can disturb traffic.\n\n"
            "Request:\n\n"
            "| Field | Takes | Unit | Required | Meaning |\n"
            "|---|---|---|---|---|\n"
            "| `channelId` | a radio channel of the node, from 1 |  | yes | radio channel |\n"
            "| `enable` | a boolean |  | yes | true switches ACM on, false off |\n\n"
            "Response: no fields.\n\n"
            "Faults:\n\n"
            "| Code | Result | Text | Meaning |\n"
            "|---|---|---|---|\n"
            "| 2 | `eTI_E_INVALID_ARGUMENT` | RadioChannelID out of bounds | The node has no such radio "
            "channel. |\n"),
        std::string::npos)
        << text;
    EXPECT_NE(text.find("| `events[].eventName` | a string |  | name of the alarm |\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with("|\n") && !text.ends_with("\n\n"));
}

} // namespace
