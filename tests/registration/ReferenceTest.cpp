#include "Reference.h"

#include "CommandEntry.h"
#include "Conversion.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <string>

namespace
{

using zyr_registration::MethodNotes;
using zyr_registration::PlainMethodNotes;
using zyr_registration::Value;

const MethodNotes& notesOf(std::string_view name)
{
    return std::ranges::find(zyr_registration::allCommands(), name, &zyr_registration::CommandEntry::name)
        ->notes;
}

// The description of a field, by names and indices on the way to it.
Value described(std::string_view command, const std::string& pointer)
{
    return zyr_registration::describe(notesOf(command), 2).at(Value::json_pointer(pointer));
}

TEST(ReferenceTest, CommandIsDescribedForPrograms)
{
    EXPECT_EQ(
        zyr_registration::describe(notesOf("CRI.EnableAcm"), 2).dump(),
        R"({"name":"CRI.EnableAcm",)"
        R"("help":"Switches adaptive coding and modulation (ACM) of a radio channel on or off.",)"
        R"("group":"acm","test":false,"longPoll":false,"readOnly":false,"disturbsTraffic":true,)"
        R"("longest_ms":1000,)"
        R"("request":[{"name":"channelId","type":"int","minimum":1,"maximum":2,"isChannel":true,)"
        R"("help":"radio channel","required":true,"example":1},)"
        R"({"name":"enable","type":"boolean","help":"true switches ACM on, false off","required":true,)"
        R"("example":true}],)"
        R"("response":[],)"
        R"("faults":[{"result":"eTI_E_INVALID_ARGUMENT","faultCode":2,"text":"RadioChannelID out of bounds",)"
        R"("meaning":"The node has no such radio channel."},)"
        R"({"result":"eTI_E_FAILED","faultCode":4,"text":"CRI.EnableAcm failed to enable ACM",)"
        R"("meaning":"The ACM handler refused to switch ACM on."},)"
        R"({"result":"eTI_E_FAILED","faultCode":4,"text":"CRI.EnableAcm failed to disable ACM",)"
        R"("meaning":"The ACM handler refused to switch ACM off."}]})");
}

TEST(ReferenceTest, LongPollHasNoLongestTimeAndOnlyReads)
{
    const Value poll = zyr_registration::describe(notesOf("CI.GetFastEvents"), 2);
    EXPECT_EQ(poll["longPoll"], true);
    EXPECT_EQ(poll["readOnly"], true);
    EXPECT_EQ(poll["disturbsTraffic"], false);
    EXPECT_FALSE(poll.contains("longest_ms"));
}

TEST(ReferenceTest, WaitsCountForTheLongestTime)
{
    EXPECT_EQ(described("CRI.SetRadioChannelNearEnd", "/longest_ms"), 60000);
}

TEST(ReferenceTest, NeedsOfAnExampleAreTold)
{
    EXPECT_EQ(described("CRI.SetSdcEnable", "/needs").dump(), R"({"options":"--radio-type 3","before":""})");
    EXPECT_EQ(described("CRI.GetHopLengthTimeDspPps", "/needs").dump(),
              R"({"options":"","before":"CRI.SetRadioChannelNearEnd"})");
}

TEST(ReferenceTest, ElementsOfAnArrayAreDescribed)
{
    EXPECT_EQ(described("CI.GetFastEvents", "/request/0/type"), "array");
    EXPECT_EQ(described("CI.GetFastEvents", "/request/0/required"), false);
    EXPECT_EQ(described("CI.GetFastEvents", "/request/0/element/type"), "struct");
    EXPECT_EQ(described("CI.GetFastEvents", "/request/0/element/fields/3").dump(),
              R"({"name":"radioChannelId","type":"int","minimum":0,"maximum":4294967295,"isChannel":true,)"
              R"("help":"radio channel that the alarm concerns","required":true,"example":1})");
}

TEST(ReferenceTest, FieldOfAResponseIsDescribed)
{
    EXPECT_EQ(described("TI.ManageRadioChannelStatus", "/response/7").dump(),
              R"({"name":"LowestRFInputPower","type":"int","minimum":-2147483648,"maximum":2147483647,)"
              R"("unit":"0.1 dBm","noValues":[{"number":-9999,"text":"not supported"}],)"
              R"("help":"lowest received level","required":true})");
    EXPECT_EQ(described("CRI.GetRadioChannelStatus", "/response/1").dump(),
              R"({"name":"RadioChannelStatus","type":"string","values":["Up","Down"],)"
              R"("help":"state of the link","required":true})");
    EXPECT_EQ(described("CRI.GetRadioChannelStatus", "/response/2/values/12"), "16QAM");
    EXPECT_EQ(described("CRI.GetRadioChannelStatus", "/response/35/name"), "RleStatus");
    EXPECT_EQ(described("CRI.GetRadioChannelStatus", "/response/35/required"), false);
}

TEST(ReferenceTest, TextsOfAnEnumerationBearItsName)
{
    EXPECT_EQ(described("CRI.SetRFPower", "/request/1").dump(),
              R"({"name":"txRequestedStatus","type":"int","minimum":0,"maximum":4294967295,)"
              R"("vocabulary":"TxRequestedStatus",)"
              R"("texts":[{"number":0,"text":"Off"},{"number":1,"text":"On"}],)"
              R"("help":"state that the transmitter shall have","required":true,"example":"Off"})");
    EXPECT_EQ(described("CRI.GetAirInterfaceCapability", "/request/1/vocabulary"),
              "CriGetAirInterfaceCapability::ReleasedFilter");
    EXPECT_EQ(described("CRI.GetRadioChannelStatus", "/response/2/vocabulary"), "ModulationAndCoding");
    EXPECT_FALSE(described("CRI.GetRadioChannelStatus", "/response/1").contains("vocabulary"));
}

TEST(ReferenceTest, UnitOfAPairIsItsFields)
{
    const Value powers = described("CRI.GetRadioChannelCapability", "/response/4");
    EXPECT_EQ(powers["name"], "AvailableMaxRFOutputPower");
    EXPECT_EQ(powers["unit"], "0.1 dBm");
    EXPECT_EQ(powers["element"]["fields"][0]["texts"][0].dump(),
              R"({"number":10,"text":"HALF_BPSK_STRONG"})");
    EXPECT_EQ(powers["element"]["fields"][1]["unit"], "0.1 dBm");
}

TEST(ReferenceTest, CountHasNoUnit)
{
    EXPECT_FALSE(described("CRI.GetRadioChannelStatus", "/response/9").contains("unit"));
}

TEST(ReferenceTest, DefaultIsTheRecordsOwn)
{
    EXPECT_EQ(described("CRI.GetRadioChannelStatus", "/request/1").dump(),
              R"({"name":"ResetErrorBlocks","type":"boolean",)"
              R"("help":"whether reading resets the error block counters","required":false,"default":false,)"
              R"("changes":true})");
    EXPECT_EQ(described("CRI.SetRFPower", "/request/6/default"), 0);
    EXPECT_FALSE(described("CRI.SetRFPower", "/request/7").contains("default"));
    EXPECT_EQ(described("CRI.SetRadioChannelNearEnd", "/request/12/default"), "00:00:00:00:00:00");
    EXPECT_EQ(described("CRI.SetRadioChannelNearEnd", "/request/18/default"), Value::object());
}

TEST(ReferenceTest, ExamplesAreTaken)
{
    for (const auto& command : zyr_registration::allCommands()) {
        SCOPED_TRACE(command.name());
        const auto record = command.notes.makeRequest();
        EXPECT_NO_THROW(zyr_registration::readRecord(command.name(), command.notes.request,
                                                     zyr_registration::exampleRequest(command.notes, 1), 1,
                                                     record.get()));
    }
    EXPECT_EQ(zyr_registration::exampleRequest(notesOf("CRI.SetRFPower"), 2).dump(),
              R"({"RadioChannelID":1,"txRequestedStatus":"Off","targetRfInputPowerFarEnd":-400,)"
              R"("minRfOutputPower":0,"maxRfOutputPower":150})");
}

TEST(ReferenceTest, MethodOfTheTestFamilyTellsThatItMayBeClosed)
{
    EXPECT_EQ(
        described("TI.GetAllCommandsData", "/faults").dump(),
        R"([{"result":"eTI_E_OPERATION_NOT_ALLOWED","faultCode":4,"text":"Error: Command not available",)"
        R"("meaning":"The test family is closed."}])");
}

TEST(ReferenceTest, HashTellsDescriptionsApart)
{
    EXPECT_EQ(zyr_registration::hashOf("a"), "d4272417d7c77eea");
    EXPECT_EQ(zyr_registration::hashOf(described("CRI.EnableAcm", "/help")),
              zyr_registration::hashOf(described("CRI.EnableAcm", "/help")));
    EXPECT_NE(zyr_registration::hashOf(described("CRI.EnableAcm", "/request/0")),
              zyr_registration::hashOf(described("CRI.EnableAcm", "/request/1")));
}

TEST(ReferenceTest, CommandIsDescribedForPeople)
{
    EXPECT_EQ(
        zyr_registration::helpText(notesOf("TI.GetEvents"), 2),
        "Reads the alarm events that an option selects.\n"
        "Group events. Only reads. Answers within 1 s. Refused while the test family is closed.\n"
        "Request:\n"
        "  requestOption: what to report; its meaning is the alarm handler's; an integer from -2147483648 "
        "to 2147483647\n"
        "Response:\n"
        "  events: the selected alarm events; an array, each element a struct of "
        "eventName, "
        "isActive, numberOfTimesEventHasBeenActive, radioChannelId\n"
        "  requestOption: the request's; an integer from -2147483648 to 2147483647\n"
        "Faults:\n"
        "  4 \"TI.GetEvents failed to get alarms\": The alarm handler failed.\n"
        "  4 \"Error: Command not available\": The test family is closed.\n");
}

TEST(ReferenceTest, MethodWithoutFieldsAndFaultsIsDescribedInTwoLines)
{
    EXPECT_EQ(zyr_registration::helpText(
                  {.name = "SIM.Wait", .help = "Waits.", .longest = std::chrono::milliseconds(1500)}, 2),
              "Waits.\nGroup simulation. Changes the node. Answers within 1500 ms.\n");
    EXPECT_EQ(zyr_registration::helpText(
                  {.name = "SIM.Look", .help = "Looks.", .effect = zyr_registration::Effect::Reads}, 2),
              "Looks.\nGroup simulation. Only reads. Answers within 1 s.\n");
}

TEST(ReferenceTest, MarkdownHasFaultCodesAndVocabulariesOnce)
{
    const std::string text = zyr_registration::referenceMarkdown();
    for (const char* const part :
         {"| Group | Methods |\n|---|---|\n",
          "| acm | [CRI.EnableAcm](#crienableacm), [CRI.GetAcmMode](#crigetacmmode), ",
          "## Fault codes\n\n| Code | Results | What went wrong |\n|---|---|---|\n"
          "| 1 | from 0xA200 | there is no such method |\n",
          "| 3 | 0xA001 | `eTI_E_PARAMETER_TYPE_INVALID` |\n"
          "| 3 | 0xA002 | `eTI_E_PARAMETER_INVALID` |\n"
          "| 2 | 0xA100 | `eTI_E_INVALID_ARGUMENT` |\n",
          "| 1 | 0xA200 | `eTI_E_METHOD_UNKNOWN` |\n\n## CI.GetEvents\n",
          "| `minModulation` | one of [ModulationAndCoding](#modulationandcoding), or an integer from 0 to "
          "4294967295 |  | yes | lowest modulation and coding allowed |\n",
          "| `ReleasedFilter` | one of "
          "[CriGetAirInterfaceCapability::ReleasedFilter](#crigetairinterfacecapabilityreleasedfilter), or ",
          "\n## Vocabularies\n\n### ",
          "\n### TxRequestedStatus\n\n| Number | Text |\n|---|---|\n| 0 | Off |\n| 1 | On |\n",
          "| a string, one of [ModulationAndCoding](#modulationandcoding) |"}) {
        const std::size_t found = text.find(part);
        EXPECT_NE(found, std::string::npos) << part << "\nin\n" << text;
    }
    const std::string row = "| 10 | HALF\\_BPSK\\_STRONG |\n";
    EXPECT_NE(text.find(row), std::string::npos);
    EXPECT_EQ(text.find(row), text.rfind(row));
}

TEST(ReferenceTest, MarkdownHasOtherMethodsBehindTheCommands)
{
    const std::array others{MethodNotes{.name = "SIM.Probe", .help = "Probes."}};
    const std::array plain{PlainMethodNotes{"system.first", "First.", {"array"}},
                           PlainMethodNotes{"system.second", "Second.", {"struct", "int string double"}}};
    const std::string text = zyr_registration::referenceMarkdown(others, plain);
    const std::size_t found = text.find(
        "## SIM.Probe\n\nProbes.\n\nGroup simulation. Changes the node. "
        "Answers within 1 s.\n\nRequest: no fields.\n\n"
        "Response: no fields.\n\n## system.first\n\nFirst.\n\nTakes nothing, gives array.\n\n"
        "## system.second\n\nSecond.\n\nTakes nothing, gives struct.\nTakes string double, gives int.\n\n"
        "## Vocabularies\n");
    EXPECT_NE(found, std::string::npos);
    EXPECT_GT(found, text.find("## TI.SetEvents"));
}

TEST(ReferenceTest, MarkdownHasASectionForEachCommand)
{
    const std::string text = zyr_registration::referenceMarkdown();
    EXPECT_TRUE(text.starts_with("# Commands\n\n"));
    for (
        const char* const part :
        {"## CRI.EnableAcm\n\n"
         "Switches adaptive coding and modulation (ACM) of a radio channel on or off.\n\n"
         "Group acm. Can disturb traffic. Answers within 1 s.\n\n"
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
         "channel. |\n",
         "Group status. Only reads, without ResetErrorBlocks. Answers within 1 s.\n",
         "Group events. Only reads. Blocks until there is something to report.\n",
         "| `events[].eventName` | a string |  | name of the alarm |\n",
         "| `AvailableMaxRFOutputPower[].second` | an integer from -2147483648 to 2147483647 | 0.1 dBm | the "
         "value |\n",
         "| `targetRfInputPower` | an integer from -2147483648 to 2147483647 | 0.1 dBm | no, else 0 | logged "
         "only |\n",
         "| 0.1 dBm | lowest received level; -9999: not supported |\n",
         "| `RadioChannelStatus` | a string, one of \"Up\", \"Down\" |  | state of the link |\n"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part << "\nin\n" << text;
    }
    EXPECT_TRUE(text.ends_with("|\n") && !text.ends_with("\n\n"));
}

} // namespace
