#include "TiSetNarrowWideFiltersImpl.h"

#include "IDspChannelApi.h"
#include "Initialise.h"
#include "Required.h"
#include "ResultLaw.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiSetNarrowWideFilters::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

ETIResult TiSetNarrowWideFiltersImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

StandardResponse TiSetNarrowWideFiltersImpl::execute(const Command& command)
{
    const ETIResult result = required(m_dspApi[kFirstChannel].getDspChannelApi(), kFirstChannel)
                                 .setNarrowWideFilters(command.filter);
    if (!failed(result)) {
        return {};
    }
    // sic: the pairing of the first two, and the blank before the colon in the third
    switch (result) {
    case eTI_E_FAILED:
        return {eTI_E_FAILED, "Not supported in this HW variant: failed to set mux filters to GPIO"};
    case eTI_E_OPERATION_NOT_ALLOWED:
        return {eTI_E_FAILED, "Invalid parameters: failed to set mux filters to GPIO"};
    default:
        return {eTI_E_FAILED, "Generic error : failed to set mux filters to GPIO"};
    }
}

} // namespace zyr_top_api
