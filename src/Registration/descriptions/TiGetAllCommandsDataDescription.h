#pragma once

#include "Description.h"
#include "TiGetAllCommandsDataImpl.h"

namespace zyr_registration
{

template <>
struct RecordFields<zyr_top_api::CmdDescription>
{
    using Record = zyr_top_api::CmdDescription;
    static constexpr std::array fields{
        field<&Record::name>("the command's name"),
        field<&Record::description>("what it does"),
    };
};

template <>
struct Description<zyr_top_api::TiGetAllCommandsDataImpl> : DescriptionDefaults
{
    using Response = zyr_top_api::TiGetAllCommandsData::Response;

    static constexpr std::string_view help = "Reports which commands exist.";
    static constexpr Group group = Group::Catalogue;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array response{
        field<&Response::commands>("all commands of the node"),
    };
};

} // namespace zyr_registration
