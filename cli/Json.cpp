#include "cli/Json.h"

namespace metrisk::cli {

Json messagesJson(const std::vector<Told>& messages) {
    Json items = Json::array();
    for (const Told& message : messages)
        items.push_back({{"title", message.title}, {"text", message.text}, {"answer", message.answer}});
    return items;
}

std::string jsonLine(const Json& object) {
    std::string line = object.dump(-1, ' ', false, Json::error_handler_t::replace);
    // The two kinds of control characters that JSON lets through and terminals obey.
    for (std::size_t at = 0; (at = line.find('\x7F', at)) != line.npos;) line.replace(at, 1, "\\u007f");
    for (std::size_t at = 0; (at = line.find('\xC2', at)) != line.npos; ++at) {
        const auto second = static_cast<unsigned char>(line[at + 1]);
        if (second >= 0xA0) continue;
        constexpr const char* digits = "0123456789abcdef";
        line.replace(at, 2, std::string("\\u00") + digits[second >> 4] + digits[second & 15]);
    }
    return line + "\n";
}

} // namespace metrisk::cli
