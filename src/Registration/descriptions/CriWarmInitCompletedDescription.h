#pragma once

#include "CriWarmInitCompletedImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriWarmInitCompletedImpl> : DescriptionDefaults
{
    static constexpr std::string_view help =
        "Ends the start-up of the node; a node in normal operation answers with a warning.";
    static constexpr Group group = Group::Lifecycle;
    static constexpr Effect effect = Effect::Changes;
};

} // namespace zyr_registration
