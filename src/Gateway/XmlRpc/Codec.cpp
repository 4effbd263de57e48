#include "Codec.h"

#include "DocumentReader.h"
#include "Scalars.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <utility>

namespace zyr_gateway
{

namespace
{

constexpr std::string_view kDeclaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";
constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

/// A character of UTF-8: how many bytes it takes, 0 when they are not valid, and which it is.
struct Character
{
    std::size_t length = 0;
    char32_t code = 0;
};

/// The length that the first byte announces, 0 when it cannot be a first byte.
std::size_t announcedLength(unsigned char first)
{
    if (first < 0x80) {
        return 1;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        return 2;
    }
    if (first >= 0xE0 && first <= 0xEF) {
        return 3;
    }
    return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

Character firstCharacter(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = announcedLength(first);
    if (length == 0 || length > text.size()) {
        return {};
    }
    char32_t code = length == 1 ? first : first & (0x7FU >> length);
    for (const char c : text.substr(1, length - 1)) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0U) != 0x80U) {
            return {};
        }
        code = (code << 6U) | (byte & 0x3FU);
    }
    const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    return overlong ? Character{} : Character{length, code};
}

/// The characters that an XML 1.0 document can hold; surrogates are none of them.
bool isXmlCharacter(char32_t code)
{
    return code == 0x9 || code == 0xA || code == 0xD || (code >= 0x20 && code <= 0xD7FF) ||
           (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

/// What stands for the character in a document; empty: the character itself does.
std::string_view escaped(char c)
{
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '\r':
        return "&#13;"; // raw, a reader would take it for a line feed
    default:
        return {};
    }
}

/// Whether the byte stands for itself in every document.
bool isPlain(char c)
{
    return c >= 0x20 && c < 0x7F && c != '&' && c != '<' && c != '>';
}

void writeText(std::string& out, std::string_view text)
{
    if (std::all_of(text.begin(), text.end(), &isPlain)) {
        out += text;
        return;
    }
    for (const char c : carriableText(text)) {
        const std::string_view instead = escaped(c);
        instead.empty() ? out += c : out += instead;
    }
}

void writeElement(std::string& out, std::string_view tag, std::string_view text)
{
    out.append("<").append(tag).append(">");
    writeText(out, text);
    out.append("</").append(tag).append(">");
}

void writeInteger(std::string& out, const Value& value)
{
    if (value.is_number_unsigned()) {
        const auto number = value.get<std::uint64_t>();
        writeElement(out, number <= INT32_MAX ? "int" : "i8", std::to_string(number));
        return;
    }
    const auto number = value.get<std::int64_t>();
    writeElement(out, number >= INT32_MIN && number <= INT32_MAX ? "int" : "i8", std::to_string(number));
}

void writeReal(std::string& out, double number)
{
    if (std::isfinite(number)) {
        writeElement(out, "double", scalars::text(number));
    } else {
        out += "<nil/>";
    }
}

/// How a value is written: how deep it stands, and how long the document may become.
struct Bounds
{
    std::size_t depth = 1;
    std::size_t limit = std::numeric_limits<std::size_t>::max();

    [[nodiscard]] Bounds deeper() const { return {depth + 1, limit}; }
};

void requireShort(const std::string& document, std::size_t limit)
{
    if (document.size() > limit) {
        throw DocumentTooLong("the document is longer than " + std::to_string(limit) + " bytes");
    }
}

void writeValue(std::string& out, const Value& value, Bounds bounds);

void writeArray(std::string& out, const Value& array, Bounds bounds)
{
    out += "<array><data>";
    for (const Value& element : array) {
        writeValue(out, element, bounds.deeper());
    }
    out += "</data></array>";
}

void writeStruct(std::string& out, const Value& object, Bounds bounds)
{
    out += "<struct>";
    for (const auto& [name, member] : object.get_ref<const Value::object_t&>()) {
        out += "<member>";
        writeElement(out, "name", name);
        writeValue(out, member, bounds.deeper());
        out += "</member>";
    }
    out += "</struct>";
}

void writeValue(std::string& out, const Value& value, Bounds bounds)
{
    if (bounds.depth > kMaxValueDepth) {
        throw std::invalid_argument("values are nested deeper than " + std::to_string(kMaxValueDepth) +
                                    " levels");
    }
    requireShort(out, bounds.limit);
    out += "<value>";
    switch (value.type()) {
    case Value::value_t::boolean:
        writeElement(out, "boolean", value.get<bool>() ? "1" : "0");
        break;
    case Value::value_t::number_integer:
    case Value::value_t::number_unsigned:
        writeInteger(out, value);
        break;
    case Value::value_t::number_float:
        writeReal(out, value.get<double>());
        break;
    case Value::value_t::string:
        writeElement(out, "string", value.get_ref<const std::string&>());
        break;
    case Value::value_t::array:
        writeArray(out, value, bounds);
        break;
    case Value::value_t::object:
        writeStruct(out, value, bounds);
        break;
    default:
        out += "<nil/>";
    }
    out += "</value>";
}

} // namespace

MethodCall parseMethodCall(std::string_view xml)
{
    DocumentReader reader(DocumentReader::Element::MethodCall);
    reader.read(xml);
    return std::move(reader.call);
}

MethodResponse parseMethodResponse(std::string_view xml)
{
    DocumentReader reader(DocumentReader::Element::MethodResponse);
    reader.read(xml);
    return std::move(reader.response);
}

std::string writeMethodCall(const MethodCall& call)
{
    std::string out(kDeclaration);
    out += "<methodCall>";
    writeElement(out, "methodName", call.method);
    out += "<params>";
    for (const Value& param : call.params) {
        out += "<param>";
        writeValue(out, param, {});
        out += "</param>";
    }
    out += "</params></methodCall>";
    return out;
}

std::string writeResponse(const Value& value)
{
    return writeResponse(value, Bounds{}.limit);
}

std::string writeResponse(const Value& value, std::size_t limit)
{
    constexpr std::size_t usual = 1000;
    std::string out;
    out.reserve(usual);
    out.append(kDeclaration).append("<methodResponse><params><param>");
    writeValue(out, value, {.limit = limit});
    requireShort(out, limit);
    out += "</param></params></methodResponse>";
    return out;
}

ArrayResponse::ArrayResponse(std::size_t limit) : m_document(kDeclaration), m_limit(limit)
{
    m_document += "<methodResponse><params><param><value><array><data>";
}

void ArrayResponse::add(const Value& element)
{
    writeValue(m_document, element, Bounds{.limit = m_limit}.deeper());
    requireShort(m_document, m_limit);
}

std::string ArrayResponse::finish()
{
    m_document += "</data></array></value></param></params></methodResponse>";
    return std::move(m_document);
}

std::string writeFault(int code, std::string_view text)
{
    Value fault = Value::object();
    fault["faultCode"] = code;
    fault["faultString"] = std::string(text);
    std::string out(kDeclaration);
    out += "<methodResponse><fault>";
    writeValue(out, fault, {});
    out += "</fault></methodResponse>";
    return out;
}

std::string carriableText(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        const std::size_t length = character.length == 0 ? 1 : character.length;
        if (character.length == 0 || !isXmlCharacter(character.code)) {
            out += kReplacementCharacter;
        } else {
            out += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    return out;
}

} // namespace zyr_gateway
