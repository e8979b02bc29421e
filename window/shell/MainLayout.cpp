// The main screen: identification, both parameters, results, options.
#include "window/shell/Layouts.h"

#include "window/kit/EntryBox.h"
#include "window/kit/FoldingRow.h"
#include "window/kit/LookStyle.h"
#include "window/kit/Panels.h"
#include "window/kit/ToneLabel.h"
#include "window/kit/Widgets.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <utility>

namespace metrisk {

namespace {

constexpr int columnGap = 12;
constexpr int identificationGap = 2;
constexpr int halfGap = 8; // beside the gaps of two columns
constexpr int captionGap = 2;
constexpr int panelGapHere = 6; // so that the whole screen has room at 1024 x 768
constexpr int signWidth = 12;
constexpr int resultRow = 36;
constexpr int resultGap = 6;
constexpr int resultRowGap = 2; // the rows are high enough to stand apart
constexpr int commandHeight = 30;
constexpr double resultSize = 1.6; // of the screen's font: the heaviest thing on it
constexpr int widest = 1280;       // not wider than the eye follows a line

QGroupBox* panel(const char* name, const char* title, QLayout* content) {
    QGroupBox* made = group(title, content);
    named(made, name);
    return made;
}

QGridLayout* columnsOf(QGridLayout* grid, int count) {
    grid->setHorizontalSpacing(columnGap);
    for (int column = 0; column < count; ++column) grid->setColumnStretch(column, 1);
    return grid;
}

/// A label above its box, as one piece.
QWidget* column(QWidget* label, QWidget* box, const char* name = "") {
    nameBy(label, box);
    QWidget* made = named(down({label, box}), name);
    made->layout()->setSpacing(captionGap);
    return made;
}

/// A sign between two boxes, level with them; without it they are that distance apart.
void addSign(QHBoxLayout* row, QWidget* label, int distance, const QWidget* box) {
    auto* sign = static_cast<QLabel*>(label);
    sign->setAlignment(Qt::AlignVCenter | (distance > 0 ? Qt::AlignHCenter : Qt::AlignLeft));
    sign->setFixedSize(signWidth, box->sizeHint().height());
    row->addSpacing(distance / 2);
    row->addWidget(sign, 0, Qt::AlignBottom);
    row->addSpacing(distance / 2);
}

/// The button is a heading in two lines, where its column begins.
QWidget* asHeading(QWidget* button) {
    QFont bold = button->font();
    bold.setBold(true);
    button->setFont(bold);
    auto* push = static_cast<QPushButton*>(button);
    push->setFlat(true);
    push->setProperty(headingProperty, true);
    push->setFixedSize(QFontMetrics(bold).size(0, push->text()) + QSize(2, 2));
    return button;
}

/// A result of the screen, in larger figures.
QWidget* large(const WidgetMaker& w, const char* control) {
    auto* box = static_cast<EntryBox*>(w(control));
    box->setRoomFor("1,234.56");
    QFont bold = box->font();
    bold.setBold(true);
    box->setFont(bold);
    box->setSizes({resultSize, 1.2, 1.0}); // a long figure is shown smaller rather than cut
    return box;
}

QWidget* narrow(const WidgetMaker& w, const char* control, int characters) {
    auto* box = static_cast<EntryBox*>(w.box(control, characters));
    box->setFixedWidth(box->sizeHint().width());
    return box;
}

QWidget* identification(const WidgetMaker& w) {
    QWidget *subjects = asHeading(w("cmdSU")), *measurings = asHeading(w("cmdMTE"));
    QGridLayout* grid = rows({
        {{subjects, 2}, {}, {measurings, 2}},
        {"Manufacturer", w("SystemIDBox"), {}, "Manufacturer", w("MTESystemIDBox")},
        {"Model Number", w("SUModelNumberBox"), {}, "Model Number", w("MTEModelNumberBox")},
        {"Description", w("SUDescriptionBox"), {}, "Description", w("MTEDescriptionBox")},
        {"Parameter Name", w("ParameterIDBox"), {}, "Parameter Name", w("MTEParameterIDBox")},
        {"Qualifier 1", w("Qualifier1Box"), {}, "Qualifier 1", w("MTEQualifier1Box")},
        {"Qualifier 2", w("Qualifier2Box"), {}, "Qualifier 2", w("MTEQualifier2Box")},
    });
    for (QWidget* heading : {subjects, measurings}) grid->setAlignment(heading, Qt::AlignLeft);
    grid->setVerticalSpacing(identificationGap);
    grid->setColumnMinimumWidth(2, halfGap);
    grid->setContentsMargins(0, 0, 0, 0);
    auto* labels = named(new QWidget, "pnl_Lbl");
    labels->setLayout(grid);
    return panel("pnl_IDData", "", rows({{labels}}));
}

/// Two headings on one panel: a frame within a frame would say less.
QWidget* toleranceOptions(const WidgetMaker& w) {
    auto* heading = new QLabel("Subject Parameter Tolerance Options");
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setProperty(headingProperty, true);
    QWidget* display = across({w("pnlOffsets"), down({w("optOffsets_0"), w("optOffsets_1")})});
    static_cast<QBoxLayout*>(display->layout())->addStretch();
    static_cast<QBoxLayout*>(display->layout())->setSpacing(columnGap);
    display->findChild<QLabel*>("pnlOffsets")->setForegroundRole(captionRole());
    QGridLayout* grid = columnsOf(rows({{{rule(), 4}},
                                        {{heading, 4}},
                                        {w("TwoSideOption"), w("SingleUpperOption"), w("SingleLowerOption")},
                                        {w("chk_Symmetric"), w("PhysLimitRequired")}}),
                                  4);
    grid->addWidget(display, 2, 3, 2, 1);
    grid->setContentsMargins(0, 0, 0, 0);
    auto* made = named(new QWidget, "pnl_LblSUTolerances");
    made->setAccessibleName(heading->text());
    made->setLayout(grid);
    return made;
}

QGroupBox* subject(const WidgetMaker& w) {
    constexpr int characters = 10;
    return panel("pnl_SUSpecs", "Subject Parameter",
                 columnsOf(rows({{column(w("pnl_NominalValueLabel"), w.box("ModeBox", characters)),
                                  column(w("pnl_SUUpper"), w.box("UpperLimitBox", characters)),
                                  column(w("pnl_SULower"), w.box("LowerLimitBox", characters)),
                                  column(w("Lbl_SUPctInTol"), w.box("PctInTolBox", characters))},
                                 {{toleranceOptions(w), 4}}}),
                           4));
}

/// The first and the last box stand below those of the subject parameter.
QGroupBox* measuring(const WidgetMaker& w) {
    constexpr int characters = 10;
    auto* middle = new QHBoxLayout;
    middle->setContentsMargins(0, 0, 0, 0);
    middle->setSpacing(0);
    QWidget* fixed = w.box("MTEFixedOffsetBox", characters);
    addSign(middle, w("Lbl_Equals"), 0, fixed);
    middle->addWidget(column(w("pnl_MTEFixed"), fixed, "pnl_MTEFixedOffset"), 1);
    addSign(middle, w("Lbl_Plus"), columnGap, fixed);
    middle->addWidget(column(w("pnl_PctReading"), w.box("MTEPctOfReadingBox", 7), "pnl_MTEPctOfReading"), 1);
    middle->addSpacing(columnGap);
    middle->addWidget(column(w("pnl_Units"), w.box("MTEParameterUnitsBox", 7)), 1);
    auto* shared = new QWidget;
    shared->setLayout(middle);
    QGridLayout* grid = columnsOf(
        rows({{column(w("pnl_MTELimit"), w.box("MTEOffsetBox", characters), "pnl_MTEOffset"),
               {shared, 2},
               column(w("LbL_MTEPctInTol"), w.box("MTEPctInTolBox", characters), "pnl_MTEPctInTol")}}),
        4);
    return panel("pnl_MTESpecs", "Measuring Parameter", grid);
}

/// Figures first, the command at the foot, level with that of the panel beside.
QWidget* risks(const char* name, QGridLayout* grid, QWidget* command, std::initializer_list<int> figureRows) {
    for (const int row : figureRows) {
        grid->setRowMinimumHeight(row, resultRow);
        // Two lines of a caption have room there, where its panel is narrow.
        wrapped(grid->itemAtPosition(row, 0)->widget());
        const QLayoutItem* last = grid->itemAtPosition(row, 3);
        if (last && qobject_cast<EntryBox*>(last->widget()))
            grid->setAlignment(last->widget(), Qt::AlignLeft | Qt::AlignVCenter);
    }
    grid->setHorizontalSpacing(resultGap);
    grid->setVerticalSpacing(resultRowGap);
    grid->setColumnStretch(1, 0);
    grid->setColumnStretch(3, 1);
    const int foot = grid->rowCount();
    grid->setRowStretch(foot, 1);
    grid->addWidget(command, foot + 1, 0, 1, 4);
    command->setMinimumHeight(commandHeight);
    return panel(name, "", grid);
}

QWidget* terse(QWidget* mark) {
    static_cast<ToneLabel*>(asMark(mark))->setTerse(true);
    mark->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    return mark;
}

QWidget* computedRisks(const WidgetMaker& w) {
    QWidget* heading = across({wrapped(w.heading("Heading_0")), asMark(w("Lbl_State"))});
    static_cast<QBoxLayout*>(heading->layout())->setStretch(0, 1);
    return risks(
        "pnl_ComputedRisks",
        rows({{{heading, 4}},
              {w("pnl_RiskLabel_0"), large(w, "AcceptRisk"), w("AcceptUnits"), terse(w("Lbl_AcceptMark"))},
              {{w("Lbl_ExactAccept"), 4}},
              {w("pnl_RiskLabel_1"), large(w, "RejectRisk"), w("RejectUnits"), terse(w("Lbl_RejectMark"))},
              {{w("Lbl_ExactReject"), 4}},
              {w("pnl_EqAccRatLabel"), large(w, "AccRatEquivalent1Box"), w("Lbl_EqAccRatColon"),
               narrow(w, "AccRatEquivalent2Box", 4)},
              {{w("Lbl_EqAccRatNote"), 4}},
              {{w("Lbl_ExactRatio"), 4}},
              {{wrapped(w("Lbl_WorstCase")), 4}}}),
        w("ComputeResults"), {1, 3, 5});
}

QWidget* baselineRisks(const WidgetMaker& w) {
    constexpr int characters = 7;
    return risks(
        "pnl_BaselineRisks",
        rows({{{wrapped(w.heading("Heading_1")), 4}},
              {w("pnl_BaseRiskLabel_0"), narrow(w, "BaseAcceptRisk", characters), w("BaseAcceptUnits")},
              {{w("Lbl_ExactBaseAccept"), 4}},
              {w("pnl_BaseRiskLabel_1"), narrow(w, "BaseRejectRisk", characters), w("BaseRejectUnits")},
              {{w("Lbl_ExactBaseReject"), 4}},
              {w("pnl_BaseAccRatLabel"), narrow(w, "BaselineAccRat1Box", characters), ":",
               narrow(w, "BaselineAccRat2Box", 4)}}),
        w("cmd_Baseline"), {1, 3, 5});
}

QWidget* options(const WidgetMaker& w) {
    constexpr int characters = 8;
    auto* shown = new FoldingRow({w("optGuardbands_0"), w("optGuardbands_1")});
    QWidget* guardbands = across({w("pnl_GuardbandLabel"), shown});
    static_cast<QBoxLayout*>(guardbands->layout())->insertStretch(1, 1);
    QWidget* processLabel = wrapped(w("pnl_UncertaintyLabel"));
    auto* process = static_cast<EntryBox*>(w.box("pnl_ProcessUncertainty", characters - 1));
    process->setSizes({1.0, 0.85, 0.7, 0.6}); // with a long unit it is shown smaller rather than cut
    nameBy(processLabel, process);
    QWidget* uncertainty = across({processLabel, process, w("chk_IncludeUncertainty")});
    static_cast<QBoxLayout*>(uncertainty->layout())->setStretch(1, 1);
    QGridLayout* grid = rows({{{wrapped(w("pnl_UncRatioLabel")), 2}, {w.box("pnl_UncRatio", characters), 2}},
                              {{wrapped(w("pnlTURLabel")), 2}, {w.box("pnlTUR", characters), 2}},
                              {{guardbands, 4}},
                              {w("Lbl_Guardbands_0"), w.box("txt_GuardbandMultiplier_0", characters),
                               w("Lbl_Guardbands_1"), w.box("txt_GuardbandMultiplier_1", characters)},
                              {{w("chk_IncludeGuardbands"), 2}, {w("chk_SymmetricGBands"), 2}},
                              {{uncertainty, 4}}});
    for (const int row : {2, 4}) grid->setRowMinimumHeight(row, 24);
    grid->setRowStretch(grid->rowCount(), 1);
    return panel("pnl_Options", "Options", grid);
}

} // namespace

QWidget* layoutMainScreen(const WidgetMaker& w) {
    auto* made = named(new QWidget, "pnl_Controls");
    auto* grid = new QGridLayout(made);
    grid->setContentsMargins(panelGap, 4, panelGap, 2);
    grid->setVerticalSpacing(panelGapHere);
    QGroupBox* upper = subject(w);
    QGroupBox* lower = measuring(w);
    lineUp({upper, lower});
    grid->addWidget(identification(w), 1, 0, 1, 3);
    grid->addWidget(upper, 2, 0, 1, 3);
    grid->addWidget(lower, 3, 0, 1, 3);
    grid->addWidget(computedRisks(w), 4, 0);
    grid->addWidget(baselineRisks(w), 4, 1);
    grid->addWidget(options(w), 4, 2);
    for (const auto& [column, share] : {std::pair{0, 74}, {1, 57}, {2, 69}})
        grid->setColumnStretch(column, share);
    grid->setRowStretch(5, 1);
    made->setMaximumWidth(widest);

    // The height of a text, which every box takes.
    auto* height = static_cast<QLabel*>(named(new QLabel("Xg", made), "Lbl_TextHeight"));
    height->hide();
    // Takes the focus when an entry is to be committed without going anywhere.
    auto* lostFocus = new QLineEdit(made);
    named(lostFocus, "txt_LostFocus");
    lostFocus->setFixedSize(0, 0);
    lostFocus->setFocusPolicy(Qt::ClickFocus);
    return made;
}

} // namespace metrisk
