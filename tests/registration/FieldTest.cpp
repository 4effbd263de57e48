#include "Field.h"

#include "CriEnableAcm.h"
#include "Vocabularies.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zyr_registration
{

namespace
{

// What the compiler says to notes of a field of a type; "" if they are sound.
template <class T>
std::string defectOf(const FieldNotes& notes, std::string_view help = "help")
{
    try {
        detail::checkNotes(kValueType<T>, help, notes);
        return {};
    } catch (const char* const defect) {
        return defect;
    }
}

const std::string kOpen = "the unit of a number is left open: say one of kUnits, kNoUnit if it has none";

TEST(FieldTest, NumberNeedsAUnitOrItsExplicitAbsence)
{
    EXPECT_EQ(defectOf<std::int32_t>({}), kOpen);
    EXPECT_EQ(defectOf<double>({}), kOpen);
    EXPECT_EQ(defectOf<general_classes::Optional<std::uint8_t>>({}), kOpen);
    EXPECT_EQ(defectOf<std::vector<std::uint16_t>>({}), kOpen);
    EXPECT_EQ((defectOf<std::vector<std::pair<zyr_top_api::AcmMode, std::int32_t>>>({})), kOpen);
    EXPECT_EQ(defectOf<std::int32_t>({.unit = "kHz"}), "");
    EXPECT_EQ(defectOf<std::int32_t>({.unit = kNoUnit}), "");
    EXPECT_EQ(defectOf<std::int32_t>({.unit = "dBm/10"}), "a unit that is none of kUnits");
}

TEST(FieldTest, WhatIsNoNumberHasNoUnit)
{
    EXPECT_EQ(defectOf<bool>({}), "");
    EXPECT_EQ(defectOf<std::string>({}), "");
    EXPECT_EQ(defectOf<zyr_top_api::AcmMode>({}), "");
    EXPECT_EQ(defectOf<zyr_top_api::RadioChannel>({}), "");
    EXPECT_EQ(defectOf<std::uint32_t>({.isChannel = true}), "");
    EXPECT_EQ((defectOf<std::uint32_t>({.texts = oneOf<"low", "high">})), "");
    EXPECT_EQ(defectOf<bool>({.unit = kNoUnit}), "a unit without a number");
    EXPECT_EQ(defectOf<zyr_top_api::AcmMode>({.unit = "ms"}), "a unit without a number");
}

TEST(FieldTest, NotesFitTheType)
{
    EXPECT_EQ(defectOf<bool>({}, ""), "a field has no help");
    EXPECT_EQ(defectOf<bool>({.range = Range{0, 1}}), "a range or a channel that is no integer");
    EXPECT_EQ(defectOf<bool>({.isChannel = true}), "a range or a channel that is no integer");
    EXPECT_EQ(defectOf<std::uint8_t>({.unit = kNoUnit, .range = Range{1, 255}}), "");
    EXPECT_EQ((defectOf<std::string>({.texts = oneOf<"no", "yes">})), "");
    EXPECT_EQ(defectOf<general_classes::Optional<bool>>({.hasDefault = true}),
              "an optional or an array may be left out anyway");
    EXPECT_EQ(defectOf<std::uint8_t>({.unit = kNoUnit, .range = Range{0, 255}}),
              "a range that says no more than the type");
    EXPECT_EQ(defectOf<std::uint8_t>({.unit = kNoUnit, .range = Range{0, 254}}), "");
    EXPECT_EQ(defectOf<zyr_top_api::RadioChannel>({.range = Range{0, 4294967295}}), "");
    EXPECT_EQ((defectOf<bool>({.texts = oneOf<"no", "yes">})),
              "texts of what is neither a string nor a plain number");
    EXPECT_EQ(defectOf<std::vector<std::string>>({.hasDefault = true}),
              "an optional or an array may be left out anyway");
    EXPECT_EQ(defectOf<std::string>({.isWholeNumber = true}), "");
    EXPECT_EQ(defectOf<std::uint8_t>({.unit = kNoUnit, .isWholeNumber = true}),
              "a whole number in what is no string");
    EXPECT_EQ(defectOf<general_classes::Optional<bool>>({.neededFor = "a start"}), "");
    EXPECT_EQ(defectOf<bool>({.neededFor = "a start"}), "what is no optional is needed anyway, or never");
}

TEST(FieldTest, TextsAreCountedFromZero)
{
    const auto [name, rows] = oneOf<"low", "", "high">();
    EXPECT_EQ(name, "");
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[1].number, 1);
    EXPECT_EQ(rows[1].text, "");
    EXPECT_EQ(rows[2].number, 2);
    EXPECT_EQ(rows[2].text, "high");
}

TEST(FieldTest, TextsOfAnEnumerationAreItsVocabulary)
{
    const auto [name, rows] = namesOf<zyr_top_api::AcmMode>();
    EXPECT_EQ(name, "AcmMode");
    EXPECT_EQ(rows[2].text, "Basic");
    EXPECT_EQ(typeName<bcm::types::ModemChain>(), "ModemChain");
    EXPECT_EQ(typeName<zyr_top_api::CriEnableAcm::Command>(), "CriEnableAcm::Command");
}

} // namespace

} // namespace zyr_registration
