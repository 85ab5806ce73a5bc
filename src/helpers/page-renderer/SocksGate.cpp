#include "helpers/page-renderer/SocksGate.h"

#include <array>
#include <cstdint>
#include <optional>
#include <thread>

namespace ovrin {
namespace {

constexpr int maxConnections = 64;
constexpr unsigned connectSeconds = 15;
constexpr std::string_view user = "page";

enum class Reply : std::uint8_t {
    Connected = 0,
    NotAllowed = 2,
    HostUnreachable = 4,
    Refused = 5,
    BadCommand = 7
};

/// One client's talk; every read is of an exact number of bytes.
class Talk
{
public:
    explicit Talk(GSocketConnection* connection)
        : m_input(g_io_stream_get_input_stream(G_IO_STREAM(connection)))
        , m_output(g_io_stream_get_output_stream(G_IO_STREAM(connection)))
    {
    }

    std::optional<std::string> bytes(std::size_t count)
    {
        std::string read(count, '\0');
        gsize got = 0;
        if (!g_input_stream_read_all(m_input, read.data(), count, &got, nullptr, nullptr) || got != count)
            return std::nullopt;
        return read;
    }
    std::optional<std::size_t> number(std::size_t byteCount = 1)
    {
        const std::optional<std::string> read = bytes(byteCount);
        if (!read)
            return std::nullopt;
        std::size_t value = 0;
        for (const char byte : *read)
            value = value * 256 + static_cast<std::uint8_t>(byte);
        return value;
    }
    /// A length of one byte, and as many bytes.
    std::optional<std::string> counted()
    {
        const std::optional<std::size_t> count = number();
        return count ? bytes(*count) : std::nullopt;
    }
    bool send(std::string_view what)
    {
        return g_output_stream_write_all(m_output, what.data(), what.size(), nullptr, nullptr, nullptr);
    }
    void reply(Reply reply) { send(std::string{5, static_cast<char>(reply), 0, 1, 0, 0, 0, 0, 0, 0}); }

private:
    GInputStream* m_input;
    GOutputStream* m_output;
};

bool authenticate(Talk& talk, const std::string& password)
{
    if (talk.number() != 5)
        return false;
    const std::optional<std::string> methods = talk.counted();
    if (!methods || methods->find('\2') == std::string::npos || !talk.send("\5\2"))
        return false;
    if (talk.number() != 1)
        return false;
    const bool right = talk.counted() == user && talk.counted() == password;
    return talk.send(right ? std::string_view("\1\0", 2) : std::string_view("\1\1", 2)) && right;
}

struct Target
{
    std::string host;
    guint16 port = 0;
};

std::optional<Target> readTarget(Talk& talk)
{
    const std::optional<std::string> head = talk.bytes(4);
    if (!head || (*head)[0] != 5)
        return std::nullopt;
    if ((*head)[1] != 1) {
        talk.reply(Reply::BadCommand);
        return std::nullopt;
    }
    const char kind = (*head)[3];
    std::optional<std::string> host;
    if (kind == 3) {
        host = talk.counted();
    } else if (kind == 1 || kind == 4) {
        if (const std::optional<std::string> raw = talk.bytes(kind == 1 ? 4 : 16)) {
            const GSocketFamily family = kind == 1 ? G_SOCKET_FAMILY_IPV4 : G_SOCKET_FAMILY_IPV6;
            g_autoptr(GInetAddress) address =
                g_inet_address_new_from_bytes(reinterpret_cast<const guint8*>(raw->data()), family);
            g_autofree char* text = g_inet_address_to_string(address);
            host = text;
        }
    }
    const std::optional<std::size_t> port = talk.number(2);
    if (!host || host->empty() || host->find('\0') != std::string::npos || !port)
        return std::nullopt;
    g_autofree char* lower = g_ascii_strdown(host->c_str(), -1);
    return Target{lower, static_cast<guint16>(*port)};
}

/// Owned by the caller; null, after having replied, when there is none.
GSocketConnection* connectTo(const Target& target, AddressRule& rule, Talk& talk)
{
    const AddressRule::Answer answer = rule.addresses(target.host);
    if (answer.addresses.empty()) {
        talk.reply(answer.refused ? Reply::NotAllowed : Reply::HostUnreachable);
        return nullptr;
    }
    g_autoptr(GSocketClient) client = g_socket_client_new();
    g_socket_client_set_enable_proxy(client, FALSE);
    g_socket_client_set_timeout(client, connectSeconds);
    for (const std::string& address : answer.addresses) {
        g_autoptr(GSocketAddress) end = g_inet_socket_address_new_from_string(address.c_str(), target.port);
        if (end == nullptr)
            continue;
        if (GSocketConnection* connection =
                g_socket_client_connect(client, G_SOCKET_CONNECTABLE(end), nullptr, nullptr)) {
            g_socket_set_timeout(g_socket_connection_get_socket(connection), 0);
            return connection;
        }
    }
    talk.reply(Reply::Refused);
    return nullptr;
}

/// Carries bytes one way until either end closes, then tells both.
void carry(GSocket* from, GSocket* to)
{
    std::array<char, 16384> buffer;
    for (gssize got = 0;
         (got = g_socket_receive(from, buffer.data(), buffer.size(), nullptr, nullptr)) > 0;) {
        for (gssize sent = 0, once = 0; sent < got; sent += once) {
            once = g_socket_send(to, buffer.data() + sent, static_cast<gsize>(got - sent), nullptr, nullptr);
            if (once < 0) {
                g_socket_shutdown(from, TRUE, TRUE, nullptr);
                return;
            }
        }
    }
    g_socket_shutdown(to, FALSE, TRUE, nullptr);
}

gboolean serve(GThreadedSocketService* /*service*/, GSocketConnection* connection, GObject* /*source*/,
               gpointer data)
{
    auto* gate = static_cast<SocksGate*>(data);
    Talk talk(connection);
    if (!authenticate(talk, gate->password()))
        return TRUE;
    const std::optional<Target> target = readTarget(talk);
    if (!target)
        return TRUE;
    g_autoptr(GSocketConnection) outside = connectTo(*target, gate->rule(), talk);
    if (outside == nullptr)
        return TRUE;
    talk.reply(Reply::Connected);
    GSocket* near = g_socket_connection_get_socket(connection);
    GSocket* far = g_socket_connection_get_socket(outside);
    const std::jthread back(carry, far, near);
    carry(near, far);
    return TRUE;
}

std::string randomPassword()
{
    g_autofree char* text = g_uuid_string_random();
    return text;
}

} // namespace

SocksGate::SocksGate(AddressRule& rule)
    : m_rule(rule)
    , m_password(randomPassword())
{
}

SocksGate::~SocksGate()
{
    if (m_service != nullptr) {
        g_socket_service_stop(m_service);
        g_object_unref(m_service);
    }
}

bool SocksGate::start()
{
    m_service = g_threaded_socket_service_new(maxConnections);
    g_autoptr(GInetAddress) loopback = g_inet_address_new_loopback(G_SOCKET_FAMILY_IPV4);
    g_autoptr(GSocketAddress) anyPort = g_inet_socket_address_new(loopback, 0);
    g_autoptr(GSocketAddress) bound = nullptr;
    if (!g_socket_listener_add_address(G_SOCKET_LISTENER(m_service), anyPort, G_SOCKET_TYPE_STREAM,
                                       G_SOCKET_PROTOCOL_TCP, nullptr, &bound, nullptr))
        return false;
    const guint16 port = g_inet_socket_address_get_port(G_INET_SOCKET_ADDRESS(bound));
    m_address = "socks5://" + std::string(user) + ":" + m_password + "@127.0.0.1:" + std::to_string(port);
    g_signal_connect(m_service, "run", G_CALLBACK(serve), this);
    return true;
}

std::vector<std::string> resolveBySystem(const std::string& host)
{
    g_autoptr(GResolver) resolver = g_resolver_get_default();
    GList* found = g_resolver_lookup_by_name(resolver, host.c_str(), nullptr, nullptr);
    std::vector<std::string> addresses;
    for (const GList* entry = found; entry != nullptr; entry = entry->next) {
        g_autofree char* text = g_inet_address_to_string(G_INET_ADDRESS(entry->data));
        addresses.emplace_back(text);
    }
    g_resolver_free_addresses(found);
    return addresses;
}

} // namespace ovrin
