#include "desk/points/PointFiles.h"

#include "base/AtomicFile.h"
#include "base/Text.h"
#include "desk/files/OpenAnalysis.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "persistence/NewAnalysis.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace metrisk {

namespace {

constexpr std::uintmax_t largestTable = std::uintmax_t{1} << 30;

std::string bytesOf(const std::string& path) {
    std::error_code fault;
    const auto size = std::filesystem::file_size(path, fault);
    if (fault) throw std::runtime_error(fault.message());
    if (size > largestTable)
        throw std::runtime_error("It is larger than 1 GiB: compute it by the command rows.");
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file) throw std::runtime_error(std::strerror(errno));
    return bytes;
}

} // namespace

bool isTable(std::string_view path) {
    const auto ends = [path](std::string_view end) {
        return path.size() > end.size() && equalCaseBlind(path.substr(path.size() - end.size()), end);
    };
    return ends(".csv") || ends(".tsv");
}

PointSheet readTable(const std::string& path) {
    return PointSheet::ofText(bytesOf(path));
}

bool writeTable(Talk& ui, const std::string& path, std::string_view text) {
    if (replaceFile(path, text)) return true;
    tell(ui, {"The table could not be written.\n\n" + std::string(std::strerror(errno)), path});
    return false;
}

std::optional<Analysis> readTemplate(Session& session, const std::string& path) {
    Session aside{session.settings, session.ui, session.clock, session.regional};
    aside.record = newAnalysis();
    OpenAnalysis(aside, path);
    return aside.record.AbortFlag ? std::nullopt : std::optional(aside.record);
}

} // namespace metrisk
