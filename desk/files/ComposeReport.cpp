#include "desk/files/ComposeReport.h"

#include "desk/compute/FitMeasuring.h"
#include "desk/compute/FitSubject.h"
#include "desk/kit/FaultMessages.h"
#include "desk/kit/Session.h"
#include "reports/Compose.h"

namespace metrisk {

bool ComposeReport(const Session& session, const ReportSelection& asked, ReportDocument& document,
                   bool signatureTable) {
    Session work(session);
    work.record.AbortFlag = false;
    const ReportSelection selection = asked.settled();
    const auto fit = [&work](const char* scope, void (*fitted)(Session&)) {
        work.record.ComputeScope = scope;
        fitted(work);
        return !work.record.AbortFlag;
    };
    const auto fitSubject = [&fit] { return fit("SU", FitSubjectParameter); };
    const auto fitMeasuring = [&fit] { return fit("MTE", FitMeasuringParameter); };
    const auto told = [&work](const Message& message) { tell(work.ui, message); };
    const auto failed = [&work](const RuntimeFault& fault) { tellFault(work.ui, fault); };
    const ComposeWatch watch{fitSubject, fitMeasuring, told, failed};
    Composition composition{.record = work.record,
                            .regional = work.regional,
                            .now = work.clock.now(),
                            .selection = selection,
                            .document = document,
                            .signatureTable = signatureTable,
                            .watch = watch};
    return compose(composition);
}

} // namespace metrisk
