#include "desk/uncertainty/DataEntryScreen.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "desk/files/Notes.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/links/RunMenu.h"
#include "plots/SamplePicture.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/ErrorCell.h"
#include "uncertainty/ErrorRows.h"
#include "uncertainty/ErrorTable.h"
#include "uncertainty/SampleColumn.h"
#include "uncertainty/Samples.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr const char* captions[] = {"", "Measuring Parameter Data Entry", "Subject Parameter Data Entry"};
constexpr Message tooLarge{"The samples are too far apart for their statistics.", "Measured Values"};
constexpr Question clearSource{"No samples are entered. Clear this error source?", "Measured Values",
                               BoxButtons::YesNo, Answer::No};
constexpr const char* gridIsFull = "The grid holds no more than 200 rows.";
constexpr int panelDecimals = 4;

/// Both as the record holds them, in the order of the rows.
SampleGrid gridOf(const Analysis& r, int slot, const Regional& regional) {
    SampleGrid grid(r.SU_Mode, measuringUnits(r).factor, regional);
    grid.setMeasured(!areDeviations(r, slot));
    std::vector<double> values;
    for (int i = 1; i <= r.Stat_SampleSize[slot]; ++i) values.push_back(r.Stat_Sample[i][slot]);
    grid.fill(values, r.Stat_SampleFmt[slot]);
    return grid;
}

std::string headed(const char* what, std::string_view units) {
    return units.empty() ? what : std::string(what) + " (" + std::string(units) + ")";
}

} // namespace

DataEntryScreen::DataEntryScreen(Session& session, int slot)
    : Worksheet("DataEntryWorksheet", captions[slot], "samples"), session_(session), slot_(slot),
      draft_(session.record), grid_(gridOf(session.record, slot, session.regional)) {
    const int row = slot == 1 ? measuringSampleRow : subjectSampleRow;
    const double confidence =
        ParseValue(draft_.ErrTableText[row][errorColumn::confidence], session.regional) / 100;
    if (confidence > 0 && confidence <= 1) draft_.Stat_Value5[slot] = confidence;
    bindGrid();
    for (const bool measured : {false, true})
        (measured ? measOption_1 : measOption_0).clicked = [this, measured](bool) {
            change([&] { grid_.setMeasured(measured); });
        };
    chk_SamplingDistribution.clicked = [this](bool on) {
        change([&] { draft_.Stat_Flag2[slot_] = on ? -1 : 0; });
    };
    mnu_Exit_0.isPrimary = true;
    mnu_Exit_0.closes = Way::Ok;
    mnu_Exit_1.closes = Way::Cancel;
    menus = {
        {.control = "CtrlEdit", .caption = "&Edit", .items = editItems()},
        runMenu(session_),
        notesItem(session_),
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
    change([] {});
    refresh();
}

void DataEntryScreen::bindGrid() {
    ss.headings = {""};
    ss.figureColumns = {0};
    ss.rows.assign(maxSampleSize, {Table::Cell{}});
    ss.markTip = "not a number, not counted";
    ss.cellLeft = [this](int row, int, const std::string& text) { change([&] { grid_.set(row, text); }); };
    ss.cellsPut = [this](int row, int, const CellBlock& cells) {
        change([&] {
            const SampleGrid::Taken result = grid_.put(row, cells);
            if (result.taken < result.given)
                notice_ =
                    takenText(static_cast<std::size_t>(result.taken), static_cast<std::size_t>(result.given));
        });
    };
}

std::vector<MenuItem> DataEntryScreen::editItems() {
    const auto onSelection = [this](auto work) {
        return [this, work] {
            if (const Table::Range range = ss.selection; !range.empty()) change([&] { work(range); });
        };
    };
    return {
        {.control = "CtrlEdit_Cut", .caption = "Cu&t", .shortcut = "Ctrl+X", .editing = Editing::Cut},
        {.control = "CtrlEdit_Copy", .caption = "&Copy", .shortcut = "Ctrl+C", .editing = Editing::Copy},
        {.control = "CtrlEdit_Paste", .caption = "&Paste", .shortcut = "Ctrl+V", .editing = Editing::Paste},
        {.control = "CtrlEdit_Delete",
         .caption = "&Delete",
         .editing = Editing::Delete,
         .separatorAfter = true},
        {.control = "CtrlDeleteRow",
         .caption = "Delete &Row",
         .run = onSelection([this](const Table::Range& range) {
             grid_.deleteRows(range.top, range.bottom - range.top + 1);
         }),
         .shortcut = "Ctrl+-"},
        {.control = "CtrlInsert",
         .caption = "&Insert Row",
         .run = onSelection([this](const Table::Range& range) {
             if (!grid_.insertRows(range.top, range.bottom - range.top + 1)) notice_ = gridIsFull;
         }),
         .shortcut = "Ctrl++; Ins"},
        {.control = "CtrlFillDown",
         .caption = "Fill Do&wn",
         .run = onSelection([this](const Table::Range& range) {
             const std::string text = grid_.text(range.top);
             for (int row = range.top + 1; row <= range.bottom; ++row) grid_.set(row, text);
         }),
         .shortcut = "Ctrl+D"},
    };
}

template <class Change>
void DataEntryScreen::change(Change change) {
    const SampleGrid before = grid_;
    const int ofMean = draft_.Stat_Flag2[slot_];
    notice_.clear();
    change();
    draft_.Stat_Flag1[slot_] = grid_.measured() ? 1 : 0;
    try {
        showStatistics();
    } catch (const RuntimeFault&) {
        grid_ = before;
        draft_.Stat_Flag1[slot_] = grid_.measured() ? 1 : 0;
        draft_.Stat_Flag2[slot_] = ofMean;
        tell(session_.ui, tooLarge);
    }
}

void DataEntryScreen::showStatistics() {
    const std::vector<double> values = grid_.values();
    ComputeSampleStatistics(draft_, slot_, values);
    const double scale = grid_.measured() ? measuringUnits(draft_).factor : 1;
    deviation_ = sampleFigures(values).stdDeviation * scale;
    drawPicture(scale);
}

void DataEntryScreen::drawPicture(double scale) {
    const Regional& regional = session_.regional;
    SamplePicture picture;
    picture.values = grid_.values();
    picture.mean = draft_.Stat_SampleMean[slot_];
    picture.limit = draft_.Stat_tStatistic[slot_] * draft_.Stat_SampleStdDev[slot_] / scale;
    picture.meanText = ErrorCell::readable(picture.mean, panelDecimals, regional);
    if (picture.values.size() < 2) {
        pic_Samples.text = "Two samples at least make a histogram";
        pic_Samples.draw({});
        return;
    }
    pic_Samples.text = "Histogram of " + std::to_string(picture.values.size()) + " samples, mean " +
                       picture.meanText + ", limits " +
                       ErrorCell::readable(picture.limit, panelDecimals, regional) + " from it";
    pic_Samples.draw(
        [picture = std::move(picture)](DrawingSurface& surface) { drawSamples(surface, picture); });
}

void DataEntryScreen::refresh() {
    const Regional& regional = session_.regional;
    const ToleranceUnits units = measuringUnits(draft_);
    const std::string_view own = grid_.measured() ? std::string_view(draft_.NominalUnits) : units.name;
    NominalValueBox.text =
        withUnits(FormatNumber(draft_.SU_Mode, draft_.SU_Mode_fmt, regional), draft_.NominalUnits);
    measOption_0.checked = !grid_.measured();
    measOption_1.checked = grid_.measured();
    ss.headings.front() = headed(grid_.measured() ? "Measured Value" : "Measured Deviation", own);
    for (int row = 0; row < grid_.rows(); ++row) {
        Table::Cell& cell = ss.rows[static_cast<std::size_t>(row)].front();
        cell.text = grid_.text(row);
        cell.marked = grid_.isRefused(row);
    }
    Lbl_Taken.text = notice_;
    const auto figure = [&](double value, std::string_view unitsName) {
        return withUnits(ErrorCell::readable(value, panelDecimals, regional), unitsName);
    };
    Lbl_MeanValue.text = grid_.measured() ? "Mean Value" : "Mean Deviation";
    MeanValuePanel.text = figure(draft_.Stat_SampleMean[slot_], own);
    const std::vector<double> values = grid_.values();
    Lbl_Range.tone = Label::Tone::Second;
    Lbl_Range.text.clear();
    if (!values.empty()) {
        const auto [least, greatest] = std::ranges::minmax(values);
        Lbl_Range.text = "Least " + figure(least, own) + ", greatest " + figure(greatest, own);
    }
    SampleSizePanel.text = std::to_string(draft_.Stat_SampleSize[slot_]);
    Lbl_MostSamples.text = SampleSizePanel.text + " of " + std::to_string(maxSampleSize);
    StdDeviationPanel.text = figure(deviation_, units.name);
    pnl_MeanSigma.text = figure(draft_.Stat_Value6[slot_], units.name);
    chk_SamplingDistribution.checked = draft_.Stat_Flag2[slot_] != 0;
}

/// The error source that the samples fill bears figures.
bool DataEntryScreen::rowHasEntries() const {
    const Analysis& r = session_.record;
    const ErrorTableRow row =
        readErrorTableRow(r, slot_ == 1 ? measuringSampleRow : subjectSampleRow, session_.regional);
    return row.uncertainty.present() || row.limit.present();
}

bool DataEntryScreen::mayClose(Way way) {
    if (way == Way::Cancel) return true;
    Analysis& r = session_.record;
    if (grid_.values().empty() && rowHasEntries() && ask(session_.ui, clearSource) != Answer::Yes)
        return true;
    r.Stat_Flag1[slot_] = draft_.Stat_Flag1[slot_];
    r.Stat_Flag2[slot_] = draft_.Stat_Flag2[slot_];
    r.Stat_Value5[slot_] = draft_.Stat_Value5[slot_];
    StoreSamples(r, slot_, grid_.values(), grid_.decimals(), session_.regional);
    return true;
}

} // namespace metrisk
