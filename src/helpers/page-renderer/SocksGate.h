#pragma once

#include "helpers/page-renderer/AddressRule.h"

#include <gio/gio.h>

#include <string>

namespace ovrin {

/// The one way out for everything that the page loads: a SOCKS 5 server (RFC 1928, 1929) on this machine's
/// loopback that resolves names itself and connects only where an AddressRule lets it. Being below HTTP, it
/// sees redirects, scripts' requests, frames and web sockets alike. It works in threads of its own and
/// asks for a password, so that no other program on the machine can use it.
class SocksGate
{
public:
    explicit SocksGate(AddressRule& rule);
    ~SocksGate();
    SocksGate(const SocksGate&) = delete;
    SocksGate& operator=(const SocksGate&) = delete;

    /// False when there is no loopback to listen on.
    bool start();
    /// `socks5://...` with the password, once started.
    const std::string& address() const { return m_address; }
    const std::string& password() const { return m_password; }
    AddressRule& rule() { return m_rule; }

private:
    AddressRule& m_rule;
    std::string m_password;
    std::string m_address;
    GSocketService* m_service = nullptr;
};

/// Addresses of a name by the system's resolver.
std::vector<std::string> resolveBySystem(const std::string& host);

} // namespace ovrin
