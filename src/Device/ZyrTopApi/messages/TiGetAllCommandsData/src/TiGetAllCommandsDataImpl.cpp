#include "TiGetAllCommandsDataImpl.h"

#include "Log.h"

namespace zyr_top_api
{

namespace
{

// Nothing is logged here, but the channel belongs to the command's identity and can be listed and set.
[[maybe_unused]] constinit TylTrace trace{TiGetAllCommandsData::identity.traceChannel, 3,
                                          TylTraceHdrOption_Default};

} // namespace

std::string TiGetAllCommandsData::Response::printResponse() const
{
    return printed(*this);
}

void TiGetAllCommandsData::Response::print(TextWriter&) const {}

ETIResult TiGetAllCommandsDataImpl::initialize(unsigned)
{
    return eTI_S_OK;
}

void TiGetAllCommandsDataImpl::addCmdData(const CmdDescription& description)
{
    m_commands.push_back(description);
}

TiGetAllCommandsData::Response TiGetAllCommandsDataImpl::execute(const Command&)
{
    Response response;
    response.commands = m_commands;
    return response;
}

} // namespace zyr_top_api
