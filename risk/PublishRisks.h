// The results of a compute in the record.
#pragma once

namespace metrisk {

struct Analysis;

/// Writes both fractions into the record's result fields, each by the rule on its own.
void publishRisks(Analysis& record, double falseAccept, double falseReject);

} // namespace metrisk
