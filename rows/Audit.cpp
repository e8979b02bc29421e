#include "rows/Audit.h"

#include "base/DisplayRule.h"
#include "record/Analysis.h"
#include "risk/evaluate/CurrentFigures.h"
#include "rows/PointFigures.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double rounding = 1e-9;

/// Of the first column of that name.
class NamedFigures {
  public:
    NamedFigures(const TestPoint& point, const Want& want, std::string& notes) : want_(want) {
        figuresOf(point, want, figures_, notes);
    }
    std::optional<double> operator()(std::string_view name) const {
        std::size_t at = 0;
        for (const WantInfo& info : wantTable()) {
            if (!want_.has(info.word)) continue;
            for (const FigureColumn& column : info.columns) {
                if (column.name == name) return numberOf(figures_.values[at]);
                ++at;
            }
        }
        return std::nullopt;
    }

  private:
    static std::optional<double> numberOf(const FigureValue& value) {
        return value.kind == FigureValue::Kind::Number ? std::optional(value.number) : std::nullopt;
    }

    const Want& want_;
    PointFigures figures_{};
};

/// Of a file's 15 digits; the rest is that of a fraction which was a percentage.
bool sameDigits(double stored, double computed) {
    if (stored == computed) return true;
    const double size = std::max(std::fabs(stored), std::fabs(computed));
    const double unit = std::pow(10, std::floor(std::log10(size)) - 14);
    return std::fabs(stored - computed) <= 0.6 * unit;
}

Agreement agreementOf(double stored, double computed) {
    if (sameDigits(stored, computed)) return Agreement::Same;
    const double size = std::max(std::fabs(stored), std::fabs(computed));
    return std::fabs(stored - computed) <= rounding * size ? Agreement::Rounding : Agreement::Differs;
}

bool everComputed(const Analysis& r) {
    return r.Last_PctInTol != 0 || r.FalseAcceptRisk != 0 || r.FalseRejectRisk != 0;
}

void compare(const Analysis& r, AuditRow& row) {
    if (!everComputed(r)) {
        row.agreement = Agreement::NeverComputed;
        return;
    }
    row.storedFalseAccept = riskFraction(r.FalseAcceptRisk, r.FalseAcceptUnits);
    row.storedFalseReject = riskFraction(r.FalseRejectRisk, r.FalseRejectUnits);
    if (!risksAreCurrent(r))
        row.agreement = Agreement::Stale;
    else if (row.falseAccept() && row.falseReject)
        row.agreement = std::max(agreementOf(*row.storedFalseAccept, *row.falseAccept()),
                                 agreementOf(*row.storedFalseReject, *row.falseReject));
}

void holdAgainst(const AuditLimits& limits, AuditRow& row) {
    const auto above = [](const auto& figure, const auto& limit) {
        return limit && figure && *figure > *limit;
    };
    if (above(row.falseAccept(), limits.falseAccept)) row.limits.push_back("fa");
    if (above(row.falseReject, limits.falseReject)) row.limits.push_back("fr");
    if (above(limits.tur, row.tur)) row.limits.push_back("tur");
}

} // namespace

std::string_view wordOf(Agreement agreement) {
    switch (agreement) {
    case Agreement::None: break;
    case Agreement::Same: return "same";
    case Agreement::Rounding: return "rounding";
    case Agreement::Differs: return "differs";
    case Agreement::NeverComputed: return "never computed";
    case Agreement::Stale: return "stale";
    }
    return "";
}

std::string_view wordOf(AuditStatus status) {
    switch (status) {
    case AuditStatus::Ok: return "ok";
    case AuditStatus::Note: return "note";
    case AuditStatus::Refused: return "refused";
    case AuditStatus::Unreadable: break;
    }
    return "unreadable";
}

std::string readAuditLimit(std::string_view text, AuditLimits& limits) {
    const auto equal = text.find('=');
    const std::string_view name = text.substr(0, equal);
    std::string_view value = equal == text.npos ? "" : text.substr(equal + 1);
    const bool ppm = value.ends_with(ppmUnits);
    if (ppm) value.remove_suffix(std::string_view(ppmUnits).size());
    const auto ratio = ppm ? std::nullopt : ratioCellOf(value);
    const auto percent = ppm ? plainNumberOf(value) : percentCellOf(value);
    if (name == "tur" && ratio && *ratio > 0) {
        limits.tur = ratio;
    } else if ((name == "fa" || name == "fr") && percent && *percent >= 0 &&
               *percent <= (ppm ? perMillion : perHundred)) {
        (name == "fa" ? limits.falseAccept : limits.falseReject) =
            riskFraction(*percent, ppm ? ppmUnits : percentUnits);
    } else {
        return std::string(text) + " is no limit such as fa=2%, fr=500ppm or tur=4";
    }
    return "";
}

bool AuditRow::needsAttention() const {
    return status == AuditStatus::Refused || agreement == Agreement::Differs ||
           agreement == Agreement::Stale || !limits.empty();
}

AuditRow auditOf(const Analysis& r, const Regional& regional, const AuditLimits& limits) {
    AuditRow row{.names = r, .nominal = r.SU_Mode, .unit = r.NominalUnits};
    row.convention = r.FalseAcceptOption == 1 ? Convention::Producer : Convention::Consumer;
    row.guardbanded = r.IncludeGuardbands;
    if (r.IncludeGuardbands) {
        if (!r.OptSingleLower) row.upperMultiplier = r.GB_UpperMult;
        if (!r.OptSingleUpper) row.lowerMultiplier = r.GB_LowerMult;
    }
    try {
        static const Want want = std::get<Want>(wantOf("risks,tur,exact"));
        const NamedFigures figure(testPointOf(r, regional), want, row.message);
        row.tur = figure("TUR");
        row.consumer = figure("FalseAcceptConsumer");
        row.producer = figure("FalseAcceptProducer");
        row.falseReject = figure("FalseReject");
        if (const auto digits = figure("AgreeingDigits")) row.agreeingDigits = static_cast<int>(*digits);
        row.status = row.message.empty() ? AuditStatus::Ok : AuditStatus::Note;
    } catch (const RowFault& fault) {
        row.status = AuditStatus::Refused;
        row.message = fault.text;
    }
    compare(r, row);
    holdAgainst(limits, row);
    return row;
}

} // namespace metrisk
