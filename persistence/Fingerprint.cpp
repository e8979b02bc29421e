#include "persistence/Fingerprint.h"

#include "base/Digest.h"
#include "base/Real.h"
#include "persistence/AnalysisContent.h"
#include "record/AnalysisFields.h"

namespace metrisk {

std::string inputsFingerprint(const Analysis& record) {
    Analysis inputs = record;
    static const Analysis fresh;
    eachField([&inputs](const Field& field, auto member) {
        if (!isInput(field.source)) inputs.*member = fresh.*member;
    });
    // Derived where the other form of entry is used, and where no side is without a limit.
    if (!inputs.MTE_EntryByUncertainty) {
        inputs.MTE_StdUncertainty = 0;
        inputs.MTE_StdUncertainty_fmt = fresh.MTE_StdUncertainty_fmt;
    }
    if (inputs.OptTwoSided) inputs.PhysicalLimit = 0;
    try {
        return sha256(AnalysisText(inputs));
    } catch (const RuntimeFault&) {
        return "";
    }
}

} // namespace metrisk
