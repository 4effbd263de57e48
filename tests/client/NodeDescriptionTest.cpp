#include "Descriptions.h"
#include "Refusal.h"

#include <gtest/gtest.h>

namespace zyr_ctl
{

namespace
{

std::string protocolFailureOf(const std::string& json)
{
    return test::refusalOf([&] { readCommands(Value::parse(json)); }, ExitStatus::Protocol);
}

TEST(NodeDescription, IsReadWhole)
{
    const CommandDescription command = test::exampleCommand();
    EXPECT_EQ(command.name, "CRI.Example");
    EXPECT_TRUE(command.isTest && command.isLongPoll && command.disturbsTraffic);
    EXPECT_EQ(command.request[0].minimum, 1);
    EXPECT_EQ(command.request[0].maximum, 2);
    EXPECT_TRUE(command.request[0].isRequired);
    EXPECT_EQ(command.request[2].texts[1].text, "Fixed rate");
    EXPECT_TRUE(command.request[5].isSecret);
    EXPECT_EQ(command.request[7].element.at(0).fields[1].name, "closed");
    EXPECT_EQ(command.response[1].unit, "dBm");
    EXPECT_EQ(command.faults.at(0).code, 4);
    EXPECT_EQ(command.original.at("help"), "Does an example.");
}

TEST(NodeDescription, TellsWhatAnExampleNeeds)
{
    const CommandDescription command = readCommand(Value::parse(
        R"({"name":"A","longest_ms":60000,"needs":{"options":"--x","before":"B"},
            "request":[{"name":"x","type":"int","example":{"a":1}},{"name":"y","type":"int"}]})"));
    EXPECT_EQ(command.longest, std::chrono::minutes(1));
    EXPECT_EQ(command.nodeOptions, "--x");
    EXPECT_EQ(command.before, "B");
    EXPECT_EQ(command.request.at(0).example, Value::parse(R"({"a":1})"));
    EXPECT_FALSE(command.request.at(1).example.has_value());
}

TEST(NodeDescription, OfUnknownTypesPasses)
{
    const auto commands =
        readCommands(Value::parse(R"({"methods":[{"name":"A","request":[{"name":"x","type":"date"}]}]})"));
    EXPECT_EQ(commands.at(0).request.at(0).type, FieldType::Other);
    EXPECT_TRUE(commands.at(0).response.empty());
}

TEST(NodeDescription, ThatIsNoneIsAProtocolFailure)
{
    EXPECT_EQ(protocolFailureOf("5"), "the node's description of its commands has no array of methods");
    EXPECT_EQ(protocolFailureOf(R"({"methods":[{"name":"A","request":[
                  {"name":"x\u001b","type":"int","minimum":2,"maximum":1}]}]})"),
              "the node describes a field that no number fits: \"x\\x1b\"");
    for (const std::string methods :
         {"[5]", "[{}]", R"([{"name":5}])", R"([{"name":"A","request":[{"name":"x"}]}])",
          R"([{"name":"A","faults":[{}]}])"}) {
        const std::string json = R"({"methods":)" + methods + "}";
        EXPECT_EQ(protocolFailureOf(json).rfind(
                      "the node describes a command in a way that this program does not know: ", 0),
                  0U)
            << json;
    }
}

} // namespace

} // namespace zyr_ctl
