// Sessions with ready entries and no one to talk to.
#pragma once

#include "model/Session.h"

#include <cstdlib>

namespace metrisk::bench {

/// Counts progress reports; a box would be a fault of the benchmark.
class SilentInteraction final : public Interaction {
  public:
    int reports = 0;

    Answer show(const Box&) override { std::abort(); }
    void focus(std::string_view, bool) override {}
    void yield() override {}
    void status(std::string_view) override {}
    void runComputing(ComputingScreen&, const std::function<void()>& step) override { step(); }
    void updateComputing(const ComputingScreen&) override { ++reports; }
    void repaintMainScreen() override {}
    void setBusy(bool) override {}
    void beep() override {}
};

class NoSettings final : public Settings {
  public:
    std::string ReadSetting(std::string_view, std::string_view, std::string_view defaultText,
                            int) const override {
        return std::string(defaultText);
    }
    void WriteSetting(std::string_view, std::string_view, std::string_view) override {}
};

/// Offsets in nominal units, in percent in tolerance.
struct Entry {
    double upperOffset = 0.5;
    double lowerOffset = 0.5;
    double pctInTol = 90;
    bool singleUpper = false;
    bool physicalLimitAtMode = false;
};

inline Entry twoSided(double pct) { return {.pctInTol = pct}; }
inline Entry unequal(double pct) { return {.upperOffset = 1, .pctInTol = pct}; }
inline Entry singleUpper(double pct) { return {.pctInTol = pct, .singleUpper = true}; }
inline Entry physicalLimitAtMode(double pct) {
    return {.pctInTol = pct, .singleUpper = true, .physicalLimitAtMode = true};
}

struct BenchSession {
    NoSettings settings;
    SilentInteraction ui;
    Session session{settings, ui};
    Analysis& record = session.record;

    explicit BenchSession(const Entry& e) {
        Analysis& r = record;
        r.SU_Mode = r.MTE_Mode = 10;
        r.SU_UpperOffset = e.upperOffset;
        r.SU_LowerOffset = e.lowerOffset;
        r.SU_UpperLimit = 10 + e.upperOffset;
        r.SU_LowerLimit = 10 - e.lowerOffset;
        r.SU_PctInTol = e.pctInTol;
        r.OptTwoSided = !e.singleUpper;
        r.OptSingleUpper = e.singleUpper;
        r.PhysLimitRequired = r.PhysicalLimitEntered = e.physicalLimitAtMode;
        r.PhysicalLimit = e.physicalLimitAtMode ? 10 : 0;
        r.AckPhysLimitHigh = r.Ack100Pct = true;
        r.MTE_Offset = r.MTE_FixedOffset = 0.125;
        r.MTE_UpperLimit = 10.125;
        r.MTE_LowerLimit = 9.875;
        r.MTE_PctInTol = 95;
    }
};

} // namespace metrisk::bench
