#include "Codec.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace zyr_gateway;

namespace
{

/// A call document round one parameter.
std::string callWith(const std::string& value)
{
    return "<methodCall><methodName>m</methodName><params><param>" + value + "</param></params></methodCall>";
}

Value parameter(const std::string& value)
{
    const MethodCall call = parseMethodCall(callWith(value));
    EXPECT_EQ(call.params.size(), 1U);
    return call.params.at(0);
}

/// The kind and the text of the error that the document gives.
std::pair<XmlRpcError::Kind, std::string> refusalOf(const std::string& xml)
{
    try {
        (void)parseMethodCall(xml);
    } catch (const XmlRpcError& error) {
        return {error.kind(), error.what()};
    }
    ADD_FAILURE() << "accepted: " << xml;
    return {XmlRpcError::Kind::Malformed, ""};
}

XmlRpcError::Kind kindOf(const std::string& value)
{
    return refusalOf(callWith(value)).first;
}

std::string textOf(const std::string& value)
{
    return refusalOf(callWith(value)).second;
}

/// What is written between the tags of the only parameter.
std::string written(const Value& value)
{
    const std::string xml = writeResponse(value);
    const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><methodResponse><params><param>";
    const std::string tail = "</param></params></methodResponse>";
    EXPECT_TRUE(xml.starts_with(head)) << xml;
    EXPECT_TRUE(xml.ends_with(tail)) << xml;
    return xml.substr(head.size(), xml.size() - head.size() - tail.size());
}

std::string nestedArrays(std::size_t count)
{
    std::string open;
    std::string close;
    for (std::size_t i = 0; i < count; ++i) {
        open += "<value><array><data>";
        close += "</data></array></value>";
    }
    return open + close;
}

} // namespace

TEST(XmlRpcCodecTest, CallGivesMethodAndParametersInOrder)
{
    const MethodCall call = parseMethodCall("<?xml version='1.0'?>\n<methodCall>\n"
                                            " <methodName> CRI.SetRFPower </methodName>\n <params>\n"
                                            "  <param><value><int>1</int></value></param>\n"
                                            "  <param>\n<value>\n<string>a</string>\n</value>\n</param>\n"
                                            " </params>\n</methodCall>\n");
    EXPECT_EQ(call.method, "CRI.SetRFPower");
    EXPECT_EQ(call.params, (std::vector<Value>{1, "a"}));
}

TEST(XmlRpcCodecTest, AllWhiteSpaceMayStandBetweenElements)
{
    const MethodCall call = parseMethodCall("<methodCall>\r\n\t<methodName>m</methodName>&#13;<params>&#9; "
                                            "<param>&#10;<value>\r<int>1</int>&#13;</value></param></params>"
                                            "</methodCall>");
    EXPECT_EQ(call.params, (std::vector<Value>{1}));
}

TEST(XmlRpcCodecTest, CallMayHaveNoParameters)
{
    EXPECT_TRUE(parseMethodCall("<methodCall><methodName>m</methodName></methodCall>").params.empty());
    EXPECT_TRUE(
        parseMethodCall("<methodCall><methodName>m</methodName><params/></methodCall>").params.empty());
}

TEST(XmlRpcCodecTest, EveryIntegerElementTakesAny64BitText)
{
    for (const std::string tag : {"int", "i1", "i2", "i4", "i8", "ex:i8"}) {
        const auto number = [&](const std::string& text) {
            return parameter("<value><" + tag + ">" + text + "</" + tag + "></value>");
        };
        EXPECT_EQ(number("-9223372036854775808").get<std::int64_t>(), INT64_MIN) << tag;
        EXPECT_EQ(number("9223372036854775807").get<std::int64_t>(), INT64_MAX) << tag;
        EXPECT_EQ(number("4294967295").get<std::int64_t>(), 4294967295) << tag;
        EXPECT_EQ(number("+7").get<std::int64_t>(), 7) << tag;
        EXPECT_EQ(number(" \r\n\t007 ").get<std::int64_t>(), 7) << tag;
        EXPECT_TRUE(number("1").is_number_integer()) << tag;
    }
}

TEST(XmlRpcCodecTest, WrongIntegerTextIsRefusedWithTheRange)
{
    for (const std::string text : {"", "x", "1x", "1.0", "1e3", "+-1", "--1", "+", "0x10", "1 2",
                                   "9223372036854775808", "-9223372036854775809"}) {
        EXPECT_EQ(kindOf("<value><i8>" + text + "</i8></value>"), XmlRpcError::Kind::BadValue) << text;
    }
    EXPECT_EQ(textOf("\n<value><i8>x</i8></value>"),
              "line 2: the text of <int> is not a whole number from -9223372036854775808 to "
              "9223372036854775807");
}

TEST(XmlRpcCodecTest, BooleanIsZeroOrOne)
{
    EXPECT_EQ(parameter("<value><boolean>1</boolean></value>"), Value(true));
    EXPECT_EQ(parameter("<value><boolean> 0\n</boolean></value>"), Value(false));
    EXPECT_EQ(textOf("<value><boolean>true</boolean></value>"),
              "line 1: the text of <boolean> is not 0 or 1");
}

TEST(XmlRpcCodecTest, DoubleTakesDecimalTexts)
{
    EXPECT_EQ(parameter("<value><double> -12.5\n</double></value>"), Value(-12.5));
    EXPECT_EQ(parameter("<value><double>+1.5e3</double></value>"), Value(1500.0));
    EXPECT_EQ(parameter("<value><double>.5</double></value>"), Value(0.5));
    EXPECT_TRUE(parameter("<value><double>5</double></value>").is_number_float());
}

TEST(XmlRpcCodecTest, NotFiniteDoublesAreRefused)
{
    for (const std::string text : {"nan", "NaN", "inf", "-inf", "Infinity", "+inf", "1e999", "-1e999"}) {
        EXPECT_EQ(kindOf("<value><double>" + text + "</double></value>"), XmlRpcError::Kind::NotFinite)
            << text;
    }
    EXPECT_EQ(textOf("<value><double>nan</double></value>"),
              "line 1: the text of <double> is not a finite number that a double can hold");
}

TEST(XmlRpcCodecTest, WrongDoubleTextIsRefused)
{
    for (const std::string text : {"", "x", "1,5", "1.5x", "0x1p3", "+-1"}) {
        EXPECT_EQ(kindOf("<value><double>" + text + "</double></value>"), XmlRpcError::Kind::BadValue)
            << text;
    }
}

TEST(XmlRpcCodecTest, StringKeepsItsWhiteSpace)
{
    EXPECT_EQ(parameter("<value><string> a\tb \n</string></value>"), Value(" a\tb \n"));
    EXPECT_EQ(parameter("<value><string/></value>"), Value(""));
}

TEST(XmlRpcCodecTest, BareValueIsAString)
{
    EXPECT_EQ(parameter("<value>12</value>"), Value("12"));
    EXPECT_EQ(parameter("<value/>"), Value(""));
    EXPECT_EQ(parameter("<value> a </value>"), Value(" a "));
}

TEST(XmlRpcCodecTest, EntitiesCharacterReferencesAndCdataAreText)
{
    EXPECT_EQ(parameter("<value>&lt;&amp;&gt;&quot;&apos;&#65;&#xe4;<![CDATA[<x>]]></value>"),
              Value("<&>\"'A\xC3\xA4<x>"));
    EXPECT_EQ(parameter("<value>a&#13;b</value>"), Value("a\rb"));
    EXPECT_EQ(parameter("<value>&#127;&#x80;&#x7FF;&#x800;&#xFFFD;&#x10000;&#x10FFFF;</value>"),
              Value("\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"));
    EXPECT_EQ(parameter("<value><![CDATA[&amp;&no;]]>&amp;amp;]</value>"), Value("&amp;&no;&amp;]"));
    EXPECT_EQ(parseMethodCall("<methodCall><methodName>a&#46;b</methodName></methodCall>").method, "a.b");
    EXPECT_EQ(parameter("<value><struct><member><name>a&lt;</name><value/></member></struct></value>").dump(),
              R"({"a<":""})");
}

TEST(XmlRpcCodecTest, WrongReferenceIsRefused)
{
    for (const std::string bad :
         {"&",        "&;",       "& ;",        "&amp",          "&AMP;",
          "&nbsp;",   "&amp ;",   "&a65;",      "&#;",           "&#x;",
          "&#X41;",   "&#+65;",   "&#-65;",     "&# 65;",        "&#65a;",
          "&#x4G;",   "&#0;",     "&#8;",       "&#xB;",         "&#xD800;",
          "&#xDFFF;", "&#xFFFE;", "&#x110000;", "&#4294967361;", "&#18446744073709551681;"}) {
        const auto [kind, text] = refusalOf(callWith("<value>\n" + bad + "</value>"));
        EXPECT_EQ(kind, XmlRpcError::Kind::Malformed) << bad;
        EXPECT_EQ(text,
                  "line 1: & that begins neither &amp;, &lt;, &gt;, &quot; or &apos; nor the number of a "
                  "character that XML has")
            << bad;
    }
}

TEST(XmlRpcCodecTest, WhatCannotBeMisreadIsLetPass)
{
    EXPECT_EQ(parameter("<value a='<' b='&no;'><int a='1' a='2'>7</int></value>"), Value(7));
    EXPECT_EQ(parameter("<value>a]]>b</value>"), Value("a]]>b"));
    EXPECT_EQ(parameter("<value><!-- a -- b --><?pi<>?>7</value>").dump(), R"("7")");
    EXPECT_EQ(parseMethodCall("<?xml ?><methodCall><methodName>m</methodName></methodCall>").method, "m");
}

TEST(XmlRpcCodecTest, LineEndsAreLineFeeds)
{
    EXPECT_EQ(parameter("<value>a\r\nb\rc\n<![CDATA[d\r\n\re]]></value>"), Value("a\nb\nc\nd\n\ne"));
}

TEST(XmlRpcCodecTest, CommentsAndProcessingInstructionsAreIgnored)
{
    EXPECT_EQ(parameter("<value><!-- x --><int>1<!-- y -->2<?pi?></int></value>"), Value(12));
    EXPECT_EQ(parameter("<value> <!-- x --> a<!-- y --> </value>"), Value("  a "));
    EXPECT_EQ(parameter("<value> <?pi?> </value>"), Value("  "));
    EXPECT_EQ(parameter("<value>a<?pi?> </value>"), Value("a "));
    EXPECT_EQ(parseMethodCall("<?xml version='1.0'?>" + callWith("<value>a<?pi?> </value>")).params.at(0),
              Value("a "));
    EXPECT_EQ(parameter("<value>a<![CDATA[b]]> </value>"), Value("ab "));
    EXPECT_EQ(parameter("<value> </value>"), Value(" "));
    EXPECT_EQ(parameter("<value><string>\n</string></value>"), Value("\n"));
}

/// A binary value of the text's bytes.
Value binary(const std::string& text)
{
    return Value::binary({text.begin(), text.end()});
}

TEST(XmlRpcCodecTest, DateIsItsTextUnderItsSubtype)
{
    const std::string text = "20240102T03:04:05";
    EXPECT_EQ(parameter("<value><dateTime.iso8601> " + text + " </dateTime.iso8601></value>"),
              Value::binary({text.begin(), text.end()}, 1));
}

TEST(XmlRpcCodecTest, Base64IsItsBytesAndNoString)
{
    EXPECT_EQ(parameter("<value><base64> TW\nFu TWE= </base64></value>"), binary("ManMa"));
    EXPECT_EQ(parameter("<value><base64>AP+A</base64></value>"), binary(std::string("\0\xFF\x80", 3)));
    EXPECT_EQ(parameter("<value><base64/></value>"), binary(""));
    for (const std::string text : {"TWF", "TWFu=", "TW=u", "T===", "====", "TWF*"}) {
        EXPECT_EQ(kindOf("<value><base64>" + text + "</base64></value>"), XmlRpcError::Kind::BadValue)
            << text;
    }
}

TEST(XmlRpcCodecTest, AnswerThatIsTooLongIsNotWritten)
{
    const Value value = std::string(10, 'x');
    const std::string whole = writeResponse(value);
    const std::size_t size = whole.find("</param>"); // what follows does not count
    EXPECT_EQ(writeResponse(value, size), whole);
    EXPECT_THROW((void)writeResponse(value, size - 1), DocumentTooLong);
    EXPECT_THROW((void)writeResponse(Value::array({value, value, value}), 150), DocumentTooLong);
}

TEST(XmlRpcCodecTest, ValueThatIsWrittenPieceByPieceIsTheSameDocument)
{
    ResponseDocument document;
    ValueWriter& writer = document.writer();
    writer.beginArray();
    writer.value(1);
    writer.beginStruct();
    writer.beginMember("a<b");
    writer.text("c&d");
    writer.endMember();
    writer.beginMember("numbers");
    writer.beginArray();
    writer.integer(std::int64_t{-2147483649});
    writer.integer(std::uint64_t{18446744073709551615U});
    writer.real(0.5);
    writer.endArray();
    writer.endMember();
    writer.endStruct();
    writer.boolean(true);
    writer.nil();
    writer.endArray();
    EXPECT_EQ(document.finish(), writeResponse(Value::parse(R"([1, {"a<b": "c&d", "numbers": [-2147483649, )"
                                                            R"(18446744073709551615, 0.5]}, true, null])")));
}

TEST(XmlRpcCodecTest, DocumentThatIsWrittenPieceByPieceHasItsLimits)
{
    ResponseDocument shortOne(200);
    shortOne.writer().beginArray();
    shortOne.writer().text("x");
    shortOne.writer().text(std::string(100, 'y'));
    EXPECT_THROW(shortOne.writer().requireShort(), DocumentTooLong);
    EXPECT_THROW(shortOne.writer().nil(), DocumentTooLong);

    Value deep = 1;
    for (int depth = 2; depth < 32; ++depth) {
        deep = Value::array({deep});
    }
    ResponseDocument deepOne;
    deepOne.writer().beginArray();
    EXPECT_NO_THROW(deepOne.writer().value(deep));
    EXPECT_THROW(deepOne.writer().value(Value::array({deep})), std::invalid_argument);
}

TEST(XmlRpcCodecTest, WhatHasBeenWrittenCanBeTakenBack)
{
    ResponseDocument document;
    document.writer().beginArray();
    document.writer().value("kept");
    const ValueWriter::Mark mark = document.writer().mark();
    document.writer().beginStruct();
    document.writer().beginMember("taken back");
    document.writer().goBackTo(mark);
    document.writer().endArray();
    EXPECT_EQ(document.finish(), writeResponse(Value::array({"kept"})));
}

TEST(XmlRpcCodecTest, ThreadThatReadsManyDocumentsReadsEachForItself)
{
    for (const std::string bad : {"<methodCall><methodName>a", "<a/>", "\xFF", ""}) {
        EXPECT_EQ(parameter("<value><int>12</int></value>"), Value(12));
        EXPECT_THROW((void)parseMethodCall(bad), XmlRpcError) << bad;
    }
    const std::string longText(100'000, 'x');
    EXPECT_EQ(parameter("<value>" + longText + "</value>"), Value(longText));
    EXPECT_EQ(parameter("<value><int>12</int></value>"), Value(12));
}

TEST(XmlRpcCodecTest, NilIsNull)
{
    EXPECT_TRUE(parameter("<value><nil/></value>").is_null());
    EXPECT_TRUE(parameter("<value> <ex:nil></ex:nil> </value>").is_null());
    EXPECT_EQ(kindOf("<value><nil>x</nil></value>"), XmlRpcError::Kind::BadValue);
}

TEST(XmlRpcCodecTest, ArrayAndStructNest)
{
    const Value value = parameter("<value><struct>"
                                  "<member><name>z</name><value><array><data>"
                                  "<value><int>1</int></value><value>s</value><value><nil/></value>"
                                  "</data></array></value></member>"
                                  "<member><name>a b</name><value><struct/></value></member>"
                                  "</struct></value>");
    EXPECT_EQ(value.dump(), R"({"z":[1,"s",null],"a b":{}})");
}

TEST(XmlRpcCodecTest, DoubledMemberIsRefusedByName)
{
    const auto [kind, text] = refusalOf(callWith("<value><struct>\n"
                                                 "<member><name>powerLevel</name><value>1</value></member>\n"
                                                 "<member><name>powerLevel</name><value>2</value></member>\n"
                                                 "</struct></value>"));
    EXPECT_EQ(kind, XmlRpcError::Kind::DoubledMember);
    EXPECT_EQ(text, "line 3: the member \"powerLevel\" stands twice in one struct");
}

TEST(XmlRpcCodecTest, OneNameMayStandInTwoStructs)
{
    EXPECT_EQ(parameter("<value><struct><member><name>a</name><value><struct><member><name>a</name>"
                        "<value>x</value></member></struct></value></member></struct></value>")
                  .dump(),
              R"({"a":{"a":"x"}})");
}

TEST(XmlRpcCodecTest, LongNameIsCutInTheMessage)
{
    const std::string member = "<member><name>" + std::string(100, 'n') + "</name><value/></member>";
    EXPECT_EQ(textOf("<value><struct>" + member + member + "</struct></value>"),
              "line 1: the member \"" + std::string(64, 'n') + "...\" stands twice in one struct");
}

TEST(XmlRpcCodecTest, DtdIsRefused)
{
    const auto [kind, text] =
        refusalOf("<?xml version='1.0'?>\n<!DOCTYPE m [<!ENTITY a \"b\">]>\n<methodCall><methodName>&a;"
                  "</methodName></methodCall>");
    EXPECT_EQ(kind, XmlRpcError::Kind::DtdRefused);
    EXPECT_EQ(text, "line 2: a document type declaration is refused; XML-RPC needs none");
}

TEST(XmlRpcCodecTest, OnlyUtf8AndAsciiAreRead)
{
    const std::string body = "<methodCall><methodName>m</methodName></methodCall>";
    for (const std::string good : {"UTF-8", "utf-8", "US-ASCII", "us-ascii"}) {
        EXPECT_EQ(parseMethodCall("<?xml version='1.0' encoding='" + good + "'?>" + body).method, "m");
    }
    EXPECT_EQ(parseMethodCall("\xEF\xBB\xBF" + body).method, "m");
    for (const std::string bad : {"ISO-8859-1", "UTF-16", "windows-1252", "x-unknown"}) {
        const auto [kind, text] = refusalOf("<?xml version='1.0' encoding='" + bad + "'?>" + body);
        EXPECT_EQ(kind, XmlRpcError::Kind::UnsupportedEncoding) << bad;
        EXPECT_EQ(text, "line 1: the encoding " + bad + " is not supported; UTF-8 and US-ASCII are");
    }
}

TEST(XmlRpcCodecTest, Utf16IsRefusedWhateverItDeclares)
{
    std::string wide;
    for (const char c : std::string("<methodCall><methodName>m</methodName></methodCall>")) {
        wide += c;
        wide += '\0';
    }
    EXPECT_EQ(refusalOf(wide).first, XmlRpcError::Kind::UnsupportedEncoding);
    EXPECT_EQ(refusalOf("\xFF\xFE" + wide).first, XmlRpcError::Kind::UnsupportedEncoding);
    EXPECT_EQ(refusalOf("\xFE\xFF" + std::string(1, '\0') + wide).first,
              XmlRpcError::Kind::UnsupportedEncoding);
}

TEST(XmlRpcCodecTest, BytesThatAreNotUtf8AreRefused)
{
    for (const std::string bad : {"\xFF", "\xC3", "\xED\xA0\x80", "\x01", "\x1F", "\xEF\xBF\xBE"}) {
        const auto [kind, text] = refusalOf(callWith("<value>\n" + bad + "</value>"));
        EXPECT_EQ(kind, XmlRpcError::Kind::Malformed) << bad;
        EXPECT_EQ(text, "line 2: a byte that is not part of UTF-8, or a character that XML does not have")
            << bad;
    }
    EXPECT_EQ(parameter("<value>\t\x7F\xC3\xA4\xF0\x9F\x93\xA1</value>"),
              Value("\t\x7F\xC3\xA4\xF0\x9F\x93\xA1"));
    EXPECT_EQ(kindOf("<value>&#1;</value>"), XmlRpcError::Kind::Malformed);
    EXPECT_EQ(kindOf(std::string("<value>\0</value>", 16)), XmlRpcError::Kind::Malformed);
    const auto [kind, text] =
        refusalOf("<?xml version='1.0' encoding='US-ASCII'?>\n<methodCall><methodName>\xC3\xA4"
                  "</methodName></methodCall>");
    EXPECT_EQ(kind, XmlRpcError::Kind::Malformed);
    EXPECT_EQ(text, "line 2: a character that US-ASCII, the encoding, does not have");
}

TEST(XmlRpcCodecTest, DepthOf32IsReadAndOf33Refused)
{
    EXPECT_NO_THROW((void)parseMethodCall(callWith(nestedArrays(32))));
    const auto [kind, text] = refusalOf(callWith(nestedArrays(33)));
    EXPECT_EQ(kind, XmlRpcError::Kind::TooDeep);
    EXPECT_EQ(text, "line 1: values are nested deeper than 32 levels");
    EXPECT_EQ(refusalOf(callWith(nestedArrays(20'000))).first, XmlRpcError::Kind::TooDeep);
}

TEST(XmlRpcCodecTest, HundredThousandValuesAreReadAndOneMoreRefused)
{
    const auto arrayOf = [](std::size_t count) {
        std::string xml = "<value><array><data>";
        for (std::size_t i = 0; i < count; ++i) {
            xml += "<value/>";
        }
        return callWith(xml + "</data></array></value>");
    };
    EXPECT_EQ(parseMethodCall(arrayOf(99'999)).params.at(0).size(), 99'999U);
    const auto [kind, text] = refusalOf(arrayOf(100'000));
    EXPECT_EQ(kind, XmlRpcError::Kind::TooManyValues);
    EXPECT_EQ(text, "line 1: there are more than 100000 values");
}

TEST(XmlRpcCodecTest, WrongStructureIsRefusedWithWhatIsAccepted)
{
    EXPECT_EQ(refusalOf("<methodResponse><params/></methodResponse>").second,
              "line 1: <methodResponse> is the root; it must be <methodCall>");
    EXPECT_EQ(refusalOf("<html/>").second, "line 1: <html> is the root; it must be <methodCall>");
    EXPECT_EQ(refusalOf("<methodCall/>").second, "line 1: <methodCall> without <methodName>");
    EXPECT_EQ(refusalOf("<methodCall><methodName> </methodName></methodCall>").second,
              "line 1: <methodName> is empty; it must name a method");
    EXPECT_EQ(refusalOf("<methodCall><params/></methodCall>").second,
              "line 1: <params> stands twice or in the wrong place in <methodCall>");
    EXPECT_EQ(refusalOf("<methodCall><methodName>m</methodName><params/><params/></methodCall>").second,
              "line 1: <params> stands twice or in the wrong place in <methodCall>");
    EXPECT_EQ(textOf("<value><array></array></value>"), "line 1: <array> without <data>");
    EXPECT_EQ(textOf("<value><struct><member><name>a</name></member></struct></value>"),
              "line 1: <member> without <name> and <value>");
    EXPECT_EQ(textOf("<value><struct><member><value/><name>a</name></member></struct></value>"),
              "line 1: <value> stands twice or in the wrong place in <member>");
    EXPECT_EQ(textOf("<value><int>1</int><int>2</int></value>"),
              "line 1: <int> stands twice or in the wrong place in <value>");
    EXPECT_EQ(textOf("<value>a<int>1</int></value>"), "line 1: text beside the elements of <value>");
    EXPECT_EQ(textOf("<value><int>1</int>a</value>"), "line 1: text beside the elements of <value>");
    EXPECT_EQ(textOf("<value><struct>a</struct></value>"), "line 1: text beside the elements of <struct>");
    EXPECT_EQ(textOf("<value><array><data><int>1</int></data></array></value>"),
              "line 1: <int> cannot stand in <data>; accepted: <value>");
    EXPECT_EQ(textOf("<value><struct><member><int>1</int></member></struct></value>"),
              "line 1: <int> cannot stand in <member>; accepted: <name>, <value>");
    EXPECT_EQ(textOf("<value><int><b/></int></value>"), "line 1: <b> cannot stand in <int>; only text can");
    EXPECT_EQ(textOf(""), "line 1: <param> without <value>");
}

TEST(XmlRpcCodecTest, WhatIsNotWellFormedIsRefusedWithItsLine)
{
    const auto [kind, text] = refusalOf("<methodCall>\n<methodName>m</methodNam>\n</methodCall>");
    EXPECT_EQ(kind, XmlRpcError::Kind::Malformed);
    EXPECT_EQ(text, "line 2: not well-formed XML: Start-end tags mismatch");
    EXPECT_EQ(refusalOf("").second, "line 1: there is no root; it must be <methodCall>");
    using Refusal = std::pair<std::string, std::string>;
    for (const auto& [bad, why] :
         {Refusal{"<methodCall>", "Start-end tags mismatch"},
          Refusal{"<methodCall><", "Could not determine tag type"},
          Refusal{"<methodCall a='1>", "Error parsing element attribute"},
          Refusal{"<a></b>", "Start-end tags mismatch"}, Refusal{"<a/></a>", "Start-end tags mismatch"},
          Refusal{"<!-- x", "Error parsing comment"}, Refusal{"<![CDATA[x", "Error parsing CDATA section"},
          Refusal{"<?pi", "Error parsing document declaration/processing instruction"},
          Refusal{"<1/>", "Could not determine tag type"}}) {
        EXPECT_EQ(refusalOf(bad),
                  std::pair(XmlRpcError::Kind::Malformed, "line 1: not well-formed XML: " + why));
    }
}

TEST(XmlRpcCodecTest, OnlyTheRootStandsInADocument)
{
    const std::string body = "<methodCall><methodName>m</methodName></methodCall>";
    EXPECT_EQ(parseMethodCall("\n<!-- x -->\n" + body + "\n<!-- y --><?pi?>\n").method, "m");
    using Refusal = std::pair<std::string, std::string>;
    for (const std::string before : {"", "<!-- x -->"}) { // white space is read in another way behind one
        for (const auto& [behind, why] :
             {Refusal{"x", "line 3: text outside the root"},
              Refusal{"&#32;", "line 3: text outside the root"},
              Refusal{">", "line 1: text outside the root"}, Refusal{">x", "line 3: text outside the root"},
              Refusal{"]", "line 3: text outside the root"},
              Refusal{"</", "line 3: not well-formed XML: Start-end tags mismatch"},
              Refusal{"<\n ", "line 3: not well-formed XML: Could not determine tag type"}}) {
            EXPECT_EQ(refusalOf(before + body + "\n\n" + behind),
                      std::pair(XmlRpcError::Kind::Malformed, why));
        }
    }
    EXPECT_EQ(refusalOf(body + "\n<").second, "line 2: not well-formed XML: Could not determine tag type");
    EXPECT_EQ(refusalOf("<!-- x -->" + body + "\n<").second, "line 2: text outside the root");
    EXPECT_EQ(refusalOf(body + "x").second, "line 1: text outside the root");
    EXPECT_EQ(refusalOf(body + "x<!---->").second, "line 1: text outside the root");
    EXPECT_EQ(refusalOf("x" + body).second, "line 1: text outside the root");
    EXPECT_EQ(refusalOf(body + "\n<![CDATA[x]]>").second, "line 2: text outside the root");
    EXPECT_EQ(refusalOf(body + "\n<b/>").second, "line 2: <b> is a second root");
    EXPECT_EQ(refusalOf("\n<?xml version='1.0'?>" + body).second,
              "line 2: the XML declaration is not at the start of the document");
    EXPECT_EQ(refusalOf(body + "<?xml version='1.0'?>").second,
              "line 1: the XML declaration is not at the start of the document");
    EXPECT_EQ(refusalOf(" \n").second, "line 1: there is no root; it must be <methodCall>");
    EXPECT_EQ(refusalOf("<!-- x -->").second, "line 1: there is no root; it must be <methodCall>");
}

TEST(XmlRpcCodecTest, MoreTagsThanTheMostValuesNeedAreRefused)
{
    const auto documentOf = [](std::size_t tags) {
        std::string xml = "<methodCall><methodName>m</methodName></methodCall>";
        for (std::size_t i = 4; i < tags; ++i) {
            xml += "<!---->";
        }
        return xml;
    };
    EXPECT_EQ(parseMethodCall(documentOf(800'016)).method, "m");
    const auto [kind, text] = refusalOf(documentOf(800'017));
    EXPECT_EQ(kind, XmlRpcError::Kind::TooManyValues);
    EXPECT_EQ(text, "line 1: there are more than 800016 tags");
}

TEST(XmlRpcCodecTest, IntegerIsWrittenAsIntOrI8)
{
    EXPECT_EQ(written(0), "<value><int>0</int></value>");
    EXPECT_EQ(written(2147483647), "<value><int>2147483647</int></value>");
    EXPECT_EQ(written(INT64_C(-2147483648)), "<value><int>-2147483648</int></value>");
    EXPECT_EQ(written(INT64_C(2147483648)), "<value><i8>2147483648</i8></value>");
    EXPECT_EQ(written(INT64_C(-2147483649)), "<value><i8>-2147483649</i8></value>");
    EXPECT_EQ(written(4294967295U), "<value><i8>4294967295</i8></value>");
    EXPECT_EQ(written(7U), "<value><int>7</int></value>");
}

TEST(XmlRpcCodecTest, DoubleIsWrittenShortestAndFixed)
{
    EXPECT_EQ(written(0.1), "<value><double>0.1</double></value>");
    EXPECT_EQ(written(-12.5), "<value><double>-12.5</double></value>");
    EXPECT_EQ(written(5.0), "<value><double>5</double></value>");
    EXPECT_EQ(written(1e21), "<value><double>1000000000000000000000</double></value>");
    EXPECT_EQ(written(1e-7), "<value><double>0.0000001</double></value>");
    EXPECT_EQ(written(0.30000000000000004), "<value><double>0.30000000000000004</double></value>");
}

TEST(XmlRpcCodecTest, EveryFiniteDoubleReadsBackTheSame)
{
    for (const double number : {5e-324, 2.2250738585072014e-308, 1.7976931348623157e308, -0.0, 1.0 / 3.0,
                                123456789.123456789, -1e-300}) {
        const Value back = parameter(written(number));
        ASSERT_TRUE(back.is_number_float());
        EXPECT_EQ(back.get<double>(), number);
        EXPECT_EQ(std::signbit(back.get<double>()), std::signbit(number));
    }
}

TEST(XmlRpcCodecTest, NotFiniteDoubleIsWrittenAsNil)
{
    EXPECT_EQ(written(std::numeric_limits<double>::quiet_NaN()), "<value><nil/></value>");
    EXPECT_EQ(written(std::numeric_limits<double>::infinity()), "<value><nil/></value>");
    EXPECT_EQ(written(-std::numeric_limits<double>::infinity()), "<value><nil/></value>");
}

TEST(XmlRpcCodecTest, OtherValuesAreWrittenAsTheirElements)
{
    EXPECT_EQ(written(nullptr), "<value><nil/></value>");
    EXPECT_EQ(written(true), "<value><boolean>1</boolean></value>");
    EXPECT_EQ(written(""), "<value><string></string></value>");
    EXPECT_EQ(written(Value::parse(R"([1,"a"])")),
              "<value><array><data><value><int>1</int></value><value><string>a</string></value>"
              "</data></array></value>");
    EXPECT_EQ(written(Value::parse(R"({"z":false,"a<":{}})")),
              "<value><struct><member><name>z</name><value><boolean>0</boolean></value></member>"
              "<member><name>a&lt;</name><value><struct></struct></value></member></struct></value>");
}

TEST(XmlRpcCodecTest, MarkupAndCarriageReturnAreEscaped)
{
    EXPECT_EQ(written("a<b>&\"'\r\n\t]]>"),
              "<value><string>a&lt;b&gt;&amp;\"'&#13;\n\t]]&gt;</string></value>");
}

TEST(XmlRpcCodecTest, WhatXmlCannotCarryIsReplaced)
{
    const auto text = [](const std::string& bytes) { return carriableText(bytes); };
    const std::string r = "\xEF\xBF\xBD";
    EXPECT_EQ(text(std::string("a\0b\x1F", 4)), "a" + r + "b" + r);
    EXPECT_EQ(text("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x93\xA1"), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x93\xA1");
    EXPECT_EQ(text("\xFFx\x80"), r + "x" + r);
    EXPECT_EQ(text("\xC0\xAF"), r + r) << "overlong";
    EXPECT_EQ(text("\xE0\x80\x80"), r + r + r) << "overlong";
    EXPECT_EQ(text("\xF0\x80\x80\x80"), r + r + r + r) << "overlong";
    EXPECT_EQ(text("\xED\xA0\x80"), r) << "a surrogate is one character that XML cannot carry";
    EXPECT_EQ(text("\xEF\xBF\xBE"), r) << "U+FFFE";
    EXPECT_EQ(text("\xF4\x90\x80\x80"), r) << "beyond U+10FFFF";
    EXPECT_EQ(text("\xE2\x82"), r + r) << "cut short";
    EXPECT_EQ(text("\xC3(\xE2\x82("), r + "(" + r + r + "(") << "broken off";
    EXPECT_EQ(text("\xED\x9F\xBF\xEE\x80\x80"), "\xED\x9F\xBF\xEE\x80\x80") << "round the surrogates";
    EXPECT_EQ(text("\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
              "\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF")
        << "the last ones";
    EXPECT_EQ(text("\x7F"), "\x7F");
    EXPECT_EQ(written(std::string("\0", 1)), "<value><string>\xEF\xBF\xBD</string></value>");
}

TEST(XmlRpcCodecTest, FaultIsWrittenAsCodeAndText)
{
    EXPECT_EQ(writeFault(-32601, "no <such> method"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?><methodResponse><fault><value><struct>"
              "<member><name>faultCode</name><value><int>-32601</int></value></member>"
              "<member><name>faultString</name><value><string>no &lt;such&gt; method</string></value>"
              "</member></struct></value></fault></methodResponse>");
}

TEST(XmlRpcCodecTest, CallIsWritten)
{
    EXPECT_EQ(writeMethodCall({"CRI.Reset", {1}}),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?><methodCall><methodName>CRI.Reset</methodName>"
              "<params><param><value><int>1</int></value></param></params></methodCall>");
    EXPECT_EQ(writeMethodCall({"m", {}}),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?><methodCall><methodName>m</methodName>"
              "<params></params></methodCall>");
}

TEST(XmlRpcCodecTest, WritingTooDeepThrows)
{
    Value value = 1;
    for (int level = 0; level < 31; ++level) {
        Value outer = Value::array();
        outer.push_back(std::move(value));
        value = std::move(outer);
    }
    EXPECT_NO_THROW((void)writeResponse(value));
    Value outer = Value::array();
    outer.push_back(std::move(value));
    EXPECT_THROW((void)writeResponse(outer), std::invalid_argument);
}

TEST(XmlRpcCodecTest, ResponseIsValueOrFault)
{
    const MethodResponse good = parseMethodResponse(
        "<methodResponse><params><param><value><int>4</int></value></param></params></methodResponse>");
    EXPECT_EQ(good.value, Value(4));
    EXPECT_FALSE(good.fault);
    const MethodResponse bad =
        parseMethodResponse("<methodResponse><fault><value><struct>"
                            "<member><name>faultString</name><value>why</value></member>"
                            "<member><name>faultCode</name><value><i4>-5</i4></value></member>"
                            "</struct></value></fault></methodResponse>");
    ASSERT_TRUE(bad.fault);
    EXPECT_EQ(bad.fault->code, -5);
    EXPECT_EQ(bad.fault->text, "why");
    EXPECT_TRUE(bad.value.is_null());
}

TEST(XmlRpcCodecTest, ResponseOfAnotherShapeIsRefused)
{
    for (const std::string inside :
         {"", "<params/>", "<params><param><value/></param><param><value/></param></params>",
          "<params><param><value/></param></params><fault><value/></fault>", "<fault><value/></fault>",
          "<fault><value><struct><member><name>faultCode</name><value>1</value></member>"
          "<member><name>faultString</name><value>x</value></member></struct></value></fault>",
          "<fault><value><struct><member><name>faultCode</name><value><int>1</int></value></member>"
          "</struct></value></fault>",
          "<fault><value><struct><member><name>faultCode</name><value><int>1</int></value></member>"
          "<member><name>why</name><value>x</value></member></struct></value></fault>",
          "<fault><value><struct><member><name>code</name><value><int>1</int></value></member>"
          "<member><name>faultString</name><value>x</value></member></struct></value></fault>",
          "<fault><value><struct><member><name>faultCode</name><value><int>1</int></value></member>"
          "<member><name>faultString</name><value><int>1</int></value></member></struct></value></fault>",
          "<fault><value><struct><member><name>faultCode</name><value><i8>-2147483649</i8></value></member>"
          "<member><name>faultString</name><value>x</value></member></struct></value></fault>"}) {
        EXPECT_THROW((void)parseMethodResponse("<methodResponse>" + inside + "</methodResponse>"),
                     XmlRpcError)
            << inside;
    }
    EXPECT_THROW((void)parseMethodResponse("<methodCall><methodName>m</methodName></methodCall>"),
                 XmlRpcError);
    EXPECT_THROW((void)parseMethodResponse(
                     "<methodResponse><fault><value><struct><member><name>faultCode</name>"
                     "<value><i8>2147483648</i8></value></member><member><name>faultString</name>"
                     "<value>x</value></member></struct></value></fault></methodResponse>"),
                 XmlRpcError);
}
