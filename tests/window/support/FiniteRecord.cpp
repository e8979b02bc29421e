#include "tests/window/support/FiniteRecord.h"

#include "record/AnalysisFields.h"

#include <cmath>
#include <tuple>

namespace metrisk::testing {

QString firstNonFinite(const Analysis& record) {
    QString found;
    visitFields(record, [&found](std::string_view name, const auto& member) {
        visitElements(std::string(name), member, [&found](const std::string& element, const auto& value) {
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(value)>, double>)
                if (found.isEmpty() && !std::isfinite(value))
                    found = QString("%1 = %2").arg(QString::fromStdString(element)).arg(value);
        });
    });
    return found;
}

} // namespace metrisk::testing
