#include "Schema.h"

#include "Conversion.h"
#include "MethodParts.h"

#include <algorithm>
#include <string>
#include <utility>

namespace zyr_registration
{

namespace
{

// The highest result that is no fault.
constexpr std::int64_t kHighestSuccess = 0x7FFF;

Value integersOf(Range range)
{
    return {{"type", "integer"}, {"minimum", range.minimum}, {"maximum", range.maximum}};
}

Value oneTextOf(std::span<const EnumText> rows)
{
    Value texts = Value::array();
    for (const EnumText& row : rows) {
        if (std::ranges::find(texts, Value(std::string(row.text))) == texts.end()) {
            texts.push_back(std::string(row.text));
        }
    }
    return {{"enum", std::move(texts)}};
}

Value oneNumberOf(std::span<const EnumText> rows)
{
    Value numbers = Value::array();
    for (const EnumText& row : rows) {
        numbers.push_back({{"const", row.number}, {"title", std::string(row.text)}});
    }
    return {{"anyOf", std::move(numbers)}};
}

// The schemas as they are collected.
class Definitions
{
  public:
    void add(const MethodNotes& method, std::uint32_t numberOfChannels)
    {
        const auto defaults = defaultRequest(method);
        const std::string name(method.name);
        Value request = structOf({.fields = method.request,
                                  .isRequest = true,
                                  .numberOfChannels = numberOfChannels,
                                  .defaults = defaults.get()});
        request["title"] = name;
        request["description"] = std::string(method.help);
        m_definitions[name + ".request"] = std::move(request);
        Value response =
            structOf({.fields = method.response, .isRequest = false, .numberOfChannels = numberOfChannels});
        if (method.group != Group::Simulation) {
            response["properties"]["tiResult"] = integersOf({0, kHighestSuccess});
            response["required"].push_back("tiResult");
        }
        m_definitions[name + ".response"] = std::move(response);
    }

    // What has been collected, the vocabularies behind the methods.
    Value finish()
    {
        m_definitions.update(m_vocabularies);
        return std::move(m_definitions);
    }

  private:
    // The texts or the numbers of a vocabulary; one with a name is referred to.
    Value textsIn(const Vocabulary& vocabulary)
    {
        return vocabulary.name.empty()
                   ? oneTextOf(vocabulary.rows)
                   : referenceTo(std::string(vocabulary.name), oneTextOf(vocabulary.rows));
    }

    Value numbersIn(const Vocabulary& vocabulary)
    {
        return vocabulary.name.empty()
                   ? oneNumberOf(vocabulary.rows)
                   : referenceTo(std::string(vocabulary.name) + ".number", oneNumberOf(vocabulary.rows));
    }

    Value referenceTo(const std::string& name, Value definition)
    {
        m_vocabularies[name] = std::move(definition);
        return {{"$ref", "#/$defs/" + name}};
    }

    // A number may be another one than those with a text; a request may give the text in its place.
    Value integerOf(const ValueType& type, const FieldNotes& notes, const FieldList& list)
    {
        Value any = integersOf(acceptedRange(type, notes, list.numberOfChannels));
        const Texts texts = textsOf(type, notes);
        if (texts == nullptr) {
            return any;
        }
        Value alternatives = Value::array({numbersIn(texts()), any});
        if (list.isRequest) {
            alternatives.push_back(textsIn(texts()));
        }
        return {{"anyOf", std::move(alternatives)}};
    }

    // A string of a request may be another text than those that the command can use.
    Value stringOf(const ValueType& type, const FieldNotes& notes, const FieldList& list)
    {
        Value any{{"type", "string"}};
        if (!type.pattern.empty()) {
            any["pattern"] = std::string(type.pattern);
        } else if (notes.isWholeNumber) {
            any["pattern"] = "^\\s*[+-]?[0-9]";
        }
        if (notes.texts == nullptr) {
            return any;
        }
        return list.isRequest ? Value{{"anyOf", Value::array({textsIn(notes.texts()), any})}}
                              : textsIn(notes.texts());
    }

    Value valueOf(const ValueType& type, const Field& field, const FieldList& list)
    {
        switch (type.kind) {
        case Kind::Boolean:
            return {{"type", "boolean"}};
        case Kind::Integer:
            return integerOf(type, field.notes, list);
        case Kind::Double:
            return {{"type", "number"}};
        case Kind::String:
            return stringOf(type, field.notes, list);
        case Kind::Array:
            return {{"type", "array"}, {"items", valueOf(*type.element, field, list)}};
        case Kind::Struct: {
            const std::shared_ptr<void> defaults = type.make();
            return structOf({.fields = type.fields,
                             .isRequest = list.isRequest,
                             .numberOfChannels = list.numberOfChannels,
                             .defaults = defaults.get(),
                             .holdersUnit = unitOf(field, list.holdersUnit)});
        }
        case Kind::Optional: // none is told by leaving it out
            return valueOf(*type.element, field, list);
        }
        return {};
    }

    Value propertyOf(const Field& field, const FieldList& list)
    {
        Value shown = valueOf(*field.type, field, list);
        shown["description"] = fullHelp(field);
        if (const std::string_view unit = unitOf(field, list.holdersUnit); !unit.empty()) {
            shown["unit"] = std::string(unit);
        }
        if (list.isRequest && field.notes.hasDefault && list.defaults != nullptr) {
            shown["default"] = defaultOf(field, list.defaults);
        }
        if (list.isRequest && (field.isRequired() || !field.notes.example.empty())) {
            shown["examples"] = Value::array({exampleOf(field, list.numberOfChannels)});
        }
        if (field.notes.isSecret) {
            shown["writeOnly"] = true;
        }
        return shown;
    }

    Value structOf(const FieldList& list)
    {
        Value properties = Value::object();
        Value required = Value::array();
        for (const Field& field : list.fields) {
            properties[std::string(field.name)] = propertyOf(field, list);
            if (list.isRequest ? field.isRequired() : field.type->kind != Kind::Optional) {
                required.push_back(std::string(field.name));
            }
        }
        return {{"type", "object"},
                {"properties", std::move(properties)},
                {"required", std::move(required)},
                {"additionalProperties", false}};
    }

    Value m_definitions = Value::object();
    Value m_vocabularies = Value::object();
};

} // namespace

Value schemaOf(std::span<const MethodNotes> methods, std::uint32_t numberOfChannels)
{
    Definitions definitions;
    for (const MethodNotes& method : methods) {
        definitions.add(method, numberOfChannels);
    }
    return {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
            {"title", "Requests and responses of the node's methods"},
            {"$defs", definitions.finish()}};
}

} // namespace zyr_registration
