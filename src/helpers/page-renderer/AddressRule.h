#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace ovrin {

/// Whether `address` (IPv4 dotted or IPv6) belongs to the public internet: not loopback, private, link-local,
/// shared, multicast or reserved (the IANA special-purpose registries, RFC 6890), also not as an IPv4 address
/// inside an IPv6 one. False for what is no address.
bool isPublicAddress(std::string_view address);

/// Where the page and all that it loads may connect to. A page on the public internet reaches public
/// addresses only, by whatever redirect, navigation, script or name server; a page that the user named by a
/// private address may reach private ones. Safe to use from several threads.
class AddressRule
{
public:
    /// Addresses of a host name or address; empty when there are none. May block.
    using Resolve = std::function<std::vector<std::string>(const std::string& host)>;

    /// `namedHost` as the user wrote it: its first resolution decides for the whole run and is kept, so that
    /// a name server cannot turn a public host into a private one later.
    AddressRule(std::string namedHost, bool publicOnly, Resolve resolve);

    struct Answer
    {
        std::vector<std::string> addresses;
        /// There were addresses, but none that may be reached.
        bool refused = false;
    };
    Answer addresses(const std::string& host);

private:
    std::string m_namedHost;
    bool m_publicOnly;
    Resolve m_resolve;
    std::once_flag m_named;
    std::vector<std::string> m_namedAddresses;
    bool m_privateAllowed = false;
};

} // namespace ovrin
