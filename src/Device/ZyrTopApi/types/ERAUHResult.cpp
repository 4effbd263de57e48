#include "ERAUHResult.h"

#include "EnumText.h"
#include "ResultLaw.h"

#include <ostream>

namespace zyr_top_api
{

namespace
{

constexpr auto kFailures = std::to_array<EnumTextRow<ERAUHResult>>({
    {eRAUH_E_FAILED, "General Failure"},
    {eRAUH_E_NOT_CONNECTED, "Radio is not connected"},
    {eRAUH_E_NO_TOM_RESPONSE, "No response to TOM"},
    {eRAUH_E_TOM_NOT_ACCEPTED, "TOM not accepted"},
    {eRAUH_E_NOT_IMPLEMENTED, "Rau handler is not implemented"},
    {eRAUH_E_INVALID_ARGUMENT, "Invalid argument"},
    {eRAUH_E_ALREADY_INITIALIZED, "Rau is already initialized"},
    {eRAUH_E_MODULE_REGISTRATION_ERROR, "Rau module registeration error"}, // sic
    {eRAUH_E_FAILED_TO_REGISTER_MODULE_CALLBACK, "Failed to register module callback"},
    {eRAUH_E_UNKNOWN_PHASE, "Unknown Rau Handler Phase"},
    {eRAUH_E_UNEVEN_DATA_LENGTH, "Uneven data length"},
    {eRAUH_E_OUT_OF_RANGE, "Data is out of range"},
    {eRAUH_E_RADIO_NOT_UP, "Radio is not up"},
    {eRAUH_E_TOM_NOT_RECOGNIZED, "TOM is not recognized"},
    {eRAUH_E_TOM_NOT_PERFORMED, "TOM is not performed"},
    {eRAUH_E_TOM_NOT_ALLOWED, "TOM is not allowed"},
    {eRAUH_E_RF_LOOP_NOT_SUPPORTED, "RF Loop is not supported by radio"},
    {eRAUH_E_SDC_NOT_SUPPORTED, "SDC is not supported by radio"},
    {eRAUH_E_PATH_LATENCY_RESET_NEEDED, "Radio Path latency reset needed"},
});

} // namespace

std::string rauhResultToString(ERAUHResult result)
{
    const auto text = textOf(kFailures, result, {});
    return text.empty() ? std::to_string(code(result)) : std::string{text};
}

std::ostream& operator<<(std::ostream& stream, ERAUHResult result)
{
    return stream << rauhResultToString(result);
}

} // namespace zyr_top_api
