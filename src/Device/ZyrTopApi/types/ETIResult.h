#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// The result of a command, and of the modules that share its scale.
///
/// Below 0x1000 success, from 0x1000 success with a warning, from 0x8000 failure. Any 32-bit value may occur,
/// not only the named ones: modules answer codes of their own through this type. It prints as a decimal
/// number.
enum ETIResult : std::uint32_t
{
    eTI_S_OK = 0, ///< Success.
    eTI_S_TRUE = 1,
    eTI_S_FALSE = 2,
    eTI_I_INFO = 0x100,
    eTI_DEBUG = 0x800,
    eTI_DEBUG2 = 0x820,
    eTI_DEBUG3 = 0x840,
    eTI_I_LOG_ALWAYS = 0x900,
    eTI_W_WARNING = 0x1000,
    eTI_W_DUPLICATE_IGNORED = 0x1001,
    eTI_W_NO_MORE_DATA = 0x1002, ///< Also: the XPIC controller does not support the operation.
    eTI_W_ALREADY_STARTED = 0x1003,
    eTI_W_ALREADY_INITIALIZED = 0x1004, ///< Also: the DSP does not support the operation.
    eTI_E_FAILED = 0x8000,              ///< A failure without a code of its own.
    eTI_E_NOT_IMPLEMENTED = 0x8001,
    eTI_E_UNKNOWN_OBJECT = 0x8002,
    eTI_E_OPERATION_NOT_ALLOWED = 0x8003,
    eTI_E_CAN_NOT_CREATE_OBJECT = 0x8004,
    eTI_E_COULD_NOT_REGISTER_HANDLER_METHOD = 0x8005,
    eTI_E_MODULE_REGISTRATION_ERROR = 0x8006,
    eTI_E_FAILED_TO_REGISTER_MODULE_CALLBACK = 0x8007,
    eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE = 0x8008,
    eTI_E_INTERFACE_MANAGER_REGISTRATION_ERROR = 0x8009,
    eTI_E_REQUIRED_PARAMETER_INVALID = 0xA000,
    eTI_E_PARAMETER_TYPE_INVALID = 0xA001,
    eTI_E_PARAMETER_INVALID = 0xA002,
    eTI_E_INVALID_ARGUMENT = 0xA100,
    eTI_E_MALFORMED_REQUEST = 0xA101,
    eTI_E_REQUIRED_INPUT_MISSING = 0xA102,
    eTI_E_TOP_API_MUTEX_TIMEOUT = 0xA103, ///< Never answered: commands wait without a time-out.
    eTI_E_METHOD_UNKNOWN = 0xA200,        ///< No such command.
};

/// The name of a result exactly as its enumerator is spelt, "Unknown" for a value without a name.
ZYR_EXPORT std::string_view etiResultToString(ETIResult result);

} // namespace zyr_top_api
