// The screen Reading.
#include "window/decision/Layouts.h"
#include "window/kit/Panels.h"
#include "window/kit/Widgets.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

namespace metrisk {

namespace {

constexpr int probability = 12;   // characters: 0.000012 %
constexpr double verdictSize = 2; // of the screen's font

QWidget* large(QWidget* label) {
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * verdictSize);
    label->setFont(font);
    return label;
}

QWidget* running(QWidget* label) {
    auto* text = static_cast<QLabel*>(label);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

QWidget* layoutReading(const WidgetMaker& w) {
    QGroupBox* reading = group("Reading", rows({{w("Lbl_Reading"), w("txt_Reading"), w("cbo_Units")},
                                                {w("Lbl_Coverage"), w("txt_Coverage"), w("chk_Prior")}}));
    QGroupBox* rule = group(
        "Rule", rows({{w("Lbl_Rule"), w("cbo_Rule"), w("Lbl_RuleValue"), w.box("txt_RuleValue", 8)},
                      {w("Lbl_Outcomes"), w("cbo_Outcomes"), w("Lbl_Reject"), w.box("txt_Reject", 8)}}));
    lineUpCaptions({reading, rule});
    QWidget* word = down({large(w("Lbl_Verdict")), running(w("Lbl_Why"))});
    static_cast<QVBoxLayout*>(word->layout())->addStretch();
    word->setMinimumWidth(200);
    QWidget* figures = new QWidget;
    figures->setLayout(
        rows({{w("Lbl_Conforming"), w.box("box_Conforming", probability), w("Lbl_OfReading")},
              {w("Lbl_Nonconforming"), w.box("box_Nonconforming", probability), w("Lbl_OfVerdict")},
              {w("Lbl_FalseAccept"), w.box("box_FalseAccept", probability), w("Lbl_OfAccepted")},
              {w("Lbl_Tolerance"), {w("box_Tolerance"), 2}},
              {w("Lbl_Acceptance"), {w("box_Acceptance"), 2}},
              {w("Lbl_Uncertainty"), {w.box("box_Uncertainty", 34), 2}}}));
    QWidget* strip = w("pic_Strip");
    strip->setMinimumSize(300, 130);
    strip->setMaximumHeight(170);
    QGroupBox* verdict = group("Verdict", {across({word, figures}), strip, running(w("Lbl_Sentence"))});
    static_cast<QVBoxLayout*>(verdict->layout())->setStretch(1, 1);
    QWidget* history = w("tbl_History");
    history->setAccessibleName("Readings since the start");
    history->setMinimumSize(300, 70);
    history->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    qobject_cast<QTableView*>(history)->setWordWrap(false);
    QWidget* content =
        down({reading, rule, verdict, history,
              foot(w("Lbl_Foot"), {w("cmd_CopySentence"), w("cmd_CopyHistory"), w("cmd_Close")})});
    static_cast<QVBoxLayout*>(content->layout())->setStretch(2, 3);
    static_cast<QVBoxLayout*>(content->layout())->setStretch(3, 1);
    prefer(content, {760, 700});
    return content;
}

} // namespace metrisk
