// Any bytes as the file of the partner program: refused, or taken without a number that is none; what was
// taken can be written for the partner.
#include "base/Real.h"
#include "base/Text.h"
#include "desk/files/ClearAnalysis.h"
#include "desk/links/TakeExchange.h"
#include "fuzz/SoundRecord.h"
#include "links/ExchangeFile.h"
#include "tests/support/SilentSession.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace metrisk;
    const std::string content = toUtf8({reinterpret_cast<const char*>(data), size});
    for (const bool deviations : {true, false}) {
        testing::SilentSession own;
        ClearAnalysis(own.session);
        Analysis& record = own.session.record;
        for (int slot = 1; slot <= 2; ++slot) record.Stat_Flag1[slot] = deviations ? 0 : 1;
        const Analysis before = record;
        try {
            const Exchange read = readExchange(content);
            if (read.hasTolerances) takeTolerances(own.session, read);
            takeProcessErrors(own.session, read);
        } catch (const RuntimeFault&) {
            record = before; // as the import does
            continue;
        }
        fuzz::requireSoundRecord(record);
        try {
            fuzz::require(!writeExchange(record, {}).empty(), "nothing written");
        } catch (const RuntimeFault&) {
            continue; // figures at the end of the range may leave it in other units
        }
    }
    return 0;
}
