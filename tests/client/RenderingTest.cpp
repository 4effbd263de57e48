#include "Rendering.h"

#include "Descriptions.h"
#include "HelpText.h"
#include "Refusal.h"
#include "Text.h"
#include "ValuePath.h"

#include <gtest/gtest.h>

namespace zyr_ctl
{

namespace
{

using test::exampleCommand;
using test::refusalOf;

std::string marked(const std::vector<Line>& lines)
{
    std::string text;
    for (const Line& line : lines) {
        text += (line.isChanged ? "* " : "  ") + line.text + "\n";
    }
    return text;
}

std::string rendered(const char* json)
{
    return marked(renderAnswer(Value::parse(json), exampleCommand().response));
}

std::string renderedChange(const char* before, const char* after)
{
    const Value value = Value::parse(after);
    return marked(renderAnswer(value, exampleCommand().response, changedPaths(Value::parse(before), value)));
}

TEST(Rendering, AlignsFieldsAndShowsTextsAndUnits)
{
    EXPECT_EQ(rendered(R"({"tiResult":0,"mode":1,"power":15.0,"levels":[1,-2],"unknown":true})"),
              "  tiResult  0\n"
              "  mode      Fixed rate (1)\n"
              "  power     15 dBm\n"
              "  levels    0.1, -0.2 dB\n"
              "  unknown   true\n");
}

TEST(Rendering, ShowsNumbersInTheUnitsOfPeople)
{
    const auto fields = readCommand(Value::parse(R"({"name": "A", "response": [
        {"name": "level", "type": "int", "unit": "0.1 dBm", "noValues": [{"number": -99, "text": "none yet"}]},
        {"name": "carriers", "type": "array", "element": {"type": "struct", "fields": [
            {"name": "frequency", "type": "int", "unit": "kHz"},
            {"name": "level", "type": "int", "unit": "0.1 dBm", "noValues": [{"number": -99, "text": "none yet"}]}]}}]})"))
                            .response;
    const auto shown = [&](const char* json) { return marked(renderAnswer(Value::parse(json), fields)); };
    EXPECT_EQ(shown(R"({"level":-398})"), "  level  -39.8 dBm\n");
    EXPECT_EQ(shown(R"({"level":-99})"), "  level  none yet (-99)\n");
    EXPECT_EQ(shown(R"({"carriers":[{"frequency":14920000,"level":-398},{"frequency":250,"level":5}]})"),
              "  carriers (2)\n"
              "    frequency [MHz]  level [dBm]\n"
              "         14 920.000        -39.8\n"
              "              0.250          0.5\n");
    EXPECT_EQ(shown(R"({"carriers":[{"frequency":250,"level":-99}]})"),
              "  carriers (1)\n"
              "    frequency [MHz]  level [dBm]\n"
              "              0.250  none yet (-99)\n");
}

TEST(Rendering, PutsRecordsBelowEachOtherWhereATableHasNoRoom)
{
    const Value answer = Value::parse(R"({"events":[{"name":"LOS","level":1.5}]})");
    const auto shown = [&](std::size_t room) {
        return marked(renderAnswer(answer, exampleCommand().response, {}, room));
    };
    EXPECT_EQ(shown(19), "  events (1)\n    name  level [dBm]\n    LOS           1.5\n");
    EXPECT_EQ(shown(18), "  events (1)\n    [0]\n      name   LOS\n      level  1.5 dBm\n");
}

TEST(Rendering, ShowsEmptyListsAndNumbersWithoutText)
{
    EXPECT_EQ(rendered(R"({"mode":7,"levels":[],"power":null})"), "  mode    7\n"
                                                                  "  levels  (none)\n"
                                                                  "  power   -\n");
}

TEST(Rendering, MakesTablesOfListsOfRecords)
{
    EXPECT_EQ(
        rendered(R"({"tiResult":0,"events":[{"name":"LOS","level":-40.25},{"name":"Sync","more":[1,2]}]})"),
        "  tiResult  0\n"
        "  events (2)\n"
        "    name  level [dBm]  more\n"
        "    LOS        -40.25  -\n"
        "    Sync            -  1, 2\n");
}

TEST(Rendering, MakesNoTableOfNestedRecords)
{
    EXPECT_EQ(
        rendered(R"({"events":[{"name":"LOS","level":1.5,"in":{"x":1}},{"name":"Sync","in":{"x":2}}]})"),
        "  events (2)\n"
        "    [0]\n"
        "      name   LOS\n"
        "      level  1.5 dBm\n"
        "      in\n"
        "        x  1\n"
        "    [1]\n"
        "      name  Sync\n"
        "      in\n"
        "        x  2\n");
}

TEST(Rendering, PutsColumnsOfNumbersToTheRight)
{
    EXPECT_EQ(renderTable({"a", "number"}, {{"x", "1"}, {"yy", "-20.5"}}),
              (std::vector<std::string>{"a   number", "x        1", "yy   -20.5"}));
}

TEST(Rendering, IndentsNestedRecordsAndTexts)
{
    EXPECT_EQ(rendered(R"({"inner":{"a":1,"longer":"x"},"report":"one\ntwo\n"})"), "  inner\n"
                                                                                   "    a       1\n"
                                                                                   "    longer  x\n"
                                                                                   "  report\n"
                                                                                   "    one\n"
                                                                                   "    two\n");
}

TEST(Rendering, LetsNothingSteerTheTerminal)
{
    EXPECT_EQ(rendered("{\"a\":\"\\u001b[31mred\\u009b\\t\"}"), "  a  \\x1b[31mred\\x9b\\t\n");
    EXPECT_EQ(printable("bad \xFF byte"), "bad \xEF\xBF\xBD byte");
}

TEST(Rendering, TakesAnswersThatAreNoRecord)
{
    EXPECT_EQ(rendered(R"(["a",2,{"b":1}])"), "  a\n  2\n  [2]\n    b  1\n");
    EXPECT_EQ(rendered("5"), "  5\n");
    EXPECT_EQ(rendered("{}"), "");
}

TEST(Rendering, ShowsAPickedValueAlone)
{
    const CommandDescription command = exampleCommand();
    const Value answer = Value::parse(R"({"mode":1,"power":-3.5,"events":[{"name":"LOS","level":1.5}]})");
    const auto picked = [&](const std::string& path) {
        const Picked part = pick(answer, command.response, path);
        return marked(renderPicked(part.value, part.field));
    };
    EXPECT_EQ(picked("mode"), "  1\n");
    EXPECT_EQ(picked("power"), "  -3.5\n");
    EXPECT_EQ(picked("events[0].name"), "  LOS\n");
    EXPECT_EQ(picked("events.0.level"), "  1.5\n");
    EXPECT_EQ(picked("events"), "  name  level [dBm]\n  LOS           1.5\n");
}

TEST(Pick, TellsWhatTheAnswerHas)
{
    const Value answer = Value::parse(R"({"mode":1,"events":[{"name":"LOS"}]})");
    const auto refused = [&](const std::string& path) { return refusalOf([&] { pick(answer, {}, path); }); };
    EXPECT_EQ(refused("mod"), R"(the answer has no field "mod"; did you mean "mode"?)");
    EXPECT_EQ(refused("zzzzz"), R"(the answer has no field "zzzzz", it has mode, events)");
    EXPECT_EQ(refused("mode.x"), R"(the answer has no field "x")");
    EXPECT_EQ(refused("events[1]"), R"(the answer has no element "1" here, the list has 1)");
    EXPECT_EQ(refused("events.name"), R"(the answer has no element "name" here, the list has 1)");
}

TEST(Changes, AreMarkedWhereTheyAre)
{
    EXPECT_EQ(renderedChange(R"({"mode":1,"power":1.5,"levels":[1,2],"events":[{"name":"a"},{"name":"b"}]})",
                             R"({"mode":0,"power":1.5,"levels":[1,3],"events":[{"name":"a"},{"name":"c"}]})"),
              "* mode    Off (0)\n"
              "  power   1.5 dBm\n"
              "* levels  0.1, 0.3 dB\n"
              "  events (2)\n"
              "    name\n"
              "    a\n"
              "*   c\n");
}

TEST(Changes, ShowWhatHasComeAndGone)
{
    EXPECT_EQ(renderedChange(R"({"a":1,"gone":2,"in":{"x":1,"y":2},"events":[{"name":"a"}]})",
                             R"({"a":1,"in":{"x":1},"new":3,"events":[{"name":"a"},{"name":"b"}]})"),
              "  a    1\n"
              "  in\n"
              "    x  1\n"
              "*   y  (gone)\n"
              "* new  3\n"
              "* events (2)\n"
              "    name\n"
              "    a\n"
              "*   b\n"
              "* gone  (gone)\n");
}

TEST(Changes, AreNoneBetweenEqualAnswers)
{
    EXPECT_EQ(renderedChange(R"({"mode":1})", R"({"mode":1})"), "  mode  Fixed rate (1)\n");
    EXPECT_EQ(changedPaths(Value::parse("[1,{\"a\":2}]"), Value::parse("[1,{\"a\":3}]")),
              (std::set<std::string>{"[1].a"}));
    EXPECT_EQ(changedPaths(Value(1), Value(2)), (std::set<std::string>{""}));
}

TEST(Help, TellsAllOfACommand)
{
    EXPECT_EQ(
        helpLines(exampleCommand()),
        (std::vector<std::string>{
            "CRI.Example",
            "  Does an example.",
            "  Refused while the test family is closed; zyrnode --enable-ti opens it.",
            "  Answers when there is something to report; waits without a limit unless --timeout is given.",
            "  Can disturb traffic: asks before it runs, unless --yes is given.",
            "",
            "Request:",
            "  channelId          integer 1..2                                radio channel",
            "  enable             boolean                           optional",
            "  mode               enumeration                       optional  the mode: Off (0), Fixed rate "
            "(1)",
            "  power              number                       dBm  optional",
            "  mac                text like aa:bb:cc:dd:ee:ff       optional",
            "  masterKey          integer 1..9                      optional",
            "  config             record                            optional",
            "  config.switchMode  integer 0..3",
            "  loops              list of record                    optional",
            "  loops[].loopName   text",
            "  loops[].closed     boolean",
            "",
            "Response:",
            "  mode            enumeration              Off (0), Fixed rate (1)",
            "  power           number           dBm",
            "  levels          list of integer  0.1 dB",
            "  events          list of record",
            "  events[].name   text",
            "  events[].level  number           dBm",
            "",
            "Faults:",
            "  4  eTI_E_FAILED  it failed  The DSP refused.",
            "",
            "Example, on a node of zyrnode --enable-ti:",
            "  zyrctl CRI.Example channelId=1",
        }));
}

TEST(Help, WrapsLongNotes)
{
    CommandDescription command;
    command.name = "A";
    command.request.push_back({});
    command.request.back().name = "x";
    command.request.back().isRequired = true;
    command.request.back().help = std::string(60, 'a') + " " + std::string(60, 'b') + " c";
    const std::vector<std::string> lines = helpLines(command);
    EXPECT_EQ(lines.at(4), "  x  value  " + std::string(60, 'a'));
    EXPECT_EQ(lines.at(5), "            " + std::string(60, 'b') + " c");
}

TEST(Help, ShowsNoRangeThatIsOnlyThatOfAType)
{
    const auto shown = [](std::int64_t minimum, std::int64_t maximum) {
        CommandDescription command;
        command.request.push_back({});
        command.request.back().name = "x";
        command.request.back().type = FieldType::Integer;
        command.request.back().isRequired = true;
        command.request.back().minimum = minimum;
        command.request.back().maximum = maximum;
        return helpLines(command).at(4);
    };
    EXPECT_EQ(shown(0, 255), "  x  integer");
    EXPECT_EQ(shown(-128, 127), "  x  integer");
    EXPECT_EQ(shown(0, 65535), "  x  integer");
    EXPECT_EQ(shown(-32768, 32767), "  x  integer");
    EXPECT_EQ(shown(0, 4294967295), "  x  integer");
    EXPECT_EQ(shown(-2147483648, 2147483647), "  x  integer");
    EXPECT_EQ(shown(INT64_MIN, INT64_MAX), "  x  integer");
    EXPECT_EQ(shown(0, 254), "  x  integer 0..254");
    EXPECT_EQ(shown(1, 255), "  x  integer 1..255");
    EXPECT_EQ(shown(0, 127), "  x  integer 0..127");
}

TEST(Pattern, FitsPartsAndWildcards)
{
    EXPECT_TRUE(fitsPattern("CRI.EnableAcm", ""));
    EXPECT_TRUE(fitsPattern("CRI.EnableAcm", "acm"));
    EXPECT_TRUE(fitsPattern("CRI.EnableAcm", "cri.*"));
    EXPECT_TRUE(fitsPattern("CRI.EnableAcm", "CRI.Enable?cm"));
    EXPECT_FALSE(fitsPattern("CRI.EnableAcm", "Enable*"));
    EXPECT_FALSE(fitsPattern("CRI.EnableAcm", "acmx"));
}

} // namespace

} // namespace zyr_ctl
