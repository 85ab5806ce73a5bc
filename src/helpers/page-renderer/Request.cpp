#include "helpers/page-renderer/Request.h"

#include <getopt.h>
#include <glib.h>

#include <charconv>
#include <cstring>

namespace ovrin {
namespace {

/// Longer than any import waits, short enough for every sum of times to be safe.
constexpr int maxTimeoutMilliseconds = 600'000;

std::optional<std::chrono::milliseconds> readTimeout(const char* text)
{
    int value = 0;
    const char* end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, value);
    if (error != std::errc() || stop != end || value < 1 || value > maxTimeoutMilliseconds)
        return std::nullopt;
    return std::chrono::milliseconds(value);
}

std::optional<std::string> webHost(const char* address)
{
    g_autoptr(GUri) uri = g_uri_parse(address, G_URI_FLAGS_ENCODED, nullptr);
    if (uri == nullptr || g_uri_get_host(uri) == nullptr)
        return std::nullopt;
    const std::string scheme = g_uri_get_scheme(uri);
    if (scheme != "http" && scheme != "https")
        return std::nullopt;
    g_autofree char* ascii = g_hostname_to_ascii(g_uri_get_host(uri));
    if (ascii == nullptr || *ascii == '\0')
        return std::nullopt;
    g_autofree char* lower = g_ascii_strdown(ascii, -1);
    return std::string(lower);
}

} // namespace

std::optional<RenderRequest> readRequest(int argc, char** argv)
{
    const auto start = std::chrono::steady_clock::now();
    static const option options[] = {{"timeout", required_argument, nullptr, 't'},
                                     {"public-only", no_argument, nullptr, 'p'},
                                     {nullptr, 0, nullptr, 0}};
    RenderRequest request;
    std::optional<std::chrono::milliseconds> timeout;
    opterr = 0;
    for (int found = 0; (found = getopt_long(argc, argv, "", options, nullptr)) != -1;) {
        if (found == 't')
            timeout = readTimeout(optarg);
        else if (found == 'p')
            request.publicOnly = true;
        else
            return std::nullopt;
    }
    if (!timeout || optind + 1 != argc)
        return std::nullopt;
    const std::optional<std::string> host = webHost(argv[optind]);
    if (!host)
        return std::nullopt;
    request.address = argv[optind];
    request.host = *host;
    request.deadline = start + *timeout;
    return request;
}

} // namespace ovrin
