#include "risk/screens/BaselineDialog.h"

#include "risk/screens/FalseAcceptDialog.h"
#include "screens/EntryBox.h"
#include "screens/Widgets.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <utility>

namespace metrisk {

namespace {

constexpr const char* analysisNames[] = {"BaseAccRat1",       "BaseAccRat2",     "BaselinePctInTol1",
                                         "BaselinePctInTol2", "BaseFalseAccept", "BaseFalseReject"};
constexpr const char* defaultNames[] = {"DefAccRat1",   "DefAccRat2",     "DefPctInTol1",
                                        "DefPctInTol2", "DefFalseAccept", "DefFalseReject"};
constexpr const char* toolTips[] = {
    "Accuracy ratio, left figure",        "Accuracy ratio, right figure",
    "Measuring parameter % in-tolerance", "Subject parameter % in-tolerance",
    "False accept risk of the baseline",  "False reject risk of the baseline"};
constexpr int dataBoxes = 4;

std::string BaselineSide::*const texts[] = {&BaselineSide::AccRat1,     &BaselineSide::AccRat2,
                                            &BaselineSide::PctInTol1,   &BaselineSide::PctInTol2,
                                            &BaselineSide::FalseAccept, &BaselineSide::FalseReject};

} // namespace

BaselineDialog::BaselineDialog(BaselineScreen& model, std::function<void(const char*)> showHelp,
                               QWidget* parent)
    : QDialog(parent), model_(model) {
    setObjectName("BaselineAnalysis");
    setWindowTitle(BaselineScreen::title);
    auto* layout = new QGridLayout(this);
    layout->addWidget(makeSide(analysis_, false), 0, 0);
    layout->addWidget(defaultGroup_ = makeSide(defaults_, true), 0, 1);

    auto* ok = named(new QPushButton("&OK"), "cmd_OK", "Keep the baseline");
    auto* cancel = named(new QPushButton("&Cancel"), "mnu_Exit", "Leave this screen");
    ok->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addLayout(buttons, 1, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    buildMenu(std::move(showHelp));

    connect(ok, &QPushButton::clicked, this, [this] {
        commit();
        if (model_.cmd_OK()) QDialog::accept();
    });
    connect(cancel, &QPushButton::clicked, this, &BaselineDialog::reject);
    model_.repaint = [this] { repaintModel(); };
    repaintModel();
}

QGroupBox* BaselineDialog::makeSide(Side& side, bool defaults) {
    auto* group = new QGroupBox(defaults ? BaselineScreen::defaultHeading : BaselineScreen::analysisHeading);
    auto* grid = new QGridLayout(group);
    const auto* names = defaults ? defaultNames : analysisNames;
    for (int i = 0; i < 6; ++i) {
        auto* box = named(new EntryBox, names[i], toolTips[i]);
        box->setAlignment(Qt::AlignRight);
        box->setFixedWidth(box->fontMetrics().averageCharWidth() * 14);
        side.boxes[i] = box;
        if (defaults || i >= dataBoxes) showLocked(box, true);
        if (defaults) {
            box->installEventFilter(this);
        } else if (i < dataBoxes) {
            connect(box, &EntryBox::left, this, [this, i] { leave(static_cast<BaselineBox>(i)); });
        }
    }
    side.acceptUnits = named(new QLabel, defaults ? "DefFalseAcceptRiskUnits" : "FalseAcceptRiskUnits");
    side.rejectUnits = named(new QLabel, defaults ? "DefFalseRejectRiskUnits" : "FalseRejectRiskUnits");
    side.option = named(new QLabel, defaults ? "pnl_DefaultFAOption" : "pnl_FAOption");
    side.baseline = named(new QLabel, defaults ? "pnlDefBaselineOption" : "pnlBaselineOption");

    int row = 0;
    if (defaults) {
        grid->addWidget(new QLabel("Baseline option"), row, 0);
        grid->addWidget(side.baseline, row++, 1, 1, 3);
    } else {
        side.baseline->hide();
        user_ = named(new QRadioButton(BaselineScreen::optUserBaselineCaption), "optUserBaseline",
                      "Figures of your own");
        z540_ = named(new QRadioButton(BaselineScreen::optZ540BaselineCaption), "optZ540Baseline",
                      "The requirement of ANSI/NCSL Z540.3");
        connect(user_, &QRadioButton::clicked, this, [this] { model_.chooseUser(); });
        connect(z540_, &QRadioButton::clicked, this, [this] { model_.chooseZ540(); });
        grid->addWidget(user_, row, 0);
        grid->addWidget(z540_, row++, 1, 1, 3);
    }
    grid->addWidget(new QLabel("Accuracy ratio"), row, 0);
    grid->addWidget(side.boxes[0], row, 1);
    grid->addWidget(new QLabel(":"), row, 2);
    grid->addWidget(side.boxes[1], row++, 3);
    grid->addWidget(new QLabel("Measuring parameter % in-tolerance"), row, 0);
    grid->addWidget(side.boxes[2], row++, 1);
    grid->addWidget(new QLabel("Subject parameter % in-tolerance"), row, 0);
    grid->addWidget(side.boxes[3], row++, 1);
    grid->addWidget(new QLabel("False accept risk"), row, 0);
    grid->addWidget(side.boxes[4], row, 1);
    grid->addWidget(side.acceptUnits, row++, 3);
    grid->addWidget(new QLabel("False reject risk"), row, 0);
    grid->addWidget(side.boxes[5], row, 1);
    grid->addWidget(side.rejectUnits, row++, 3);
    grid->addWidget(side.option, row, 0);
    if (defaults) {
        retrieve_ = named(new QPushButton(BaselineScreen::Cmd_RetrieveDefaultBaselineCaption),
                          "Cmd_RetrieveDefaultBaseline", "Take the default figures into the analysis");
        store_ = named(new QPushButton(BaselineScreen::Cmd_SetDefaultBaselineCaption),
                       "Cmd_SetDefaultBaseline", "Make the analysis figures the default");
        connect(retrieve_, &QPushButton::clicked, this, [this] { model_.Cmd_RetrieveDefaultBaseline(); });
        connect(store_, &QPushButton::clicked, this, [this] { model_.Cmd_SetDefaultBaseline(); });
        grid->addWidget(retrieve_, row + 1, 0);
        grid->addWidget(store_, row + 1, 1, 1, 3);
    } else {
        auto* option = named(new QPushButton("&False accept option..."), "cmd_FAOption",
                             "Consumer's or Producer's risk");
        connect(option, &QPushButton::clicked, this, [this] {
            model_.cmd_FAOption([this](FalseAcceptScreen& screen) { runFalseAcceptDialog(screen, this); });
            repaintModel();
        });
        grid->addWidget(option, row, 1, 1, 3);
        compute_ = named(new QPushButton(BaselineScreen::computeCaption), "ComputeBaselineResults",
                         "Compute the risks of these figures");
        connect(compute_, &QPushButton::clicked, this, [this] { model_.ComputeBaselineResults(); });
        grid->addWidget(compute_, row + 1, 0, 1, 4);
    }
    return group;
}

void BaselineDialog::buildMenu(std::function<void(const char*)> showHelp) {
    auto* bar = new QMenuBar(this);
    QMenu* view = bar->addMenu("&View");
    showDefaults_ = view->addAction({}, this, [this] { model_.mnu_ShowDefaults(); });
    showDefaults_->setObjectName("mnu_ShowDefaults");
    QAction* plot = view->addAction("&Plot");
    plot->setObjectName("mnu_Plot");
    plot->setEnabled(false); // the risk plot has no screen yet
    // External programs and their set-up are not part of the program yet.
    QMenu* run = bar->addMenu("Ru&n");
    for (const auto& [name, text] :
         {std::pair{"mnu_Run_Options", "&External Application"}, std::pair{"mnu_RunSetups", "Se&lect"}}) {
        QAction* action = run->addAction(text);
        action->setObjectName(name);
        action->setEnabled(false);
    }
    QAction* help = bar->addAction("&Help", this, [showHelp] { showHelp("baseline"); });
    help->setObjectName("mnu_Help");
    layout()->setMenuBar(bar);
}

void BaselineDialog::show(const Side& side, const BaselineSide& shown) {
    for (int i = 0; i < 6; ++i) {
        QLineEdit* box = side.boxes[i];
        if (box->hasFocus() && box->isModified() && !committing_) continue;
        box->setText(qt(shown.*texts[i]));
    }
    side.acceptUnits->setText(qt(shown.FalseAcceptRiskUnits));
    side.rejectUnits->setText(qt(shown.FalseRejectRiskUnits));
    side.option->setText(qt(shown.FAOption));
    side.baseline->setText(qt(shown.BaselineOption));
}

void BaselineDialog::repaintModel() {
    show(analysis_, model_.analysis);
    show(defaults_, model_.defaults);
    (model_.optZ540Baseline() ? z540_ : user_)->setChecked(true);
    for (int i = 0; i < dataBoxes; ++i) showLocked(analysis_.boxes[i], model_.boxesLocked());
    compute_->setText(qt(model_.ComputeBaselineResultsCaption));
    showDefaults_->setText(model_.mnu_ShowDefaultsCaption());
    defaultGroup_->setVisible(model_.defaultsShown);
}

void BaselineDialog::leave(BaselineBox box) {
    if (committing_) return;
    QLineEdit* edit = analysis_.boxes[static_cast<int>(box)];
    committing_ = true;
    const FieldResult result = model_.lostFocus(box, edit->text().toStdString());
    edit->setModified(false);
    edit->setText(qt(result.text));
    committing_ = false;
    if (!result.stay) return;
    QMetaObject::invokeMethod(
        edit,
        [edit] {
            edit->setFocus(Qt::OtherFocusReason);
            edit->selectAll();
        },
        Qt::QueuedConnection);
}

void BaselineDialog::commit() {
    for (int i = 0; i < dataBoxes; ++i)
        if (analysis_.boxes[i]->hasFocus()) leave(static_cast<BaselineBox>(i));
}

void BaselineDialog::reject() {
    commit();
    if (model_.mnu_Exit()) QDialog::reject();
}

bool BaselineDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    // Keys that type, not those that walk or copy.
    if (key->text().isEmpty() || key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab ||
        key->key() == Qt::Key_Escape || key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        return QDialog::eventFilter(watched, event);
    model_.defaultKeyPressed();
    return true;
}

void runBaselineDialog(BaselineScreen& model, const std::function<void(const char*)>& showHelp,
                       QWidget* parent) {
    BaselineDialog(model, showHelp, parent).exec();
    model.repaint = [] {};
}

} // namespace metrisk
