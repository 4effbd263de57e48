#pragma once

#include "CiGetEventsDescription.h"
#include "CiGetFastEventsDescription.h"
#include "CiReleaseFastEventsRequestsDescription.h"
#include "CriEnableAcmDescription.h"
#include "CriGetAirInterfaceCapabilityDescription.h"
#include "CriGetRadioChannelCapabilityDescription.h"
#include "CriGetRadioChannelStatusDescription.h"
#include "CriSetRadioChannelNearEndDescription.h"
#include "CriSetRfPowerDescription.h"
#include "TiGetAllCommandsDataDescription.h"
#include "TiGetEventsDescription.h"
#include "TiManageRadioChannelStatusDescription.h"
#include "TiSetEventsDescription.h"

namespace zyr_registration
{

template <class... Types>
struct TypeList
{};

/// The one list of all commands, in the order of their wire names (capitals before small letters). All that
/// lists, registers, describes or calls commands is derived from it.
// clang-format off
using CommandList = TypeList<
    zyr_top_api::CiGetEventsImpl,
    zyr_top_api::CiGetFastEventsImpl,
    zyr_top_api::CiReleaseFastEventsRequestsImpl,
    zyr_top_api::CriEnableAcmImpl,
    zyr_top_api::CriGetAirInterfaceCapabilityImpl,
    zyr_top_api::CriGetRadioChannelCapabilityImpl,
    zyr_top_api::CriGetRadioChannelStatusImpl,
    zyr_top_api::CriSetRfPowerImpl,
    zyr_top_api::CriSetRadioChannelNearEndImpl,
    zyr_top_api::TiGetAllCommandsDataImpl,
    zyr_top_api::TiGetEventsImpl,
    zyr_top_api::TiManageRadioChannelStatusImpl,
    zyr_top_api::TiSetEventsImpl>;
// clang-format on

} // namespace zyr_registration
