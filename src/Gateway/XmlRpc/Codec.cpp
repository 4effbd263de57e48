#include "Codec.h"

#include "DocumentReader.h"

#include <cstdint>
#include <utility>

namespace zyr_gateway
{

namespace
{

constexpr std::string_view kDeclaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";
// Room for the answer of a small command. The allocator keeps memory up to this size at hand.
constexpr std::size_t kUsualLength = 1024;

} // namespace

MethodCall parseMethodCall(std::string_view xml)
{
    return DocumentReader(xml).call();
}

MethodResponse parseMethodResponse(std::string_view xml)
{
    return DocumentReader(xml).response();
}

std::string writeMethodCall(const MethodCall& call)
{
    std::string out(kDeclaration);
    out += "<methodCall><methodName>";
    writeText(out, call.method);
    out += "</methodName><params>";
    for (const Value& param : call.params) {
        out += "<param>";
        ValueWriter(out).value(param);
        out += "</param>";
    }
    out += "</params></methodCall>";
    return out;
}

ResponseDocument::ResponseDocument(std::size_t limit) : m_writer(m_document, limit)
{
    m_document.reserve(kUsualLength);
    m_document.append(kDeclaration).append("<methodResponse><params><param>");
}

std::string ResponseDocument::finish()
{
    m_writer.requireShort();
    m_document += "</param></params></methodResponse>";
    return std::move(m_document);
}

std::string writeResponse(const Value& value, std::size_t limit)
{
    ResponseDocument document(limit);
    document.writer().value(value);
    return document.finish();
}

std::string writeFault(int code, std::string_view text)
{
    std::string out(kDeclaration);
    out += "<methodResponse><fault>";
    ValueWriter writer(out);
    writer.beginStruct();
    writer.beginMember("faultCode");
    writer.integer(std::int64_t{code});
    writer.endMember();
    writer.beginMember("faultString");
    writer.text(text);
    writer.endMember();
    writer.endStruct();
    out += "</fault></methodResponse>";
    return out;
}

} // namespace zyr_gateway
