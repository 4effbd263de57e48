#pragma once

#include "Codec.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace zyr_gateway
{

/// Reads one XML-RPC document: pugixml makes it a tree, which is then held against a grammar, a table of
/// which element may stand in which. All operations
/// @throws XmlRpcError when the document is not acceptable
///
/// The tree costs 64 bytes for each element and text. What pugixml does not look at is looked at here: the
/// encoding, the characters, references, and what stands round the root. Beyond that it is lenient where
/// nothing can be misread: attributes, the insides of comments and processing instructions, a declaration
/// that tells no encoding, and "]]>" in a text.
class DocumentReader
{
  public:
    /// The elements of the grammar.
    enum class Element : unsigned char
    {
        MethodCall,
        MethodResponse,
        MethodName,
        Params,
        Param,
        Fault,
        AnyValue,
        Array,
        Data,
        Structure,
        Member,
        Name,
        Integer,
        Boolean,
        Real,
        String,
        Date,
        Base64,
        Nil
    };

    /// @param xml must outlive the reader
    explicit DocumentReader(std::string_view xml);

    /// Reads a document whose root is `methodCall`.
    [[nodiscard]] MethodCall call();

    /// Reads a document whose root is `methodResponse`.
    [[nodiscard]] MethodResponse response();

  private:
    void parse();
    void checkText(const pugi::xml_node& declaration) const;
    [[nodiscard]] pugi::xml_node root(Element wanted) const;

    template <class Take>
    void takeElements(const pugi::xml_node& node, Element element, Take take) const;
    [[nodiscard]] Element elementOf(const pugi::xml_node& node, Element parent, std::size_t position) const;

    [[nodiscard]] std::string methodNameOf(const pugi::xml_node& node) const;
    [[nodiscard]] Value valueOf(const pugi::xml_node& node, std::size_t depth);
    [[nodiscard]] Value typedValueOf(const pugi::xml_node& node, Element element, std::size_t depth);
    [[nodiscard]] Value arrayOf(const pugi::xml_node& node, std::size_t depth);
    [[nodiscard]] Value structureOf(const pugi::xml_node& node, std::size_t depth);
    [[nodiscard]] Value scalarOf(const pugi::xml_node& node, Element element) const;
    [[nodiscard]] Fault faultOf(const pugi::xml_node& node);

    [[nodiscard]] std::string textOf(const pugi::xml_node& node, Element element) const;
    [[nodiscard]] bool isBlankText(const pugi::xml_node& node) const;
    void appendDecoded(std::string& text, const pugi::xml_node& node) const;

    [[nodiscard]] std::size_t lineAt(std::ptrdiff_t offset) const;
    [[noreturn]] void fail(XmlRpcError::Kind kind, const pugi::xml_node& node, const std::string& text) const;
    [[noreturn]] void failMalformed(const pugi::xml_node& node, const std::string& text) const;

    struct Wiper
    {
        void operator()(char* memory) const noexcept;
    };

    std::string_view m_xml;
    std::unique_ptr<char, Wiper> m_copy; // that the tree points into; documents hold keys
    pugi::xml_document m_document;
    std::size_t m_valueCount = 0;
};

} // namespace zyr_gateway
