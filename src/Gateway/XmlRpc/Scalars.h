#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The texts of XML-RPC scalars. Pure functions, for any thread.
namespace zyr_gateway::scalars
{

/// The text without the XML white space round it.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// The number in decimal digits with an optional sign; nothing when it is none, or needs more than 64 bits.
[[nodiscard]] std::optional<std::int64_t> integer(std::string_view text);

/// How reading a double ended.
enum class RealOutcome
{
    Good,
    NotANumber, ///< the text is not a decimal number
    NotFinite   ///< NaN, an infinity, or beyond the range of a double
};

/// Reads a decimal number, with or without an exponent, into `number`.
[[nodiscard]] RealOutcome real(std::string_view text, double& number);

/// The bytes behind a base64 text, white space skipped; nothing when it is not base64 with its padding.
[[nodiscard]] std::optional<std::string> base64(std::string_view text);

/// The shortest decimal form, without exponent, that reads back as the same number. The number must be
/// finite.
[[nodiscard]] std::string text(double number);

} // namespace zyr_gateway::scalars
