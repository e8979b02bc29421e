// Copies of some fields of a record, to be put back or compared with.
#pragma once

#include <tuple>

namespace metrisk {

/// KeptFields<&Analysis::SU_Mode, ...>: every field is named once.
template <auto... Fields>
class KeptFields {
  public:
    template <class Record>
    explicit KeptFields(const Record& record) : values_(record.*Fields...) {}

    template <class Record>
    void restore(Record& record) const {
        std::apply([&record](const auto&... values) { ((record.*Fields = values), ...); }, values_);
    }

    template <class Record>
    bool differ(const Record& record) const {
        return values_ != std::tie(record.*Fields...);
    }

  private:
    template <class Record, class Value>
    static Value valueOf(Value Record::*);
    std::tuple<decltype(valueOf(Fields))...> values_;
};

} // namespace metrisk
