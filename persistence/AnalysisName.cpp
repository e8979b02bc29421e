#include "persistence/AnalysisName.h"

#include "base/Text.h"
#include "record/Analysis.h"

namespace metrisk {
namespace {

constexpr const char* untitledFile = "(UNTITLED).MRK";

bool endsCaseBlind(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && equalCaseBlind(text.substr(text.size() - end.size()), end);
}

} // namespace

bool isUntitled(std::string_view name) {
    return equalCaseBlind(name, untitledName) || equalCaseBlind(name, untitledFile);
}

std::string NormalizeAnalysisName(std::string_view path) {
    if (endsCaseBlind(path, ".mrk")) return std::string(path);
    if (endsCaseBlind(path, ".dat")) path.remove_suffix(4);
    return std::string(path) + ".mrk";
}

} // namespace metrisk
