#include "window/kit/Widgets.h"
#include "window/units/Layouts.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace metrisk {

namespace {

QWidget* parts(const WidgetMaker& w, const char* panel, const char* fixed, const char* pct) {
    const auto box = [&](const char* control, int characters, const char* name) {
        QWidget* made = w.box(control, characters);
        made->setAccessibleName(name);
        return made;
    };
    return metrisk::named(across({new QLabel("="), box(fixed, 11, "Fixed"), new QLabel("+"),
                                  box(pct, 8, "% of Reading"), new QLabel("%")}),
                          panel);
}

QWidget* subject(const WidgetMaker& w) {
    QGridLayout* kind = rows({{w("opt_Tolerance_0"), w("opt_Tolerance_1"), w("opt_Tolerance_2"),
                               w("chk_Symmetric"), w("chk_PhysicalLimit")}});
    auto* grid = new QGridLayout;
    const auto named = [&w](const char* control, int characters, const char* title) {
        QWidget* made = w.box(control, characters);
        made->setAccessibleName(title);
        return made;
    };
    int column = 0;
    for (const char* title : {"", "Tolerance", "Fixed + % of Reading", "Units", "% In-Tolerance",
                              "Bias Uncertainty", "Distribution"})
        grid->addWidget(new QLabel(title), 0, column++);
    grid->addWidget(w("Lbl_SUUpper"), 1, 0);
    grid->addWidget(named("SUUpperOffsetBox", 11, "Upper limit"), 1, 1);
    grid->addWidget(parts(w, "pnl_Upper", "SUUpperFixedBox", "SUUpperPctBox"), 1, 2);
    grid->addWidget(w("SUOffsetUnitsBox"), 1, 3);
    grid->addWidget(named("txt_PctInTol_0", 9, "% In-Tolerance"), 1, 4);
    grid->addWidget(named("txt_SUBiasUncertainty", 9, "Bias Uncertainty"), 1, 5);
    grid->addWidget(named("pnl_Distribution_0", 11, "Distribution"), 1, 6);
    grid->addWidget(w("Lbl_SULower"), 2, 0);
    grid->addWidget(named("SULowerOffsetBox", 11, "Lower limit"), 2, 1);
    grid->addWidget(parts(w, "pnl_Lower", "SULowerFixedBox", "SULowerPctBox"), 2, 2);
    for (const char* box : {"SUUpperOffsetBox", "SULowerOffsetBox", "pnl_Upper", "pnl_Lower"})
        for (int row = 1; row <= 2; ++row)
            for (int at = 0; at <= 2; ++at)
                if (QWidget* each = grid->itemAtPosition(row, at)->widget(); each->objectName() == box)
                    keepRoom(each);
    auto* content = new QVBoxLayout;
    content->addLayout(kind);
    content->addLayout(grid);
    return group("Subject Parameter", content);
}

QWidget* measuring(const WidgetMaker& w) {
    QGridLayout* kind = rows({{w("opt_MTETolerance_0"), w("opt_MTETolerance_1")}});
    auto* grid = new QGridLayout;
    const auto put = [grid](QWidget* title, QWidget* box, int column) {
        grid->addWidget(title, 0, column);
        grid->addWidget(box, 1, column);
        nameBy(title, box);
    };
    put(w("Lbl_MTE"), w.box("MTEOffsetBox", 11), 0);
    grid->addWidget(w("Lbl_Equals"), 1, 1);
    put(w("Lbl_MTEFixed"), w.box("MTEFixedBox", 11), 2);
    grid->addWidget(w("Lbl_Plus"), 1, 3);
    put(w("Lbl_MTEPct"), w.box("MTEPctBox", 8), 4);
    put(new QLabel("Units"), w("MTEOffsetUnitsBox"), 5);
    put(w("Lbl_MTEPctInTol"), w.box("txt_PctInTol_1", 9), 6);
    put(w("Lbl_MTEBias"), w.box("txt_MTEBiasUncertainty", 9), 7);
    put(new QLabel("Distribution"), w.box("pnl_Distribution_1", 11), 8);
    auto* content = new QVBoxLayout;
    content->addLayout(kind);
    content->addLayout(grid);
    return group("Measuring Parameter", content);
}

} // namespace

QWidget* layoutOffsetCalc(const WidgetMaker& w) {
    QWidget* nominal = group("Nominal Value and Measurement Units",
                             rows({{"Measurement Area", w("MeasAreaBox"), w("Lbl_Mode"),
                                    w.box("txt_Mode", 13), "Nominal Units", w("ModeUnitsBox")},
                                   {"Tolerance Display", w("ModeUnitsButton"), w("OffsetUnitsButton")}}));
    QWidget* buttons = foot({w("cmd_Form"), w("mnu_OK"), w("mnu_Cancel")});
    return down({nominal, subject(w), measuring(w), buttons});
}

} // namespace metrisk
