#include "Conversion.h"

#include "Field.h"
#include "MemberCount.h"
#include "RecordError.h"
#include "Vocabularies.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <array>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace
{

struct Step
{
    std::int32_t level = 0;
    std::string label;
};

// One field of each kind.
struct Sample
{
    zyr_top_api::RadioChannel channel;
    bool flag = false;
    std::int16_t small = 0;
    std::uint32_t big = 0;
    double ratio = 0;
    std::string name;
    zyr_top_api::AcmMode mode = zyr_top_api::AcmMode::Active;
    general_classes::Optional<std::uint8_t> maybe;
    std::vector<Step> steps;
    ether_addr address{};
    std::pair<zyr_top_api::ModulationAndCoding, std::int32_t> power{};
    std::int32_t percent = 50;
    std::string key;
    std::uint32_t peer = 1;
    zyr_top_api::MutableRadioChannel anyChannel;
    std::int32_t gear = 0;
    std::string word;
};

} // namespace

template <>
struct zyr_registration::RecordFields<Step>
{
    static constexpr std::array fields{field<&Step::level>("a height", {.unit = kNoUnit}),
                                       field<&Step::label>("a name")};
};

namespace zyr_registration
{

namespace
{

constexpr std::array kFields{
    field<&Sample::channel>("a channel"),
    field<&Sample::flag>("a flag"),
    field<&Sample::small>("a small", {.unit = kNoUnit}),
    field<&Sample::big>("a big", {.unit = kNoUnit}),
    field<&Sample::ratio>("a ratio", {.unit = kNoUnit}),
    field<&Sample::name>("a name"),
    field<&Sample::mode>("a mode"),
    field<&Sample::maybe>("a maybe", {.unit = kNoUnit}),
    field<&Sample::steps>("a steps"),
    field<&Sample::address>("a address"),
    field<&Sample::power>("a power", {.unit = kNoUnit}),
    field<&Sample::percent>("a percent", {.unit = kNoUnit, .range = Range{0, 100}, .hasDefault = true}),
    field<&Sample::key>("a key", {.isSecret = true}),
    field<&Sample::peer>("a peer", {.isChannel = true}),
    field<&Sample::anyChannel>("a anyChannel", {.range = Range{0, 9}}),
    field<&Sample::gear>("a gear", {.texts = oneOf<"low", "high">, .hasDefault = true}),
    field<&Sample::word>("a word", {.texts = oneOf<"yes", "no">, .hasDefault = true}),
};

// A request in which nothing is wrong.
Value soundRequest()
{
    return Value::parse(R"({
        "channel": 2, "flag": true, "small": -5, "big": 4294967295, "ratio": 0.25, "name": "n", "mode": 1,
        "maybe": 7, "steps": [{"level": 1, "label": "one"}, {"level": 2, "label": "two"}],
        "address": "01:23:45:67:89:ab", "power": {"first": 31, "second": -20}, "percent": 10, "key": "k",
        "peer": 1, "anyChannel": 0, "gear": 0, "word": "yes"})");
}

Sample read(const Value& request)
{
    Sample sample;
    readRecord("T.Method", kFields, request, 2, &sample);
    return sample;
}

Sample readWith(const char* member, const Value& value)
{
    Value request = soundRequest();
    request[member] = value;
    return read(request);
}

// The refusal of a request, "" if there is none.
std::string refusal(const Value& request)
{
    try {
        read(request);
        return {};
    } catch (const RecordError& error) {
        return error.what();
    }
}

std::string refusalWith(const char* member, const Value& value)
{
    Value request = soundRequest();
    request[member] = value;
    return refusal(request);
}

std::string refusalWithout(const char* member)
{
    Value request = soundRequest();
    request.erase(member);
    return refusal(request);
}

TEST(ConversionTest, EachKindOfFieldIsRead)
{
    const Sample sample = read(soundRequest());
    EXPECT_EQ(sample.channel, 2U);
    EXPECT_TRUE(sample.flag);
    EXPECT_EQ(sample.small, -5);
    EXPECT_EQ(sample.big, 4294967295U);
    EXPECT_EQ(sample.ratio, 0.25);
    EXPECT_EQ(sample.name, "n");
    EXPECT_EQ(sample.mode, zyr_top_api::AcmMode::Passive);
    EXPECT_EQ(sample.maybe.value(), 7);
    ASSERT_EQ(sample.steps.size(), 2U);
    EXPECT_EQ(sample.steps[1].level, 2);
    EXPECT_EQ(sample.steps[1].label, "two");
    EXPECT_EQ(sample.address.ether_addr_octet[0], 0x01);
    EXPECT_EQ(sample.address.ether_addr_octet[5], 0xAB);
    EXPECT_EQ(sample.power.first, zyr_top_api::ModulationAndCoding::QAM_4);
    EXPECT_EQ(sample.power.second, -20);
    EXPECT_EQ(sample.percent, 10);
    EXPECT_EQ(sample.anyChannel, 0U);
}

TEST(ConversionTest, WhatIsReadIsWrittenAgain)
{
    const Sample sample = read(soundRequest());
    const Value written = valueOf(kFields, &sample);
    EXPECT_EQ(written.dump(), soundRequest().dump());
}

// A record with bytes that a text can't carry.
struct Bytes
{
    char low = '\0';
    char high = '\0';
};

TEST(ConversionTest, ByteIsANumberFrom0To255)
{
    constexpr std::array fields{field<&Bytes::low>("a byte", {.unit = kNoUnit}),
                                field<&Bytes::high>("another", {.unit = kNoUnit})};
    const Bytes bytes{'\x01', '\xFF'};
    const Value written = valueOf(fields, &bytes);
    EXPECT_EQ(written.dump(), R"({"low":1,"high":255})");
    EXPECT_EQ(kValueType<char>.range.minimum, 0);
    EXPECT_EQ(kValueType<char>.range.maximum, 255);
}

TEST(ConversionTest, AbsentOptionalIsAbsentMember)
{
    Value request = soundRequest();
    request.erase("maybe");
    const Sample sample = read(request);
    EXPECT_FALSE(sample.maybe.hasValue());
    const Value written = valueOf(kFields, &sample);
    EXPECT_FALSE(written.contains("maybe"));
}

TEST(ConversionTest, NilIsAbsentOptional)
{
    EXPECT_FALSE(readWith("maybe", nullptr).maybe.hasValue());
}

TEST(ConversionTest, NilForAMemberThatMayBeLeftOutCountsAsLeftOut)
{
    EXPECT_EQ(readWith("percent", nullptr).percent, 50);
    EXPECT_TRUE(readWith("steps", nullptr).steps.empty());
}

TEST(ConversionTest, ZeroAndOneAreBooleans)
{
    EXPECT_FALSE(readWith("flag", 0).flag);
    EXPECT_TRUE(readWith("flag", 1).flag);
}

TEST(ConversionTest, EmptyArrayIsAnEmptyStruct)
{
    EXPECT_EQ(refusalWith("power", Value::array()), refusalWith("power", Value::object()));
    EXPECT_TRUE(refusalWith("power", Value::array())
                    .starts_with("eTI_E_REQUIRED_INPUT_MISSING: T.Method: power.first"));
}

TEST(ConversionTest, LeftOutVectorIsEmptyAndLeftOutDefaultStands)
{
    Value request = soundRequest();
    request.erase("steps");
    request.erase("percent");
    const Sample sample = read(request);
    EXPECT_TRUE(sample.steps.empty());
    EXPECT_EQ(sample.percent, 50);
}

TEST(ConversionTest, IntegralDoubleIsAnInteger)
{
    EXPECT_EQ(readWith("big", 4294967295.0).big, 4294967295U);
    EXPECT_EQ(readWith("small", -3.0).small, -3);
}

TEST(ConversionTest, IntegerIsADouble)
{
    EXPECT_EQ(readWith("ratio", 5).ratio, 5.0);
}

TEST(ConversionTest, TextOfAnEnumerationIsItsNumber)
{
    EXPECT_EQ(readWith("mode", "Basic").mode, zyr_top_api::AcmMode::Basic);
    EXPECT_EQ(readWith("power", {{"first", "256QAM"}, {"second", 0}}).power.first,
              zyr_top_api::ModulationAndCoding::QAM_256);
}

TEST(ConversionTest, TextThatAFieldGivesANumberIsTheNumber)
{
    EXPECT_EQ(readWith("gear", "high").gear, 1);
    EXPECT_EQ(readWith("gear", 7).gear, 7);
    EXPECT_EQ(refusalWith("gear", "top"),
              "eTI_E_PARAMETER_INVALID: T.Method: gear is the string \"top\", it takes one of \"low\" (0), "
              "\"high\" (1), or an integer from -2147483648 to 2147483647");
}

TEST(ConversionTest, StringOutsideItsTextsIsLeftToTheCommand)
{
    EXPECT_EQ(readWith("word", "perhaps").word, "perhaps");
    EXPECT_EQ(refusalWith("word", 1),
              "eTI_E_PARAMETER_TYPE_INVALID: T.Method: word is 1, it takes a string, one of \"yes\", \"no\"");
}

TEST(ConversionTest, NumberWithoutATextIsAnEnumerationsToo)
{
    EXPECT_EQ(static_cast<std::uint32_t>(readWith("mode", 77).mode), 77U);
}

TEST(ConversionTest, MissingMemberIsRefusedByName)
{
    EXPECT_EQ(refusalWithout("channel"),
              "eTI_E_REQUIRED_INPUT_MISSING: T.Method: channel is missing, it takes an "
              "integer from 1 to 2");
    EXPECT_EQ(refusalWithout("flag"),
              "eTI_E_REQUIRED_INPUT_MISSING: T.Method: flag is missing, it takes a boolean");
    EXPECT_EQ(refusalWithout("address"),
              "eTI_E_REQUIRED_INPUT_MISSING: T.Method: address is missing, it takes a "
              "string like \"aa:bb:cc:dd:ee:ff\"");
    EXPECT_EQ(refusalWith("steps", Value::array({{{"level", 1}}})),
              "eTI_E_REQUIRED_INPUT_MISSING: T.Method: steps[0].label is missing, it takes a string");
}

TEST(ConversionTest, UnknownMemberIsRefusedByName)
{
    EXPECT_EQ(
        refusalWith("chanel", 1),
        "eTI_E_PARAMETER_INVALID: T.Method: chanel is not a member, accepted are: channel, flag, small, big, "
        "ratio, name, mode, maybe, steps, address, power, percent, key, peer, anyChannel, gear, word");
    EXPECT_EQ(
        refusalWith("steps", Value::array({{{"level", 1}, {"label", "a"}, {"Label", "b"}}})),
        "eTI_E_PARAMETER_INVALID: T.Method: steps[0].Label is not a member, accepted are: level, label");
}

TEST(ConversionTest, WrongTypeIsRefused)
{
    const std::vector<std::pair<std::string, std::string>> refusals{
        {refusalWith("flag", 2), "flag is 2, it takes a boolean"},
        {refusalWith("flag", 1.0), "flag is 1.0, it takes a boolean"},
        {refusalWith("flag", "true"), "flag is the string \"true\", it takes a boolean"},
        {refusalWith("small", "5"), "small is the string \"5\", it takes an integer from -32768 to 32767"},
        {refusalWith("small", true), "small is the boolean true, it takes an integer from -32768 to 32767"},
        {refusalWith("small", false), "small is the boolean false, it takes an integer from -32768 to 32767"},
        {refusalWith("small", 2.5), "small is 2.5, it takes an integer from -32768 to 32767"},
        {refusalWith("small", nullptr), "small is nil, it takes an integer from -32768 to 32767"},
        {refusalWith("ratio", "1.0"), "ratio is the string \"1.0\", it takes a number"},
        {refusalWith("name", 12), "name is 12, it takes a string"},
        {refusalWith("steps", Value::object()), "steps is a struct, it takes an array"},
        {refusalWith("steps", Value::array({1})), "steps[0] is 1, it takes a struct of level, label"},
        {refusalWith("power", Value::array({1})), "power is an array, it takes a struct of first, second"},
        {refusalWith("name", Value::binary({})), "name is base64, it takes a string"},
        {refusalWith("name", Value::binary({}, 1)), "name is a dateTime.iso8601, it takes a string"},
        {refusalWith("maybe", "x"), "maybe is the string \"x\", it takes an integer from 0 to 255"},
        {refusalWith("address", 1), "address is 1, it takes a string like \"aa:bb:cc:dd:ee:ff\""},
    };
    for (const auto& [given, expected] : refusals) {
        EXPECT_EQ(given, "eTI_E_PARAMETER_TYPE_INVALID: T.Method: " + expected);
    }
}

TEST(ConversionTest, ValueOutOfRangeIsRefused)
{
    const std::vector<std::pair<std::string, std::string>> refusals{
        {refusalWith("channel", 0), "channel is 0, it takes an integer from 1 to 2"},
        {refusalWith("channel", 3), "channel is 3, it takes an integer from 1 to 2"},
        {refusalWith("peer", 3), "peer is 3, it takes an integer from 1 to 2"},
        {refusalWith("anyChannel", 10), "anyChannel is 10, it takes an integer from 0 to 9"},
        {refusalWith("small", 32768), "small is 32768, it takes an integer from -32768 to 32767"},
        {refusalWith("big", -1), "big is -1, it takes an integer from 0 to 4294967295"},
        {refusalWith("big", 18446744073709551615U),
         "big is 18446744073709551615, it takes an integer from 0 to 4294967295"},
        {refusalWith("big", 1e300), "big is 1e+300, it takes an integer from 0 to 4294967295"},
        {refusalWith("big", -1e300), "big is -1e+300, it takes an integer from 0 to 4294967295"},
        {refusalWith("percent", 101), "percent is 101, it takes an integer from 0 to 100"},
        {refusalWith("maybe", 256), "maybe is 256, it takes an integer from 0 to 255"},
        {refusalWith("steps", Value::array({{{"level", 2147483648}, {"label", ""}}})),
         "steps[0].level is 2147483648, it takes an integer from -2147483648 to 2147483647"},
        {refusalWith("mode", "active"),
         "mode is the string \"active\", it takes one of \"Active\" (0), \"Passive\" (1), \"Basic\" (2), "
         "\"Undefined\" (3), or an integer from 0 to 4294967295"},
        {refusalWith("address", "01:23:45:67:89"),
         "address is the string \"01:23:45:67:89\", it takes a string like \"aa:bb:cc:dd:ee:ff\""},
        {refusalWith("address", "01:23:45:67:89:xy"),
         "address is the string \"01:23:45:67:89:xy\", it takes a string like \"aa:bb:cc:dd:ee:ff\""},
        {refusalWith("address", "01:2x:45:67:89:ab"),
         "address is the string \"01:2x:45:67:89:ab\", it takes a string like \"aa:bb:cc:dd:ee:ff\""},
        {refusalWith("address", "01-23-45-67-89-ab"),
         "address is the string \"01-23-45-67-89-ab\", it takes a string like \"aa:bb:cc:dd:ee:ff\""},
    };
    for (const auto& [given, expected] : refusals) {
        EXPECT_EQ(given, "eTI_E_PARAMETER_INVALID: T.Method: " + expected);
    }
}

TEST(ConversionTest, InfinityIsRefused)
{
    EXPECT_EQ(refusalWith("ratio", std::numeric_limits<double>::infinity()),
              "eTI_E_PARAMETER_INVALID: T.Method: ratio is null, it takes a number");
}

TEST(ConversionTest, LongTextsAreCutInRefusals)
{
    EXPECT_EQ(refusalWith("flag", std::string(1000, 'x')),
              "eTI_E_PARAMETER_TYPE_INVALID: T.Method: flag is the string \"" + std::string(64, 'x') +
                  "\" and more, it takes a boolean");
}

TEST(ConversionTest, SecretIsNeverShown)
{
    EXPECT_EQ(refusalWith("key", 4711),
              "eTI_E_PARAMETER_TYPE_INVALID: T.Method: key is a value that is not shown, it takes a string");
}

TEST(ConversionTest, EthernetAddressIsWrittenInSmallLetters)
{
    const Sample sample = readWith("address", "0A:1B:2C:3D:4E:5F");
    const Value written = valueOf(kFields, &sample);
    EXPECT_EQ(written["address"], "0a:1b:2c:3d:4e:5f");
}

TEST(ConversionTest, MembersAreCounted)
{
    struct Empty
    {};
    EXPECT_EQ(memberCount<Empty>(), 0U);
    EXPECT_EQ(memberCount<Step>(), 2U);
    EXPECT_EQ(memberCount<Sample>(), 17U);
}

} // namespace

} // namespace zyr_registration
