#include "record/FieldAccess.h"

#include "record/AnalysisFields.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace metrisk {

namespace {

template <class Member>
constexpr bool countsFrom1 = requires {
    Member::first;
};
template <class Member>
constexpr bool isArray = countsFrom1<Member> || requires {
    std::tuple_size<Member>::value;
};

template <class Member>
FieldKind kindOf() {
    if constexpr (isArray<Member>)
        return kindOf<std::remove_cvref_t<decltype(*std::declval<Member>().begin())>>();
    else if constexpr (std::is_same_v<Member, double>)
        return FieldKind::Number;
    else if constexpr (std::is_same_v<Member, int>)
        return FieldKind::Whole;
    else if constexpr (std::is_same_v<Member, std::string>)
        return FieldKind::Text;
    else
        return FieldKind::Flag;
}

template <class Member>
void addRanges(std::vector<FieldRange>& ranges) {
    if constexpr (isArray<Member>) {
        const int first = countsFrom1<Member> ? 1 : 0;
        const auto size = static_cast<int>(sizeof(Member) / sizeof(*std::declval<Member>().begin()));
        ranges.push_back({first, first + size - 1});
        addRanges<std::remove_cvref_t<decltype(*std::declval<Member>().begin())>>(ranges);
    }
}

std::vector<NamedField> allFields() {
    std::vector<NamedField> fields;
    eachField([&](const Field& field, auto member) {
        using Member = std::remove_cvref_t<decltype(std::declval<Analysis>().*member)>;
        NamedField named{field, kindOf<Member>()};
        addRanges<Member>(named.ranges);
        fields.push_back(std::move(named));
    });
    return fields;
}

/// Calls visit with the element that the indices lead to.
template <class Member, class Visit>
void atIndex(Member& member, std::span<const int> index, const Visit& visit) {
    if constexpr (isArray<std::remove_const_t<Member>>) {
        const int first = countsFrom1<std::remove_const_t<Member>> ? 1 : 0;
        atIndex(*(member.begin() + (index.front() - first)), index.subspan(1), visit);
    } else {
        visit(member);
    }
}

template <class Record, class Visit>
void atPlace(Record& record, const FieldPlace& place, const Visit& visit) {
    eachField([&](const Field& field, auto member) {
        if (field.name == place.of->field.name) atIndex(record.*member, place.index, visit);
    });
}

bool put(double& field, const FieldValue& value) {
    const auto* number = std::get_if<double>(&value);
    if (number) field = *number;
    return number != nullptr;
}

bool put(int& field, const FieldValue& value) {
    constexpr double largest = 1e9;
    const auto* number = std::get_if<double>(&value);
    if (!number || std::floor(*number) != *number || std::fabs(*number) > largest) return false;
    field = static_cast<int>(*number);
    return true;
}

bool put(std::string& field, const FieldValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    if (text) field = *text;
    return text != nullptr;
}

template <class FlagOrBool>
bool put(FlagOrBool& field, const FieldValue& value) {
    const auto* flag = std::get_if<bool>(&value);
    if (flag) field = *flag;
    return flag != nullptr;
}

} // namespace

std::string NamedField::shape() const {
    std::string text(field.name);
    for (const FieldRange& range : ranges)
        text += "[" + std::to_string(range.first) + ".." + std::to_string(range.last) + "]";
    return text;
}

std::span<const NamedField> namedFields() {
    static const std::vector<NamedField> fields = allFields();
    return fields;
}

const NamedField* fieldNamed(std::string_view name) {
    for (const NamedField& field : namedFields())
        if (field.field.name == name) return &field;
    return nullptr;
}

std::string FieldPlace::name() const {
    std::string text(of->field.name);
    for (const int i : index) text += "[" + std::to_string(i) + "]";
    return text;
}

std::optional<FieldPlace> fieldPlaceOf(std::string_view text) {
    const auto open = std::min(text.find('['), text.size());
    FieldPlace place{fieldNamed(text.substr(0, open))};
    if (!place.of) return std::nullopt;
    text.remove_prefix(open);
    while (!text.empty()) {
        const auto close = text.find(']');
        if (text.front() != '[' || close == text.npos) return std::nullopt;
        int i = 0;
        const auto read = std::from_chars(text.data() + 1, text.data() + close, i);
        if (read.ec != std::errc{} || read.ptr != text.data() + close) return std::nullopt;
        place.index.push_back(i);
        text.remove_prefix(close + 1);
    }
    return place;
}

bool isElement(const FieldPlace& place) {
    const auto& ranges = place.of->ranges;
    return std::ranges::equal(place.index, ranges, [](int i, const FieldRange& range) {
        return i >= range.first && i <= range.last;
    });
}

bool putField(Analysis& record, const FieldPlace& place, const FieldValue& value) {
    bool done = false;
    atPlace(record, place, [&](auto& field) { done = put(field, value); });
    return done;
}

FieldValue fieldValue(const Analysis& record, const FieldPlace& place) {
    FieldValue value;
    atPlace(record, place, [&](const auto& field) {
        using Member = std::remove_cvref_t<decltype(field)>;
        if constexpr (std::is_same_v<Member, std::string>)
            value = field;
        else if constexpr (std::is_arithmetic_v<Member> && !std::is_same_v<Member, bool>)
            value = static_cast<double>(field);
        else
            value = static_cast<bool>(field);
    });
    return value;
}

} // namespace metrisk
