#include "window/kit/LookStyle.h"
#include "window/kit/Panels.h"
#include "window/kit/Widgets.h"
#include "window/units/Layouts.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace metrisk {

namespace {

constexpr int limit = 12; // characters of a tolerance
constexpr int share = 9;  // of a percentage or an uncertainty

QWidget* figure(const WidgetMaker& w, const char* control, int characters, const char* name) {
    QWidget* made = w.box(control, characters);
    made->setAccessibleName(name);
    return made;
}

QWidget* overBox(QWidget* label) {
    auto* heading = static_cast<QLabel*>(wrapped(label));
    heading->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    heading->setContentsMargins(0, 0, figureMargin, 0);
    heading->setForegroundRole(captionRole());
    return heading;
}

QWidget* overWords(const char* title) {
    auto* heading = new QLabel(title);
    heading->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    heading->setForegroundRole(captionRole());
    return heading;
}

/// "= Fixed + %", or the headings of it: the same columns in each row of both panels.
QWidget* parts(QWidget* equals, QWidget* fixed, QWidget* plus, QWidget* pct, QWidget* unit) {
    constexpr int signColumn = 10;
    QGridLayout* grid = rows({{equals, fixed, plus, pct, unit}});
    const QFontMetrics metrics = fixed->fontMetrics();
    const int widths[] = {
        signColumn, fixed->fontMetrics().horizontalAdvance("Uncertainty") + 4 * figureMargin, signColumn,
        metrics.horizontalAdvance("% of Reading") + 2 * figureMargin, metrics.horizontalAdvance("%") + 2};
    for (int column = 0; column < static_cast<int>(std::size(widths)); ++column) {
        grid->itemAtPosition(0, column)->widget()->setFixedWidth(widths[column]);
        grid->setColumnStretch(column, 0);
    }
    for (QWidget* sign : {equals, plus}) {
        static_cast<QLabel*>(sign)->setAlignment(Qt::AlignCenter);
        keepRoom(sign);
    }
    grid->setHorizontalSpacing(4);
    grid->setContentsMargins(0, 0, 0, 0);
    auto* made = new QWidget;
    made->setLayout(grid);
    return made;
}

QWidget* partsOf(const WidgetMaker& w, const char* panel, const char* fixed, const char* pct) {
    return named(parts(new QLabel("="), figure(w, fixed, limit, "Fixed"), new QLabel("+"),
                       figure(w, pct, share, "% of Reading"), new QLabel("%")),
                 panel);
}

QWidget* choices(std::initializer_list<QWidget*> buttons) {
    QWidget* made = across(buttons);
    auto* row = static_cast<QBoxLayout*>(made->layout());
    row->setSpacing(2 * panelGap);
    row->addStretch();
    return made;
}

constexpr int columnCount = 7;

/// Room that is left over belongs to the last column.
QGroupBox* panel(const char* title, QGridLayout* grid) {
    for (int column = 0; column < columnCount; ++column)
        grid->setColumnStretch(column, column == columnCount - 1);
    return group(title, grid);
}

QGroupBox* subject(const WidgetMaker& w) {
    QWidget* kept[] = {figure(w, "SUUpperOffsetBox", limit, "Upper limit"),
                       partsOf(w, "pnl_Upper", "SUUpperFixedBox", "SUUpperPctBox"),
                       figure(w, "SULowerOffsetBox", limit, "Lower limit"),
                       partsOf(w, "pnl_Lower", "SULowerFixedBox", "SULowerPctBox")};
    for (QWidget* each : kept) keepRoom(each);
    QWidget* heading =
        parts(new QLabel, overFigures("Fixed"), new QLabel, overFigures("% of Reading"), new QLabel);
    return panel("Subject Parameter",
                 rows({{{choices({w("opt_Tolerance_0"), w("opt_Tolerance_1"), w("opt_Tolerance_2"),
                                  w("chk_Symmetric"), w("chk_PhysicalLimit")}),
                         columnCount}},
                       {{},
                        overFigures("Tolerance"),
                        heading,
                        overWords("Units"),
                        wrapped(overFigures("% In-Tolerance")),
                        wrapped(overFigures("Bias Uncertainty")),
                        overWords("Distribution")},
                       {wrapped(w("Lbl_SUUpper")), kept[0], kept[1], w("SUOffsetUnitsBox"),
                        figure(w, "txt_PctInTol_0", share, "% In-Tolerance"),
                        figure(w, "txt_SUBiasUncertainty", share, "Bias Uncertainty"),
                        figure(w, "pnl_Distribution_0", limit, "Distribution")},
                       {wrapped(w("Lbl_SULower")), kept[2], kept[3]}}));
}

QGroupBox* measuring(const WidgetMaker& w) {
    QWidget* const headings[] = {overBox(w("Lbl_MTE")), overBox(w("Lbl_MTEFixed")), overBox(w("Lbl_MTEPct")),
                                 overBox(w("Lbl_MTEPctInTol")), overBox(w("Lbl_MTEBias"))};
    QWidget* const boxes[] = {w.box("MTEOffsetBox", limit), w.box("MTEFixedBox", limit),
                              w.box("MTEPctBox", share), w.box("txt_PctInTol_1", share),
                              w.box("txt_MTEBiasUncertainty", share)};
    for (std::size_t i = 0; i < std::size(boxes); ++i) nameBy(headings[i], boxes[i]);
    return panel("Measuring Parameter",
                 rows({{{choices({w("opt_MTETolerance_0"), w("opt_MTETolerance_1")}), columnCount}},
                       {{},
                        headings[0],
                        parts(new QLabel, headings[1], new QLabel, headings[2], new QLabel),
                        overWords("Units"),
                        headings[3],
                        headings[4],
                        overWords("Distribution")},
                       {{},
                        boxes[0],
                        parts(w("Lbl_Equals"), boxes[1], w("Lbl_Plus"), boxes[2], new QLabel),
                        w("MTEOffsetUnitsBox"),
                        boxes[3],
                        boxes[4],
                        figure(w, "pnl_Distribution_1", limit, "Distribution")}}));
}

} // namespace

QWidget* layoutOffsetCalc(const WidgetMaker& w) {
    QGroupBox* nominal =
        group("Nominal Value and Measurement Units",
              rows({{"Measurement Area", w("MeasAreaBox"), wrapped(w("Lbl_Mode")), w.box("txt_Mode", 13),
                     "Nominal Units", w("ModeUnitsBox")},
                    {"Tolerance Display", {choices({w("ModeUnitsButton"), w("OffsetUnitsButton")}), 5}}}));
    QGroupBox* upper = subject(w);
    QGroupBox* lower = measuring(w);
    lineUp({upper, lower});
    lineUpCaptions({nominal, upper, lower});
    QWidget* behind = across({w("cmd_Form"), new QWidget});
    static_cast<QBoxLayout*>(behind->layout())->setStretch(1, 1);
    return down({nominal, upper, lower, foot(behind, {w("mnu_OK"), w("mnu_Cancel")})});
}

} // namespace metrisk
