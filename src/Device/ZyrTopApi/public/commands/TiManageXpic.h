#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"
#include "LinkType.h"
#include "Optional.h"
#include "XpicAcquireMode.h"
#include "XpicMimoPreamble.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Test access to XPIC of one radio channel: sets what the request holds and reads a fixed set of values
/// back. A request without fields reads alone. What a failing request has set before its failure stays set.
class ZYR_EXPORT TiManageXpic
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "TI.ManageXPIC", // sic: unlike the class
        .className = "TiManageXpic",
        .responseLabel = "TiManageXpic::Response",
        .traceChannel = "ZYR.TI.TiManageXpic",
        .route = Route::Gated,
    };

    struct ZYR_EXPORT Command
    {
        general_classes::Optional<std::uint32_t> radioChannelId; ///< channel 1 if left out
        general_classes::Optional<bool> xpicControlBarOn;
        general_classes::Optional<bool> xpicEnable; ///< refused, whatever its value
        general_classes::Optional<LinkType> xpicEnableExt;
        general_classes::Optional<std::string> txMessage;     ///< refused unless it is empty
        general_classes::Optional<bool> xpicLockStateMachine; ///< refused, whatever its value
        general_classes::Optional<bool> xpicTxEnable;         ///< needs the transmit enable driver
        general_classes::Optional<bool> xpicMute;
        /// True needs the two modes: without both it is refused, without one `execute` throws
        /// `general_classes::BadOptional`.
        general_classes::Optional<bool> xpicAcquireStart;
        general_classes::Optional<XpicAcquireMode> xpicAcquireMode;
        general_classes::Optional<XpicSpectralInversionMode> xpicSpectralInversionMode;
        general_classes::Optional<bool> xpicPreambleGet; ///< true reads the preamble
        general_classes::Optional<XpicMimoPreamble> xpicPreambleSet;
        general_classes::Optional<bool> xpicStatusGet; ///< true reads what the slave's receiver measures

        std::string toString() const;
        void print(TextWriter& text) const;
    };

    /// `eTI_E_FAILED`, without any data, for every failure.
    class ZYR_EXPORT Response : public BaseResponse
    {
      public:
        using BaseResponse::BaseResponse;

        std::uint32_t radioChannelId = 1;
        bool xpicControlBarOn = false;
        bool xpicEnable = false;           ///< never filled
        std::int32_t averageI = 0;         ///< never filled
        std::int32_t averageQ = 0;         ///< never filled
        std::string txMessage;             ///< never filled
        std::string rxMessage;             ///< never filled
        bool xpicLockStateMachine = false; ///< never filled
        std::string xpicState;             ///< never filled
        std::int32_t slaveInternalAgc = 0; ///< 0 without support
        std::int32_t slaveExternalAgc = 0; ///< 0 without support
        bool xpicCableConnected = false;   ///< false without a driver
        bool xpicTxEnable = false;         ///< false without a driver
        LinkType xpicEnableExt = {};       ///< `Disable` without support
        std::int32_t slaveDiffGain = 0;    ///< 0 without support
        /// No preamble at all while it has not been read.
        XpicMimoPreamble xpicPreambleGet = static_cast<XpicMimoPreamble>(4);
        std::int32_t xpdDbTenths =
            0; ///< in tenths of a decibel; this and the rest if the status was asked for
        std::int32_t slaveCarrierOffsetHz = 0;
        std::uint8_t slaveSweepInProgress = 0; ///< prints as a raw byte
        std::uint8_t calibStatus = 0;          ///< prints as a raw byte

        std::string printResponse() const override;
        void print(TextWriter& text) const;
    };

    virtual ~TiManageXpic() = default;
};

/// Dispatches "TI.ManageXPIC". From any thread; waits for other commands.
ZYR_EXPORT TiManageXpic::Response tiManageXpic(const TiManageXpic::Command& command);

} // namespace zyr_top_api
