#include "desk/uncertainty/MTEErrorScreen.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "base/Text.h"
#include "desk/compute/RunBiasAnalysis.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/Notes.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Message.h"
#include "desk/links/DDE_Form.h"
#include "desk/uncertainty/CorrelationScreen.h"
#include "desk/uncertainty/DataEntryScreen.h"
#include "numerics/mathlib/InvNorm.h"
#include "persistence/SettingKeys.h"
#include "record/KeptFields.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/BiasAnalysis.h"
#include "uncertainty/ErrorMessages.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

constexpr Question defaultNames{"You have changed one or more error source names.  Do you want the current "
                                "names to be the default names?",
                                "Error Source Name Change", BoxButtons::YesNo, Answer::No};
constexpr Message confidenceError{"Must be between 0 and 100", "Confidence Level Error"};
constexpr Message coverageError{"Must be greater than 0.", "Coverage Factor Error"};
constexpr Message contradiction{
    "The correlation coefficients contradict each other: no errors are correlated "
    "like that.",
    "Correlation Coefficients"};

/// What the worksheet is about.
using Kept =
    KeptFields<&Analysis::IncludeUncertainty, &Analysis::ProcessUncertainty, &Analysis::IncludeMTEBias,
               &Analysis::ErrorSourceName, &Analysis::ErrTableText, &Analysis::CorrelationMatrix,
               &Analysis::Process_DegFreedom, &Analysis::Total_DegFreedom, &Analysis::Stat_SampleSize,
               &Analysis::Stat_Sample, &Analysis::Stat_Flag1, &Analysis::Stat_Flag2, &Analysis::SMPC_Computed,
               &Analysis::SMPC_Bias, &Analysis::SMPC_InTolProb, &Analysis::SMPC_Limits,
               &Analysis::SMPC_TrueOffset, &Analysis::SMPC_CoverageFactor, &Analysis::SMPC_Confidence,
               &Analysis::SMPC_UseCoverageFactor>;
/// What the measuring parameter's fit takes of it.
using Fitted = KeptFields<&Analysis::IncludeUncertainty, &Analysis::ProcessUncertainty,
                          &Analysis::ErrTableText, &Analysis::CorrelationMatrix>;

const char* titleOf(ErrorEntry entry) {
    switch (entry) {
    case ErrorEntry::Uncertainty: return "Uncertainty";
    case ErrorEntry::Confidence: return "Confidence Level";
    case ErrorEntry::Limit:
    case ErrorEntry::DegFreedom: break;
    }
    return "Error Limits";
}

std::string indexed(const char* name, int row) {
    return std::string(name) + "_" + std::to_string(row);
}

/// A file or an import may leave a row nameless.
std::string nameOrDefault(const std::string& name, int row, const Settings& settings) {
    return withoutOuterBlanks(name).empty() ? settings.read(errorSourceSetting(row)) : name;
}

} // namespace

MTEErrorScreen::Row::Names::Names(int row)
    : description(indexed("txt_Description", row)), limits(indexed("LimitsBox", row)),
      confidence(indexed("ConfidenceBox", row)), uncertainty(indexed("UncertaintyBox", row)),
      include(indexed("IncludeBox", row)), degFreedom(indexed("txt_DegreesFreedom", row)),
      share(indexed("pnl_Share", row)) {}

MTEErrorScreen::Row::Row(MTEErrorScreen& owner, int row)
    : names(row), txt_Description(owner, names.description.c_str(), "Name of the error source", Holds::Words),
      LimitsBox(owner, names.limits.c_str(), "Limits that contain the error, in tolerance units"),
      ConfidenceBox(owner, names.confidence.c_str(),
                    "Percent of the errors within the limits; 100 for a rectangular distribution"),
      UncertaintyBox(owner, names.uncertainty.c_str(), "Standard uncertainty, in tolerance units"),
      IncludeBox(owner, names.include.c_str(), "", "Counts in the totals"),
      txt_DegreesFreedom(owner, names.degFreedom.c_str(), "Degrees of freedom; empty means infinite"),
      share(owner, names.share.c_str(), "Share of the squared total") {
    if (row == biasRow)
        button.emplace(owner, "cmd_Tolerances", "Tolerances...", "Enter the tolerances of both parameters");
    if (row == measuringSampleRow)
        button.emplace(owner, "cmd_Random_0", "Samples...", "Enter samples of the measuring parameter");
    if (row == subjectSampleRow)
        button.emplace(owner, "cmd_Random_1", "Samples...", "Enter samples of the subject parameter");
}

MTEErrorScreen::MTEErrorScreen(Session& session)
    : Worksheet("MTEError", "Measurement Process Uncertainty Worksheet", "uncertainty"), session_(session),
      desk_(session) {
    session_.record.UncertaintyWorksheetOpen = desk_.record.UncertaintyWorksheetOpen = true;
    Analysis& r = desk_.record;
    for (int row = 1; row < errorRowCount; ++row)
        if (!isFixedErrorSource(row))
            r.ErrorSourceName[row] = nameOrDefault(r.ErrorSourceName[row], row, session.settings);
        else
            r.ErrorSourceName[row] = std::string(errorSourceNames[row - 1]);
    SyncIncludes(r, session.regional);
    BlankZeros(r, session.regional);
    loaded_ = r;
    for (int row = 0; row < errorRowCount; ++row) bindRow(row);
    OptUncertainty.clicked = [this](bool on) { desk_.record.IncludeUncertainty = on; };
    bindBias();
    mnu_Exit_0.closes = Way::Ok;
    mnu_Exit_0.isDefault = true;
    mnu_Exit_0.isPrimary = true;
    mnu_Exit_1.closes = Way::Cancel;
    makeMenus();
    refresh();
}

MTEErrorScreen::~MTEErrorScreen() {
    session_.record.UncertaintyWorksheetOpen = false;
    if (session_.desktop && session_.desktop->errorLedger) session_.desktop->errorLedger->forget(*this);
}

void MTEErrorScreen::bindRow(int index) {
    Row& row = rows[static_cast<std::size_t>(index)];
    row.IncludeBox.clicked = [this, index](bool on) {
        changeTable([&] {
            if (index == biasRow)
                desk_.record.IncludeMTEBias = on;
            else
                desk_.record.ErrTableText[index][errorColumn::include] = on ? "True" : "False";
        });
    };
    if (index == biasRow || isSampleRow(index)) {
        row.txt_Description.locked = true;
        row.txt_Description.left = [](const std::string& text) -> FieldResult { return {false, text}; };
    }
    if (index == biasRow) {
        row.button->clicked = [this](bool) { enterTolerances(); };
        for (TextBox* box :
             {&row.LimitsBox, &row.ConfidenceBox, &row.UncertaintyBox, &row.txt_DegreesFreedom})
            box->locked = true;
        return;
    }
    const auto bind = [this, index](TextBox& box, ErrorEntry entry) {
        box.left = [this, index, entry, &box](const std::string& text) {
            return leaveEntry(index, entry, box, text);
        };
    };
    bind(row.LimitsBox, ErrorEntry::Limit);
    bind(row.ConfidenceBox, ErrorEntry::Confidence);
    bind(row.UncertaintyBox, ErrorEntry::Uncertainty);
    bind(row.txt_DegreesFreedom, ErrorEntry::DegFreedom);
    if (isSampleRow(index))
        row.button->clicked = [this, index](bool) { enterSamples(sampleSlot(index)); };
    else
        row.txt_Description.left = [this, index](const std::string& text) -> FieldResult {
            desk_.record.ErrorSourceName[index] = withoutQuotes(text);
            return {false, text};
        };
}

void MTEErrorScreen::bindBias() {
    ErledUnitsBox.locked = true;
    for (TextBox* box :
         {&TrueValueBox, &MTEBiasBox, &MTEUncertaintyBox, &MTEUncertaintyLimitsBox, &SUBiasBox,
          &SUUncertaintyBox, &SUUncertaintyLimitsBox, &pnl_InTolProbability_0, &pnl_InTolProbability_1})
        box->enabled = false;
    PctConfidenceBox.left = [this](const std::string& text) { return leaveConfidence(text); };
    CoverageFactorBox.left = [this](const std::string& text) { return leaveCoverageFactor(text); };
    cmd_BiasAnalysis.clicked = [this](bool) { analyzeBias(); };
}

/// A fault leaves the worksheet as it was before the entry, and says which entry it was.
FieldResult MTEErrorScreen::runRule(TextBox& box, const std::string& text) {
    const Analysis before = desk_.record;
    try {
        return box.left(text);
    } catch (const RuntimeFault&) {
        desk_.record = before;
        tell(session_.ui, {text + notANumber, caption});
        return {true, box.last.value_or("")};
    }
}

FieldResult MTEErrorScreen::leaveEntry(int row, ErrorEntry entry, TextBox& box, const std::string& text) {
    const FieldResult restored{true, box.last.value_or(box.text)};
    switch (refusalOf(entry, text, session_.regional)) {
    case ErrorRefusal::NotANumber: tell(session_.ui, {text + notANumber, titleOf(entry)}); return restored;
    case ErrorRefusal::Negative: tell(session_.ui, negativeError); return restored;
    case ErrorRefusal::ConfidenceOutside: tell(session_.ui, confidenceOutside); return restored;
    case ErrorRefusal::None: break;
    }
    EnterError(desk_.record, row, entry, text, session_.regional);
    tableChanged();
    return {false, text};
}

/// A change that leaves the table without a total is taken back and told. False then.
bool MTEErrorScreen::changeTable(const std::function<void()>& change) {
    const Analysis before = desk_.record;
    try {
        change();
        tableChanged();
        return true;
    } catch (const RuntimeFault&) {
        desk_.record = before;
        tell(session_.ui, noTotal);
        return false;
    }
}

/// Raises RuntimeFault if the table has no total.
void MTEErrorScreen::tableChanged() {
    Analysis& r = desk_.record;
    SyncIncludes(r, session_.regional);
    const ErrorRows table = readErrorRows(r, session_.regional);
    ComputeTotals(table, r.CorrelationMatrix);
    SumProcessUncertainty(desk_.record, desk_.regional);
    if (std::all_of(table.begin() + 1, table.end(), [](const ErrorRow& row) { return row.uncertainty == 0; }))
        r.ProcessUncertainty = 0; // an entry has emptied the table
}

void MTEErrorScreen::enterSamples(int slot) {
    DataEntryScreen samples(desk_, slot);
    if (!changeTable([&] { session_.ui.run(samples); }) || samples.closedBy() != Way::Ok) return;
    const Analysis& r = desk_.record;
    if (r.MTE_PctInTol > 0 && r.SU_PctInTol > 0) analyzeBias(); // a budget alone needs neither
}

void MTEErrorScreen::correlate() {
    CorrelationScreen correlations(desk_);
    changeTable([&] { session_.ui.run(correlations); });
}

/// The plot works on the budget's own record; what it changes there shows in row 0.
void MTEErrorScreen::viewDistribution() {
    Analysis& r = desk_.record;
    if (r.ProcessUncertainty > 0) r.ErrorPlot_Param = "SU"; // otherwise there is nothing to plot
    const bool bias = r.IncludeMTEBias;
    openErrorPlot(desk_);
    session_.record.ErrorPlot_Param = r.ErrorPlot_Param;
    if (r.IncludeMTEBias != bias) changeTable([] {});
}

/// Nothing of the budget changes by its report.
void MTEErrorScreen::report(const std::function<void(Session& desk)>& show) {
    Session shown(desk_);
    show(shown);
}

/// Row 0 and the units of the table follow what has become of the tolerances. Under another reading, figures
/// in ppm stay as they are.
void MTEErrorScreen::enterTolerances() {
    session_.record.OffsetFromUncertainty = true;
    openTolerances();
    session_.record.OffsetFromUncertainty = false;
    changeTable([this] {
        Analysis& r = desk_.record;
        const ToleranceUnits before = measuringUnits(r);
        const ToleranceUnits now = measuringUnits(session_.record);
        const double ratio = before.name == now.name ? 1 : checked(now.factor / before.factor);
        if (ratio != 1) {
            RescaleProcessTable(r, ratio, session_.regional);
            RescaleProcessTable(loaded_, ratio, session_.regional); // no change of the user's
        }
        static_cast<SubjectParameter&>(r) = session_.record;
        static_cast<MeasuringParameter&>(r) = session_.record;
    });
}

void MTEErrorScreen::analyzeBias() {
    RunBiasAnalysis(desk_);
}

FieldResult MTEErrorScreen::leaveConfidence(const std::string& text) {
    const double percent = ParseValue(text, session_.regional);
    if (!(percent > 0 && percent < 100)) {
        tell(session_.ui, confidenceError);
        return {true, PctConfidenceBox.last.value_or(PctConfidenceBox.text)};
    }
    Analysis& r = desk_.record;
    r.SMPC_UseCoverageFactor = false;
    r.SMPC_Confidence = percent / 100;
    r.SMPC_Confidence_fmt = PictureForDecimals(DigitsForEntry(text, session_.regional));
    r.SMPC_CoverageFactor = checked(InvNorm((r.SMPC_Confidence + 1) / 2));
    r.SMPC_CoverageFactor_fmt = factorPicture;
    analyzeBias();
    return {false, text};
}

FieldResult MTEErrorScreen::leaveCoverageFactor(const std::string& text) {
    const double factor = ParseValue(text, session_.regional);
    if (!(factor > 0)) {
        tell(session_.ui, coverageError);
        return {true, CoverageFactorBox.last.value_or(CoverageFactorBox.text)};
    }
    Analysis& r = desk_.record;
    r.SMPC_UseCoverageFactor = true;
    r.SMPC_CoverageFactor = factor;
    r.SMPC_CoverageFactor_fmt = PictureForDecimals(DigitsForEntry(text, session_.regional));
    r.SMPC_Confidence = std::erf(factor / std::numbers::sqrt2);
    r.SMPC_Confidence_fmt = confidencePicture;
    analyzeBias();
    return {false, text};
}

bool MTEErrorScreen::changed() const {
    return Kept(loaded_).differ(desk_.record);
}

bool MTEErrorScreen::mayClose(Way way) {
    keepName(session_.record, desk_.record);
    if (way == Way::Cancel) return true;
    if (totals_ && totals_->contradictory) tell(session_.ui, contradiction);
    store();
    return true;
}

/// Empty names become the default ones; others may become those.
void MTEErrorScreen::keepNames() {
    Analysis& r = desk_.record;
    std::vector<SettingValue> values;
    for (int row = 1; row < errorRowCount; ++row) {
        if (isFixedErrorSource(row)) continue;
        std::string& source = r.ErrorSourceName[row];
        source = nameOrDefault(source, row, session_.settings);
        r.ErrTableText[row][errorColumn::name] = source;
        const TextSetting setting = errorSourceSetting(row);
        if (session_.settings.read(setting) !=
            firstCharacters(source, static_cast<std::size_t>(setting.length)))
            values.push_back({std::string(setting.section), std::string(setting.key), source});
    }
    if (!values.empty() && ask(session_.ui, defaultNames) == Answer::Yes) session_.settings.write(values);
}

void MTEErrorScreen::store() {
    Analysis& r = session_.record;
    Analysis& worked = desk_.record;
    worked.SMPC_Computed = BiasResultsStand(desk_.record, session_.regional);
    if (changed()) r.FileChanged = true;
    const bool counts = worked.IncludeUncertainty || loaded_.IncludeUncertainty;
    const bool refit = counts && Fitted(loaded_).differ(worked);
    keepNames();
    for (int row = 1; row < errorRowCount; ++row)
        worked.ErrTableText[row][errorColumn::include] =
            readErrorTableRow(worked, row, session_.regional).included ? "True" : "False";
    if (worked.MTE_TolUnitsFactor == 0) worked.MTE_TolUnitsFactor = 1;
    ShowErrorTable(worked, session_.regional);
    r.MTE_TolUnitsFactor = worked.MTE_TolUnitsFactor;
    static_cast<ProcessErrors&>(r) = worked;
    static_cast<SampleStatistics&>(r) = worked;
    static_cast<BiasAnalysis&>(r) = worked;
    r.UncertaintyWorksheetOpen = false;
    if (!refit) return;
    r.markChanged("MTE");
    ValidateAndFit(session_);
    r.AbortFlag = false;
}

} // namespace metrisk
