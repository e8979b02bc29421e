#include "desk/decision/StrategyScreen.h"

#include "base/AtomicFile.h"
#include "base/ExactText.h"
#include "base/NumberFormat.h"
#include "base/NumberText.h"
#include "base/Picture.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "record/ToleranceUnits.h"
#include "risk/decision/RecordDecision.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr const char* saveTitle = "Save Strategies";
constexpr Message noTarget{"Please enter a risk above 0 % and below 100 %.", "Guardband Strategies"};
constexpr Message notSaved{"The table could not be saved.", saveTitle};
constexpr const char* noFigure = "These entries lead to no figure.";
constexpr int mostDecimals = 8;
constexpr const char* multiplierPicture = "0.000000";

std::string captionOf(Strategy strategy) {
    switch (strategy) {
    case Strategy::None: return "No guardband";
    case Strategy::Rss: return "Root sum of squares";
    case Strategy::ManagedRisk: return "Managed risk (M6)";
    case Strategy::InverseRatio: return "1 - 1/ratio";
    case Strategy::FourLessInverse: return "1.25 - 1/ratio";
    case Strategy::SameAsFourToOne: return "Same as 4:1";
    case Strategy::ExpandedUncertainty: return "w = U";
    case Strategy::FalseAcceptTarget: return "False accept target";
    case Strategy::FalseRejectTarget: return "False reject target";
    case Strategy::Equalised: return "Equal risks";
    case Strategy::WorstCaseTarget: break;
    }
    return "Worst case target";
}

/// So many that the smallest of a column shows two digits.
int decimalsFor(const std::vector<double>& percents) {
    int decimals = 2;
    for (const double each : percents)
        if (each > 0) decimals = std::max(decimals, 1 - static_cast<int>(std::floor(std::log10(each))));
    return std::min(decimals, mostDecimals);
}

/// As the user would.
void typeInto(Worksheet& screen, std::string_view name, const std::string& text) {
    auto* box = dynamic_cast<TextBox*>(screen.find(name));
    if (!box || box->locked || !box->visible || !box->enabled) return;
    screen.enter(*box, box->text);
    screen.key(*box);
    screen.edit(*box, text);
    screen.leave(*box, text);
}

/// In all its digits, in the user's decimal mark.
std::string typedText(double value, const Regional& regional) {
    std::string text = exactText(value);
    const auto point = text.find('.');
    if (point != text.npos) text.replace(point, 1, regional.DecimalSymbol);
    return text;
}

} // namespace

StrategyScreen::StrategyScreen(Session& session)
    : Worksheet("Strategies", "Guardband Strategies", "strategies"), session_(session),
      basis_(decisionBasis(session.record, session.regional)), background_(session.ui) {
    bindTarget(
        txt_TargetAccept, [](const StrategyTargets& t) { return std::optional(t.falseAccept); },
        [](StrategyTargets& t, std::optional<double> value) { t.falseAccept = *value; }, false);
    bindTarget(
        txt_TargetReject, [](const StrategyTargets& t) { return t.falseReject; },
        [](StrategyTargets& t, std::optional<double> value) { t.falseReject = value; }, true);
    bindTarget(
        txt_TargetWorst, [](const StrategyTargets& t) { return std::optional(t.worst); },
        [](StrategyTargets& t, std::optional<double> value) { t.worst = *value; }, false);
    tbl_Strategies.numbered = false;
    tbl_Strategies.opened = [this](int row) {
        tbl_Strategies.selection = {row, 0, row, static_cast<int>(tbl_Strategies.headings.size()) - 1};
        send();
    };
    cmd_Copy.clicked = [this](bool) {
        CellBlock cells{tbl_Strategies.headings};
        for (const auto& row : tbl_Strategies.rows) {
            auto& line = cells.emplace_back();
            for (const Table::Cell& cell : row) line.push_back(cell.text);
        }
        session_.ui.copyText(writeCells(cells));
    };
    cmd_Save.clicked = [this](bool) { save(); };
    cmd_Send.isPrimary = true;
    cmd_Send.clicked = [this](bool) { send(); };
    cmd_Send.isDefault = true;
    cmd_Close.closes = Way::Cancel;
    menus = {
        {.control = "mnu_Exit", .caption = "C&lose", .run = [this] { close(Way::Cancel); }},
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
    compute();
    refresh();
}

void StrategyScreen::bindTarget(TextBox& box, std::optional<double> (*read)(const StrategyTargets&),
                                void (*write)(StrategyTargets&, std::optional<double>), bool mayBeEmpty) {
    const auto shown = [this, read] {
        const auto value = read(targets_);
        return value ? GeneralText(100 * *value, session_.regional) : "";
    };
    box.text = shown();
    box.left = [this, write, mayBeEmpty, shown](const std::string& text) -> FieldResult {
        StrategyTargets changed = targets_;
        if (text.empty() && mayBeEmpty) {
            write(changed, std::nullopt);
        } else {
            write(changed, ParseValue(text, session_.regional) / 100);
            if (!isNumeric(text, session_.regional) || refusedTargets(changed))
                return refuseEntry(session_.ui, noTarget, shown());
        }
        targets_ = changed;
        compute();
        return {false, text};
    };
}

/// The figures before stay until the new ones are there.
void StrategyScreen::compute() {
    if (!basis_ || !basis_->fit) return;
    background_.start(
        [this, basis = *basis_, targets = targets_](const std::stop_token&) -> Background::Delivery {
            Figures figures{strategyTable(basis, targets), {}, {}};
            const PctRange range = wholeRange(basis);
            if (const auto joint = worstCase(basis, Convention::Producer, range)) figures.joint = *joint;
            if (const auto other = worstCase(basis, Convention::Consumer, range))
                figures.conditional = *other;
            return [this, figures = std::move(figures)] {
                figures_ = figures;
                session_.ui.refresh(*this);
            };
        });
}

const StrategyLine* StrategyScreen::chosen() const {
    const Table::Range& range = tbl_Strategies.selection;
    if (range.empty() || range.top != range.bottom) return nullptr;
    const auto row = static_cast<std::size_t>(range.top);
    if (row >= figures_.lines.size()) return nullptr;
    const auto& figures = figures_.lines[row].figures;
    return figures && (figures->upperMult || figures->lowerMult) ? &figures_.lines[row] : nullptr;
}

void StrategyScreen::send() {
    const StrategyLine* line = chosen();
    if (!line) {
        session_.ui.beep();
        return;
    }
    const StrategyRow row = *line->figures;
    runScreen(screens::guardbands, {session_}, [&](Worksheet& worksheet) {
        if (row.upperMult)
            typeInto(worksheet, "UpperMultiplierBox", typedText(*row.upperMult, session_.regional));
        if (row.lowerMult)
            typeInto(worksheet, "LowerMultiplierBox", typedText(*row.lowerMult, session_.regional));
    });
    basis_ = decisionBasis(session_.record, session_.regional);
    compute();
}

void StrategyScreen::save() {
    if (!session_.desktop) return;
    const auto chosenPath =
        session_.desktop->files.chooseToSave({.title = saveTitle,
                                              .filter = "Comma-separated values (*.csv)|*.csv",
                                              .initialName = "strategies.csv"});
    if (!chosenPath) return;
    if (!replaceFile(*chosenPath, strategyCsv(*basis_, figures_.lines))) tell(session_.ui, notSaved);
}

void StrategyScreen::refresh() {
    const bool there = basis_ && basis_->fit;
    if (there) {
        const DecisionTexts texts = decisionTexts(session_.record, session_.regional, basis_->expanded());
        Lbl_Basis.text =
            limitsText(*basis_, basis_->tolerance(), texts) + ", U = " + texts.width(basis_->expanded()) +
            " (k = " + GeneralText(basis_->coverage, session_.regional, 4) + "), ratio to U " +
            GeneralText(basis_->ratio(), session_.regional, 4) + " : 1, " +
            GeneralText(basis_->subject.pctInTol, session_.regional, 6) + " % in-tolerance; targets of the " +
            (basis_->convention == Convention::Producer ? "joint (producer's)" : "conditional (consumer's)") +
            " false accept risk";
    } else {
        const Refusal& why = basis_ ? basis_->fit.refusal() : basis_.refusal();
        Lbl_Basis.text = why.told() ? why.text : noFigure;
    }
    for (TextBox* box : {&txt_TargetAccept, &txt_TargetReject, &txt_TargetWorst}) box->enabled = there;
    showTable();
    showWorst();
    const std::string none = basis_ ? "The strategies are being computed" : Lbl_Basis.text;
    for (PushButton* each : {&cmd_Copy, &cmd_Save, &cmd_Send}) each->allow(!figures_.lines.empty(), none);
}

void StrategyScreen::showTable() {
    const std::string& nominal = session_.record.NominalUnits;
    const std::string units = nominal.empty() ? "" : ", " + nominal;
    tbl_Strategies.headings = {"Rule",
                               "Multiplier up",
                               "Multiplier low",
                               "Lower limit" + units,
                               "Upper limit" + units,
                               "FA conditional, %",
                               "FA joint, %",
                               "FR, %",
                               "Accepted, %",
                               "Note"};
    tbl_Strategies.rows.clear();
    if (!basis_) return;
    const auto percents = [&](double GuardedRisks::*member) {
        std::vector<double> values;
        for (const StrategyLine& line : figures_.lines)
            if (line.figures) values.push_back(100 * line.figures->risks.*member);
        return values;
    };
    constexpr double GuardedRisks::*members[] = {&GuardedRisks::consumer, &GuardedRisks::producer,
                                                 &GuardedRisks::falseReject, &GuardedRisks::accepted};
    std::string pictures[std::size(members)];
    for (std::size_t i = 0; i < std::size(members); ++i)
        pictures[i] = PictureForDecimals(decimalsFor(percents(members[i])));
    const DecisionTexts texts = decisionTexts(session_.record, session_.regional, basis_->expanded());
    const auto limit = [&](double deviation, bool upper) {
        return std::isfinite(deviation) ? texts.limit(basis_->subject.mode + deviation, upper) : "-";
    };
    const auto multiplier = [&](const std::optional<double>& value) {
        return value ? FormatNumber(*value, multiplierPicture, session_.regional) : "-";
    };
    constexpr std::size_t firstRisk = 5; // the column of members[0]
    double best[std::size(members)];
    for (std::size_t i = 0; i < std::size(members); ++i) {
        const std::vector<double> values = percents(members[i]);
        const bool most = members[i] == &GuardedRisks::accepted;
        best[i] = values.empty() ? 0 : most ? std::ranges::max(values) : std::ranges::min(values);
    }
    tbl_Strategies.figureColumns = {1, 2, 3, 4, 5, 6, 7, 8};
    for (const StrategyLine& line : figures_.lines) {
        std::vector<std::string> cells{captionOf(line.strategy)};
        if (const auto& row = line.figures) {
            cells.insert(cells.end(),
                         {multiplier(row->upperMult), multiplier(row->lowerMult),
                          limit(row->testLimits.lower, false), limit(row->testLimits.upper, true)});
            for (std::size_t i = 0; i < std::size(members); ++i)
                cells.push_back(FormatNumber(100 * row->risks.*members[i], pictures[i], session_.regional));
        } else {
            cells.resize(tbl_Strategies.headings.size() - 1, "-");
        }
        cells.push_back(line.text);
        auto& shown = tbl_Strategies.rows.emplace_back();
        for (std::string& cell : cells) shown.push_back({.text = std::move(cell), .locked = true});
        if (line.figures)
            for (std::size_t i = 0; i < std::size(members); ++i)
                shown[firstRisk + i].best = 100 * line.figures->risks.*members[i] == best[i];
    }
}

void StrategyScreen::showWorst() {
    Lbl_Worst.text.clear();
    if (isComputing() && figures_.lines.empty()) Lbl_Worst.text = "Computing";
    const auto said = [&](const WorstCase& worst) {
        return FormatNumber(100 * worst.falseAccept,
                            PictureForDecimals(decimalsFor({100 * worst.falseAccept})), session_.regional) +
               " % at " + GeneralText(worst.pctInTol, session_.regional, 4) + " % in-tolerance" +
               (worst.atEndOfRange ? ", the end of the range" : "");
    };
    if (figures_.joint)
        Lbl_Worst.text = "At worst, with the test limits of the analysis: joint " + said(*figures_.joint);
    if (figures_.joint && figures_.conditional)
        Lbl_Worst.text += "; conditional " + said(*figures_.conditional);
}

bool StrategyScreen::mayClose(Way) {
    background_.stop();
    return true;
}

} // namespace metrisk
