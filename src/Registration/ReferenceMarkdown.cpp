#include "CommandEntry.h"
#include "Conversion.h"
#include "MethodParts.h"
#include "Reference.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <iterator>
#include <map>
#include <utility>

namespace zyr_registration
{

namespace
{

// A text that Markdown shows as it is, inside a table too.
std::string escaped(std::string_view text)
{
    std::string shown;
    for (const char c : text) {
        if (std::string_view("|<>*_`\\[]").find(c) != std::string_view::npos) {
            shown += '\\';
        }
        shown += c;
    }
    return shown;
}

// A link to the section of a name: its anchor is the name in small letters, letters and digits only.
std::string linkTo(std::string_view name)
{
    std::string anchor;
    for (const char c : name) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
            anchor += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
    }
    return "[" + std::string(name) + "](#" + anchor + ")";
}

std::string hexadecimal(std::uint32_t number)
{
    std::array<char, 11> digits{};
    std::snprintf(digits.data(), digits.size(), "0x%X", static_cast<unsigned>(number));
    return digits.data();
}

std::string presenceText(const Field& field, const void* defaults)
{
    if (field.isRequired()) {
        return "yes";
    }
    if (!field.notes.hasDefault || defaults == nullptr) {
        return "no";
    }
    return "no, else " + defaultOf(field, defaults).dump();
}

// "array string" as a sentence.
std::string signatureText(std::string_view signature)
{
    const std::size_t blank = signature.find(' ');
    const std::string parameters(blank == std::string_view::npos ? "nothing" : signature.substr(blank + 1));
    return "Takes " + parameters + ", gives " + std::string(signature.substr(0, blank)) + ".";
}

// The reference as it is written. Vocabularies with a name have a section of their own behind the methods, to
// which the fields are linked.
class Page
{
  public:
    void writeMethod(const MethodNotes& method)
    {
        const auto defaults = defaultRequest(method);
        m_text += "## " + std::string(method.name) + "\n\n" + escaped(method.help) + "\n\n" +
                  escaped(methodText(method)) + "\n\n";
        writeFields(
            "Request",
            {.fields = method.request, .isRequest = true, .numberOfChannels = 0, .defaults = defaults.get()});
        writeFields("Response", {.fields = method.response, .isRequest = false, .numberOfChannels = 0});
        writeFaults(faultsOf(method));
    }

    void writeMethod(const PlainMethodNotes& method)
    {
        m_text += "## " + std::string(method.name) + "\n\n" + escaped(method.help) + "\n\n";
        for (const std::string_view signature : method.signatures) {
            m_text += signature.empty() ? "" : signatureText(signature) + "\n";
        }
        m_text += '\n';
    }

    void writeVocabularies()
    {
        m_text += "## Vocabularies\n\n";
        for (const auto& [name, rows] : m_vocabularies) {
            m_text += "### " + std::string(name) + "\n\n| Number | Text |\n|---|---|\n";
            for (const EnumText& row : rows) {
                m_text += "| " + std::to_string(row.number) + " | " + escaped(row.text) + " |\n";
            }
            m_text += '\n';
        }
    }

    void write(std::string_view text) { m_text += text; }

    // The text without the last blank line.
    std::string finish()
    {
        m_text.pop_back();
        return std::move(m_text);
    }

  private:
    // What a value of the type can be, or what a request may give for it.
    std::string typeText(const ValueType& type, const FieldNotes& notes)
    {
        const Texts texts = textsOf(type, notes);
        if (texts == nullptr || texts().name.empty()) {
            return escaped(acceptedText(type, notes, 0));
        }
        m_vocabularies.insert({texts().name, texts().rows});
        ValueType withoutTexts = type;
        withoutTexts.texts = nullptr;
        FieldNotes otherNotes = notes;
        otherNotes.texts = nullptr;
        const std::string any = escaped(acceptedText(withoutTexts, otherNotes, 0));
        const std::string link = "one of " + linkTo(texts().name);
        return type.kind == Kind::String ? any + ", " + link : link + ", or " + any;
    }

    std::string typeText(const Field& field)
    {
        const ValueType& type = field.valueType();
        return type.kind == Kind::Array ? "an array, each element " + typeText(*type.element, field.notes)
                                        : typeText(type, field.notes);
    }

    void writeFieldRows(const std::string& path, const FieldList& list)
    {
        for (const Field& field : list.fields) {
            const std::string name = path + std::string(field.name);
            const bool mayBeAbsent = !list.isRequest && field.type->kind == Kind::Optional;
            m_text.append("| `").append(name).append("` | ");
            m_text.append(typeText(field)).append(mayBeAbsent ? ", or absent | " : " | ");
            m_text.append(escaped(unitOf(field, list.holdersUnit))).append(" | ");
            m_text.append(list.isRequest ? escaped(presenceText(field, list.defaults)) + " | " : "");
            m_text.append(escaped(fullHelp(field))).append(" |\n");
            const bool isArray = field.valueType().kind == Kind::Array;
            const ValueType& inner = isArray ? *field.valueType().element : field.valueType();
            const std::shared_ptr<void> defaults = inner.make == nullptr ? nullptr : inner.make();
            writeFieldRows(name + (isArray ? "[]." : "."), {.fields = inner.fields,
                                                            .isRequest = list.isRequest,
                                                            .numberOfChannels = list.numberOfChannels,
                                                            .defaults = defaults.get(),
                                                            .holdersUnit = unitOf(field, list.holdersUnit)});
        }
    }

    void writeFields(std::string_view title, const FieldList& list)
    {
        if (list.fields.empty()) {
            m_text += std::string(title) + ": no fields.\n\n";
            return;
        }
        m_text += std::string(title) + ":\n\n";
        m_text += list.isRequest ? "| Field | Takes | Unit | Required | Meaning |\n|---|---|---|---|---|\n"
                                 : "| Field | Holds | Unit | Meaning |\n|---|---|---|---|\n";
        writeFieldRows({}, list);
        m_text += '\n';
    }

    void writeFaults(const std::vector<FaultNote>& faults)
    {
        if (faults.empty()) {
            return;
        }
        m_text += "Faults:\n\n| Code | Result | Text | Meaning |\n|---|---|---|---|\n";
        for (const FaultNote& fault : faults) {
            m_text += "| " + std::to_string(faultCodeOf(fault)) + " | `" +
                      std::string(zyr_top_api::etiResultToString(fault.result)) + "` | " +
                      escaped(fault.text) + " | " + escaped(fault.meaning) + " |\n";
        }
        m_text += '\n';
    }

    std::string m_text;
    std::map<std::string_view, std::span<const EnumText>> m_vocabularies;
};

constexpr std::string_view kIntroduction =
    "# Commands\n\n"
    "Generated from the command list of the node by `zyrnode --print-reference`; not to be edited by hand. "
    "`zyrnode --print-schema` gives the same requests and responses as JSON Schema, `zyr.describe` gives "
    "them to programs.\n\n"
    "Each command is an XML-RPC method with one struct parameter of the request's fields; a command without "
    "fields takes no parameter or an empty struct. The answer is a struct of `tiResult` and the response's "
    "fields, or a fault. An enumeration travels as its number; a request may give the text instead, as it "
    "stands in the [vocabularies](#vocabularies). The time within which a command answers counts from its "
    "start: dispatched commands run one at a time.\n\n"
    "The server checks a request before the command sees it: members that are missing or unknown, types, and "
    "ranges. A radio channel that the node doesn't have is refused there, with `eTI_E_PARAMETER_INVALID` and "
    "code 3; the fault that a command has for it shows where a program calls the library itself.\n\n";

constexpr std::string_view kFaultCodes =
    "## Fault codes\n\n"
    "| Code | Results | What went wrong |\n"
    "|---|---|---|\n"
    "| 1 | from 0xA200 | there is no such method |\n"
    "| 2 | 0xA100 to 0xA1FF | the request is malformed or lacks a member, or an argument is out of bounds |\n"
    "| 3 | 0xA000 to 0xA0FF | a member has the wrong type or a value that it can't have |\n"
    "| 4 | 0x8000 to 0x9FFF | the command failed, or isn't allowed now |\n\n"
    "The results that are failures:\n\n"
    "| Code | Number | Result |\n"
    "|---|---|---|\n";

// All results with a name that are failures.
std::string failureRows()
{
    constexpr std::uint32_t first = 0x8000;
    constexpr std::uint32_t end = 0xB000;
    std::string rows;
    for (std::uint32_t number = first; number < end; ++number) {
        const FaultNote fault{static_cast<zyr_top_api::ETIResult>(number), {}, {}};
        const std::string_view name = zyr_top_api::etiResultToString(fault.result);
        if (name != "Unknown") {
            rows += "| " + std::to_string(faultCodeOf(fault)) + " | " + hexadecimal(number) + " | `" +
                    std::string(name) + "` |\n";
        }
    }
    return rows;
}

// The groups with their methods.
std::string groupTable(std::span<const MethodNotes> methods, std::span<const PlainMethodNotes> plainMethods)
{
    std::map<Group, std::string> rows;
    for (const MethodNotes& method : methods) {
        std::string& row = rows[method.group];
        row += (row.empty() ? "" : ", ") + linkTo(method.name);
    }
    std::string table = "| Group | Methods |\n|---|---|\n";
    for (const auto& [group, links] : rows) {
        table += "| " + std::string(groupName(group)) + " | " + links + " |\n";
    }
    std::string links;
    for (const PlainMethodNotes& method : plainMethods) {
        links += (links.empty() ? "" : ", ") + linkTo(method.name);
    }
    return table + (links.empty() ? "" : "| server | " + links + " |\n");
}

} // namespace

std::string referenceMarkdown(std::span<const MethodNotes> otherMethods,
                              std::span<const PlainMethodNotes> plainMethods)
{
    std::vector<MethodNotes> methods;
    std::ranges::transform(allCommands(), std::back_inserter(methods), &CommandEntry::notes);
    methods.insert(methods.end(), otherMethods.begin(), otherMethods.end());

    Page page;
    page.write(kIntroduction);
    page.write(groupTable(methods, plainMethods) + "\n");
    page.write(kFaultCodes);
    page.write(failureRows() + "\n");
    for (const MethodNotes& method : methods) {
        page.writeMethod(method);
    }
    for (const PlainMethodNotes& method : plainMethods) {
        page.writeMethod(method);
    }
    page.writeVocabularies();
    return page.finish();
}

} // namespace zyr_registration
