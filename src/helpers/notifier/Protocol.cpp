#include "helpers/notifier/Protocol.h"

namespace ovrin::notifier {

std::vector<std::string_view> fields(std::string_view line)
{
    std::vector<std::string_view> result;
    while (true) {
        const std::size_t tab = line.find('\t');
        result.push_back(line.substr(0, tab));
        if (tab == std::string_view::npos)
            return result;
        line.remove_prefix(tab + 1);
    }
}

std::string line(std::initializer_list<std::string_view> fields)
{
    std::string result;
    for (const std::string_view field : fields) {
        if (!result.empty())
            result += '\t';
        for (const char c : field)
            result += static_cast<unsigned char>(c) < ' ' || c == '\x7f' ? ' ' : c;
    }
    return result += '\n';
}

} // namespace ovrin::notifier
