#include "helpers/notifier/Clients.h"

#include "helpers/notifier/Protocol.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <cerrno>

namespace ovrin::notifier {

Clients::Clients(const std::string& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path))
        return;
    path.copy(address.sun_path, path.size());
    File socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    ::unlink(path.c_str());
    if (::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 &&
        ::listen(socket.get(), mostClients) == 0)
        m_listener = std::move(socket);
}

void Clients::sendToAll(const std::string& line)
{
    for (Client& client : m_clients) {
        client.unsent += line;
        // What goes wrong shows again when it is polled.
        flush(client);
    }
}

void Clients::addTo(std::vector<pollfd>& polled) const
{
    polled.push_back({m_listener.get(), POLLIN, 0});
    for (const Client& client : m_clients)
        polled.push_back(
            {client.socket.get(), static_cast<short>(client.unsent.empty() ? POLLIN : POLLIN | POLLOUT), 0});
}

void Clients::process(const LineHandler& handler)
{
    for (auto next = m_clients.begin(); next != m_clients.end();) {
        const auto client = next++;
        const bool isThere = receive(*client, handler) && flush(*client);
        if (!isThere || client->unsent.size() > mostUnsent)
            m_clients.erase(client);
    }
    accept();
}

void Clients::accept()
{
    File socket(::accept4(m_listener.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (socket && m_clients.size() < mostClients)
        m_clients.push_back({std::move(socket), {}, {}});
}

bool Clients::receive(Client& client, const LineHandler& handler)
{
    std::array<char, 16'384> buffer;
    while (true) {
        const ssize_t length = ::recv(client.socket.get(), buffer.data(), buffer.size(), 0);
        if (length == 0)
            return false;
        if (length < 0)
            return errno == EAGAIN || errno == EINTR;
        client.received.append(buffer.data(), static_cast<std::size_t>(length));
        std::size_t start = 0;
        for (std::size_t end = 0; (end = client.received.find('\n', start)) != std::string::npos;
             start = end + 1)
            handler(std::string_view(client.received).substr(start, end - start));
        client.received.erase(0, start);
        if (client.received.size() > longestLine)
            return false;
    }
}

bool Clients::flush(Client& client)
{
    while (!client.unsent.empty()) {
        const ssize_t length =
            ::send(client.socket.get(), client.unsent.data(), client.unsent.size(), MSG_NOSIGNAL);
        if (length < 0)
            return errno == EAGAIN || errno == EINTR;
        client.unsent.erase(0, static_cast<std::size_t>(length));
    }
    return true;
}

} // namespace ovrin::notifier
