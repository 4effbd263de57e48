#pragma once

#include "Value.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace zyr_gateway
{

/// Writes values into a document, piece by piece or whole; see Codec.h for their form.
///
/// What begins an array, a struct or a member has to be ended; in between stand the elements, the members, or
/// the member's one value. All operations that write a value
/// @throws std::invalid_argument when values are nested deeper than `kMaxValueDepth`
/// @throws DocumentTooLong when the document has become longer than it may be
class ValueWriter
{
  public:
    /// @param out    what is written to, behind what it holds; must outlive the writer
    /// @param limit  how long `out` may become, in bytes
    explicit ValueWriter(std::string& out, std::size_t limit = std::numeric_limits<std::size_t>::max());

    void nil();
    void boolean(bool value);
    void integer(std::int64_t number);
    void integer(std::uint64_t number);
    void real(double number);
    void text(std::string_view text);

    void beginArray();
    void endArray();

    void beginStruct();
    void beginMember(std::string_view name);
    void endMember();
    void endStruct();

    void value(const Value& value);

    /// A place in the document, to which one can go back.
    struct Mark
    {
        std::size_t size;
        std::size_t depth;
    };
    [[nodiscard]] Mark mark() const { return {m_out->size(), m_depth}; }
    /// Takes back what has been written since.
    void goBackTo(const Mark& mark);

    /// @throws DocumentTooLong
    void requireShort() const;

  private:
    void open() const;
    template <class Number>
    void writeInteger(Number number);

    std::string* m_out;
    std::size_t m_limit;
    std::size_t m_depth = 1; // of the next value
};

/// Adds the text to a document as it stands between tags.
void writeText(std::string& out, std::string_view text);

} // namespace zyr_gateway
