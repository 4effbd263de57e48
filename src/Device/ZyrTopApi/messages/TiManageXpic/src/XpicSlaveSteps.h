#pragma once

#include "CDriver.h"
#include "ICcdpController.h"
#include "IDspStatusApi.h"
#include "TiManageXpic.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// The channel that a request is for, with what serves it.
struct XpicChannel
{
    std::uint32_t number;
    ICcdpController& ccdpController;
    IDspStatusApi& dspStatusApi;
    const CDriverHandle& cableDriver;
    const CDriverHandle& txEnableDriver;
};

/// One step of the command. Gives the text of its failure, empty on success.
using XpicStep = std::string (*)(const XpicChannel& channel, const TiManageXpic::Command& command,
                                 TiManageXpic::Response& response);

// The steps that concern the slave's receiver. They log nothing.

std::string readSlaveAgc(const XpicChannel& channel, const TiManageXpic::Command& command,
                         TiManageXpic::Response& response);
std::string readSlaveImbalance(const XpicChannel& channel, const TiManageXpic::Command& command,
                               TiManageXpic::Response& response);
std::string muteSlave(const XpicChannel& channel, const TiManageXpic::Command& command,
                      TiManageXpic::Response& response);
std::string setPreamble(const XpicChannel& channel, const TiManageXpic::Command& command,
                        TiManageXpic::Response& response);
std::string readPreamble(const XpicChannel& channel, const TiManageXpic::Command& command,
                         TiManageXpic::Response& response);
std::string startAcquisition(const XpicChannel& channel, const TiManageXpic::Command& command,
                             TiManageXpic::Response& response);
std::string readSlaveStatus(const XpicChannel& channel, const TiManageXpic::Command& command,
                            TiManageXpic::Response& response);

} // namespace zyr_top_api
