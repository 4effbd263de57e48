#include "Text.h"

#include "CommandLine.h"
#include "Completion.h"
#include "Connection.h"
#include "Descriptions.h"
#include "Failure.h"
#include "Login.h"
#include "Secrets.h"
#include "Suggestion.h"

#include <gtest/gtest.h>

#include <cstring>

namespace zyr_ctl
{

namespace
{

using Words = std::vector<std::string>;

TEST(Suggestion, CountsSlips)
{
    EXPECT_EQ(editDistance("acm", "acm"), 0U);
    EXPECT_EQ(editDistance("acm", "ACM"), 0U);
    EXPECT_EQ(editDistance("acm", "amc"), 1U);
    EXPECT_EQ(editDistance("acm", "am"), 1U);
    EXPECT_EQ(editDistance("", "acm"), 3U);
    EXPECT_EQ(editDistance("kitten", "sitting"), 3U);
}

TEST(Suggestion, NamesTheNearestFirst)
{
    const Words names{"CRI.EnableAcm", "CRI.SetAcmMode", "CRI.GetAcmMode", "CI.GetEvents"};
    EXPECT_EQ(didYouMean("CRI.SetAcmMod", names), R"(; did you mean "CRI.SetAcmMode" or "CRI.GetAcmMode"?)");
    EXPECT_EQ(didYouMean("enableacm", names), R"(; did you mean "CRI.EnableAcm"?)");
    EXPECT_EQ(didYouMean("nothing", names), "");
}

TEST(Json, EscapesAllThatCouldSteerATerminal)
{
    EXPECT_EQ(compactJson("a\x1b\x7F\xC2\x80\xC2\x9F\xC2\xA0\xC3\x9F"),
              "\"a\\u001b\\u007f\\u0080\\u009f\xC2\xA0\xC3\x9F\"");
    EXPECT_EQ(indentedJson({{"\x7F", 1}}), "{\n  \"\\u007f\": 1\n}");
}

TEST(Failure, HasAJsonForm)
{
    EXPECT_EQ(compactJson(Failure(ExitStatus::Fault, "no", 4).json()),
              R"({"error":{"kind":"fault","code":4,"text":"no"}})");
    EXPECT_EQ(compactJson(Failure(ExitStatus::NoConnection, "no").json()),
              R"({"error":{"kind":"connect","code":null,"text":"no"}})");
    EXPECT_EQ(Failure(ExitStatus::Fault, "no", 4).line(), "fault 4: no");
    EXPECT_EQ(Failure(ExitStatus::Protocol, "no", 401).line(), "no");
}

TEST(Secrets, AreHiddenAtAnyDepth)
{
    const Value value =
        Value::parse(R"({"masterKey":"abc","isSecret":true,"list":[{"Password":{"a":1},"name":"x"}]})");
    EXPECT_EQ(compactJson(SecretNames().hiddenIn(value)),
              R"-({"masterKey":"(hidden)","isSecret":true,"list":[{"Password":"(hidden)","name":"x"}]})-");
}

TEST(Secrets, AreHiddenInXml)
{
    EXPECT_EQ(
        SecretNames().hiddenInXml("<struct><member><name>a</name><value>1</value></member>\n"
                                  "<member><name>masterKey</name>\n<value><struct><member><name>b</name>"
                                  "<value>abc</value></member></struct></value></member></struct>"),
        "<struct><member><name>a</name><value>1</value></member>\n"
        "<member><name>masterKey</name><value>(hidden)</value></member></struct>");
    EXPECT_EQ(SecretNames().hiddenInXml("<name>masterKey</name><value><string>abc"),
              "<name>masterKey</name><value>(hidden)</value>");
    EXPECT_EQ(SecretNames().hiddenInXml("<name>isSecret</name><value><boolean>1</boolean></value>"),
              "<name>isSecret</name><value><boolean>1</boolean></value>");
    EXPECT_EQ(SecretNames().hiddenInXml("plain"), "plain");
}

TEST(Secrets, AreThoseTooThatANodeDescribes)
{
    const auto command = readCommand(Value::parse(
        R"({"name": "A", "request": [{"name": "list", "type": "array", "element": {"type": "struct", "fields": [
            {"name": "pin", "type": "int", "isSecret": true}, {"name": "id", "type": "int"}]}}]})"));
    SecretNames names;
    EXPECT_FALSE(names.contains("pin"));
    names.learn(command.request);
    EXPECT_TRUE(names.contains("pin"));
    EXPECT_TRUE(names.contains("masterKey"));
    EXPECT_FALSE(names.contains("id"));
    const Value value = Value::parse(R"({"list":[{"pin":1,"id":2}],"masterKey":"","other":{"key":"x"}})");
    EXPECT_EQ(compactJson(names.hiddenIn(value)),
              R"-({"list":[{"pin":"(hidden)","id":2}],"masterKey":"(hidden)","other":{"key":"(hidden)"}})-");
    EXPECT_EQ(names.namesIn(value), (Words{"pin", "key"}));
    EXPECT_EQ(names.hiddenInXml("<name>pin</name><value>1</value>"),
              "<name>pin</name><value>(hidden)</value>");
}

TEST(Text, IsShortenedToAWidth)
{
    EXPECT_EQ(shortened("abcdef", 0), "abcdef");
    EXPECT_EQ(shortened("abcdef", 6), "abcdef");
    EXPECT_EQ(shortened("abcdef", 5), "abcd…");
    EXPECT_EQ(shortened("▁▂▃▄", 3), "▁▂…");
    EXPECT_EQ(shortened("ab▃▄", 3), "ab…");
    EXPECT_EQ(shortened("▁▂▃a", 3), "▁▂…");
    EXPECT_EQ(shortened("abc", 1), "…");
}

TEST(Timeout, FollowsTheLongestTimeOfTheCommand)
{
    CommandDescription command;
    EXPECT_EQ(timeoutFor(command), std::chrono::seconds(30));
    command.longest = std::chrono::seconds(60);
    EXPECT_EQ(timeoutFor(command), std::chrono::seconds(90));
    command.isLongPoll = true;
    EXPECT_EQ(timeoutFor(command), std::chrono::seconds(0));
}

TEST(Login, IsTheUsersLine)
{
    const std::string file = "# comment: yes\n\nann:one:two\r\nbob:three\n";
    EXPECT_EQ(loginIn(file, "")->user, "ann");
    EXPECT_EQ(loginIn(file, "")->password, "one:two");
    EXPECT_EQ(loginIn(file, "bob")->password, "three");
    EXPECT_FALSE(loginIn(file, "carl").has_value());
}

CompletionSource source()
{
    return {{"call", "help", "list", "completion", "status"},
            {"--json", "--node", "--url", "--watch"},
            {"--node", "--url", "-u"},
            {"bash", "zsh"},
            [] {
                return Words{"east", "west"};
            },
            [] {
                return Words{"CRI.Example", "CRI.Other"};
            },
            [](const std::string& command) {
                return command == "CRI.Example" ? std::optional(test::exampleCommand()) : std::nullopt;
            }};
}

Words completed(std::string_view line)
{
    return completions(completionWords(line), source());
}

TEST(Completion, OffersCommandsAndSubcommands)
{
    EXPECT_EQ(completed("zyrctl c"), (Words{"call", "completion"}));
    EXPECT_EQ(completed("zyrctl CRI.E"), (Words{"CRI.Example"}));
    EXPECT_EQ(completed("zyrctl "),
              (Words{"call", "help", "list", "completion", "status", "CRI.Example", "CRI.Other"}));
    EXPECT_EQ(completed("zyrctl -u http://x call "), (Words{"CRI.Example", "CRI.Other"}));
    EXPECT_EQ(completed("zyrctl completion "), (Words{"bash", "zsh"}));
    EXPECT_EQ(completed("zyrctl list CRI.E"), (Words{"CRI.Example"}));
    EXPECT_EQ(completed("zyrctl status "), (Words{}));
    EXPECT_EQ(completed("zyrctl"), (Words{}));
}

TEST(Completion, OffersOptionsButNotTheirValues)
{
    EXPECT_EQ(completed("zyrctl list --"), (Words{"--json", "--node", "--url", "--watch"}));
    EXPECT_EQ(completed("zyrctl --url "), (Words{}));
    EXPECT_EQ(completed("zyrctl --node w"), (Words{"west"}));
}

TEST(Completion, OffersFieldsThatAreNotGivenYet)
{
    EXPECT_EQ(completed("zyrctl CRI.Example m"), (Words{"mode=", "mac=", "masterKey="}));
    EXPECT_EQ(completed("zyrctl call CRI.Example mode=0 m"), (Words{"mac=", "masterKey="}));
    EXPECT_EQ(completed("zyrctl CRI.Example con"), (Words{"config.switchMode="}));
    EXPECT_EQ(completed("zyrctl CRI.Unknown "), (Words{}));
}

TEST(Completion, OffersValues)
{
    EXPECT_EQ(completed("zyrctl CRI.Example mode="), (Words{"mode=Off", "mode=Fixed rate"}));
    EXPECT_EQ(completed("zyrctl CRI.Example 'mode=Fixed r"), (Words{"mode=Fixed rate"}));
    EXPECT_EQ(completed("zyrctl CRI.Example enable=t"), (Words{"enable=true"}));
    EXPECT_EQ(completed("zyrctl CRI.Example channelId="), (Words{"channelId=1", "channelId=2"}));
    EXPECT_EQ(completed("zyrctl CRI.Example power="), (Words{}));
}

TEST(Completion, FindsOptionsOfTheLine)
{
    EXPECT_EQ(optionValue({"-u", "x", "list"}, "-u"), "x");
    EXPECT_EQ(optionValue({"--url=y"}, "--url"), "y");
    EXPECT_EQ(optionValue({"-u"}, "-u"), std::nullopt);
}

TEST(CommandLine, HasCallPutInForTheShortForm)
{
    CLI::App app;
    std::string text;
    app.add_option("-u,--url", text);
    app.add_flag("--json");
    app.add_subcommand("list");
    CLI::App* const call = app.add_subcommand("call");
    call->add_option("--get", text);
    call->add_flag("--dry-run");
    EXPECT_EQ(withCallSubcommand(app, {"-u", "list", "--json", "CRI.X"}),
              (Words{"call", "-u", "list", "--json", "CRI.X"}));
    EXPECT_EQ(withCallSubcommand(app, {"--get", "a", "--dry-run", "list"}),
              (Words{"--get", "a", "--dry-run", "list"}));
    EXPECT_EQ(withCallSubcommand(app, {"--url=x", "CRI.X"}), (Words{"call", "--url=x", "CRI.X"}));
    EXPECT_EQ(withCallSubcommand(app, {"--json"}), (Words{"--json"}));
    EXPECT_EQ(withCallSubcommand(app, {"--json", "list", "x"}), (Words{"--json", "list", "x"}));
}

TEST(CommandLine, TakesANumberBehindWatchForItsSeconds)
{
    const CLI::App app;
    EXPECT_EQ(withJoinedNumbers(app, {"status", "--watch", "0.5", "1"}),
              (Words{"status", "--watch=0.5", "1"}));
    EXPECT_EQ(withJoinedNumbers(app, {"--watch", ".5"}), (Words{"--watch=0.5"}));
    EXPECT_EQ(withJoinedNumbers(app, {"--watch=.5"}), (Words{"--watch=0.5"}));
    EXPECT_EQ(withJoinedNumbers(app, {"--watch", "CRI.X"}), (Words{"--watch", "CRI.X"}));
    EXPECT_EQ(withJoinedNumbers(app, {"--count", "5", "--watch"}), (Words{"--count", "5", "--watch"}));
}

TEST(CommandLine, TakesANumberBehindWaitForItsSecondsUnlessItIsTheOnlyOne)
{
    CLI::App app;
    double number = 0;
    app.add_option("--timeout", number);
    app.add_subcommand("call");
    EXPECT_EQ(withJoinedNumbers(app, {"restart", "1", "--wait", "30"}), (Words{"restart", "1", "--wait=30"}));
    EXPECT_EQ(withJoinedNumbers(app, {"restart", "--wait", ".5", "1"}),
              (Words{"restart", "--wait=0.5", "1"}));
    EXPECT_EQ(withJoinedNumbers(app, {"restart", "--wait", "1"}), (Words{"restart", "--wait", "1"}));
    EXPECT_EQ(withJoinedNumbers(app, {"--timeout", "5", "restart", "--wait", "1"}),
              (Words{"--timeout", "5", "restart", "--wait", "1"}));
    EXPECT_EQ(withJoinedNumbers(app, {"recover", "--wait", "30"}), (Words{"recover", "--wait=30"}));
    EXPECT_EQ(withJoinedNumbers(app, {"recover", "--wait", "--yes"}), (Words{"recover", "--wait", "--yes"}));
}

TEST(CommandLine, KeepsListsWhole)
{
    CLI::App app;
    std::string text;
    CLI::App* const call = app.add_subcommand("call");
    call->add_option("--get", text);
    call->add_flag("--json");
    EXPECT_EQ(withWholeLists(app, {"[1]", "--get", "[0]", "--json", "[a,b]", "[c"}),
              (Words{" [1]", "--get", "[0]", "--json", " [a,b]", "[c"}));
}

TEST(CommandLine, HidesDataWithASecret)
{
    std::array<char, 7> program{"zyrctl"};
    std::array<char, 7> option{"--data"};
    std::array<char, 14> secret{"{\"key\":\"abc\"}"};
    std::array<char, 18> joined{"--data={\"key\": 1}"};
    std::array<char, 9> open{"{\"id\":1}"};
    std::array<char*, 6> words{program.data(), option.data(), secret.data(),
                               joined.data(),  option.data(), open.data()};
    hideSecrets(6, words.data());
    EXPECT_STREQ(secret.data(), "*************");
    EXPECT_STREQ(joined.data(), "--data=**********");
    EXPECT_STREQ(open.data(), "{\"id\":1}");
}

TEST(CommandLine, HidesAPassword)
{
    std::array<char, 7> program{"zyrctl"};
    std::array<char, 7> option{"--user"};
    std::array<char, 8> value{"ann:abc"};
    std::array<char, 15> joined{"--user=bob:xyz"};
    std::array<char, 8> other{"a:b=c:d"};
    std::array<char*, 5> words{program.data(), option.data(), value.data(), joined.data(), other.data()};
    hideSecrets(5, words.data());
    EXPECT_STREQ(value.data(), "ann:***");
    EXPECT_STREQ(joined.data(), "--user=bob:***");
    EXPECT_STREQ(other.data(), "a:b=c:d");
}

TEST(CommandLine, HidesWhatIsAssignedToASecretField)
{
    std::array<char, 7> program{"zyrctl"};
    std::array<char, 14> secret{"masterKey=a=b"};
    std::array<char, 12> empty{"inner.key= "};
    std::array<char, 7> open{"id=123"};
    std::array<char*, 4> words{program.data(), secret.data(), empty.data(), open.data()};
    hideSecrets(4, words.data());
    EXPECT_STREQ(secret.data(), "masterKey=***");
    EXPECT_STREQ(empty.data(), "inner.key=*");
    EXPECT_STREQ(open.data(), "id=123");
}

} // namespace

} // namespace zyr_ctl
