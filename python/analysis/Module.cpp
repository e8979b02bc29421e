// The native part of metrisk.Analysis: one analysis that a program works on, by the routines of the command
// line.
#include "base/AtomicFile.h"
#include "base/Real.h"
#include "persistence/AnalysisContent.h"
#include "persistence/AnalysisName.h"
#include "record/AnalysisFields.h"
#include "risk/evaluate/CurrentFigures.h"
#include "rows/SettableFields.h"
#include "rows/TestPoint.h"
#include "unattended/AnalysisEntries.h"
#include "unattended/AnalysisJson.h"
#include "unattended/AnalysisReport.h"
#include "unattended/ComputedFigures.h"
#include "unattended/ObservedShares.h"

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <mutex>

namespace py = pybind11;

namespace {

using namespace metrisk;

using Texts = std::vector<std::pair<std::string, std::string>>; // names with their values

/// None of the user's settings: a program computes the same on every machine.
Workplace& workplace() {
    static Workplace place{SettingsContent{}};
    return place;
}

/// What a fault of numbers, which no C++ exception of Python's knows, leaves behind.
template <class Work>
auto guarded(const Work& work) {
    const py::gil_scoped_release released;
    try {
        return work();
    } catch (const RuntimeFault& fault) {
        throw std::runtime_error(std::string(fault.routine) + ": no finite figure");
    }
}

/// One act at a time on an object that threads share. Who waits lets the others run, or they could not end.
class Turn {
  public:
    explicit Turn(std::mutex& one) : lock_(one, std::defer_lock) {
        const py::gil_scoped_release released;
        lock_.lock();
    }

  private:
    std::unique_lock<std::mutex> lock_;
};

class Record {
  public:
    Record() { run_.record = workplace().newAnalysis; }
    Record(const Record& other) { run_.record = other.kept(); }

    bool load(const std::string& path) {
        return changing([&] { return run_.open(path); });
    }
    bool loadText(const py::bytes& content) {
        std::string text = content;
        return changing([&] { return run_.openText(std::move(text), "template"); });
    }
    bool takeJson(const std::string& text) {
        return changing([&] {
            run_.record = workplace().newAnalysis;
            return metrisk::takeJson(run_, text);
        });
    }
    /// As a record of this run had it: nothing is derived.
    bool restore(const std::string& text) {
        return changing([&] {
            run_.record = workplace().newAnalysis;
            const std::string fault = putAnalysisJson(run_.record, readJson(text));
            if (!fault.empty()) run_.ui.note(fault);
            return fault.empty();
        });
    }
    std::string json() {
        const Turn turn(busy_);
        return guarded([&] { return jsonLine(fieldsJson(run_)); });
    }
    py::bytes bytes() const {
        Analysis record = kept();
        return guarded([&] {
            dropStaleFigures(record, run_.session.regional);
            return AnalysisText(record);
        });
    }

    bool same(const Record& other) const {
        const Analysis one = kept(), two = other.kept();
        return guarded([&] { return AnalysisText(one) == AnalysisText(two); });
    }

    py::object field(const std::string& name) const {
        const auto place = fieldPlaceOf(name);
        if (!place || !isElement(*place)) throw py::index_error(name + " is no element");
        const Turn turn(busy_);
        const FieldValue value = fieldValue(run_.record, *place);
        if (const auto* number = std::get_if<double>(&value); number && place->of->kind == FieldKind::Whole)
            return py::int_(static_cast<long>(*number));
        return std::visit([](const auto& held) -> py::object { return py::cast(held); }, value);
    }

    /// What is wrong with the names; if nothing is, whether the values were put in.
    std::pair<std::string, bool> put(const Texts& entries, const Texts& fields, const std::string& countsAs) {
        AnalysisEntries all;
        all.countsAs = countsAs;
        if (!countsAsNamed(countsAs)) return {"counts: estimate, lower, median or observed", false};
        for (const auto& [name, value] : entries) {
            const auto entry = entryNamed(name);
            if (!entry || !isOfAnalysis(*entry)) return {"no entry " + name + " of an analysis", false};
            auto& text = all.entries[static_cast<std::size_t>(*entry)];
            if (text) return {name + " given twice", false};
            text = value;
        }
        for (const auto& [name, value] : fields) {
            auto read = assignmentOf(name + "=" + value);
            if (const auto* wrong = std::get_if<std::string>(&read)) return {*wrong, false};
            all.assignments.push_back(std::move(std::get<Assignment>(read)));
        }
        if (std::string wrong = all.wrong([](const EntryInfo& info) { return std::string(info.name); });
            !wrong.empty())
            return {std::move(wrong), false};
        return {"", changing([&] { return all.putInto(run_, UnitFactors::shipped()); })};
    }

    /// The figures as JSON; none if the analysis was refused.
    std::optional<std::string> compute(const std::string& coverage) {
        const auto choice = coverageOf(coverage);
        std::optional<std::string> figures;
        changing([&] {
            const ComputedFigures computed = computeFigures(run_, choice);
            if (computed.computed) figures = jsonLine(figuresJson(run_.record, computed));
            return computed.computed;
        });
        return figures;
    }

    /// The figures as JSON; none if they were refused. The analysis is left as it is.
    std::optional<std::string> observed(const std::string& truePct, const std::string& observedPct,
                                        const std::string& guardbands) {
        KnownShare known{truePct, observedPct};
        if (guardbands == "use") known.guardbands = GuardbandUse::Use;
        if (guardbands == "ignore") known.guardbands = GuardbandUse::Ignore;
        if (guardbands == "equalize") known.guardbands = GuardbandUse::Equalize;
        std::optional<std::string> figures;
        looking([&] {
            const ObservedShares shares = convertShare(run_, known);
            if (shares.computed) figures = jsonLine(sharesJson(run_.record, shares));
        });
        return figures;
    }

    /// The bytes of a report whose format is that of the name; none if it was refused. The analysis is left
    /// as it is.
    std::optional<py::bytes> report(const std::string& name, const std::vector<std::string>& sections,
                                    const std::optional<std::string>& reading, const std::string& rule,
                                    bool prior, const std::string& coverage, const std::string& font,
                                    const std::optional<std::string>& organization, bool letter) {
        const auto judged = decisionRuleOf(rule);
        if (!judged) throw py::value_error("rule: " + rule + " is none");
        const ReportRequest request{.sections = sections,
                                    .reading = reading,
                                    .rule = *judged,
                                    .prior = prior,
                                    .coverage = coverageOf(coverage),
                                    .font = font,
                                    .organization = organization,
                                    .page = letter ? PageSetup{} : PageSetup::a4()};
        std::optional<std::string> bytes;
        looking([&] { bytes = composeReport(run_, name, request); });
        if (!bytes) return std::nullopt;
        return py::bytes(*bytes);
    }

    /// What the last act told: title, text and the answer that was given; a note has neither title nor
    /// answer.
    std::vector<std::tuple<std::string, std::string, std::string>> messages() const {
        const Turn turn(busy_);
        std::vector<std::tuple<std::string, std::string, std::string>> all;
        for (const Told& told : run_.ui.messages()) all.emplace_back(told.title, told.text, told.answer);
        return all;
    }

  private:
    static CoverageChoice coverageOf(const std::string& text) {
        if (text.empty()) return {};
        const auto choice = coverageChoiceOf(text);
        if (!choice) throw py::value_error("k: " + text + " is neither a coverage factor nor a percentage");
        return *choice;
    }

    Analysis kept() const {
        const Turn turn(busy_);
        return run_.record;
    }

    /// Does the work, or leaves the record as it was.
    template <class Work>
    bool changing(const Work& work) {
        const Turn turn(busy_);
        run_.ui.forget();
        const Analysis kept = run_.record;
        try {
            const bool done = guarded(work);
            if (!done) run_.record = kept;
            return done;
        } catch (...) {
            run_.record = kept;
            throw;
        }
    }

    /// Does the work, and leaves the record as it was in any case.
    template <class Work>
    void looking(const Work& work) {
        changing([&] {
            work();
            return false;
        });
    }

    mutable std::mutex busy_;
    AnalysisRun run_{workplace()};
};

py::list fieldColumns() {
    py::list all;
    for (const NamedField& field : namedFields()) {
        py::dict each;
        each["name"] = std::string(field.field.name);
        each["kind"] = field.kind == FieldKind::Text    ? "text"
                       : field.kind == FieldKind::Flag  ? "flag"
                       : field.kind == FieldKind::Whole ? "whole"
                                                        : "number";
        py::list ranges;
        for (const FieldRange& range : field.ranges) ranges.append(py::make_tuple(range.first, range.last));
        each["ranges"] = ranges;
        const std::string why = notSettable(field);
        each["not_settable"] = why;
        all.append(each);
    }
    return all;
}

/// 0, or the number of the system's error.
int writeNew(const std::string& path, const std::string& bytes, bool force) {
    return writeFile(path, bytes, force ? Existing::Replace : Existing::Refuse).value();
}

} // namespace

PYBIND11_MODULE(_analysis, module) {
    module.doc() = "The native part of metrisk.Analysis.";
    py::class_<Record>(module, "Record")
        .def(py::init<>())
        .def(py::init<const Record&>())
        .def("load", &Record::load)
        .def("load_text", &Record::loadText)
        .def("take_json", &Record::takeJson)
        .def("restore", &Record::restore)
        .def("json", &Record::json)
        .def("bytes", &Record::bytes)
        .def("same", &Record::same)
        .def("field", &Record::field)
        .def("put", &Record::put)
        .def("compute", &Record::compute)
        .def("observed", &Record::observed)
        .def("report", &Record::report)
        .def("messages", &Record::messages);
    module.def("field_columns", &fieldColumns);
    module.def("file_name", [](const std::string& path) { return py::bytes(NormalizeAnalysisName(path)); });
    module.def("write", &writeNew);
    module.def("report_sections",
               [] { return std::vector<std::string>(reportSections().begin(), reportSections().end()); });
}
