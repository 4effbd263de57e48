// Feeds documents to the readers of calls and responses. What is accepted must be written and read again
// without a change; what is not must be refused with the one kind of error that callers know.
//
// With clang: clang++ -fsanitize=fuzzer,address. Without: -DSTANDALONE, then
//     XmlRpcFuzz COUNT [SEED [FILE...]]
// reads the files as they are and COUNT random mutations of them and of the built-in samples.

#include "Codec.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace zyr_gateway;

namespace
{

void require(bool holds, const char* property, std::string_view document)
{
    if (!holds) {
        std::fprintf(stderr, "broken: %s, with the document:\n%.*s\n", property,
                     static_cast<int>(document.size()), document.data());
        std::abort();
    }
}

/// The value as it comes out of a document that is written of it: what is only read, base64 and dates, is
/// left out.
Value carriable(const Value& value)
{
    if (value.is_binary()) {
        return nullptr;
    }
    if (value.is_string()) {
        return carriableText(value.get_ref<const std::string&>());
    }
    Value copy = value;
    if (value.is_array()) {
        for (Value& element : copy) {
            element = carriable(element);
        }
    } else if (value.is_object()) {
        for (auto& [name, member] : copy.get_ref<Value::object_t&>()) {
            member = carriable(member);
        }
    }
    return copy;
}

void checkCall(std::string_view document)
{
    MethodCall call;
    try {
        call = parseMethodCall(document);
    } catch (const XmlRpcError&) {
        return;
    }
    MethodCall expected = call;
    for (Value& param : expected.params) {
        param = carriable(param);
    }
    require(parseMethodCall(writeMethodCall(call)) == expected, "a call reads back the same", document);
}

void checkResponse(std::string_view document)
{
    MethodResponse response;
    try {
        response = parseMethodResponse(document);
    } catch (const XmlRpcError&) {
        return;
    }
    const std::string written = response.fault ? writeFault(response.fault->code, response.fault->text)
                                               : writeResponse(response.value);
    MethodResponse expected = response;
    expected.value = carriable(expected.value);
    if (expected.fault) {
        expected.fault->text = carriableText(expected.fault->text);
    }
    require(parseMethodResponse(written) == expected, "a response reads back the same", document);
}

} // namespace

extern "C" int llvmFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view document(reinterpret_cast<const char*>(data), size);
    checkCall(document);
    checkResponse(document);
    return 0;
}

#ifdef STANDALONE

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

namespace
{

/// Pieces that a mutation puts in; between them they reach every rule of the grammar.
const std::vector<std::string> kPieces{"<methodCall>",
                                       "</methodCall>",
                                       "<methodName>",
                                       "</methodName>",
                                       "<params>",
                                       "</params>",
                                       "<param>",
                                       "</param>",
                                       "<value>",
                                       "</value>",
                                       "<value/>",
                                       "<int>",
                                       "</int>",
                                       "<i8>",
                                       "</i8>",
                                       "<double>",
                                       "</double>",
                                       "<boolean>",
                                       "</boolean>",
                                       "<string>",
                                       "</string>",
                                       "<base64>",
                                       "</base64>",
                                       "<nil/>",
                                       "<ex:nil/>",
                                       "<array><data>",
                                       "</data></array>",
                                       "<struct>",
                                       "</struct>",
                                       "<member>",
                                       "</member>",
                                       "<name>",
                                       "</name>",
                                       "<methodResponse>",
                                       "</methodResponse>",
                                       "<fault>",
                                       "</fault>",
                                       "<!DOCTYPE x>",
                                       "<![CDATA[",
                                       "]]>",
                                       "<?xml version='1.0' encoding='UTF-16'?>",
                                       "&#13;",
                                       "&#x10FFFF;",
                                       "&amp;",
                                       "&x;",
                                       "nan",
                                       "1e999",
                                       "-0",
                                       "9223372036854775808",
                                       "-9223372036854775808",
                                       "1e-320",
                                       "\xC3\xA4",
                                       "\xFF",
                                       "\xED\xA0\x80",
                                       "AP+A",
                                       "=="};

const std::vector<std::string> kSamples{
    "<?xml version='1.0'?><methodCall><methodName>CRI.SetRFPower</methodName><params><param><value><struct>"
    "<member><name>channelId</name><value><int>1</int></value></member><member><name>power</name><value>"
    "<double>-1.5e2</double></value></member><member><name>list</name><value><array><data><value>a</value>"
    "<value><nil/></value><value><boolean>1</boolean></value></data></array></value></member></struct></"
    "value>"
    "</param></params></methodCall>",
    "<methodCall><methodName>m</methodName><params><param><value><i8>9007199254740993</i8></value></param>"
    "<param><value><base64>AP+A</base64></value></param><param><value> x&#13;\n</value></param></params>"
    "</methodCall>",
    "<methodResponse><params><param><value><struct><member><name>tiResult</name><value><i4>0</i4></value>"
    "</member></struct></value></param></params></methodResponse>",
    "<methodResponse><fault><value><struct><member><name>faultCode</name><value><int>4</int></value></member>"
    "<member><name>faultString</name><value><string>why</string></value></member></struct></value></fault>"
    "</methodResponse>"};

std::size_t below(std::mt19937_64& random, std::size_t limit)
{
    return limit == 0 ? 0 : static_cast<std::size_t>(random() % limit);
}

void mutate(std::string& document, std::mt19937_64& random)
{
    const std::size_t at = below(random, document.size() + 1);
    const std::size_t length = below(random, 24);
    switch (random() % 5) {
    case 0:
        document.insert(at, kPieces[below(random, kPieces.size())]);
        break;
    case 1:
        document.erase(at, length);
        break;
    case 2:
        document.replace(at, std::min<std::size_t>(1, document.size() - at), 1,
                         static_cast<char>(random() % 256));
        break;
    case 3:
        document.insert(below(random, document.size() + 1), std::string(document, at, length * 4));
        break;
    default:
        document.replace(at, std::min(length, document.size() - at), kPieces[below(random, kPieces.size())]);
    }
}

void run(const std::string& document)
{
    llvmFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(document.data()), document.size());
}

std::string contentOf(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "cannot read %s\n", path);
        std::exit(2);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s COUNT [SEED [FILE...]]\n", argv[0]);
        return 2;
    }
    const unsigned long count = std::strtoul(argv[1], nullptr, 10);
    const unsigned long seed = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1;
    std::vector<std::string> documents = kSamples;
    for (int i = 3; i < argc; ++i) {
        documents.push_back(contentOf(argv[i]));
    }
    for (const std::string& document : documents) {
        run(document);
    }
    std::mt19937_64 random(seed);
    for (unsigned long i = 0; i < count; ++i) {
        std::string document = documents[below(random, documents.size())];
        for (std::size_t rounds = 1 + below(random, 6); rounds > 0; --rounds) {
            mutate(document, random);
        }
        run(document);
    }
    std::printf("%zu documents and %lu mutations with seed %lu: no property broken\n", documents.size(),
                count, seed);
    return 0;
}

#endif
