#pragma once

#include "Field.h"
#include "RauPowerMode.h"

#include <array>

namespace zyr_registration
{

/// What the number of a transceiver stands for.
inline Vocabulary transceivers()
{
    static constexpr std::array kRows{
        EnumText{zyr_top_api::kTrxUndefined, "undefined"}, EnumText{zyr_top_api::kTrxFirst, "first"},
        EnumText{zyr_top_api::kTrxSecond, "second"}, EnumText{zyr_top_api::kTrxBoth, "both"}};
    return {"Transceiver", kRows};
}

template <>
struct RecordFields<zyr_top_api::RauPowerMode>
{
    using Record = zyr_top_api::RauPowerMode;
    static constexpr std::array fields{
        field<&Record::trxId>("transceiver", {.texts = &transceivers, .example = "1"}),
        field<&Record::powerMode>(
            "four bits: the lower two are the mode of the first transceiver, the next two that of the second",
            {.unit = kNoUnit}),
    };
};

} // namespace zyr_registration
