// What is known of a field of the record beside its name and its place.
#pragma once

#include <string_view>

namespace metrisk {

/// Where a field's value comes from.
enum class Source {
    Entered, // by the user or a file: what a compute takes
    Picture, // how an entry is written: its picture, and which of two forms is shown
    Settled, // formed as entries are made, and held with them
    Kept,    // in the file for whoever reads it, without a meaning here
    Derived, // by a fit or a sum: formed again
    Result,  // of a compute, and what tells whether it still stands
    Option,  // of documents, plots and the way to a result
    Session  // of this run only: never in a file
};

/// An input tells two analyses apart; everything else follows from the inputs or is of no account to them.
constexpr bool isInput(Source source) {
    return source <= Source::Kept;
}

enum class Unit {
    None, // flags, and what has no unit of its own
    Nominal,
    MeasuringTolerance,
    Risk, // that which stands beside it: % or ppm
    Fraction,
    Percent,
    Count,
    Ratio,
    Text
};

struct Field {
    std::string_view name;
    Source source;
    Unit unit;
};

} // namespace metrisk
