#include "record/Analysis.h"

namespace metrisk {

Analysis::Analysis() = default;
Analysis::Analysis(const Analysis& other) = default;
Analysis::Analysis(Analysis&& other) noexcept = default;
Analysis& Analysis::operator=(const Analysis& other) = default;
Analysis& Analysis::operator=(Analysis&& other) noexcept = default;
Analysis::~Analysis() = default;

} // namespace metrisk
