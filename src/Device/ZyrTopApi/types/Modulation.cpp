#include "Modulation.h"

#include "EnumText.h"

namespace zyr_top_api
{

namespace
{

constexpr auto kConstellations = std::to_array<EnumTextRow<Modulation>>({
    {static_cast<Modulation>(0), "CW"},
    {Modulation::BPSK, "BPSK"},
    {Modulation::QAM_4, "4QAM"},
    {Modulation::QAM_16, "16QAM"},
    {Modulation::QAM_32, "32QAM"},
    {Modulation::QAM_64, "64QAM"},
    {Modulation::QAM_128, "128QAM"},
    {Modulation::QAM_256, "256QAM"},
    {Modulation::QAM_512, "512QAM"},
    {Modulation::QAM_1024, "1024QAM"},
    {Modulation::QAM_2048, "2048QAM"},
    {Modulation::QAM_4096, "4096QAM"},
    {Modulation::QAM_8192, "8192QAM"},
    {Modulation::QAM_16384, "16384QAM"},
    {Modulation::QAM_65536, "65536QAM"},
});

} // namespace

std::string_view modulationToString(Modulation modulation)
{
    return textOf(kConstellations, modulation, "UNDEFINED");
}

Modulation modulationStringToEnum(std::string_view text)
{
    return valueOf(kConstellations, text, Modulation::UNDEFINED);
}

} // namespace zyr_top_api
