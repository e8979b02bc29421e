#include "uncertainty/ProcessTotals.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/ErrorCell.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace metrisk {
namespace {

constexpr double sameTotal = 1e-9; // relative; a stored total has 15 digits
constexpr int numberColumns[] = {errorColumn::limit, errorColumn::confidence, errorColumn::uncertainty,
                                 errorColumn::degFreedom};
constexpr int scaledColumns[] = {errorColumn::limit, errorColumn::uncertainty};

using Shares = std::array<double, errorRowCount>;

/// The quadratic form of the correlations over the rows from `first` on.
double variance(const Shares& u, const Correlations& rho, int first) {
    double sum = 0;
    for (int i = first; i < errorRowCount; ++i) {
        const auto ui = u[static_cast<std::size_t>(i)];
        if (ui == 0) continue;
        double others = 0;
        for (int j = i + 1; j < errorRowCount; ++j)
            others += rho[correlationIndex(i)][correlationIndex(j)] * u[static_cast<std::size_t>(j)];
        sum += ui * (ui + 2 * others);
    }
    return sum;
}

double correlation(const Correlations& rho, int i, int j) {
    return i < j ? rho[correlationIndex(i)][correlationIndex(j)]
                 : rho[correlationIndex(j)][correlationIndex(i)];
}

/// Whether the matrix of the rows that count has an eigenvalue below -1e-9, which no set of errors has: the
/// square root of Cholesky fails for the matrix with so much added to its diagonal.
bool contradicts(const Shares& counted, const Correlations& rho) {
    constexpr double allowed = 1e-9;
    int rows[errorRowCount];
    int count = 0;
    for (int row = 0; row < errorRowCount; ++row)
        if (counted[static_cast<std::size_t>(row)] > 0) rows[count++] = row;
    double factor[errorRowCount][errorRowCount] = {};
    for (int i = 0; i < count; ++i)
        for (int j = 0; j <= i; ++j) {
            double rest = i == j ? 1 + allowed : correlation(rho, rows[i], rows[j]);
            for (int k = 0; k < j; ++k) rest -= factor[i][k] * factor[j][k];
            if (i == j && !(rest > 0)) return true;
            factor[i][j] = i == j ? std::sqrt(rest) : rest / factor[j][j];
        }
    return false;
}

Shares sharesOf(const Shares& counted, const Correlations& rho, double sum) {
    Shares shares{};
    if (!(sum > 0)) return shares;
    for (int i = 0; i < errorRowCount; ++i) {
        double row = 0;
        for (int j = 0; j < errorRowCount; ++j)
            row += (i == j ? 1 : correlation(rho, i, j)) * counted[static_cast<std::size_t>(j)];
        shares[static_cast<std::size_t>(i)] = counted[static_cast<std::size_t>(i)] * row / sum;
    }
    return shares;
}

/// Whether the table, read with these marks, gives the process uncertainty that the record holds.
bool givesStoredTotal(const Analysis& record, const Regional& regional) {
    const ErrorRows rows = readErrorRows(record, regional);
    if (std::all_of(rows.begin() + 1, rows.end(), [](const ErrorRow& row) { return row.uncertainty == 0; }))
        return true;
    const Real total =
        Real(ComputeTotals(rows, record.CorrelationMatrix).process) / measuringUnits(record).factor;
    return abs(total - record.ProcessUncertainty) <= sameTotal * abs(total);
}

/// A number in the marks of `from`, in those of `to` and without grouping.
std::string inMarksOf(const Regional& to, std::string text, const Regional& from) {
    if (!isNumeric(text, from)) return text;
    std::erase(text, from.ThousandSeparator.front());
    const std::size_t mark = text.find(from.DecimalSymbol);
    return mark == text.npos ? text : text.replace(mark, from.DecimalSymbol.size(), to.DecimalSymbol);
}

} // namespace

Totals ComputeTotals(const ErrorRows& rows, const Correlations& correlations) {
    double largest = 0;
    for (const ErrorRow& row : rows) largest = std::max(largest, std::fabs(row.uncertainty));
    Totals totals;
    if (largest == 0) return totals;
    const int size = std::ilogb(checked(largest)); // a power of two rounds nothing
    Shares all{};
    Shares counted{};
    EffectiveFreedom freedom;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        all[row] = std::scalbn(rows[row].uncertainty, -size);
        if (rows[row].included) counted[row] = all[row];
        if (row == biasRow) continue;
        freedom.add(counted[row], rows[row].degFreedom);
        if (counted[row] > 0) totals.processDecimals = std::max(totals.processDecimals, rows[row].decimals);
    }
    totals.totalDecimals = std::max(totals.processDecimals, rows[biasRow].decimals);

    const double process = variance(counted, correlations, biasRow + 1);
    const double total = variance(counted, correlations, biasRow);
    const auto root = [size](double sum) {
        return checked(std::scalbn(std::sqrt(std::max(sum, 0.0)), size));
    };
    totals.process = root(process);
    totals.total = root(total);
    totals.shares = sharesOf(counted, correlations, total);
    totals.contradictory = contradicts(counted, correlations);

    totals.anyProcess = freedom.squares > 0;
    totals.processFreedom = std::max(freedom.value(), 0.0);
    freedom.add(all[biasRow], rows[biasRow].degFreedom);
    totals.anyTotal = freedom.squares > 0;
    const double effective = freedom.value();
    totals.totalFreedom = effective <= largestDegFreedom ? effective : 0;
    return totals;
}

void SettleTableMarks(Analysis& record, const Regional& regional) {
    Regional other = regional;
    std::swap(other.DecimalSymbol, other.ThousandSeparator);
    try {
        if (givesStoredTotal(record, regional) || !givesStoredTotal(record, other)) return;
        for (auto& row : record.ErrTableText)
            for (const int column : numberColumns)
                row[column] = inMarksOf(regional, std::move(row[column]), other);
    } catch (const std::exception&) {
        return; // a total that cannot be formed tells nothing about the marks
    }
}

void SumProcessUncertainty(Analysis& record, const Regional& regional) {
    try {
        const ErrorRows rows = readErrorRows(record, regional);
        const Totals totals = ComputeTotals(rows, record.CorrelationMatrix);
        const bool anyUncertainty = std::any_of(rows.begin() + 1, rows.end(),
                                                [](const ErrorRow& row) { return row.uncertainty != 0; });
        const double uncertainty = (Real(totals.process) / measuringUnits(record).factor).value();
        std::string picture = WidenPicture(record.ProcessUncertainty, record.ProcessUncertainty_fmt);
        if (anyUncertainty)
            picture =
                WidenPicture(uncertainty, HeldOffsetPicture(totals.processDecimals, record.SU_SigDigits));

        if (anyUncertainty) record.ProcessUncertainty = uncertainty;
        record.ProcessUncertainty_fmt = std::move(picture);
        record.Process_DegFreedom = totals.processFreedom;
        record.Total_DegFreedom = totals.totalFreedom;
    } catch (const std::exception&) {
        return; // the figures stay as they were
    }
}

bool emptyNegativeErrors(Analysis& record, const Regional& regional) {
    bool refused = false;
    for (auto& row : record.ErrTableText)
        for (const int column : scaledColumns) {
            if (!(ParseValue(row[column], regional) < 0)) continue;
            row[column].clear();
            row[errorColumn::include] = "False";
            refused = true;
        }
    return refused;
}

void RescaleProcessTable(Analysis& record, double ratio, const Regional& regional) {
    for (auto& row : record.ErrTableText)
        for (const int column : scaledColumns)
            if (const ErrorCell cell = ErrorCell::ofStored(row[column], 0, regional); cell.present()) {
                const double value = checked(cell.value * ratio);
                row[column] = cell.typed ? GeneralText(value, regional)
                                         : ErrorCell::ofComputed(value, 0, regional).stored;
            }
    for (int slot = 1; slot <= 2; ++slot) {
        for (double* figure : {&record.Stat_SampleStdDev[slot], &record.Stat_Value6[slot]}) *figure *= ratio;
        const bool deviations = record.Stat_Flag1[slot] == 0;
        if (!deviations) continue;
        record.Stat_SampleMean[slot] *= ratio;
        int decimals = 0;
        for (int i = 1; i <= record.Stat_SampleSize[slot]; ++i) {
            double& sample = record.Stat_Sample[i][slot];
            sample = checked(sample * ratio);
            decimals = std::max(decimals, DecimalsOfValue(sample, 0));
        }
        if (decimals > 0) record.Stat_SampleFmt[slot] = PictureForDecimals(decimals);
    }
}

} // namespace metrisk
