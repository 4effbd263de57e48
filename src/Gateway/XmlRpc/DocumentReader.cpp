#include "DocumentReader.h"

#include "Characters.h"
#include "Scalars.h"
#include "WipingMemory.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>
#include <optional>
#include <span>
#include <unordered_set>
#include <utility>

#include <strings.h>

namespace zyr_gateway
{

namespace
{

using Element = DocumentReader::Element;
using Kind = XmlRpcError::Kind;

/// The most tags of a document that is looked at: a value needs eight, with the member that it is of.
constexpr std::size_t kMaxTagCount = 8 * kMaxValueCount + 16;

constexpr std::size_t kAnywhere = std::numeric_limits<std::size_t>::max();

/// Which element may stand in which, and after how many brothers.
struct Place
{
    Element parent;
    std::string_view tag;
    Element element;
    std::size_t position;
};

constexpr std::array kPlaces{
    Place{Element::MethodCall, "methodName", Element::MethodName, 0},
    Place{Element::MethodCall, "params", Element::Params, 1},
    Place{Element::MethodResponse, "params", Element::Params, 0},
    Place{Element::MethodResponse, "fault", Element::Fault, 0},
    Place{Element::Params, "param", Element::Param, kAnywhere},
    Place{Element::Param, "value", Element::AnyValue, 0},
    Place{Element::Fault, "value", Element::AnyValue, 0},
    Place{Element::Data, "value", Element::AnyValue, kAnywhere},
    Place{Element::Array, "data", Element::Data, 0},
    Place{Element::Structure, "member", Element::Member, kAnywhere},
    Place{Element::Member, "name", Element::Name, 0},
    Place{Element::Member, "value", Element::AnyValue, 1},
    Place{Element::AnyValue, "int", Element::Integer, 0},
    Place{Element::AnyValue, "i4", Element::Integer, 0},
    Place{Element::AnyValue, "i8", Element::Integer, 0},
    Place{Element::AnyValue, "i2", Element::Integer, 0},
    Place{Element::AnyValue, "i1", Element::Integer, 0},
    Place{Element::AnyValue, "ex:i8", Element::Integer, 0},
    Place{Element::AnyValue, "boolean", Element::Boolean, 0},
    Place{Element::AnyValue, "string", Element::String, 0},
    Place{Element::AnyValue, "double", Element::Real, 0},
    Place{Element::AnyValue, "dateTime.iso8601", Element::Date, 0},
    Place{Element::AnyValue, "base64", Element::Base64, 0},
    Place{Element::AnyValue, "nil", Element::Nil, 0},
    Place{Element::AnyValue, "ex:nil", Element::Nil, 0},
    Place{Element::AnyValue, "array", Element::Array, 0},
    Place{Element::AnyValue, "struct", Element::Structure, 0},
};

/// The places in each element; they stand together.
constexpr auto kPlacesIn = [] {
    std::array<std::span<const Place>, 19> all;
    for (std::size_t element = 0; element < all.size(); ++element) {
        const auto isIn = [&](const Place& place) {
            return static_cast<std::size_t>(place.parent) == element;
        };
        const auto* const first = std::ranges::find_if(kPlaces, isIn);
        all.at(element) = {first, std::find_if_not(first, kPlaces.end(), isIn)};
    }
    return all;
}();

constexpr std::span<const Place> placesIn(Element parent)
{
    return kPlacesIn.at(static_cast<std::size_t>(parent));
}

/// What an element is called in messages, and what it must hold at its end.
struct Trait
{
    std::string_view tag;
    std::size_t minChildren;
    std::string_view wanted; ///< what is missing when there are too few children
};

/// In the order of `Element`.
constexpr std::array<Trait, 19> kTraits{{
    {"methodCall", 1, "<methodName>"},
    {"methodResponse", 1, "<params> or <fault>"},
    {"methodName", 0, ""},
    {"params", 0, ""},
    {"param", 1, "<value>"},
    {"fault", 1, "<value>"},
    {"value", 0, ""},
    {"array", 1, "<data>"},
    {"data", 0, ""},
    {"struct", 0, ""},
    {"member", 2, "<name> and <value>"},
    {"name", 0, ""},
    {"int", 0, ""},
    {"boolean", 0, ""},
    {"double", 0, ""},
    {"string", 0, ""},
    {"dateTime.iso8601", 0, ""},
    {"base64", 0, ""},
    {"nil", 0, ""},
}};

constexpr const Trait& traitOf(Element element)
{
    return kTraits.at(static_cast<std::size_t>(element));
}

/// A name out of the document, fit for a message.
std::string forMessage(std::string_view name)
{
    constexpr std::size_t longest = 64;
    const bool whole = name.size() <= longest;
    return carriableText(name.substr(0, longest)) + (whole ? "" : "...");
}

/// How pugixml is to parse the document. References stay, which it would pass over when it doesn't know them.
/// White space between elements need not be in the tree; but where a text may stand in pieces, round a
/// comment or a CDATA section, all white space must.
unsigned parsingOf(std::string_view xml)
{
    const std::size_t behindDeclaration = xml.starts_with("<?xml") ? xml.find("?>") + 2 : 0;
    const bool areTextsWhole =
        xml.find('!') == std::string_view::npos && xml.find('?', behindDeclaration) == std::string_view::npos;
    return pugi::parse_cdata | pugi::parse_eol | pugi::parse_declaration | pugi::parse_doctype |
           pugi::parse_fragment | (areTextsWhole ? pugi::parse_ws_pcdata_single : pugi::parse_ws_pcdata);
}

bool isBlank(const char* text)
{
    while (*text == ' ' || *text == '\n' || *text == '\t' || *text == '\r') {
        ++text;
    }
    return *text == '\0';
}

/// The tags that may stand in the parent, for a message.
std::string acceptedIn(Element parent)
{
    std::string text;
    for (const Place& place : placesIn(parent)) {
        text += (text.empty() ? "<" : ", <") + std::string(place.tag) + ">";
    }
    return text;
}

/// The character that a reference stands for, given what is between `&` and `;`.
std::optional<char32_t> referenced(std::string_view name)
{
    using Named = std::pair<std::string_view, char32_t>;
    constexpr std::array known{Named{"amp", U'&'}, Named{"lt", U'<'}, Named{"gt", U'>'}, Named{"quot", U'"'},
                               Named{"apos", U'\''}};
    const auto* const found = std::ranges::find(known, name, &Named::first);
    if (found != known.end()) {
        return found->second;
    }
    if (!name.starts_with('#')) {
        return std::nullopt;
    }
    const bool isHexadecimal = name.starts_with("#x");
    name.remove_prefix(isHexadecimal ? 2 : 1);
    std::uint32_t code = 0;
    const auto [end, error] =
        std::from_chars(name.data(), name.data() + name.size(), code, isHexadecimal ? 16 : 10);
    const bool isWhole = error == std::errc() && end == name.data() + name.size();
    return isWhole && characters::isCarriable(code) ? std::optional<char32_t>(code) : std::nullopt;
}

bool holdsElements(const pugi::xml_node& node)
{
    pugi::xml_node child = node.first_child();
    while (child && child.type() != pugi::node_element) {
        child = child.next_sibling();
    }
    return static_cast<bool>(child);
}

/// Tells whether a name is new in a struct. Looking it up among the members takes as long as there are
/// members, so the names of many are kept in a set.
class MemberNames
{
  public:
    [[nodiscard]] bool isNew(const std::string& name, const Value::object_t& members)
    {
        constexpr std::size_t few = 16;
        if (members.size() < few) {
            return std::ranges::find(members, name, &Value::object_t::value_type::first) == members.end();
        }
        if (m_names.empty()) {
            for (const auto& [known, value] : members) {
                m_names.insert(known);
            }
        }
        return m_names.insert(name).second;
    }

  private:
    std::unordered_set<std::string> m_names;
};

} // namespace

void DocumentReader::Wiper::operator()(char* memory) const noexcept
{
    wipingFree(memory);
}

DocumentReader::DocumentReader(std::string_view xml) : m_xml(xml)
{
    // By its first bytes, whatever the document declares.
    const std::string_view start = xml.substr(0, 4);
    const bool wideMark = start.starts_with("\xFE\xFF") || start.starts_with("\xFF\xFE");
    if (wideMark || start.find('\0') != std::string_view::npos) {
        throw XmlRpcError(Kind::UnsupportedEncoding, 1, "the document is not in UTF-8 or US-ASCII");
    }
    if (xml.size() > kMaxTagCount && std::cmp_greater(std::ranges::count(xml, '<'), kMaxTagCount)) {
        throw XmlRpcError(Kind::TooManyValues, 1,
                          "there are more than " + std::to_string(kMaxTagCount) + " tags");
    }
    parse();
    const pugi::xml_node first = m_document.first_child();
    checkText(first.type() == pugi::node_declaration ? first : pugi::xml_node());
}

void DocumentReader::parse()
{
    const std::size_t size = m_xml.size() + 1;
    m_copy.reset(static_cast<char*>(std::malloc(size)));
    if (m_copy == nullptr) {
        throw std::bad_alloc();
    }
    // pugixml passes over a last character that belongs to no tag, so that one is a line feed.
    *std::copy(m_xml.begin(), m_xml.end(), m_copy.get()) = '\n';
    const pugi::xml_parse_result result =
        m_document.load_buffer_inplace(m_copy.get(), size, parsingOf(m_xml), pugi::encoding_utf8);
    if (result.status == pugi::status_out_of_memory) {
        throw std::bad_alloc();
    }
    if (!result) {
        throw XmlRpcError(Kind::Malformed, lineAt(result.offset),
                          std::string("not well-formed XML: ") + result.description());
    }
    // It also passes over a tag that begins there.
    const std::size_t last = m_xml.find_last_not_of(" \n\t\r");
    if (last != std::string_view::npos && m_xml[last] != '>') {
        throw XmlRpcError(Kind::Malformed, lineAt(static_cast<std::ptrdiff_t>(last)),
                          "text outside the root");
    }
}

/// @param declaration empty when the document has none
void DocumentReader::checkText(const pugi::xml_node& declaration) const
{
    const pugi::xml_attribute attribute = declaration.attribute("encoding");
    const char* const encoding = attribute ? attribute.value() : "UTF-8";
    const bool isAscii = strcasecmp(encoding, "US-ASCII") == 0;
    if (!isAscii && strcasecmp(encoding, "UTF-8") != 0) {
        fail(Kind::UnsupportedEncoding, declaration,
             "the encoding " + forMessage(encoding) + " is not supported; UTF-8 and US-ASCII are");
    }
    const auto good = static_cast<std::ptrdiff_t>(characters::carriableLength(m_xml));
    if (std::cmp_less(good, m_xml.size())) {
        throw XmlRpcError(Kind::Malformed, lineAt(good),
                          "a byte that is not part of UTF-8, or a character that XML does not have");
    }
    const auto* const beyond =
        isAscii ? std::ranges::find_if(m_xml, [](char c) { return (c & 0x80) != 0; }) : m_xml.end();
    if (beyond != m_xml.end()) {
        throw XmlRpcError(Kind::Malformed, lineAt(beyond - m_xml.begin()),
                          "a character that US-ASCII, the encoding, does not have");
    }
}

pugi::xml_node DocumentReader::root(Element wanted) const
{
    pugi::xml_node root;
    for (pugi::xml_node node = m_document.first_child(); node; node = node.next_sibling()) {
        switch (node.type()) {
        case pugi::node_element:
            if (root) {
                failMalformed(node, "<" + forMessage(node.name()) + "> is a second root");
            }
            root = node;
            break;
        case pugi::node_doctype:
            fail(Kind::DtdRefused, node, "a document type declaration is refused; XML-RPC needs none");
        case pugi::node_declaration:
            if (node.previous_sibling()) {
                failMalformed(node, "the XML declaration is not at the start of the document");
            }
            break;
        default:
            if (!isBlankText(node)) {
                failMalformed(node, "text outside the root");
            }
            break;
        }
    }
    const std::string_view tag = traitOf(wanted).tag;
    if (root.name() != tag) {
        failMalformed(root, (root ? "<" + forMessage(root.name()) + "> is the root" : "there is no root") +
                                "; it must be <" + std::string(tag) + ">");
    }
    return root;
}

MethodCall DocumentReader::call()
{
    MethodCall call;
    takeElements(root(Element::MethodCall), Element::MethodCall, [&](const auto& node, Element element) {
        if (element == Element::MethodName) {
            call.method = methodNameOf(node);
            return;
        }
        takeElements(node, Element::Params, [&](const auto& param, Element) {
            takeElements(param, Element::Param,
                         [&](const auto& value, Element) { call.params.push_back(valueOf(value, 1)); });
        });
    });
    return call;
}

MethodResponse DocumentReader::response()
{
    MethodResponse response;
    const auto takeValue = [&](const auto& node, Element) { response.value = valueOf(node, 1); };
    takeElements(root(Element::MethodResponse), Element::MethodResponse,
                 [&](const auto& node, Element element) {
                     if (element == Element::Fault) {
                         response.fault = faultOf(node);
                         return;
                     }
                     std::size_t count = 0;
                     takeElements(node, Element::Params, [&](const auto& param, Element) {
                         ++count;
                         takeElements(param, Element::Param, takeValue);
                     });
                     if (count != 1) {
                         failMalformed(node, "a response has exactly one <param>");
                     }
                 });
    return response;
}

/// Hands on the elements in a node, which is an element that no text may stand in.
template <class Take>
void DocumentReader::takeElements(const pugi::xml_node& node, Element element, Take take) const
{
    std::size_t count = 0;
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        if (child.type() == pugi::node_element) {
            take(child, elementOf(child, element, count));
            ++count;
        } else if (!isBlankText(child)) {
            failMalformed(child, "text beside the elements of <" + std::string(traitOf(element).tag) + ">");
        }
    }
    const Trait& trait = traitOf(element);
    if (count < trait.minChildren) {
        failMalformed(node, "<" + std::string(trait.tag) + "> without " + std::string(trait.wanted));
    }
}

/// @param position how many elements stand before it in the parent
DocumentReader::Element DocumentReader::elementOf(const pugi::xml_node& node, Element parent,
                                                  std::size_t position) const
{
    const std::string_view tag = node.name();
    const std::span<const Place> places = placesIn(parent);
    const auto place = std::ranges::find(places, tag, &Place::tag);
    const std::string_view in = traitOf(parent).tag;
    if (place == places.end()) {
        const std::string accepted = acceptedIn(parent);
        failMalformed(node, "<" + forMessage(tag) + "> cannot stand in <" + std::string(in) + ">" +
                                (accepted.empty() ? "; only text can" : "; accepted: " + accepted));
    }
    if (place->position != kAnywhere && place->position != position) {
        failMalformed(node, "<" + std::string(tag) + "> stands twice or in the wrong place in <" +
                                std::string(in) + ">");
    }
    return place->element;
}

std::string DocumentReader::methodNameOf(const pugi::xml_node& node) const
{
    const std::string text = textOf(node, Element::MethodName);
    const std::string_view name = scalars::trimmed(text);
    if (name.empty()) {
        failMalformed(node, "<methodName> is empty; it must name a method");
    }
    return std::string(name);
}

Value DocumentReader::valueOf(const pugi::xml_node& node, std::size_t depth)
{
    if (depth > kMaxValueDepth) {
        fail(Kind::TooDeep, node,
             "values are nested deeper than " + std::to_string(kMaxValueDepth) + " levels");
    }
    if (++m_valueCount > kMaxValueCount) {
        fail(Kind::TooManyValues, node, "there are more than " + std::to_string(kMaxValueCount) + " values");
    }
    if (!holdsElements(node)) {
        return textOf(node, Element::AnyValue);
    }
    Value value;
    takeElements(node, Element::AnyValue,
                 [&](const auto& typed, Element element) { value = typedValueOf(typed, element, depth); });
    return value;
}

Value DocumentReader::typedValueOf(const pugi::xml_node& node, Element element, std::size_t depth)
{
    switch (element) {
    case Element::Array:
        return arrayOf(node, depth + 1);
    case Element::Structure:
        return structureOf(node, depth + 1);
    default:
        return scalarOf(node, element);
    }
}

/// @param depth that of what it holds
Value DocumentReader::arrayOf(const pugi::xml_node& node, std::size_t depth)
{
    Value array = Value::array();
    takeElements(node, Element::Array, [&](const auto& data, Element) {
        takeElements(data, Element::Data,
                     [&](const auto& item, Element) { array.push_back(valueOf(item, depth)); });
    });
    return array;
}

/// @param depth that of what it holds
Value DocumentReader::structureOf(const pugi::xml_node& node, std::size_t depth)
{
    Value structure = Value::object();
    auto& members = structure.get_ref<Value::object_t&>();
    MemberNames names;
    takeElements(node, Element::Structure, [&](const auto& member, Element) {
        std::string name;
        Value value;
        takeElements(member, Element::Member, [&](const auto& part, Element element) {
            if (element == Element::Name) {
                name = textOf(part, element);
            } else {
                value = valueOf(part, depth);
            }
        });
        if (!names.isNew(name, members)) {
            fail(Kind::DoubledMember, member,
                 "the member \"" + forMessage(name) + "\" stands twice in one struct");
        }
        members.emplace_back(std::move(name), std::move(value));
    });
    return structure;
}

Value DocumentReader::scalarOf(const pugi::xml_node& node, Element element) const
{
    std::string whole = textOf(node, element);
    const std::string_view text = scalars::trimmed(whole);
    const auto badValue = [&](const std::string& wanted) {
        fail(Kind::BadValue, node,
             "the text of <" + std::string(traitOf(element).tag) + "> is not " + wanted);
    };
    switch (element) {
    case Element::Integer: {
        const auto number = scalars::integer(text);
        if (!number) {
            badValue("a whole number from -9223372036854775808 to 9223372036854775807");
        }
        return *number;
    }
    case Element::Boolean:
        if (text != "0" && text != "1") {
            badValue("0 or 1");
        }
        return text == "1";
    case Element::Real: {
        double number = 0;
        const scalars::RealOutcome outcome = scalars::real(text, number);
        if (outcome == scalars::RealOutcome::NotFinite) {
            fail(Kind::NotFinite, node, "the text of <double> is not a finite number that a double can hold");
        }
        if (outcome == scalars::RealOutcome::NotANumber) {
            badValue("a decimal number");
        }
        return number;
    }
    case Element::Base64: {
        auto bytes = scalars::base64(text);
        if (!bytes) {
            badValue("base64 with its padding");
        }
        return Value::binary({bytes->begin(), bytes->end()});
    }
    case Element::Nil:
        if (!text.empty()) {
            badValue("empty");
        }
        return nullptr;
    case Element::Date:
        return Value::binary({text.begin(), text.end()}, kDateSubtype);
    default:
        return whole;
    }
}

Fault DocumentReader::faultOf(const pugi::xml_node& node)
{
    Value value;
    takeElements(node, Element::Fault, [&](const auto& inside, Element) { value = valueOf(inside, 1); });
    const bool shaped = value.is_object() && value.size() == 2 && value.contains("faultCode") &&
                        value.contains("faultString") && value["faultCode"].is_number_integer() &&
                        value["faultString"].is_string();
    if (!shaped) {
        failMalformed(node, "a fault is a struct of an integer faultCode and a string faultString");
    }
    const auto code = value["faultCode"].get<std::int64_t>();
    if (code < INT_MIN || code > INT_MAX) {
        fail(Kind::BadValue, node, "the faultCode is not a number of 32 bits");
    }
    return {static_cast<int>(code), value["faultString"].get<std::string>()};
}

/// Whether a piece of text is white space alone; references may stand for it.
bool DocumentReader::isBlankText(const pugi::xml_node& node) const
{
    if (isBlank(node.value())) {
        return true;
    }
    if (node.type() == pugi::node_cdata) {
        return false;
    }
    std::string text;
    appendDecoded(text, node);
    return isBlank(text.c_str());
}

/// The text in an element that holds nothing else.
std::string DocumentReader::textOf(const pugi::xml_node& node, Element element) const
{
    std::string text;
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        switch (child.type()) {
        case pugi::node_element:
            (void)elementOf(child, element, 0); // which refuses it
            break;
        case pugi::node_cdata:
            text += child.value();
            break;
        default:
            appendDecoded(text, child);
            break;
        }
    }
    return text;
}

/// Adds a piece of text with what its references stand for.
void DocumentReader::appendDecoded(std::string& text, const pugi::xml_node& node) const
{
    std::string_view rest = node.value();
    for (std::size_t start = rest.find('&'); start != std::string_view::npos; start = rest.find('&')) {
        text += rest.substr(0, start);
        rest.remove_prefix(start + 1);
        const std::size_t end = rest.find(';');
        const auto code = end == std::string_view::npos ? std::nullopt : referenced(rest.substr(0, end));
        if (!code) {
            failMalformed(node,
                          "& that begins neither &amp;, &lt;, &gt;, &quot; or &apos; nor the number of a "
                          "character that XML has");
        }
        characters::append(text, *code);
        rest.remove_prefix(end + 1);
    }
    text += rest;
}

std::size_t DocumentReader::lineAt(std::ptrdiff_t offset) const
{
    return 1 + static_cast<std::size_t>(std::ranges::count(
                   m_xml.substr(0, static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0))), '\n'));
}

void DocumentReader::fail(Kind kind, const pugi::xml_node& node, const std::string& text) const
{
    throw XmlRpcError(kind, lineAt(node.offset_debug()), text);
}

void DocumentReader::failMalformed(const pugi::xml_node& node, const std::string& text) const
{
    fail(Kind::Malformed, node, text);
}

} // namespace zyr_gateway
