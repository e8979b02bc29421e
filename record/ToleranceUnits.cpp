#include "record/ToleranceUnits.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "base/RelativeUnits.h"

namespace metrisk {

namespace {

double unlessZero(double factor) {
    return factor == 0 ? 1 : factor;
}

} // namespace

bool ToleranceUnits::isPpm() const {
    return name == ppmUnits;
}

double ToleranceUnits::toNominal(double shown) const {
    return checked(shown / factor);
}

std::string ToleranceUnits::heldPicture(const NumberEntry& entry) const {
    return HeldOffsetPicture(entry.decimals, shift);
}

std::string ToleranceUnits::shownPicture(std::string_view heldPicture) const {
    return ShownOffsetPicture(heldPicture, shift);
}

std::string ToleranceUnits::text(double nominal, std::string_view heldPicture,
                                 const Regional& regional) const {
    return withUnits(FormatNumber(shown(nominal), shownPicture(heldPicture), regional), name);
}

ToleranceUnits subjectUnits(const Analysis& r) {
    return {unlessZero(r.SU_TolUnitsFactor), r.SU_TolDecimalShift, r.SU_ToleranceUnits};
}

ToleranceUnits measuringUnits(const Analysis& r) {
    return {unlessZero(r.MTE_TolUnitsFactor), r.SU_SigDigits, r.MTE_ToleranceUnits};
}

std::string withUnits(std::string number, std::string_view units) {
    if (!number.empty() && !units.empty()) number.append(" ").append(units);
    return number;
}

} // namespace metrisk
