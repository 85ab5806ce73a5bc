#include "import/web/AddressGuard.h"

#include "import/error/RecipeImportError.h"

#include <QtCore/QtEndian>

#include <algorithm>
#include <array>
#include <optional>

namespace ovrin {
namespace {

struct Block
{
    quint32 network;
    int bits;
};

constexpr std::array<Block, 13> notPublic{{
    {0x00000000, 8},  // this network
    {0x0A000000, 8},  // private
    {0x64400000, 10}, // shared by a provider's customers
    {0x7F000000, 8},  // loopback
    {0xA9FE0000, 16}, // link-local
    {0xAC100000, 12}, // private
    {0xC0000000, 24}, // protocol assignments
    {0xC0A80000, 16}, // private
    {0xC6120000, 15}, // benchmarking
    {0xC0000200, 24}, // documentation, here and below
    {0xC6336400, 24},
    {0xCB007100, 24},
    {0xE0000000, 3}, // multicast, reserved, broadcast
}};

bool isPrivateIPv4(quint32 address)
{
    return std::any_of(notPublic.begin(), notPublic.end(), [address](const Block& block) {
        return (address ^ block.network) >> (32 - block.bits) == 0;
    });
}

/// The IPv4 address that an IPv6 address stands for: mapped, translated (64:ff9b::/96) or tunnelled
/// (2002::/16).
std::optional<quint32> embeddedIPv4(const Q_IPV6ADDR& address)
{
    const quint8* const bytes = address.c;
    const bool zeroes = std::all_of(bytes, bytes + 10, [](quint8 byte) { return byte == 0; });
    if (zeroes && ((bytes[10] == 0xFF && bytes[11] == 0xFF) || (bytes[10] == 0 && bytes[11] == 0))) {
        return qFromBigEndian<quint32>(bytes + 12);
    }
    constexpr std::array<quint8, 12> translated{0x00, 0x64, 0xFF, 0x9B, 0, 0, 0, 0, 0, 0, 0, 0};
    if (std::equal(translated.begin(), translated.end(), bytes)) {
        return qFromBigEndian<quint32>(bytes + 12);
    }
    if (bytes[0] == 0x20 && bytes[1] == 0x02) {
        return qFromBigEndian<quint32>(bytes + 2);
    }
    return std::nullopt;
}

} // namespace

bool isPrivateAddress(const QHostAddress& address)
{
    if (address.protocol() == QAbstractSocket::IPv4Protocol) {
        return isPrivateIPv4(address.toIPv4Address());
    }
    if (address.protocol() != QAbstractSocket::IPv6Protocol) {
        return true;
    }
    const Q_IPV6ADDR bytes = address.toIPv6Address();
    if (const auto inner = embeddedIPv4(bytes)) {
        return isPrivateIPv4(*inner);
    }
    // What is public lies in 2000::/3, and of that the protocol assignments and documentation do not.
    const quint32 start = qFromBigEndian<quint32>(bytes.c);
    return (start >> 29) != 1 || (start & 0xFFFFFE00) == 0x20010000 || start == 0x20010DB8;
}

bool isWebAddress(const QUrl& url)
{
    return url.isValid() && !url.host().isEmpty() && (url.scheme() == u"http" || url.scheme() == u"https");
}

QUrl redirectTarget(const QUrl& from, const QUrl& location)
{
    QUrl target = from.resolved(location);
    const bool sameSite =
        target.host() == from.host() && target.port() == from.port() && target.scheme() == from.scheme();
    target.setUserInfo(sameSite ? from.userInfo(QUrl::FullyEncoded) : QString());
    if (!isWebAddress(target) || (from.scheme() == u"https" && target.scheme() != u"https")) {
        throw TransportError(TransportError::Case::RedirectRefused);
    }
    return target;
}

} // namespace ovrin
