// The native part of the Python package: arrays in, arrays out. What a caller may pass, the package sees to.
#include "base/Box.h"
#include "base/Real.h"
#include "persistence/AnalysisContent.h"
#include "persistence/NewAnalysis.h"
#include "python/arrays/PointArrays.h"
#include "reliability/ReliabilityInterval.h"
#include "reliability/ReliabilitySolution.h"
#include "risk/BaselineModel.h"
#include "rows/Entries.h"
#include "selfcheck/SelfCheck.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <thread>

namespace py = pybind11;

namespace {

using namespace metrisk;

using Numbers = py::array_t<double, py::array::c_style>;
using Codes = py::array_t<std::int32_t, py::array::c_style>;

constexpr std::size_t blockSize = 1024;
constexpr auto signalsAsked = std::chrono::milliseconds(50);

Analysis analysisOf(const std::optional<std::string>& bytes) {
    Analysis record = newAnalysis();
    if (!bytes) return record;
    const auto convert = [] { return true; };
    const auto optionsRead = [] {};
    const ParseResult read = parseAnalysis(record, *bytes, Regional{}, {convert, optionsRead});
    if (read.outcome.fault != ReadFault::None) throw py::value_error("template: " + causeOf(read.outcome));
    return record;
}

/// The blocks of all elements, by threads that end with the call. The caller's thread asks for signals
/// meanwhile; one that raises ends the work.
template <class Work>
void byThreads(std::size_t size, unsigned threads, Work work) {
    std::mutex mutex;
    std::condition_variable_any ended;
    std::atomic<std::size_t> next{0};
    std::size_t running = 0;
    std::exception_ptr fault;
    std::stop_source stop;
    const auto run = [&] {
        try {
            for (std::size_t block = next++; block * blockSize < size && !stop.stop_requested();
                 block = next++)
                work(block, std::min(size, (block + 1) * blockSize), stop.get_token());
        } catch (...) {
            const std::lock_guard lock(mutex);
            fault = std::current_exception();
            stop.request_stop();
        }
        const std::lock_guard lock(mutex);
        --running;
        ended.notify_all();
    };
    const std::size_t blocks = (size + blockSize - 1) / blockSize;
    threads = threads ? threads : std::max(1u, std::thread::hardware_concurrency());
    threads = static_cast<unsigned>(std::min<std::size_t>(std::min(threads, 256u), blocks));
    if (threads <= 1 && blocks <= 1) { // not worth a thread, nor a question
        const py::gil_scoped_release released;
        running = 1;
        run();
        if (fault) std::rethrow_exception(fault);
        return;
    }
    {
        std::vector<std::jthread> workers;
        for (unsigned i = 0; i < std::max(threads, 1u); ++i) {
            const std::lock_guard lock(mutex);
            workers.emplace_back(run);
            ++running;
        }
        bool raised = false;
        for (;;) {
            {
                const py::gil_scoped_release released;
                std::unique_lock lock(mutex);
                if (ended.wait_for(lock, signalsAsked, [&] { return running == 0; })) break;
            }
            if (!raised && PyErr_CheckSignals() != 0) {
                raised = true;
                stop.request_stop();
            }
        }
        if (raised) {
            const py::gil_scoped_release released;
            workers.clear();
        }
        if (raised) throw py::error_already_set();
    }
    if (fault) std::rethrow_exception(fault);
}

py::dict compute(const py::list& given, std::size_t size, const std::string& wanted,
                 const std::string& counts, const std::optional<std::string>& templateBytes,
                 unsigned threads) {
    const auto read = wantOf(wanted);
    if (const auto* wrong = std::get_if<std::string>(&read))
        throw py::value_error(wrong->substr(wrong->find_first_not_of('-')));
    const Want& want = std::get<Want>(read);
    const auto countsAs = countsAsNamed(counts);
    if (!countsAs) throw py::value_error("counts: estimate, lower, median or observed");
    const Analysis record = analysisOf(templateBytes);
    const Regional regional;
    std::optional<TestPoint> base;
    try {
        base = testPointOf(record, regional);
    } catch (const RowFault& fault) {
        throw py::value_error("template: " + fault.text);
    }

    std::vector<EntryArray> entries;
    std::vector<py::object> kept; // while their memory is read
    std::vector<std::vector<std::string>> texts(given.size());
    for (std::size_t i = 0; i < given.size(); ++i) {
        const auto item = given[i].cast<py::tuple>();
        const auto entry = entryNamed(item[0].cast<std::string>());
        if (!entry) throw py::type_error("no entry " + item[0].cast<std::string>());
        EntryArray array{.entry = *entry};
        std::size_t elements = 0;
        if (item.size() == 2) {
            const auto numbers = item[1].cast<Numbers>();
            array.numbers = numbers.data();
            elements = static_cast<std::size_t>(numbers.size());
            kept.push_back(numbers);
        } else {
            const auto codes = item[1].cast<Codes>();
            texts[i] = item[2].cast<std::vector<std::string>>();
            array.codes = codes.data();
            array.texts = texts[i];
            elements = static_cast<std::size_t>(codes.size());
            for (std::size_t at = 0; at < elements; ++at)
                if (array.codes[at] >= static_cast<std::int32_t>(texts[i].size()))
                    throw py::value_error("a code without a text");
            kept.push_back(codes);
        }
        array.single = elements == 1;
        if (!array.single && elements != size) throw py::value_error("arrays of different sizes");
        entries.push_back(array);
    }

    py::dict figures;
    AnswerArrays answers;
    py::array_t<std::uint8_t> status(static_cast<py::ssize_t>(size));
    answers.status = status.mutable_data();
    for (const WantInfo& info : wantTable())
        if (want.has(info.word))
            for (const FigureColumn& column : info.columns) {
                Numbers values(static_cast<py::ssize_t>(size));
                answers.figures.push_back(values.mutable_data());
                figures[py::str(column.name.data(), column.name.size())] = values;
            }
    std::vector<std::vector<PointMessage>> messages((size + blockSize - 1) / blockSize);
    byThreads(size, threads, [&](std::size_t block, std::size_t last, const std::stop_token& stop) {
        answerPoints(*base, entries, want, *countsAs, block * blockSize, last, answers, messages[block],
                     stop);
    });
    py::dict told;
    for (const auto& block : messages)
        for (const PointMessage& message : block) told[py::int_(message.element)] = message.text;
    py::dict result;
    result["figures"] = figures;
    result["status"] = status;
    result["messages"] = told;
    return result;
}

py::str text(std::string_view words) {
    return {words.data(), words.size()};
}

/// One dictionary an entry, in the order in which they are put in.
py::list entryColumns() {
    py::list all;
    for (const EntryInfo& info : entryTable()) {
        py::dict each;
        each["name"] = text(info.name);
        each["field"] = text(info.field);
        each["kind"] = text(nameOf(info.kind));
        each["range"] = text(info.range);
        each["default"] = text(info.otherwise);
        each["about"] = text(info.about);
        all.append(each);
    }
    return all;
}

/// One dictionary a column of the answers.
py::list figureColumns() {
    py::list all;
    for (const WantInfo& info : wantTable())
        for (const FigureColumn& column : info.columns) {
            py::dict each;
            each["want"] = text(info.name);
            each["name"] = text(column.name);
            each["about"] = text(column.about);
            each["kind"] = column.kind == FigureKind::Flag   ? "flag"
                           : column.kind == FigureKind::Text ? "text"
                                                             : "number";
            if (column.kind == FigureKind::Text) {
                py::list texts;
                for (const std::string_view word : textsOfColumn(column.name)) texts.append(text(word));
                each["texts"] = texts;
            }
            all.append(each);
        }
    return all;
}

py::list selfCheckRows() {
    py::list all;
    for (const CheckedFigure& figure : selfCheck(publishedFigures())) {
        py::dict each;
        each["name"] = figure.name;
        each["figure"] = figure.figure;
        each["printed"] = figure.printed;
        each["computed"] = figure.computed;
        each["exact"] = figure.exact;
        each["source"] = figure.source;
        each["verdict"] = wordOf(figure.verdict);
        all.append(each);
    }
    return all;
}

/// False accept and false reject risk of the reference case, fractions.
py::tuple baseline(double ratio, double measuringPct, double subjectPct, bool producer) {
    if (!(ratio > 0)) throw py::value_error(ratioTooLowText);
    for (const double pct : {measuringPct, subjectPct})
        if (!isProbability(pct / 100)) throw py::value_error(pctRangeText);
    const Risks risks =
        risksOf(BaselineModel(subjectPct / 100, measuringPct / 100).at(ratio), producer ? 1 : 0);
    return py::make_tuple(risks.falseAccept, risks.falseReject);
}

int modelNumber(int model) {
    for (const ReliabilityModel& each : reliabilityModels)
        if (each.number == model) return model;
    throw py::value_error("no model of that number");
}

/// R(0), the mean over the interval, and R(interval).
py::tuple reliabilityOver(int model, double interval, double a, double b, double c) {
    if (!std::isfinite(interval)) throw py::value_error("a finite interval is wanted");
    const auto period = periodReliability(modelNumber(model), {a, b, c}, interval);
    if (!period || !falls(*period)) throw py::value_error(std::string(illDefinedReliability.text));
    return py::make_tuple(period->bop, period->aop, period->eop);
}

/// a, b, c, and whether the form of the model suits the reliabilities.
py::tuple solveReliabilityFor(int model, double interval, double bop, double aop, double eop) {
    PeriodReliability period{bop, aop, eop};
    const ReliabilitySolution solution = solveReliability(modelNumber(model), period, interval);
    if (solution.status == SolveStatus::Refused || solution.theta.allZero())
        throw py::value_error(solution.message ? std::string(solution.message->text)
                                               : std::string("there are no such coefficients"));
    return py::make_tuple(solution.theta.a, solution.theta.b, solution.theta.c,
                          solution.status == SolveStatus::Computed);
}

py::list models() {
    py::list all;
    for (const ReliabilityModel& model : reliabilityModels)
        all.append(py::make_tuple(model.number, text(model.name), text(model.equation)));
    return all;
}

/// What leaves a function as a fault of numbers is an error of the caller's values.
template <class Function>
auto guarded(Function function) {
    return [function](auto... arguments) {
        try {
            return function(arguments...);
        } catch (const RuntimeFault& fault) {
            throw py::value_error(std::string(fault.routine) + ": no finite figure");
        }
    };
}

} // namespace

PYBIND11_MODULE(_metrisk, module) {
    module.doc() = "The native part of metrisk.";
    module.attr("version") = METRISK_VERSION;
    module.def("compute", &compute, py::arg("entries"), py::arg("size"), py::arg("want"), py::arg("counts"),
               py::arg("template"), py::arg("threads"));
    module.def("in_main_interpreter", [] { return PyInterpreterState_Get() == PyInterpreterState_Main(); });
    module.def("entry_columns", &entryColumns);
    module.def("figure_columns", &figureColumns);
    module.def("self_check", &selfCheckRows);
    module.def("baseline", [](double ratio, double measuringPct, double subjectPct, bool producer) {
        return guarded(baseline)(ratio, measuringPct, subjectPct, producer);
    });
    module.def("reliability", [](int model, double interval, double a, double b, double c) {
        return guarded(reliabilityOver)(model, interval, a, b, c);
    });
    module.def("solve_reliability", [](int model, double interval, double bop, double aop, double eop) {
        return guarded(solveReliabilityFor)(model, interval, bop, aop, eop);
    });
    module.def("reliability_models", &models);
}
