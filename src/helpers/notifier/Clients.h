#pragma once

#include "helpers/notifier/File.h"

#include <poll.h>

#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace ovrin::notifier {

/// The applications that are connected to the notifier's socket; in practice one.
class Clients
{
public:
    using LineHandler = std::function<void(std::string_view line)>;

    /// Listens at `path`, in place of whatever lies there.
    explicit Clients(const std::string& path);
    bool isListening() const { return static_cast<bool>(m_listener); }

    bool isEmpty() const { return m_clients.empty(); }
    void sendToAll(const std::string& line);

    /// Adds what is to be polled.
    void addTo(std::vector<pollfd>& polled) const;
    /// Takes in new clients and whole lines, without waiting; a client that left or misbehaves is dropped.
    void process(const LineHandler& handler);

private:
    struct Client
    {
        File socket;
        std::string received;
        std::string unsent;
    };

    void accept();
    bool receive(Client& client, const LineHandler& handler);
    static bool flush(Client& client);

    static constexpr std::size_t mostClients = 16;
    /// A client that does not read for so long is not worth the memory.
    static constexpr std::size_t mostUnsent = 1 << 20;

    File m_listener;
    std::list<Client> m_clients;
};

} // namespace ovrin::notifier
