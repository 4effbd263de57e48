#include "DocumentReader.h"

#include "Scalars.h"
#include "WipingMemory.h"

#include <expat.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <random>
#include <span>
#include <utility>

#include <strings.h>

namespace zyr_gateway
{

namespace
{

using Element = DocumentReader::Element;
using Kind = XmlRpcError::Kind;

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
    Place{Element::Document, "methodCall", Element::MethodCall, 0},
    Place{Element::Document, "methodResponse", Element::MethodResponse, 0},
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
    std::array<std::span<const Place>, 20> all;
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
    bool takesText;
    std::string_view wanted; ///< what is missing when there are too few children
};

/// In the order of `Element`.
constexpr std::array<Trait, 20> kTraits{{
    {"document", 1, false, "a root"},
    {"methodCall", 1, false, "<methodName>"},
    {"methodResponse", 1, false, "<params> or <fault>"},
    {"methodName", 0, true, ""},
    {"params", 0, false, ""},
    {"param", 1, false, "<value>"},
    {"fault", 1, false, "<value>"},
    {"value", 0, true, ""},
    {"array", 1, false, "<data>"},
    {"data", 0, false, ""},
    {"struct", 0, false, ""},
    {"member", 2, false, "<name> and <value>"},
    {"name", 0, true, ""},
    {"int", 0, true, ""},
    {"boolean", 0, true, ""},
    {"double", 0, true, ""},
    {"string", 0, true, ""},
    {"dateTime.iso8601", 0, true, ""},
    {"base64", 0, true, ""},
    {"nil", 0, true, ""},
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

bool isBlank(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; });
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

struct ParserDeleter
{
    void operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }
};

using Parser = std::unique_ptr<XML_ParserStruct, ParserDeleter>;

/// What the parser gives back is overwritten: documents hold keys.
constexpr XML_Memory_Handling_Suite kWipingMemory{&std::malloc, &wipingRealloc, &wipingFree};

/// A parser for one document. Each thread keeps the one of its last document for the next, unless that was a
/// long one, for which it has taken much memory. The document itself isn't kept.
class KeptParser
{
  public:
    explicit KeptParser(std::size_t documentSize) : m_size(documentSize)
    {
        if (s_kept == nullptr) {
            s_kept.reset(XML_ParserCreate_MM(nullptr, &kWipingMemory, nullptr));
        }
        if (s_kept == nullptr) {
            throw std::bad_alloc();
        }
        // One that nobody can guess, as expat would get from the system for each document.
        static const unsigned long salt = std::random_device()() | 1UL;
        XML_SetHashSalt(s_kept.get(), salt);
    }
    ~KeptParser()
    {
        if (m_size > kLongestKept || !wipeDocument()) {
            s_kept.reset();
        }
    }
    KeptParser(const KeptParser&) = delete;
    KeptParser& operator=(const KeptParser&) = delete;

    [[nodiscard]] XML_ParserStruct* get() const { return s_kept.get(); }

  private:
    static constexpr std::size_t kLongestKept = 32UL * 1024UL;
    static thread_local Parser s_kept;

    /// Readies the parser for the next document and overwrites its copy of this one, which is at the start of
    /// its buffer.
    [[nodiscard]] bool wipeDocument() const
    {
        if (XML_ParserReset(s_kept.get(), nullptr) != XML_TRUE) {
            return false;
        }
        void* const copy = XML_GetBuffer(s_kept.get(), static_cast<int>(m_size));
        if (copy != nullptr) {
            explicit_bzero(copy, m_size);
        }
        return copy != nullptr;
    }

    std::size_t m_size;
};

thread_local Parser KeptParser::s_kept;

} // namespace

DocumentReader::DocumentReader(Element root) : m_root(root)
{
    constexpr std::size_t usualDepth = 9; // that of a struct's members
    m_open.reserve(usualDepth);
    open(Element::Document);
}

void DocumentReader::read(std::string_view xml)
{
    refuseOtherEncodings(xml);
    const KeptParser parser(xml.size());
    m_parser = parser.get();
    connectHandlers();
    const XML_Status status = XML_Parse(m_parser, xml.data(), static_cast<int>(xml.size()), XML_TRUE);
    if (m_error) {
        std::rethrow_exception(m_error);
    }
    if (status != XML_STATUS_OK && XML_GetErrorCode(m_parser) == XML_ERROR_NO_MEMORY) {
        throw std::bad_alloc();
    }
    if (status != XML_STATUS_OK) {
        fail(Kind::Malformed,
             std::string("not well-formed XML: ") + XML_ErrorString(XML_GetErrorCode(m_parser)));
    }
    m_parser = nullptr;
}

/// expat recognises UTF-16 by its first bytes, whatever the document declares.
void DocumentReader::refuseOtherEncodings(std::string_view xml) const
{
    if (xml.size() > INT_MAX) {
        fail(Kind::Malformed, "the document is longer than 2 GiB");
    }
    const std::string_view start = xml.substr(0, 4);
    const bool wideMark = start.starts_with("\xFE\xFF") || start.starts_with("\xFF\xFE");
    if (wideMark || start.find('\0') != std::string_view::npos) {
        fail(Kind::UnsupportedEncoding, "the document is not in UTF-8 or US-ASCII");
    }
}

/// An exception must not pass through expat, which is C: it waits here until the parser has returned.
template <typename Step>
void DocumentReader::guarded(Step step) noexcept
{
    // A stopped parser may still report an event or two.
    if (m_error) {
        return;
    }
    try {
        step();
    } catch (...) {
        m_error = std::current_exception();
        XML_StopParser(m_parser, XML_FALSE);
    }
}

void DocumentReader::connectHandlers()
{
    XML_SetUserData(m_parser, this);
    XML_SetXmlDeclHandler(m_parser, [](void* self, const char*, const char* encoding, int) {
        auto& reader = *static_cast<DocumentReader*>(self);
        reader.guarded([&] { reader.declared(encoding); });
    });
    XML_SetStartDoctypeDeclHandler(m_parser, [](void* self, const char*, const char*, const char*, int) {
        auto& reader = *static_cast<DocumentReader*>(self);
        reader.guarded([&] {
            reader.fail(Kind::DtdRefused, "a document type declaration is refused; XML-RPC needs none");
        });
    });
    XML_SetElementHandler(
        m_parser,
        [](void* self, const char* tag, const char**) {
            auto& reader = *static_cast<DocumentReader*>(self);
            reader.guarded([&] { reader.started(tag); });
        },
        [](void* self, const char*) {
            auto& reader = *static_cast<DocumentReader*>(self);
            reader.guarded([&] { reader.ended(); });
        });
    XML_SetCharacterDataHandler(m_parser, [](void* self, const char* text, int length) {
        auto& reader = *static_cast<DocumentReader*>(self);
        reader.guarded([&] { reader.characters({text, static_cast<std::size_t>(length)}); });
    });
}

void DocumentReader::declared(const char* encoding)
{
    if (encoding == nullptr || strcasecmp(encoding, "UTF-8") == 0 || strcasecmp(encoding, "US-ASCII") == 0) {
        return;
    }
    fail(Kind::UnsupportedEncoding,
         "the encoding " + forMessage(encoding) + " is not supported; UTF-8 and US-ASCII are");
}

void DocumentReader::started(const char* tag)
{
    Frame& parent = m_open.back();
    const std::string_view wantedTag = tag;
    const std::span<const Place> places = placesIn(parent.element);
    const auto place = std::ranges::find(places, wantedTag, &Place::tag);
    if (place == places.end() || (place->parent == Element::Document && place->element != m_root)) {
        failUnexpected(parent.element, wantedTag);
    }
    if (place->position != kAnywhere && place->position != parent.children) {
        fail(Kind::Malformed, "<" + std::string(place->tag) + "> stands twice or in the wrong place in <" +
                                  std::string(traitOf(parent.element).tag) + ">");
    }
    if (parent.element == Element::AnyValue && !isBlank(parent.text)) {
        fail(Kind::Malformed, "<value> holds both text and <" + std::string(place->tag) + ">");
    }
    ++parent.children;
    open(place->element);
}

void DocumentReader::open(Element element)
{
    if (element == Element::AnyValue) {
        if (++m_depth > kMaxValueDepth) {
            fail(Kind::TooDeep,
                 "values are nested deeper than " + std::to_string(kMaxValueDepth) + " levels");
        }
        if (++m_valueCount > kMaxValueCount) {
            fail(Kind::TooManyValues, "there are more than " + std::to_string(kMaxValueCount) + " values");
        }
    }
    Frame& frame = m_open.emplace_back();
    frame.element = element;
    if (element == Element::Data) {
        frame.value = Value::array();
    } else if (element == Element::Structure) {
        frame.value = Value::object();
    }
}

void DocumentReader::characters(std::string_view text)
{
    Frame& frame = m_open.back();
    const bool typedValue = frame.element == Element::AnyValue && frame.children > 0;
    if (traitOf(frame.element).takesText && !typedValue) {
        frame.text += text;
    } else if (!isBlank(text)) {
        fail(Kind::Malformed,
             "text between the elements of <" + std::string(traitOf(frame.element).tag) + ">");
    }
}

void DocumentReader::ended()
{
    Frame& frame = m_open.back();
    Frame& parent = m_open[m_open.size() - 2];
    const Trait& trait = traitOf(frame.element);
    if (frame.children < trait.minChildren) {
        fail(Kind::Malformed, "<" + std::string(trait.tag) + "> without " + std::string(trait.wanted));
    }
    switch (frame.element) {
    case Element::MethodName:
        call.method = scalars::trimmed(frame.text);
        if (call.method.empty()) {
            fail(Kind::Malformed, "<methodName> is empty; it must name a method");
        }
        break;
    case Element::Params:
        if (m_root == Element::MethodResponse && frame.children != 1) {
            fail(Kind::Malformed, "a response has exactly one <param>");
        }
        break;
    case Element::Fault:
        endedFault(frame);
        break;
    case Element::AnyValue:
        endedValue(frame, parent);
        break;
    case Element::Data:
    case Element::Array:
    case Element::Structure:
        parent.value = std::move(frame.value);
        break;
    case Element::Name:
        parent.memberName = std::move(frame.text);
        break;
    case Element::Member:
        endedMember(frame, parent);
        break;
    case Element::Document:
    case Element::MethodCall:
    case Element::MethodResponse:
    case Element::Param:
        break;
    default:
        parent.value = scalarOf(frame);
        break;
    }
    m_open.pop_back();
}

void DocumentReader::endedValue(Frame& frame, Frame& parent)
{
    --m_depth;
    if (frame.children == 0) {
        frame.value = std::move(frame.text);
    }
    deliverValue(frame, parent);
}

void DocumentReader::deliverValue(Frame& frame, Frame& parent)
{
    if (parent.element == Element::Data) {
        parent.value.push_back(std::move(frame.value));
    } else if (parent.element == Element::Param && m_root == Element::MethodCall) {
        call.params.push_back(std::move(frame.value));
    } else if (parent.element == Element::Param) {
        response.value = std::move(frame.value);
    } else {
        parent.value = std::move(frame.value);
    }
}

void DocumentReader::endedMember(Frame& frame, Frame& parent)
{
    if (!isNew(frame.memberName, parent)) {
        fail(Kind::DoubledMember,
             "the member \"" + forMessage(frame.memberName) + "\" stands twice in one struct");
    }
    parent.value.get_ref<Value::object_t&>().emplace_back(std::move(frame.memberName),
                                                          std::move(frame.value));
}

/// Whether the struct has no member of this name yet. Looking it up in the object takes as long as the object
/// has members, so the names of many are kept in a set.
bool DocumentReader::isNew(const std::string& name, Frame& structure)
{
    constexpr std::size_t few = 16;
    const auto& members = structure.value.get_ref<const Value::object_t&>();
    if (members.size() < few) {
        return std::ranges::find(members, name, &Value::object_t::value_type::first) == members.end();
    }
    if (!structure.memberNames) {
        structure.memberNames = std::make_unique<std::unordered_set<std::string>>();
        for (const auto& [known, value] : members) {
            structure.memberNames->insert(known);
        }
    }
    return structure.memberNames->insert(name).second;
}

Value DocumentReader::scalarOf(Frame& frame) const
{
    const std::string_view text = scalars::trimmed(frame.text);
    const auto badValue = [&](const std::string& wanted) {
        fail(Kind::BadValue,
             "the text of <" + std::string(traitOf(frame.element).tag) + "> is not " + wanted);
    };
    switch (frame.element) {
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
            fail(Kind::NotFinite, "the text of <double> is not a finite number that a double can hold");
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
        return std::move(frame.text);
    }
}

void DocumentReader::endedFault(const Frame& frame)
{
    const Value& value = frame.value;
    const bool shaped = value.is_object() && value.size() == 2 && value.contains("faultCode") &&
                        value.contains("faultString") && value["faultCode"].is_number_integer() &&
                        value["faultString"].is_string();
    if (!shaped) {
        fail(Kind::Malformed, "a fault is a struct of an integer faultCode and a string faultString");
    }
    const auto code = value["faultCode"].get<std::int64_t>();
    if (code < INT_MIN || code > INT_MAX) {
        fail(Kind::BadValue, "the faultCode is not a number of 32 bits");
    }
    response.fault = Fault{static_cast<int>(code), value["faultString"].get<std::string>()};
}

std::size_t DocumentReader::line() const
{
    return m_parser == nullptr ? 1 : static_cast<std::size_t>(XML_GetCurrentLineNumber(m_parser));
}

void DocumentReader::fail(XmlRpcError::Kind kind, const std::string& text) const
{
    throw XmlRpcError(kind, line(), text);
}

void DocumentReader::failUnexpected(Element parent, std::string_view tag) const
{
    const std::string found = "<" + forMessage(tag) + ">";
    if (parent == Element::Document) {
        fail(Kind::Malformed, found + " is the root; it must be <" + std::string(traitOf(m_root).tag) + ">");
    }
    const std::string accepted = acceptedIn(parent);
    fail(Kind::Malformed, found + " cannot stand in <" + std::string(traitOf(parent).tag) + ">" +
                              (accepted.empty() ? "; only text can" : "; accepted: " + accepted));
}

} // namespace zyr_gateway
