#pragma once

#include "Codec.h"

#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

struct XML_ParserStruct;

namespace zyr_gateway
{

/// Reads one XML-RPC document as a stream of XML events.
///
/// The grammar is a table of which element may stand in which; everything open is on a stack whose height the
/// grammar and `kMaxValueDepth` bound, so that no document can exhaust memory or the call stack.
///
/// An object reads one document and is then spent. The outcome is in `call` or `response`.
class DocumentReader
{
  public:
    /// The elements of the grammar. `Document` is what holds the root.
    enum class Element : unsigned char
    {
        Document,
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

    /// @param root the root that is wanted, `methodCall` or `methodResponse`
    explicit DocumentReader(Element root);

    /// Reads the whole document.
    /// @throws XmlRpcError when it is not acceptable
    void read(std::string_view xml);

    MethodCall call;         ///< the outcome for the root `methodCall`
    MethodResponse response; ///< the outcome for the root `methodResponse`

  private:
    /// An element that is open.
    struct Frame // NOLINT(bugprone-exception-escape): moving a value does not throw
    {
        Element element;
        std::size_t children = 0;
        std::string text;
        std::string memberName;
        Value value;
        std::unique_ptr<std::unordered_set<std::string>> memberNames; ///< once there are many
    };

    void refuseOtherEncodings(std::string_view xml) const;
    void connectHandlers();
    template <typename Step>
    void guarded(Step step) noexcept;

    void declared(const char* encoding);
    void started(const char* tag);
    void characters(std::string_view text);
    void ended();

    void open(Element element);
    void endedValue(Frame& frame, Frame& parent);
    void deliverValue(Frame& frame, Frame& parent);
    void endedMember(Frame& frame, Frame& parent);
    [[nodiscard]] static bool isNew(const std::string& name, Frame& structure);
    void endedFault(const Frame& frame);
    [[nodiscard]] Value scalarOf(Frame& frame) const;

    [[nodiscard]] std::size_t line() const;
    [[noreturn]] void fail(XmlRpcError::Kind kind, const std::string& text) const;
    [[noreturn]] void failUnexpected(Element parent, std::string_view tag) const;

    Element m_root;
    XML_ParserStruct* m_parser = nullptr;
    std::vector<Frame> m_open;
    std::size_t m_depth = 0;
    std::size_t m_valueCount = 0;
    std::exception_ptr m_error;
};

} // namespace zyr_gateway
