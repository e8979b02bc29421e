// Any bytes as an analysis file: refused or read, never a number that is none; what was read is written
// and read again as the same file.
#include "fuzz/SoundRecord.h"
#include "persistence/AnalysisContent.h"
#include "persistence/NewAnalysis.h"

#include <cstdint>

namespace {

using namespace metrisk;
using namespace metrisk::fuzz;

bool holdsQuote(const Analysis& record) {
    bool found = false;
    visitFields(record, [&](std::string_view, const auto& member) {
        eachElement(member, [&]<class T>(const T& element) {
            if constexpr (std::is_same_v<std::remove_const_t<T>, std::string>)
                found |= element.find('"') != element.npos;
        });
    });
    return found;
}

bool read(Analysis& record, const std::string& content) {
    const auto convert = [] { return true; };
    const auto seen = [] {};
    return parseAnalysis(record, content, {}, {convert, seen}).outcome.fault == ReadFault::None;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Analysis fresh = newAnalysis();
    Analysis first = fresh;
    const bool whole = read(first, std::string(reinterpret_cast<const char*>(data), size));
    requireSoundRecord(first);
    if (!whole) return 0;
    const std::string written = AnalysisText(first);
    if (holdsQuote(first)) return 0; // the form has no escape for it
    Analysis second = fresh;
    require(read(second, written), "the written file is not read");
    require(AnalysisText(second) == written, "the written file reads as another analysis");
    return 0;
}
