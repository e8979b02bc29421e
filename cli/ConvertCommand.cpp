// metrisk-cli convert: any version of analysis file to the present one.
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "persistence/AnalysisFile.h"

namespace metrisk::cli {

int convertCommand(const ConvertOptions& options) {
    Output output;
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    if (!options.force && saveWouldReplace(options.out)) {
        output.status = wrongUsage;
        output.diagnostics = NormalizeAnalysisName(options.out) + " exists; use --force to replace it\n";
    } else if (!run.open(options.in)) {
        output.status = unreadable;
    } else if (!run.save(options.out)) {
        output.status = refused;
    }
    output.diagnostics = run.diagnostics(options.in) + output.diagnostics;
    emit(output);
    return output.status;
}

} // namespace metrisk::cli
