#include "desk/mainscreen/UnreadUnit.h"

#include "record/Analysis.h"

#include <algorithm>

namespace metrisk {

std::string unreadUnitNote(const Analysis& record, std::string_view text) {
    const std::size_t digit = text.find_last_of("0123456789");
    if (digit == text.npos) return "";
    std::string_view unit = text.substr(digit + 1);
    unit.remove_prefix(std::min(unit.find_first_not_of(" .,"), unit.size()));
    unit = unit.substr(0, unit.find_last_not_of(' ') + 1);
    if (unit.empty() || unit == "%") return "";
    for (const std::string* known :
         {&record.NominalUnits, &record.SU_ToleranceUnits, &record.MTE_ToleranceUnits})
        if (unit == *known) return "";
    return "\"" + std::string(unit) +
           "\" is not read here: enter all figures in one unit, or choose units under Tol Ref";
}

} // namespace metrisk
