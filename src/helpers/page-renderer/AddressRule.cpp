#include "helpers/page-renderer/AddressRule.h"

#include <arpa/inet.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace ovrin {
namespace {

struct Range
{
    std::array<std::uint8_t, 16> start;
    int bits;
};

constexpr Range notPublic4[] = {
    {{0}, 8},         {{10}, 8},       {{100, 64}, 10},      {{127}, 8},
    {{169, 254}, 16}, {{172, 16}, 12}, {{192, 0, 0}, 24},    {{192, 0, 2}, 24},
    {{192, 168}, 16}, {{198, 18}, 15}, {{198, 51, 100}, 24}, {{203, 0, 113}, 24},
    {{224}, 4},       {{240}, 4},
};

/// Everything outside global unicast (2000::/3) is dealt with before.
constexpr Range notPublic6[] = {
    {{0x20, 0x01, 0x00, 0x00}, 23}, // Teredo, benchmarking, ORCHID and other protocol assignments
    {{0x20, 0x01, 0x0d, 0xb8}, 32}, // documentation
    {{0x3f, 0xff}, 20},             // documentation
};

bool in(const std::uint8_t* address, const Range& range)
{
    const auto whole = static_cast<std::size_t>(range.bits / 8);
    if (std::memcmp(address, range.start.data(), whole) != 0)
        return false;
    const auto mask = static_cast<std::uint8_t>(0xff00 >> (range.bits % 8));
    return range.bits % 8 == 0 || (address[whole] & mask) == (range.start[whole] & mask);
}

bool isPublic4(const std::uint8_t* address)
{
    return std::none_of(std::begin(notPublic4), std::end(notPublic4),
                        [&](const Range& range) { return in(address, range); });
}

bool isPublic6(const std::uint8_t* address)
{
    constexpr Range nat64{{0x00, 0x64, 0xff, 0x9b}, 96};
    constexpr Range mapped{{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff}, 96};
    constexpr Range sixToFour{{0x20, 0x02}, 16};
    constexpr Range globalUnicast{{0x20}, 3};
    if (in(address, nat64) || in(address, mapped))
        return isPublic4(address + 12);
    if (in(address, sixToFour))
        return isPublic4(address + 2);
    return in(address, globalUnicast) && std::none_of(std::begin(notPublic6), std::end(notPublic6),
                                                      [&](const Range& range) { return in(address, range); });
}

} // namespace

bool isPublicAddress(std::string_view address)
{
    const std::string text(address);
    std::array<std::uint8_t, 16> bytes{};
    if (inet_pton(AF_INET, text.c_str(), bytes.data()) == 1)
        return isPublic4(bytes.data());
    if (inet_pton(AF_INET6, text.c_str(), bytes.data()) == 1)
        return isPublic6(bytes.data());
    return false;
}

AddressRule::AddressRule(std::string namedHost, bool publicOnly, Resolve resolve)
    : m_namedHost(std::move(namedHost))
    , m_publicOnly(publicOnly)
    , m_resolve(std::move(resolve))
{
}

AddressRule::Answer AddressRule::addresses(const std::string& host)
{
    std::call_once(m_named, [this] {
        m_namedAddresses = m_resolve(m_namedHost);
        m_privateAllowed =
            !m_publicOnly && !std::all_of(m_namedAddresses.begin(), m_namedAddresses.end(), isPublicAddress);
    });
    Answer answer;
    answer.addresses = host == m_namedHost ? m_namedAddresses : m_resolve(host);
    if (m_privateAllowed || answer.addresses.empty())
        return answer;
    std::erase_if(answer.addresses, [](const std::string& address) { return !isPublicAddress(address); });
    answer.refused = answer.addresses.empty();
    return answer;
}

} // namespace ovrin
