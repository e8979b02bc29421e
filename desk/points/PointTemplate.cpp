#include "desk/points/PointTemplate.h"

#include "persistence/AnalysisName.h"
#include "persistence/NewAnalysis.h"

#include <utility>

namespace metrisk {

namespace {

std::string withoutFolder(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

} // namespace

Analysis PointTemplate::analysis(const Analysis& present) const {
    switch (from) {
    case From::PresentAnalysis: return present;
    case From::Kept:
        if (kept) return *kept;
        break;
    case From::NewAnalysis: break;
    }
    return newAnalysis();
}

void PointTemplate::keep(Analysis analysis, std::string name) {
    kept = std::move(analysis);
    keptName = std::move(name);
    from = From::Kept;
}

void PointTemplate::keepPresent(const Analysis& present) {
    if (from != From::PresentAnalysis) return;
    const std::string& path = present.AnalysisFileName;
    keep(present, isUntitled(path) ? "Former analysis" : "Former analysis, " + withoutFolder(path));
}

std::vector<std::string> PointTemplate::names() const {
    return {"New analysis", "Present analysis", kept ? withoutFolder(keptName) : "File..."};
}

} // namespace metrisk
