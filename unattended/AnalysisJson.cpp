#include "unattended/AnalysisJson.h"

#include "desk/compute/FitMeasuring.h"
#include "record/AnalysisFields.h"
#include "record/FieldAccess.h"
#include "uncertainty/ErrorTable.h"
#include <stdexcept>

namespace metrisk {

namespace {

/// What every command tells of a file beside its fields.
bool isFrame(std::string_view key) {
    return key == "file" || key == "status" || key == "messages";
}

std::optional<FieldValue> valueOf(const Json& json) {
    if (const auto* flag = std::get_if<bool>(&json.value())) return *flag;
    if (const auto* number = std::get_if<double>(&json.value())) return *number;
    if (const auto* whole = std::get_if<std::int64_t>(&json.value())) return static_cast<double>(*whole);
    if (const auto* text = std::get_if<std::string>(&json.value())) return *text;
    return std::nullopt;
}

/// What is wrong, or empty.
std::string put(Analysis& record, FieldPlace& place, const Json& json) {
    const auto& ranges = place.of->ranges;
    if (place.index.size() < ranges.size()) {
        const FieldRange range = ranges[place.index.size()];
        const auto* items = std::get_if<Json::Array>(&json.value());
        if (!items || items->size() != range.size())
            return place.name() + " is no array of " + std::to_string(range.size());
        for (int i = range.first; i <= range.last; ++i) {
            place.index.push_back(i);
            const std::string fault = put(record, place, (*items)[static_cast<std::size_t>(i - range.first)]);
            place.index.pop_back();
            if (!fault.empty()) return fault;
        }
        return "";
    }
    const auto value = valueOf(json);
    if (!value || !putField(record, place, *value)) {
        switch (place.of->kind) {
        case FieldKind::Number: return place.name() + " is no number";
        case FieldKind::Whole: return place.name() + " is no whole number";
        case FieldKind::Flag: return place.name() + " is neither true nor false";
        case FieldKind::Text: return place.name() + " is no text";
        }
    }
    const auto* text = std::get_if<std::string>(&*value);
    if (text && text->find('"') != text->npos && place.of->field.source != Source::Derived)
        return place.name() + ": a file cannot hold a double quote";
    return "";
}

} // namespace

void computeBiasRow(AnalysisRun& run) {
    Analysis& record = run.record;
    if (!(record.MTE_Offset > 0 && record.MTE_PctInTol > 0)) return;
    UnattendedInteraction unheard;
    Session session{run.session.settings, unheard, run.session.clock};
    session.record = record;
    FitMeasuringParameter(session);
    ShowErrorTable(session.record, session.regional);
    record.ErrTableDisplay[1] = session.record.ErrTableDisplay[1];
}

Json fieldsJson(AnalysisRun& run) {
    computeBiasRow(run);
    Json::Object fields;
    visitFields(run.record, [&](std::string_view name, const auto& value) {
        fields.push_back({std::string(name), fieldJson(value)});
    });
    return Json::object(std::move(fields));
}

Json analysisJson(const std::string& file, AnalysisRun& run) {
    return joined(run.result(file, "read"), fieldsJson(run));
}

bool looksLikeJson(std::string_view content) {
    if (content.starts_with("\xef\xbb\xbf")) content.remove_prefix(3);
    const auto first = content.find_first_not_of(" \t\r\n");
    return first != content.npos && content[first] == '{';
}

std::string putAnalysisJson(Analysis& record, const Json& object) {
    const auto* members = std::get_if<Json::Object>(&object.value());
    if (!members) return "is no JSON object";
    for (const Json::Member& member : *members) {
        if (isFrame(member.key)) continue;
        FieldPlace place{fieldNamed(member.key)};
        if (!place.of) return member.key + " is no field";
        if (place.of->field.source == Source::Session) continue;
        if (const std::string fault = put(record, place, member.value); !fault.empty()) return fault;
    }
    return "";
}

bool takeJson(AnalysisRun& run, const std::string& content) {
    std::string fault;
    try {
        fault = putAnalysisJson(run.record, readJson(content));
    } catch (const std::runtime_error& wrong) {
        fault = wrong.what();
    }
    if (fault.empty() && !run.settle()) fault = "there is a value that no file can hold";
    if (!fault.empty()) run.ui.note(fault);
    return fault.empty();
}

} // namespace metrisk
