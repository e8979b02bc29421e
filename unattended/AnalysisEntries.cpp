#include "unattended/AnalysisEntries.h"

#include "base/NearestWord.h"
#include "base/NumberText.h"
#include "base/Real.h"
#include "base/SameNumber.h"
#include "base/Text.h"
#include "desk/compute/KFactors.h"
#include "record/EntryRules.h"
#include "risk/decision/Counts.h"
#include "rows/PointRecord.h"
#include "rows/SettableFields.h"
#include "rows/TypedK.h"

#include <algorithm>
#include <deque>
#include <limits>

namespace metrisk {

namespace {

bool isNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

std::string unknownField(std::string_view text) {
    const std::string name(text.substr(0, text.find('[')));
    std::vector<std::string> names;
    for (const NamedField& field : namedFields()) names.emplace_back(field.field.name);
    const std::string near = nearestWord(name, names);
    return name + " is no field" +
           (near.empty() ? "; rows --columns lists them" : "; did you mean " + near + "?");
}

[[noreturn]] void refuseValue(const Assignment& one, const char* what) {
    throw RowFault{true, one.place.name() + ": " + noNumberText(one.value, what, {})};
}

FieldValue valueOf(const Assignment& one) {
    const NamedField& field = *one.place.of;
    switch (field.kind) {
    case FieldKind::Text: return one.value;
    case FieldKind::Flag: {
        for (const char* word : {"true", "-1"})
            if (equalCaseBlind(one.value, word)) return true;
        for (const char* word : {"false", "0"})
            if (equalCaseBlind(one.value, word)) return false;
        refuseValue(one, "flag: true, false, -1, 0");
    }
    case FieldKind::Number:
    case FieldKind::Whole: break;
    }
    const auto number =
        field.field.unit == metrisk::Unit::Percent ? percentCellOf(one.value) : plainNumberOf(one.value);
    if (!number) refuseValue(one, "number");
    return *number;
}

bool sameValue(const FieldValue& a, const FieldValue& b) {
    const auto *x = std::get_if<double>(&a), *y = std::get_if<double>(&b);
    return x && y ? sameDerived(*x, *y) : a == b;
}

/// The entries of one command, with the texts that they are read from.
struct ReadEntries {
    NamedEntries named;
    std::deque<std::string> texts{};
    std::string notes{};
    bool measuringCounted = false;

    /// A % in-tolerance may be counts of passed and tested items, as in its box.
    void read(Entry entry, const std::string& text) {
        const auto counts = countsOf(text);
        const std::string_view kept = texts.emplace_back(text);
        if (counts && entry == Entry::SubjectPct) {
            const auto stroke = kept.find('/');
            named.read(Entry::Passed, kept.substr(0, stroke));
            named.read(Entry::Tested, kept.substr(stroke + 1));
        } else if (counts && entry == Entry::MtePct) {
            const auto estimate = countsEntry(*counts);
            if (!estimate) throw RowFault{false, toldText(estimate.refusal().title, estimate.refusal().text)};
            named.read(entry, texts.emplace_back(GeneralText(*estimate, {})));
            measuringCounted = true;
            addNote(notes, "counts of passes are observed: false accepts and false rejects are in them");
        } else {
            named.read(entry, kept);
        }
    }
};

/// That of its multipliers; of a record whose process errors allow no sum, none.
KBasis kBasisOf(const Analysis& record, const Regional& regional) {
    try {
        return testPointOf(record, regional).kBasis;
    } catch (const RowFault&) {
        return {.sigma = std::numeric_limits<double>::quiet_NaN()};
    }
}

bool hasErrorSources(const Analysis& r) {
    for (int row = 1; row <= 8; ++row)
        for (const int column : {1, 3})
            if (!r.ErrTableText[row][column].empty()) return true;
    return false;
}

/// The record as its file would be read. Raises RowFault where it would not be the same analysis.
void settleAsFile(AnalysisRun& run, const std::vector<Assignment>& assignments) {
    const Analysis before = run.record;
    if (!run.settle()) throw RowFault{false, "there is a value that no file can hold"};
    for (const Assignment& one : assignments)
        if (!entryOfField(*one.place.of) &&
            !sameValue(fieldValue(run.record, one.place), fieldValue(before, one.place)))
            throw RowFault{false, one.place.name() + ": no file of this analysis would keep " + one.value};
}

/// A reading derives the process uncertainty of error sources: what is typed of k-factors follows that, too.
void followAfterSettling(AnalysisRun& run, const KBasis& basis) {
    TestPoint point = testPointOf(run.record, run.session.regional);
    const Guardband before = point.multipliers;
    point.kBasis = basis;
    try {
        followTypedK(point);
    } catch (const RuntimeFault&) {
        throw RowFault{false, "a k-factor leads to no finite multiplier"};
    }
    if (point.multipliers.upper == before.upper && point.multipliers.lower == before.lower) return;
    putIntoRecord(run.record, point, NamedEntries());
    run.settle();
}

} // namespace

bool looksAssigned(const std::string& text) {
    const auto equal = text.find('=');
    if (equal == text.npos || equal == 0) return false;
    const auto open = std::min(text.find('['), equal);
    return open > 0 && std::ranges::all_of(text.substr(0, open), isNameCharacter) &&
           (open == equal || text[equal - 1] == ']');
}

std::variant<Assignment, std::string> assignmentOf(const std::string& text) {
    const auto equal = text.find('=');
    if (equal == text.npos) return text + " is no Field=VALUE";
    const std::string name = text.substr(0, equal);
    const auto place = fieldPlaceOf(name);
    if (!place) return unknownField(name);
    if (std::string why = notSettable(*place->of); !why.empty()) return why;
    if (!isElement(*place)) return name + " is no element of " + place->of->shape();
    Assignment one{*place, text.substr(equal + 1)};
    // A correlation is held once.
    auto& index = one.place.index;
    if (place->of->field.name == "CorrelationMatrix" && index[0] > index[1]) std::swap(index[0], index[1]);
    return one;
}

bool AnalysisEntries::any() const {
    return !assignments.empty() ||
           std::ranges::any_of(entries, [](const auto& entry) { return entry.has_value(); });
}

std::string AnalysisEntries::wrong(std::string (*nameOfEntry)(const EntryInfo&)) const {
    const auto named = [&](Entry entry) { return entries[static_cast<std::size_t>(entry)].has_value(); };
    const auto twice = [](const Assignment& one, const std::string& other) {
        return one.place.name() + " and " + other + " are one entry";
    };
    for (std::size_t i = 0; i < assignments.size(); ++i) {
        const Assignment& one = assignments[i];
        for (std::size_t j = 0; j < i; ++j)
            if (assignments[j].place.name() == one.place.name()) return twice(one, one.place.name());
        const auto own = entryOfField(*one.place.of);
        if (own && named(*own)) return twice(one, nameOfEntry(infoOf(*own)));
        for (const Entry rival : rivalsOf(*one.place.of)) {
            if (named(rival)) return twice(one, nameOfEntry(infoOf(rival)));
            for (const Assignment& other : assignments)
                if (entryOfField(*other.place.of) == rival) return twice(one, other.place.name());
        }
    }
    return "";
}

bool AnalysisEntries::putInto(AnalysisRun& run, const UnitFactors& units) const {
    const Analysis opened = run.record;
    ReadEntries read;
    try {
        for (const EntryInfo& info : entryTable())
            if (const auto& text = entries[static_cast<std::size_t>(info.entry)])
                read.read(info.entry, *text);
        std::vector<FieldPlace> plain;
        for (const Assignment& one : assignments) {
            const auto entry = entryOfField(*one.place.of);
            const bool emptied = trimmedCell(one.value).empty();
            if (entry && !(emptied && one.place.of->kind == FieldKind::Text)) {
                if (emptied) refuseValue(one, "value");
                read.read(*entry, one.value);
                continue;
            }
            if (one.value.find('"') != one.value.npos)
                throw RowFault{false, one.place.name() + ": a file cannot hold a double quote"};
            if (!putField(run.record, one.place, valueOf(one))) refuseValue(one, "whole number");
            plain.push_back(one.place);
            if (one.place.of->field.name == "GB_SymmetricMult")
                chooseSymmetricMultipliers(run.record, run.record.GB_SymmetricMult, run.session.regional);
        }
        followFields(run.record, plain, units, run.session.regional);
        // The point's texts are those of the record that it is put into.
        const Analysis before = run.record;
        TestPoint point = testPointOf(before, run.session.regional);
        point.kBasis = kBasisOf(opened, run.session.regional);
        putEntries(point, read.named, units, *countsAsNamed(countsAs), read.notes, Unnamed::Kept);
        if (read.measuringCounted && point.entries.measuring.byUncertainty)
            throw RowFault{false, toldText(noCountsMessage.title, noCountsMessage.text)};
        if (read.named.has(Entry::ProcessU) && hasErrorSources(before))
            addNote(read.notes, "process_u stands for the error sources, which are emptied");
        putIntoRecord(run.record, point, read.named);
        settleAsFile(run, assignments);
        followAfterSettling(run, point.kBasis);
    } catch (const RowFault& fault) {
        run.record = opened;
        run.ui.note(fault.text);
        return false;
    }
    if (!read.notes.empty()) run.ui.note(read.notes);
    return true;
}

} // namespace metrisk
