// Prints the tables of the help page on exact integration: the digits in which the published risks agree with
// it, over accuracy ratio and % in-tolerance.
#include "base/Real.h"
#include "risk/FittedSubject.h"
#include "risk/SubjectFit.h"
#include "risk/exact/Verified.h"
#include "tests/support/Cases.h"

#include <algorithm>
#include <cstdio>

namespace {

using namespace metrisk;
using namespace metrisk::testing;

constexpr double ratios[] = {1, 2, 4, 10, 20, 50, 100, 200, 500, 1000};
constexpr double percentages[] = {16, 30, 50, 70, 85, 95, 99, 99.9, 99.999};

/// The fewer of the digits of both risks, -1 if there are none.
int digits(Entry entry, double ratio) {
    try {
        Analysis record;
        enter(record, entry);
        const SubjectBias su = subjectBiasOf(fitSubject(record, {}));
        const double mteSigma = std::max(su.upperOffset, su.lowerOffset) / ratio / 1.959964;
        const AcceptanceRange range{-su.lowerOffset, su.upperOffset};
        const auto p = RiskModel(su, mteSigma).at(range);
        const auto exact = exactRisks(su, mteSigma, range);
        if (!p || !exact || !(p->joint > 0) || !(p->accepted > 0)) return -1;
        const Risks published = risksOf(*p, 0);
        return std::min(agreeingDigits({published.falseAccept, exact->falseAccept(0)}),
                        agreeingDigits({published.falseReject, exact->falseReject()}));
    } catch (const RuntimeFault&) {
    } catch (const FitRefusal&) {
    }
    return -1;
}

const char* colour(int digits) {
    return digits < 0 ? "#dddddd" : digits < 2 ? "#f4a6a0" : digits < 4 ? "#f7dfa0" : "#bfe3bf";
}

void table(const char* title, Entry entry) {
    std::printf(
        "<h3>%s</h3>\n<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\">\n<tr><th>%% in-tolerance</th>",
        title);
    for (const double ratio : ratios) std::printf("<th>%g : 1</th>", ratio);
    std::printf("</tr>\n");
    for (const double pct : percentages) {
        std::printf("<tr><th>%g</th>", pct);
        entry.pctInTol = pct;
        for (const double ratio : ratios) {
            const int agreeing = digits(entry, ratio);
            std::printf("<td bgcolor=\"%s\" align=\"center\"><font color=\"black\">%s</font></td>",
                        colour(agreeing), agreeing < 0 ? "-" : std::to_string(agreeing).c_str());
        }
        std::printf("</tr>\n");
    }
    std::printf("</table>\n");
}

} // namespace

int main() {
    table("Normal, two-sided", twoSided(0.5, 0.5, 0));
    table("LogNormal, single-sided with a physical limit",
          withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 9.2, 0));
}
