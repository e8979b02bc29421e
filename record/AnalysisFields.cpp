// Every member of the record's groups stands in the table: one that is forgotten does not compile.
#include "record/AnalysisFields.h"

namespace metrisk {
namespace {

/// Stands for a value of any type.
struct Any {
    template <class T>
    operator T() const;
};

/// How many members an aggregate has.
template <class T, class... Found>
constexpr std::size_t memberCount() {
    if constexpr (requires { T{Found{}..., Any{}}; })
        return memberCount<T, Found..., Any>();
    else
        return sizeof...(Found);
}

template <class... Groups>
constexpr std::size_t allMembers = (memberCount<Groups>() + ...);

constexpr std::size_t fieldCount() {
    std::size_t count = 0;
    eachField([&count](const Field&, auto) { ++count; });
    return count;
}

static_assert(fieldCount() ==
              allMembers<Identification, SubjectParameter, MeasuringParameter, RiskResults, Baseline,
                         Guardbands, ProcessErrors, SampleStatistics, ObservedPct, BiasAnalysis, Reliability,
                         ReportFields, PlotOptions, Snapshot, SessionState>);

} // namespace
} // namespace metrisk
