// Any bytes as an analysis file: told or read, never a number that is none; what was read is written
// and read again as the same file.
#include "desk/files/AnalysisFile.h"
#include "desk/files/ClearAnalysis.h"
#include "fuzz/SoundRecord.h"
#include "tests/support/SilentSession.h"

#include <cstdint>

namespace {

using namespace metrisk;
using namespace metrisk::fuzz;

bool holdsQuote(const Analysis& record) {
    bool found = false;
    visitFields(record, [&](std::string_view field, const auto& member) {
        visitElements(std::string(field), member, [&]<class T>(const std::string&, const T& element) {
            if constexpr (std::is_same_v<std::remove_const_t<T>, std::string>)
                found |= element.find('"') != element.npos;
        });
    });
    return found;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string content(reinterpret_cast<const char*>(data), size);
    testing::SilentSession first;
    ClearAnalysis(first.session);
    ReadAnalysisText(first.session, content, "fuzz.mrk");
    requireSoundRecord(first.session.record);
    if (first.session.record.AbortFlag) {
        require(first.ui.boxes > 0, "a failure without a box");
        return 0;
    }

    const std::string written = AnalysisText(first.session.record);
    if (holdsQuote(first.session.record)) return 0; // the form has no escape for it
    testing::SilentSession second;
    ClearAnalysis(second.session);
    ReadAnalysisText(second.session, written, "fuzz.mrk");
    require(!second.session.record.AbortFlag, "the written file is not read");
    require(AnalysisText(second.session.record) == written, "the written file reads as another analysis");
    return 0;
}
