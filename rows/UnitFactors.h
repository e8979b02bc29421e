// What a unit behind a number is in the unit of the nominal.
#pragma once

#include "rows/Cell.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace metrisk {

struct AreaContent;

/// The measurement areas with their units. Only read once made.
class UnitFactors {
  public:
    /// The units that come with the program.
    UnitFactors();
    explicit UnitFactors(const std::vector<AreaContent>& content);
    /// The same of all programs that read no other table.
    static const UnitFactors& shipped();

    /// Cell units per nominal unit: a number in `unit` is the entry number / factor. Looked up in the area if
    /// one is named, else in every area that has both; a unit that is not there may be an SI prefix before
    /// the nominal's own, or the nominal one before it, as long as neither is a unit of another quantity:
    /// "min" is no milli-inch. Raises RowFault where there is no such factor, or areas disagree; what is told
    /// of the unit begins with the column, if it is named.
    double factor(std::string_view nominal, std::string_view unit, std::string_view area,
                  std::string_view column = {}) const;

    enum class Length { Place, Interval }; // on the scale, as a limit or a reading; or a width
    /// A length in nominal units. Raises RowFault as well where there is no unit of the nominal, and for a
    /// place on a scale of another zero, since factors are of intervals.
    double inNominal(double number, std::string_view unit, std::string_view nominal, std::string_view area,
                     Length kind, std::string_view column = {}) const;

    /// Whether scales in both units begin at the same place, as those of temperatures do not: of K and mK.
    bool shareZero(std::string_view one, std::string_view other) const;

  private:
    struct Unit {
        std::string symbol;
        double multiplier;
    };
    struct Area {
        std::string name;
        std::vector<Unit> units;
    };
    /// A symbol as a prefix and what it is put before; 1 and the symbol where it has none.
    struct Reading {
        double factor;
        std::string_view base;
        bool known; // that the base begins with a unit
    };
    Reading readingOf(std::string_view symbol) const;
    bool knows(std::string_view symbol) const;
    bool isTemperature(std::string_view symbol) const;
    /// Whether the tables have `symbol` as so many of `base`.
    bool areApart(std::string_view symbol, std::string_view base, double factor) const;
    std::optional<double> byPrefix(std::string_view nominal, std::string_view unit) const;
    double found(std::string_view nominal, std::string_view unit, std::string_view area,
                 std::string_view column) const;

    std::vector<Area> areas_;
    std::size_t number_; // tells it from any other, for what threads remember
};

/// One symbol for those that are written in several ways: micro, and ohm.
std::string plainSymbol(std::string_view symbol);

} // namespace metrisk
