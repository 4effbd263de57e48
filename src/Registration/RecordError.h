#pragma once

#include "ETIResult.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace zyr_registration
{

/// A request that can't be turned into a command's record. The text is fit for the caller: it begins with the
/// result's name and tells the method, the member, what was given and what is accepted. It never holds the
/// value of a secret member.
class RecordError : public std::runtime_error
{
  public:
    RecordError(zyr_top_api::ETIResult result, std::string_view text)
        : std::runtime_error(std::string(zyr_top_api::etiResultToString(result)).append(": ").append(text)),
          m_result(result)
    {}

    /// `eTI_E_REQUIRED_INPUT_MISSING`, `eTI_E_PARAMETER_TYPE_INVALID` or `eTI_E_PARAMETER_INVALID`; of a text
    /// that the command itself couldn't read, `eTI_E_INVALID_ARGUMENT`.
    zyr_top_api::ETIResult result() const noexcept { return m_result; }

  private:
    zyr_top_api::ETIResult m_result;
};

} // namespace zyr_registration
