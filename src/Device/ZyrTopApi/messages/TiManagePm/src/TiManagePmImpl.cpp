#include "TiManagePmImpl.h"

#include "Failure.h"
#include "IDspStatusApi.h"
#include "Initialise.h"
#include "Log.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiManagePm::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

std::string TiManagePm::Response::printResponse() const
{
    return printed(*this);
}

void TiManagePm::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RadioChannelID: " << RadioChannelID << ", Injecting EB: " << injectingEb
         << ", Cycles left: " << cyclesLeft;
}

ETIResult TiManagePmImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {perChannel("IDspApi", m_dspApi, plainText("Could not find the DSP API interface"))});
}

TiManagePm::Response TiManagePmImpl::execute(const Command& command)
{
    logEnter(trace);
    if (m_numberOfChannels < command.RadioChannelID) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
    }
    IDspStatusApi* const statusApi = m_dspApi[command.RadioChannelID].getDspStatusApi();
    if (statusApi == nullptr) {
        return failedResponse<Response>(trace, "TI.ManagePm failed to get DSP API interface");
    }
    if (command.injectEb.hasValue() && command.ebCycles.hasValue() && command.ebPercentage.hasValue()) {
        log(trace, 3, [&](TextWriter& text) {
            text << "TI.ManagePm request: RadioChannelID: " << command.RadioChannelID
                 << ", Inject EB: " << command.injectEb.value() << ", EB cycles: " << command.ebCycles.value()
                 << ", EB percentage: " << command.ebPercentage.value();
        });
        statusApi->injectErrorBlocks(command.injectEb.value(), command.ebCycles.value(),
                                     command.ebPercentage.value());
    }
    Response response;
    response.RadioChannelID = command.RadioChannelID;
    response.injectingEb = statusApi->getInjectErrorBlocksData(response.cyclesLeft);
    return response;
}

} // namespace zyr_top_api
