#include "Schema.h"

#include "CommandEntry.h"
#include "Field.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using zyr_registration::field;
using zyr_registration::MethodNotes;
using zyr_registration::Value;

// A record with what no command has together.
struct Probe
{
    std::string password;
    double gain = 0;
    std::vector<std::int32_t> levels;
    general_classes::Optional<std::uint16_t> timer;
};

constexpr std::array kProbe{
    field<&Probe::password>("password", {.isSecret = true}),
    field<&Probe::gain>("gain", {.unit = "dB", .hasDefault = true}),
    field<&Probe::levels>("levels", {.unit = "0.1 dBm"}),
    field<&Probe::timer>("timer", {.unit = "s"}),
};

Value schemaOfCommands()
{
    std::vector<MethodNotes> methods;
    for (const auto& command : zyr_registration::allCommands()) {
        methods.push_back(command.notes);
    }
    return zyr_registration::schemaOf(methods, 2);
}

// A schema of the commands, by its name and the way into it.
Value schema(const std::string& pointer)
{
    return schemaOfCommands()["$defs"].at(Value::json_pointer(pointer));
}

// A schema of a method that takes and gives a probe.
Value schemaOfProbe(const std::string& name)
{
    const MethodNotes method{.name = "SIM.Probe",
                             .help = "Probes.",
                             .request = kProbe,
                             .response = kProbe,
                             .makeRequest = &zyr_registration::detail::makeRecord<Probe>};
    return zyr_registration::schemaOf({&method, 1}, 1)["$defs"][name];
}

// Calls the function for each string that refers to a definition.
template <class Check>
void forEachReference(const Value& schema, const Check& check)
{
    for (const auto& item : schema.items()) {
        if (item.key() == "$ref") {
            check(item.value().get<std::string>());
        } else if (item.value().is_structured()) {
            forEachReference(item.value(), check);
        }
    }
}

TEST(SchemaTest, RequestAcceptsWhatTheCommandAccepts)
{
    EXPECT_EQ(
        schema("/CRI.EnableAcm.request").dump(),
        R"({"type":"object","properties":{)"
        R"("channelId":{"type":"integer","minimum":1,"maximum":2,"description":"radio channel",)"
        R"("examples":[1]},)"
        R"("enable":{"type":"boolean","description":"true switches ACM on, false off",)"
        R"("examples":[true]}},)"
        R"("required":["channelId","enable"],"additionalProperties":false,"title":"CRI.EnableAcm",)"
        R"("description":"Switches adaptive coding and modulation (ACM) of a radio channel on or off."})");
}

TEST(SchemaTest, ResponseOfACommandHasItsResult)
{
    EXPECT_EQ(schema("/CRI.EnableAcm.response").dump(),
              R"({"type":"object","properties":{"tiResult":{"type":"integer","minimum":0,"maximum":32767}},)"
              R"("required":["tiResult"],"additionalProperties":false})");
}

TEST(SchemaTest, RequestMayGiveTheTextOfANumber)
{
    EXPECT_EQ(schema("/CRI.SetRFPower.request/properties/txRequestedStatus/anyOf").dump(),
              R"([{"$ref":"#/$defs/TxRequestedStatus.number"},)"
              R"({"type":"integer","minimum":0,"maximum":4294967295},)"
              R"({"$ref":"#/$defs/TxRequestedStatus"}])");
    EXPECT_EQ(schema("/TxRequestedStatus").dump(), R"({"enum":["Off","On"]})");
    EXPECT_EQ(schema("/TxRequestedStatus.number").dump(),
              R"({"anyOf":[{"const":0,"title":"Off"},{"const":1,"title":"On"}]})");
}

TEST(SchemaTest, TextsOfAResponseAreAllThatThereAre)
{
    EXPECT_EQ(schema("/CRI.GetRadioChannelStatus.response/properties/RadioChannelStatus").dump(),
              R"({"enum":["Up","Down"],"description":"state of the link"})");
}

TEST(SchemaTest, TextsOfARequestAreAProposal)
{
    EXPECT_EQ(schema("/CRI.SetRadioChannelNearEnd.request/properties/xpicEnable/anyOf").dump(),
              R"([{"enum":["Disable","Enable_A","Enable_B","Enable_C","Enable_D"]},{"type":"string"}])");
}

TEST(SchemaTest, FormIsAPattern)
{
    const Value address = schema("/CRI.SetRadioChannelNearEnd.request/properties/iduMacAddress");
    EXPECT_EQ(address["pattern"], "^[0-9A-Fa-f]{2}(:[0-9A-Fa-f]{2}){5}$");
    EXPECT_EQ(address["default"], "00:00:00:00:00:00");
}

TEST(SchemaTest, TextThatIsReadAsANumberBeginsWithOne)
{
    EXPECT_EQ(schema("/CRI.SetSdcRlConfiguration.request/properties/channelSpacing/anyOf/1").dump(),
              R"x({"type":"string","pattern":"^\\s*[+-]?[0-9]"})x");
}

TEST(SchemaTest, OptionalMayBeLeftOut)
{
    EXPECT_EQ(schemaOfProbe("SIM.Probe.request").dump(),
              R"({"type":"object","properties":{)"
              R"("password":{"type":"string","description":"password; secret","examples":["text"],)"
              R"("writeOnly":true},)"
              R"("gain":{"type":"number","description":"gain","unit":"dB","default":0.0},)"
              R"("levels":{"type":"array","items":)"
              R"({"type":"integer","minimum":-2147483648,"maximum":2147483647},)"
              R"("description":"levels","unit":"0.1 dBm"},)"
              R"("timer":{"type":"integer","minimum":0,"maximum":65535,"description":"timer","unit":"s"}},)"
              R"("required":["password"],"additionalProperties":false,)"
              R"("title":"SIM.Probe","description":"Probes."})");
    EXPECT_EQ(schemaOfProbe("SIM.Probe.response")["required"].dump(), R"(["password","gain","levels"])");
    EXPECT_EQ(schemaOfProbe("SIM.Probe.response")["properties"]["timer"].dump(),
              R"({"type":"integer","minimum":0,"maximum":65535,"description":"timer","unit":"s"})");
}

TEST(SchemaTest, EveryReferenceHasItsDefinition)
{
    const Value all = schemaOfCommands();
    EXPECT_EQ(all["$schema"], "https://json-schema.org/draft/2020-12/schema");
    unsigned count = 0;
    forEachReference(all, [&](const std::string& reference) {
        constexpr std::string_view front = "#/$defs/";
        EXPECT_TRUE(reference.starts_with(front) && all["$defs"].contains(reference.substr(front.size())))
            << reference;
        ++count;
    });
    EXPECT_GT(count, 20U);
}

} // namespace
