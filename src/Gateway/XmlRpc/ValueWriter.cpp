#include "ValueWriter.h"

#include "Characters.h"
#include "Codec.h"
#include "Scalars.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace zyr_gateway
{

namespace
{

constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

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

/// The bytes that stand for themselves in every document.
constexpr std::array<bool, 256> kIsPlain = [] {
    std::array<bool, 256> table{};
    for (std::size_t code = 0x20; code < 0x7F; ++code) {
        table.at(code) = true;
    }
    table['&'] = table['<'] = table['>'] = false;
    return table;
}();

bool isPlain(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return kIsPlain[static_cast<unsigned char>(c)]; });
}

} // namespace

void writeText(std::string& out, std::string_view text)
{
    if (isPlain(text)) {
        out += text;
        return;
    }
    for (const char c : carriableText(text)) {
        const std::string_view instead = escaped(c);
        instead.empty() ? out += c : out += instead;
    }
}

ValueWriter::ValueWriter(std::string& out, std::size_t limit) : m_out(&out), m_limit(limit) {}

/// Called where a value begins.
void ValueWriter::open() const
{
    if (m_depth > kMaxValueDepth) {
        throw std::invalid_argument("values are nested deeper than " + std::to_string(kMaxValueDepth) +
                                    " levels");
    }
    requireShort();
}

void ValueWriter::requireShort() const
{
    if (m_out->size() > m_limit) {
        throw DocumentTooLong("the document is longer than " + std::to_string(m_limit) + " bytes");
    }
}

void ValueWriter::nil()
{
    open();
    *m_out += "<value><nil/></value>";
}

void ValueWriter::boolean(bool value)
{
    open();
    *m_out += value ? "<value><boolean>1</boolean></value>" : "<value><boolean>0</boolean></value>";
}

template <class Number>
void ValueWriter::writeInteger(Number number)
{
    open();
    std::array<char, 24> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const bool isShort = std::in_range<std::int32_t>(number);
    *m_out += isShort ? "<value><int>" : "<value><i8>";
    m_out->append(digits.data(), static_cast<std::size_t>(end - digits.data()));
    *m_out += isShort ? "</int></value>" : "</i8></value>";
}

void ValueWriter::integer(std::int64_t number)
{
    writeInteger(number);
}

void ValueWriter::integer(std::uint64_t number)
{
    writeInteger(number);
}

void ValueWriter::real(double number)
{
    if (!std::isfinite(number)) {
        nil();
        return;
    }
    open();
    m_out->append("<value><double>").append(scalars::text(number)).append("</double></value>");
}

void ValueWriter::text(std::string_view text)
{
    open();
    *m_out += "<value><string>";
    writeText(*m_out, text);
    *m_out += "</string></value>";
}

void ValueWriter::beginArray()
{
    open();
    ++m_depth;
    *m_out += "<value><array><data>";
}

void ValueWriter::endArray()
{
    --m_depth;
    *m_out += "</data></array></value>";
}

void ValueWriter::beginStruct()
{
    open();
    ++m_depth;
    *m_out += "<value><struct>";
}

void ValueWriter::beginMember(std::string_view name)
{
    *m_out += "<member><name>";
    writeText(*m_out, name);
    *m_out += "</name>";
}

void ValueWriter::endMember()
{
    *m_out += "</member>";
}

void ValueWriter::endStruct()
{
    --m_depth;
    *m_out += "</struct></value>";
}

void ValueWriter::value(const Value& value)
{
    switch (value.type()) {
    case Value::value_t::boolean:
        return boolean(value.get<bool>());
    case Value::value_t::number_integer:
        return integer(value.get<std::int64_t>());
    case Value::value_t::number_unsigned:
        return integer(value.get<std::uint64_t>());
    case Value::value_t::number_float:
        return real(value.get<double>());
    case Value::value_t::string:
        return text(value.get_ref<const std::string&>());
    case Value::value_t::array:
        beginArray();
        for (const Value& element : value) {
            this->value(element);
        }
        return endArray();
    case Value::value_t::object:
        beginStruct();
        for (const auto& [name, member] : value.get_ref<const Value::object_t&>()) {
            beginMember(name);
            this->value(member);
            endMember();
        }
        return endStruct();
    default:
        return nil();
    }
}

void ValueWriter::goBackTo(const Mark& mark)
{
    m_out->resize(mark.size);
    m_depth = mark.depth;
}

std::string carriableText(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const std::size_t carriable = characters::carriableLength(text);
        out += text.substr(0, carriable);
        text.remove_prefix(carriable);
        if (!text.empty()) {
            out += kReplacementCharacter;
            text.remove_prefix(std::max<std::size_t>(characters::first(text).length, 1));
        }
    }
    return out;
}

} // namespace zyr_gateway
