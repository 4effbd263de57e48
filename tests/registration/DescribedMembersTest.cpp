#include "CommandList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <vector>

// The compiler counts the members of requests, but not those of responses, which have a base. Here they are
// found by what a default response writes into its memory: every byte behind the base that it sets must
// belong to a described field.

namespace
{

using zyr_registration::Description;
using zyr_registration::Field;
using zyr_registration::TypeList;
using zyr_top_api::BaseResponse;
using zyr_top_api::StandardResponse;

// The memory of a default object that was made in memory full of one byte.
template <class T>
std::vector<unsigned char> memoryOfDefault(unsigned char filling)
{
    // By an address that the optimiser doesn't know: it may forget what was in the memory before.
    void* (*volatile const make)(void*) = [](void* memory) -> void* { return ::new (memory) T; };
    const auto memory = std::make_unique<std::byte[]>(sizeof(T));
    std::memset(memory.get(), filling, sizeof(T));
    auto* const made = static_cast<T*>(make(memory.get()));
    std::vector<unsigned char> bytes(sizeof(T));
    std::memcpy(bytes.data(), memory.get(), sizeof(T));
    std::destroy_at(made);
    return bytes;
}

// Which bytes a default object sets.
template <class T>
std::vector<bool> setBytes()
{
    constexpr unsigned char one = 0xA5;
    constexpr unsigned char other = 0x5A;
    const auto first = memoryOfDefault<T>(one);
    const auto second = memoryOfDefault<T>(other);
    std::vector<bool> isSet(sizeof(T));
    for (std::size_t index = 0; index < sizeof(T); ++index) {
        isSet[index] = first[index] != one || second[index] != other;
    }
    return isSet;
}

// The offsets of the bytes that a response sets and that belong to no field.
template <class Response>
std::vector<std::size_t> undescribedBytes(std::span<const Field> fields)
{
    using Base =
        std::conditional_t<std::is_base_of_v<StandardResponse, Response>, StandardResponse, BaseResponse>;
    std::vector<bool> isSet = setBytes<Response>();
    std::fill_n(isSet.begin(), sizeof(Base), false);
    Response response;
    for (const Field& field : fields) {
        const auto offset =
            static_cast<std::byte*>(field.address(&response)) - reinterpret_cast<std::byte*>(&response);
        std::fill_n(isSet.begin() + offset, field.size, false);
    }
    std::vector<std::size_t> offsets;
    for (std::size_t index = 0; index < isSet.size(); ++index) {
        if (isSet[index]) {
            offsets.push_back(index);
        }
    }
    return offsets;
}

template <class... XImpl>
void expectAllDescribed(TypeList<XImpl...>)
{
    (
        [] {
            EXPECT_EQ(undescribedBytes<typename XImpl::Response>(Description<XImpl>::response),
                      std::vector<std::size_t>())
                << XImpl::identity.wireName << " has a member at these offsets that isn't described";
        }(),
        ...);
}

TEST(DescribedMembersTest, EveryMemberOfEveryResponseIsDescribed)
{
    expectAllDescribed(zyr_registration::CommandList());
}

TEST(DescribedMembersTest, UndescribedMemberIsFoundAndPaddingIsNot)
{
    struct Response : BaseResponse
    {
        bool flag = false;
        std::uint32_t number = 0;
        bool last = false;
    };
    constexpr std::array all{zyr_registration::field<&Response::flag>("flag"),
                             zyr_registration::field<&Response::number>("number", {.unit = "s"}),
                             zyr_registration::field<&Response::last>("last")};
    EXPECT_TRUE(undescribedBytes<Response>(all).empty());
    EXPECT_EQ(undescribedBytes<Response>(std::span(all).first(2)).size(), 1U);
    EXPECT_EQ(undescribedBytes<Response>(std::span(all).last(1)).size(), 5U);
}

} // namespace
