#include "CriEnableAcmImpl.h"
#include "ZyrApiHandler.h"

#include <iostream>
#include <memory>

int main()
{
    using namespace zyr_top_api;
    ZyrApiHandler::m_cmds.push_back(std::make_shared<CmdWrapper<CriEnableAcmImpl>>("CRI.EnableAcm"));
    const StandardResponse response = criEnableAcm({RadioChannel(1), true});
    std::cout << etiResultToString(response.tiResult) << " " << response.faultString << "\n";
}
