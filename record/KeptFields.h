// A copy of some fields of the record, to be compared with or put back.
#pragma once

#include "record/Analysis.h"

#include <tuple>
#include <type_traits>
#include <utility>

namespace metrisk {

/// KeptFields<&Analysis::SU_Mode, &Analysis::NominalUnits>: named once, kept, compared and put back.
template <auto... Fields>
class KeptFields {
  public:
    explicit KeptFields(const Analysis& record) : values_(record.*Fields...) {}

    void restore(Analysis& record) const { std::tie(record.*Fields...) = values_; }
    bool differ(const Analysis& record) const { return values_ != std::tie(record.*Fields...); }

  private:
    std::tuple<std::remove_cvref_t<decltype(std::declval<const Analysis&>().*Fields)>...> values_;
};

} // namespace metrisk
