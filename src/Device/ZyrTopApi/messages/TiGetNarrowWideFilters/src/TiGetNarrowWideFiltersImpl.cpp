#include "TiGetNarrowWideFiltersImpl.h"

#include "Failure.h"
#include "IDspChannelApi.h"
#include "Initialise.h"
#include "Required.h"
#include "ResultLaw.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiGetNarrowWideFilters::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

std::string TiGetNarrowWideFilters::Response::printResponse() const
{
    return printed(*this);
}

void TiGetNarrowWideFilters::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "Filter: " << filter;
}

ETIResult TiGetNarrowWideFiltersImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi)});
}

TiGetNarrowWideFilters::Response TiGetNarrowWideFiltersImpl::execute(const Command&)
{
    std::int32_t filter = 0;
    if (failed(required(m_dspApi[kFirstChannel].getDspChannelApi(), kFirstChannel)
                   .getNarrowWideFilters(filter))) {
        return refusal<Response>(
            eTI_E_FAILED, "Not supported in this HW variant: failed to get mux filters setting to GPIO");
    }
    Response response;
    response.filter = filter;
    return response;
}

} // namespace zyr_top_api
