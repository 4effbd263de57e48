#pragma once

#include "Value.h"
#include "ValueWriter.h"
#include "XmlRpcError.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// XML-RPC documents to values and back.
///
/// All functions are free of state: any thread may call them at any time.
///
/// How wire types become values:
///
/// | Wire                                   | Value                                           |
/// |----------------------------------------|-------------------------------------------------|
/// | `int`, `i1`, `i2`, `i4`, `i8`, `ex:i8` | integer, any that 64 signed bits hold           |
/// | `boolean`                              | bool; `0` and `1` only                          |
/// | `double`                               | floating-point number, finite                   |
/// | `string`, bare `value`                 | string, white space kept                        |
/// | `dateTime.iso8601`                     | binary of `kDateSubtype`, the text as sent       |
/// | `base64`                               | binary without a subtype, the decoded bytes     |
/// | `nil`, `ex:nil`                        | null                                            |
/// | `array`                                | array                                           |
/// | `struct`                               | object, members in the order of the document    |
///
/// White space round the text of every scalar but a string is ignored. Ranges of fields are not looked at
/// here.
///
/// How values become wire types: an integer is `<int>` when 32 signed bits hold it, otherwise `<i8>`; a
/// number with a fraction is `<double>` in fixed notation, with the fewest digits that read back the same;
/// NaN and the infinities, which XML-RPC does not have, and binary values, which nothing here answers, become
/// `<nil/>`. A carriage return is written `&#13;`. Each byte that is not part of valid UTF-8, and each
/// character that XML cannot carry, is replaced by U+FFFD.
namespace zyr_gateway
{

/// The deepest nesting of values that is accepted; a parameter itself has depth 1.
inline constexpr std::size_t kMaxValueDepth = 32;

/// The most values that one document may hold, nested ones counted.
inline constexpr std::size_t kMaxValueCount = 100'000;

/// A call: the method's name and its positional parameters.
struct MethodCall
{
    std::string method;
    std::vector<Value> params;

    bool operator==(const MethodCall&) const = default;
};

/// A fault: the code and the text that came instead of a value.
struct Fault
{
    int code = 0;
    std::string text;

    bool operator==(const Fault&) const = default;
};

/// An answer: a value, or a fault in its place.
struct MethodResponse // NOLINT(bugprone-exception-escape): moving a value does not throw
{
    Value value;                ///< null when there is a fault
    std::optional<Fault> fault; ///< present when the call failed

    bool operator==(const MethodResponse&) const = default;
};

/// Reads a `methodCall` document.
/// @throws XmlRpcError when the document is not acceptable
[[nodiscard]] MethodCall parseMethodCall(std::string_view xml);

/// Reads a `methodResponse` document.
/// @throws XmlRpcError when the document is not acceptable
[[nodiscard]] MethodResponse parseMethodResponse(std::string_view xml);

/// Writes a `methodCall` document.
/// @throws std::invalid_argument when values are nested deeper than `kMaxValueDepth`
[[nodiscard]] std::string writeMethodCall(const MethodCall& call);

/// A document would become longer than it may be.
class DocumentTooLong : public std::length_error
{
  public:
    using std::length_error::length_error;
};

/// A `methodResponse` document that holds a value, which is written piece by piece.
class ResponseDocument
{
  public:
    /// @param limit in bytes; what stands behind the value does not count
    explicit ResponseDocument(std::size_t limit = std::numeric_limits<std::size_t>::max());
    ResponseDocument(const ResponseDocument&) = delete;
    ResponseDocument& operator=(const ResponseDocument&) = delete;

    /// Takes the one value.
    [[nodiscard]] ValueWriter& writer() { return m_writer; }

    /// How long the document is by now.
    [[nodiscard]] std::size_t size() const noexcept { return m_document.size(); }

    /// The whole document. To be called once, behind the value.
    /// @throws DocumentTooLong
    [[nodiscard]] std::string finish();

  private:
    std::string m_document;
    ValueWriter m_writer;
};

/// Writes a `methodResponse` document that holds a value.
/// @param limit as above
/// @throws std::invalid_argument when values are nested deeper than `kMaxValueDepth`
/// @throws DocumentTooLong
[[nodiscard]] std::string writeResponse(const Value& value,
                                        std::size_t limit = std::numeric_limits<std::size_t>::max());

/// Writes a `methodResponse` document that holds a fault.
[[nodiscard]] std::string writeFault(int code, std::string_view text);

/// The text as a reader of the document gets it: what XML cannot carry is replaced by U+FFFD.
/// Texts that are shown to people, and texts that go into JSON, need the same care.
[[nodiscard]] std::string carriableText(std::string_view text);

} // namespace zyr_gateway
