#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace zyr_gateway
{

/// A document that is not acceptable XML-RPC.
///
/// The text says what was found, in which line, and what would have been right; it is fit for a fault. It
/// quotes names out of the document, cut to a bearable length, but no values.
class XmlRpcError : public std::runtime_error
{
  public:
    /// What was wrong, for a caller that treats one cause differently from another.
    enum class Kind
    {
        Malformed,           ///< not well-formed XML, or not the shape of an XML-RPC document
        BadValue,            ///< the text of a scalar is not of the scalar's type, or outside 64 bits
        NotFinite,           ///< a double that is NaN, infinite, or beyond the range of a double
        DoubledMember,       ///< a struct with two members of one name
        TooDeep,             ///< values nested deeper than `kMaxValueDepth`
        TooManyValues,       ///< more than `kMaxValueCount` values, or more tags than these need
        UnsupportedEncoding, ///< neither UTF-8 nor US-ASCII
        DtdRefused           ///< a document type declaration
    };

    /// @param line line in the document, counted from 1
    XmlRpcError(Kind kind, std::size_t line, const std::string& text)
        : std::runtime_error("line " + std::to_string(line) + ": " + text), m_kind(kind), m_line(line)
    {}

    /// The cause.
    [[nodiscard]] Kind kind() const noexcept { return m_kind; }

    /// The line in the document, counted from 1.
    [[nodiscard]] std::size_t line() const noexcept { return m_line; }

  private:
    Kind m_kind;
    std::size_t m_line;
};

} // namespace zyr_gateway
