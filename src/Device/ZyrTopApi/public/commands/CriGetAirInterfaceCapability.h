#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "FFConfigType.h"
#include "ModulationAndCoding.h"
#include "RadioChannel.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zyr_top_api
{

/// A modulation that a radio frame may use.
struct FrameFormatModulation
{
    ModulationAndCoding Modulation = {};
    std::uint32_t Capacity = 0; ///< in the hardware database's unit
    bool XpicCapable = false;   ///< true exactly for a frame of link type `Xpic`
};

/// A radio frame that a channel's hardware supports.
struct ZYR_EXPORT FrameFormatCapability
{
    std::uint32_t RadioFrameID = 0;
    std::int32_t ChannelSpacing = 0; ///< in the hardware database's unit
    std::string TelecomStd;
    std::string AirInterface;
    std::vector<FrameFormatModulation> AvailableModulations;
    FFConfigType FrameLinkType = {};
    ModulationAndCoding MaxAvailableAcmCa = ModulationAndCoding::UNDEFINED; ///< never another value

    void print(TextWriter& text) const;
};

/// Gives the radio frames that a channel's hardware supports, each with the modulations that it may use.
class ZYR_EXPORT CriGetAirInterfaceCapability
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.GetAirInterfaceCapability",
        .className = "CriGetAirInterfaceCapability",
        .responseLabel = "CriGetAirInterfaceCapability::Response",
        .traceChannel = "ZYR.TI.CriGetAirInterfaceCapability",
    };

    enum class ReleasedFilter : std::uint32_t
    {
        OnlyReleased = 1,
        All = 2,
    };
    enum class TelecomFilter : std::uint32_t
    {
        Etsi = 1,
        Ansi = 2,
        All = 3,
    };
    enum class RauFilter : std::uint32_t
    {
        OnlyRauCompatible = 1,
        All = 2,
    };

    /// Texts of the filters; "Undefined" for a value without one.
    static std::string_view releasedFilterToString(ReleasedFilter filter);
    static std::string_view telecomFilterToString(TelecomFilter filter);
    static std::string_view rauFilterToString(RauFilter filter);

    struct ZYR_EXPORT Command
    {
        MutableRadioChannel RadioChannelID; ///< 1 up to the number of channels
        CriGetAirInterfaceCapability::ReleasedFilter ReleasedFilter = {};
        CriGetAirInterfaceCapability::TelecomFilter TelecomFilter = {}; ///< printed, without effect
        CriGetAirInterfaceCapability::RauFilter RauFilter = {};         ///< printed, without effect

        std::string toString() const;
        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels and for a performance profile that
    /// can't be read, then with the frames before it; `eTI_E_FAILED` if there are no frames at all.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        std::vector<FrameFormatCapability> FrameFormatCapabilities;

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~CriGetAirInterfaceCapability() = default;
};

/// Dispatches "CRI.GetAirInterfaceCapability". From any thread; waits for other commands.
ZYR_EXPORT CriGetAirInterfaceCapability::Response
criGetAirInterfaceCapability(const CriGetAirInterfaceCapability::Command& command);

} // namespace zyr_top_api
