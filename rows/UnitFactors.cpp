#include "rows/UnitFactors.h"

#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "base/Text.h"
#include "rows/ShippedUnits.h"
#include "units/UnitsTable.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <optional>

namespace metrisk {

namespace {

/// Before what is told of a cell; empty without a column.
std::string ofColumn(std::string_view column) {
    return column.empty() ? "" : "column " + std::string(column) + ": ";
}

struct Prefix {
    std::string_view symbol;
    double factor;
};
constexpr Prefix prefixes[] = {{"da", 1e1},  {"q", 1e-30}, {"r", 1e-27}, {"y", 1e-24}, {"z", 1e-21},
                               {"a", 1e-18}, {"f", 1e-15}, {"p", 1e-12}, {"n", 1e-9},  {"u", 1e-6},
                               {"m", 1e-3},  {"c", 1e-2},  {"d", 1e-1},  {"h", 1e2},   {"k", 1e3},
                               {"M", 1e6},   {"G", 1e9},   {"T", 1e12},  {"P", 1e15},  {"E", 1e18},
                               {"Z", 1e21},  {"Y", 1e24},  {"R", 1e27},  {"Q", 1e30}};
constexpr double sameFactor = 1e-12;

/// Units that no table has, and that would read as another with a prefix: peta-siemens, a milli-phot,
/// centi-hours.
constexpr std::string_view furtherUnits[] = {"PS", "mph", "kph", "hr",  "yr", "ch",
                                             "nt", "kat", "rpm", "dpt", "cal"};

/// A symbol without one of the prefixes that it may begin with.
struct Stripped {
    double factor;
    std::string_view base;
};

std::vector<Stripped> strippedOf(std::string_view symbol) {
    std::vector<Stripped> all;
    for (const Prefix& prefix : prefixes)
        if (symbol.size() > prefix.symbol.size() && symbol.starts_with(prefix.symbol))
            all.push_back({prefix.factor, symbol.substr(prefix.symbol.size())});
    return all;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// The unit that a prefix before the symbol belongs to: "mg" of "mg/L", "cm" of "cm³"; all of "mH2O".
std::string_view leadOf(std::string_view symbol) {
    constexpr std::string_view ends[] = {"·", "²", "³", "⁻"};
    std::size_t size = 0;
    for (; size < symbol.size(); ++size) {
        const std::string_view rest = symbol.substr(size);
        const bool inside = isDigit(rest[0]) && rest.size() > 1 && isLetter(rest[1]);
        const bool plain = isLetter(rest[0]) || static_cast<unsigned char>(rest[0]) >= 0x80;
        if (!plain && !inside) break;
        if (std::ranges::any_of(ends, [&](std::string_view end) { return rest.starts_with(end); })) break;
    }
    return symbol.substr(0, size);
}

/// A prefix is raised with its unit: a dm³ is no tenth of a m³.
int powerOf(std::string_view symbol) {
    std::string_view rest = symbol.substr(leadOf(symbol).size());
    if (rest.starts_with('^')) rest.remove_prefix(1);
    if (rest.starts_with('2') || rest.starts_with("²")) return 2;
    return rest.starts_with('3') || rest.starts_with("³") ? 3 : 1;
}

double raised(double factor, int power) {
    return power == 1 ? factor : factor * raised(factor, power - 1);
}

void replaceAll(std::string& text, std::string_view what, std::string_view by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != text.npos; at += by.size())
        text.replace(at, what.size(), by);
}

} // namespace

std::string plainSymbol(std::string_view symbol) {
    std::string plain(symbol);
    replaceAll(plain, "\xc2\xb5", "u");       // micro sign
    replaceAll(plain, "\xce\xbc", "u");       // Greek mu
    replaceAll(plain, "\xe2\x84\xa6", "ohm"); // ohm sign
    replaceAll(plain, "\xce\xa9", "ohm");     // Greek omega
    replaceAll(plain, "Ohm", "ohm");
    return plain;
}

UnitFactors::UnitFactors() : UnitFactors(readUnitsTable(shippedUnits())) {}

UnitFactors::UnitFactors(const std::vector<AreaContent>& content) {
    static std::atomic<std::size_t> made = 0;
    number_ = ++made;
    for (const AreaContent& area : content) {
        Area taken{area.name, {}};
        for (const MeasurementUnit& unit : area.units)
            if (unit.symbol != ppmUnits) taken.units.push_back({plainSymbol(unit.symbol), unit.multiplier});
        areas_.push_back(std::move(taken));
    }
}

/// A thread keeps the last ones: a table has few units.
double UnitFactors::factor(std::string_view nominal, std::string_view unit, std::string_view area,
                           std::string_view column) const {
    struct Kept {
        std::size_t of = 0;
        std::string nominal, unit, area;
        double factor = 0;
    };
    thread_local std::array<Kept, 8> kept;
    thread_local std::size_t oldest = 0;
    for (const Kept& one : kept)
        if (one.of == number_ && one.unit == unit && one.nominal == nominal && one.area == area)
            return one.factor;
    const double factor = found(nominal, unit, area, column);
    kept[oldest] = {number_, std::string(nominal), std::string(unit), std::string(area), factor};
    oldest = (oldest + 1) % kept.size();
    return factor;
}

double UnitFactors::found(std::string_view nominalText, std::string_view unitText, std::string_view area,
                          std::string_view column) const {
    const std::string nominal = plainSymbol(nominalText), unit = plainSymbol(unitText);
    if (nominal == unit) return 1;
    std::optional<double> told;
    std::string_view foundIn;
    bool areaKnown = false;
    for (const Area& one : areas_) {
        if (!area.empty() && !equalCaseBlind(one.name, area)) continue;
        areaKnown = true;
        const Unit *of = nullptr, *in = nullptr;
        for (const Unit& candidate : one.units) {
            if (candidate.symbol == nominal) of = &candidate;
            if (candidate.symbol == unit) in = &candidate;
        }
        if (!of || !in) continue;
        const double factor = of->multiplier / in->multiplier;
        if (!told)
            told = factor, foundIn = one.name;
        else if (std::fabs(factor - *told) > sameFactor * std::fabs(*told))
            throw RowFault{true, ofColumn(column) + std::string(unitText) + " may be of area " +
                                     std::string(foundIn) + " or " + one.name + ": name the area"};
    }
    if (!area.empty() && !areaKnown)
        throw RowFault{true, ofColumn(column.empty() ? "" : "area") + "no area " + std::string(area)};
    if (!told) told = byPrefix(nominal, unit);
    if (!told)
        throw RowFault{true, ofColumn(column) + std::string(unitText) + " is no unit that " +
                                 std::string(nominalText) + " can be told in"};
    return *told;
}

bool UnitFactors::knows(std::string_view symbol) const {
    return std::ranges::any_of(areas_, [&](const Area& area) {
        return std::ranges::any_of(area.units, [&](const Unit& unit) { return unit.symbol == symbol; });
    });
}

bool UnitFactors::areApart(std::string_view symbol, std::string_view base, double factor) const {
    for (const Area& area : areas_)
        for (const Unit& one : area.units) {
            if (one.symbol != symbol) continue;
            for (const Area& other : areas_)
                for (const Unit& two : other.units)
                    if (two.symbol == base &&
                        std::fabs(one.multiplier / two.multiplier - factor) <= sameFactor * factor)
                        return true;
        }
    return false;
}

/// A unit of its own stays whole, unless the tables tell that it is as much as its prefix says: "min" is no
/// milli-inch.
UnitFactors::Reading UnitFactors::readingOf(std::string_view symbol) const {
    const std::string_view lead = leadOf(symbol);
    const auto isKnown = [&](std::string_view unit) {
        return knows(unit) || shipped().knows(unit) ||
               std::ranges::find(furtherUnits, unit) != std::end(furtherUnits);
    };
    const auto isPrefixed = [&](std::string_view unit, const Stripped& as) {
        return areApart(unit, as.base, as.factor) || shipped().areApart(unit, as.base, as.factor);
    };
    const bool known = isKnown(lead);
    for (const Stripped& one : strippedOf(lead)) {
        const auto again = strippedOf(one.base);
        const bool bare =
            std::ranges::none_of(again, [&](const Stripped& two) { return isPrefixed(one.base, two); });
        if (known ? isPrefixed(lead, one) : bare && isKnown(one.base))
            return {one.factor, symbol.substr(lead.size() - one.base.size()), true};
    }
    return {1, symbol, known};
}

std::optional<double> UnitFactors::byPrefix(std::string_view nominal, std::string_view unit) const {
    const Reading mine = readingOf(nominal), other = readingOf(unit);
    const auto ratio = [](const auto& one, const auto& two) {
        return raised(one.factor / two.factor, powerOf(one.base));
    };
    if (mine.base == other.base) return ratio(mine, other);
    // What remains without prefixes is in no table either: cmHg and mmHg.
    if (mine.known && other.known) return std::nullopt;
    for (const Stripped& one : strippedOf(nominal))
        for (const Stripped& two : strippedOf(unit))
            if (one.base == two.base && !readingOf(one.base).known) return ratio(one, two);
    if (mine.known || other.known) return std::nullopt;
    for (const Stripped& one : strippedOf(nominal))
        if (one.base == unit) return raised(one.factor, powerOf(unit));
    for (const Stripped& two : strippedOf(unit))
        if (two.base == nominal) return raised(1 / two.factor, powerOf(nominal));
    return std::nullopt;
}

const UnitFactors& UnitFactors::shipped() {
    static const UnitFactors table;
    return table;
}

double UnitFactors::inNominal(double number, std::string_view unit, std::string_view nominal,
                              std::string_view area, Length kind, std::string_view column) const {
    if (unit.empty() || unit == nominal) return number;
    if (nominal.empty())
        throw RowFault{true, ofColumn(column) + std::string(unit) + " needs a unit of the nominal"};
    const double of = factor(nominal, unit, area, column);
    if (kind == Length::Place && !shareZero(unit, nominal))
        throw RowFault{true, ofColumn(column) + "a temperature must be in the unit of the nominal"};
    return checked(number / of);
}

bool UnitFactors::isTemperature(std::string_view symbol) const {
    for (const Area& area : areas_)
        if (area.name.ends_with("Temperature"))
            for (const Unit& one : area.units)
                if (one.symbol == symbol) return true;
    return false;
}

bool UnitFactors::shareZero(std::string_view one, std::string_view other) const {
    const std::string mine = plainSymbol(one), its = plainSymbol(other);
    return !isTemperature(mine) || readingOf(mine).base == readingOf(its).base;
}

} // namespace metrisk
