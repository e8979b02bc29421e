#include "desk/shell/RiskOptionCommand.h"

#include "desk/baseline/BaselineScreen.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/kit/Message.h"
#include "desk/kit/ScreenEntry.h"
#include "desk/kit/Session.h"
#include "persistence/BaselineDefaults.h"

#include <string>

namespace metrisk {

namespace {

constexpr Message optionNotice{"Changing the False Accept Risk option will cause a\n"
                               "recalculation of the Baseline False Accept Risk.\n"
                               "\n"
                               "The Computed False Accept Risk, and the Equivalent\n"
                               "Accuracy Ratio will automatically be updated when\n"
                               "the Baseline Risk Analysis screen is closed.",
                               optionChangeTitle, BoxIcon::Information};
constexpr const char* reminderTitle = "False Accept Risk Option Reminder";
constexpr const char* reminderAnalysis = "Notice: In this analysis, the False Accept Risk Option is\n"
                                         "referenced to the ";
constexpr const char* reminderDefault = "\n\nThe default False Accept Risk Option is referenced to the\n";
constexpr const char* consumerPerspective = "consumer's perspective.";
constexpr const char* producerPerspective = "producer's perspective.";

} // namespace

void FalseAcceptOptions_Click(Session& session) {
    Analysis& r = session.record;
    const int before = r.FalseAcceptOption;
    const bool figuresCurrent = !r.RisksNeedCompute;
    runScreen(screens::falseAccept, {session});
    if (r.FalseAcceptOption == before) return;
    session.ui.repaintMainScreen();
    if (figuresCurrent) {
        tell(session.ui, optionNotice);
        runScreen(screens::baseline, {session},
                  [](Worksheet& screen) { static_cast<BaselineScreen&>(screen).computeForOption(); });
    }
    ComputeResults_Click(session);
}

void remindOfRiskOption(Session& session) {
    const bool producer = session.record.FalseAcceptOption == 1;
    const bool producerByDefault = ReadFalseAcceptConvention(session.settings) == 1;
    if (producer == producerByDefault) return;
    tell(session.ui, {std::string(reminderAnalysis) + (producer ? producerPerspective : consumerPerspective) +
                          reminderDefault + (producerByDefault ? producerPerspective : consumerPerspective),
                      reminderTitle, BoxIcon::Information});
}

} // namespace metrisk
