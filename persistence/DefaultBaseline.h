// The reference case and the false accept option that the settings keep for new analyses.
#pragma once

#include <string>

namespace metrisk {

struct Analysis;
class Settings;

/// Percentages in percent, risks in their shown units.
struct DefaultBaseline {
    double AccRatNum = 4;
    double AccRatDen = 1;
    double MTEPctInTol = 85;
    double SUPctInTol = 72;
    double FalseAccept = 4.1;
    std::string AcceptUnits = "%"; // "%" or "ppm"
    int FalseAcceptOption = 0; // under which FalseAccept was computed: 0 Consumer, 1 Producer
    double FalseReject = 3.75;
    std::string RejectUnits = "%";
    std::string UserOption = "User"; // "User" or "Z540"
};

/// A figure is read with either decimal symbol and written with a period, so that the file stays
/// readable when the user's language changes.
DefaultBaseline ReadDefaultBaseline(const Settings& settings);
void WriteDefaultBaseline(Settings& settings, const DefaultBaseline& baseline);

/// The default false accept option: 0 Consumer, 1 Producer.
int ReadDefaultOption(const Settings& settings);
void WriteDefaultOption(Settings& settings, int falseAcceptOption);

/// Makes the default the reference case of the record; the record's false accept option stays.
void useDefaultBaseline(Analysis& record, const DefaultBaseline& baseline);

} // namespace metrisk
