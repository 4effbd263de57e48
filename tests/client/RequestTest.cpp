#include "Request.h"

#include "Descriptions.h"
#include "Refusal.h"
#include "Text.h"

#include <gtest/gtest.h>

namespace zyr_ctl
{

namespace
{

using test::exampleCommand;
using test::refusalOf;

std::string requestOf(const std::vector<std::string>& words, const std::optional<Value>& data = std::nullopt)
{
    return compactJson(Value(checkedParams(exampleCommand(), data, words)));
}

std::string refused(const std::vector<std::string>& words)
{
    return refusalOf([&] { requestOf(words); });
}

std::string refusedData(const char* json)
{
    return refusalOf([&] { requestOf({}, Value::parse(json)); });
}

TEST(Request, HoldsAValueOfEachType)
{
    EXPECT_EQ(requestOf({"channelId=0x2", "enable=on", "mode=1", "power=-1.5", "mac=00:11:22:33:44:55",
                         "config.switchMode=3", R"(loops=[{"loopName":"IF","closed":true}])"}),
              R"([{"channelId":2,"enable":true,"mode":1,"power":-1.5,"mac":"00:11:22:33:44:55",)"
              R"("config":{"switchMode":3},"loops":[{"loopName":"IF","closed":true}]}])");
}

TEST(Request, TakesAllWordsForBooleans)
{
    for (const char* word : {"true", "TRUE", "on", "1"}) {
        EXPECT_EQ(requestOf({"channelId=1", std::string("enable=") + word}),
                  R"([{"channelId":1,"enable":true}])");
    }
    for (const char* word : {"false", "False", "off", "0"}) {
        EXPECT_EQ(requestOf({"channelId=1", std::string("enable=") + word}),
                  R"([{"channelId":1,"enable":false}])");
    }
    EXPECT_EQ(refused({"channelId=1", "enable=yes"}),
              R"(enable is "yes", it takes true, false, on, off, 1 or 0)");
}

TEST(Request, TakesEnumerationsByTextInAnyCase)
{
    EXPECT_EQ(requestOf({"channelId=1", "mode=Off"}), R"([{"channelId":1,"mode":0}])");
    EXPECT_EQ(requestOf({"channelId=1", "mode=fixed RATE"}), R"([{"channelId":1,"mode":1}])");
    EXPECT_EQ(
        refused({"channelId=1", "mode=Fixed rat"}),
        R"(mode is "Fixed rat", it takes one of "Off" (0) or "Fixed rate" (1); did you mean "Fixed rate"?)");
    EXPECT_EQ(refused({"channelId=1", "mode=256"}),
              R"(mode is 256, it takes one of "Off" (0) or "Fixed rate" (1))");
}

TEST(Request, RefusesTextsThatAreOtherNumbersToo)
{
    CommandDescription command = exampleCommand();
    command.request = {command.request.at(2)};
    command.request.front().texts = {{0, "2"}, {1, "1"}, {2, "4H"}};
    const auto sent = [&](const std::vector<std::string>& words,
                          const std::optional<Value>& data = std::nullopt) {
        return compactJson(Value(checkedParams(command, data, words)));
    };
    EXPECT_EQ(refusalOf([&] { sent({"mode=2"}); }),
              R"(mode is "2", it takes one of "2" (0), "1" (1) or "4H" (2); say 0 for the text "2", )"
              "or for the number 2 its text");
    EXPECT_EQ(sent({"mode=0"}), R"([{"mode":0}])");
    EXPECT_EQ(sent({"mode=1"}), R"([{"mode":1}])");
    EXPECT_EQ(sent({"mode=4h"}), R"([{"mode":2}])");
    EXPECT_EQ(sent({}, Value::parse(R"({"mode":"2"})")), R"([{"mode":0}])");
    EXPECT_EQ(sent({}, Value::parse(R"({"mode":2})")), R"([{"mode":2}])");
    EXPECT_EQ(refusalOf([&] { sent({}, Value::parse(R"({"mode":"0"})")); }),
              R"(mode is "0", it takes one of "2" (0), "1" (1) or "4H" (2))");
}

TEST(Request, RefusesNumbersOutsideTheRange)
{
    EXPECT_EQ(refused({"channelId=3"}), "channelId is 3, it takes an integer from 1 to 2");
    EXPECT_EQ(refused({"channelId=-1"}), "channelId is -1, it takes an integer from 1 to 2");
    EXPECT_EQ(refused({"channelId=1x"}), R"(channelId is "1x", it takes an integer from 1 to 2)");
    EXPECT_EQ(refused({"channelId="}), R"(channelId is "", it takes an integer from 1 to 2)");
    EXPECT_EQ(refused({"channelId=99999999999999999999"}),
              R"(channelId is "99999999999999999999", it takes an integer from 1 to 2)");
    EXPECT_EQ(refused({"channelId=1", "power=much"}), R"(power is "much", it takes a number)");
    EXPECT_EQ(refused({"channelId=1", "power=nan"}), R"(power is "nan", it takes a number)");
}

TEST(Request, TellsTheRangeOfATypeOnlyWhenItIsLeft)
{
    CommandDescription command = exampleCommand();
    command.request.resize(1);
    command.request.front().minimum = 0;
    command.request.front().maximum = 255;
    const auto refusal = [&](const std::string& word) {
        return refusalOf([&] { checkedParams(command, std::nullopt, {word}); });
    };
    EXPECT_EQ(refusal("channelId=x"), R"(channelId is "x", it takes an integer)");
    EXPECT_EQ(refusal("channelId=256"), "channelId is 256, it takes an integer from 0 to 255");
}

TEST(Request, NeverShowsASecret)
{
    EXPECT_EQ(refused({"channelId=1", "masterKey=77"}),
              "masterKey is a value that is not shown, it takes an integer from 1 to 9");
    EXPECT_EQ(refused({"channelId=1", "masterKey=hush"}),
              "masterKey is a value that is not shown, it takes an integer from 1 to 9");
    EXPECT_EQ(refusedData(R"({"channelId":1,"masterKey":"hush"})"),
              "masterKey is a value that is not shown, it takes an integer from 1 to 9");
}

TEST(Request, NamesWhatWasProbablyMeant)
{
    EXPECT_EQ(refused({"chanelId=1"}), R"(CRI.Example has no field "chanelId"; did you mean "channelId"?)");
    EXPECT_EQ(refused({"config.swichMode=1"}),
              R"(config has no field "swichMode"; did you mean "switchMode"?)");
    EXPECT_EQ(refused({"zzzzzz=1"}),
              "CRI.Example has no field \"zzzzzz\", it has channelId, enable, mode, power, mac, "
              "masterKey, config, loops");
}

TEST(Request, RefusesWhatIsNoAssignment)
{
    EXPECT_EQ(refused({"2"}), R"("2" is not of the form field=value; did you mean channelId=2?)");
    EXPECT_EQ(refused({"channelId=1", "on"}),
              R"("on" is not of the form field=value; did you mean enable=on?)");
    EXPECT_EQ(refused({"a=1", "b=1", "c=1", "d=1", "e=1", "hush"}).find("masterKey=hush"), std::string::npos);
    EXPECT_EQ(refused({"=1"}), R"("=1" is not of the form field=value)");
    EXPECT_EQ(refused({"channelId=1", "channelId=2"}), "channelId is given twice");
    EXPECT_EQ(refused({"channelId.x=1"}), "channelId has no fields, it takes an integer from 1 to 2");
}

TEST(Request, TellsWhichFieldIsMissing)
{
    EXPECT_EQ(refused({}), "CRI.Example needs channelId, it takes an integer from 1 to 2");
    EXPECT_EQ(refused({"channelId=1", "config={}"}),
              "config needs config.switchMode, it takes an integer from 0 to 3");
}

TEST(Request, ChecksJsonAsDeepAsItGoes)
{
    EXPECT_EQ(refused({"channelId=1", R"(loops=[{"loopName":"IF","closed":"true"}])"}),
              R"(loops[0].closed is "true", it takes true, false, on, off, 1 or 0)");
    EXPECT_EQ(refused({"channelId=1", "loops=IF"}), "loops is not JSON: wrong at character 1");
    EXPECT_EQ(refused({"channelId=1", "loops={}"}),
              "loops is {}, it takes a list, as JSON, of a record, as JSON, of loopName, closed");
    EXPECT_EQ(refusedData("[1]"), "the data must be a JSON object with the members of the request");
    EXPECT_EQ(refusedData(R"({"channelId":true})"), "channelId is true, it takes an integer from 1 to 2");
    EXPECT_EQ(refusedData(R"({"channelId":1.5})"), "channelId is 1.5, it takes an integer from 1 to 2");
    EXPECT_EQ(refusedData(R"({"channelId":18446744073709551615})"),
              "channelId is 18446744073709551615, it takes an integer from 1 to 2");
    EXPECT_EQ(refusedData(R"({"channelId":1,"mac":5})"),
              R"(mac is 5, it takes a text like "aa:bb:cc:dd:ee:ff")");
}

TEST(Request, LetsAssignmentsWinOverData)
{
    EXPECT_EQ(
        requestOf({"channelId=2", "config.switchMode=1"},
                  Value::parse(R"({"channelId":1,"mode":"off","power":null,"config":{"switchMode":2}})")),
        R"([{"channelId":2,"mode":0,"config":{"switchMode":1}}])");
}

TEST(Request, HasNoParameterForACommandWithoutFields)
{
    CommandDescription command;
    command.name = "CI.GetEvents";
    EXPECT_TRUE(checkedParams(command, std::nullopt, {}).empty());
    EXPECT_EQ(refusalOf([&] { checkedParams(command, std::nullopt, {"a=1"}); }),
              R"(CI.GetEvents has no field "a", it has none)");
}

TEST(UncheckedRequest, GuessesTypesFromJson)
{
    EXPECT_EQ(compactJson(Value(uncheckedParams(std::nullopt, {"a.b=1", "a.c=x y", "d=[true]"}))),
              R"([{"a":{"b":1,"c":"x y"},"d":[true]}])");
    EXPECT_EQ(compactJson(Value(uncheckedParams(Value::parse(R"(["x",2])"), {}))), R"(["x",2])");
    EXPECT_EQ(compactJson(Value(uncheckedParams(std::nullopt, {"x", "2", "{}", " [3]", " [y]"}))),
              R"(["x",2,{},[3],"[y]"])");
    EXPECT_EQ(refusalOf([] {
                  uncheckedParams(std::nullopt, {"x", "a=1"});
              }),
              R"("x" is not of the form field=value)");
    EXPECT_TRUE(uncheckedParams(std::nullopt, {}).empty());
    EXPECT_EQ(refusalOf([] { uncheckedParams(Value::parse("[1]"), {"a=1"}); }),
              "the data must be a JSON object with the members of the request");
}

} // namespace

} // namespace zyr_ctl
