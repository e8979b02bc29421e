// One parameter's slot of the reliability fields, and what it gives to that parameter.
#pragma once

#include "record/Analysis.h"
#include "reliability/ReliabilityPeriod.h"

#include <string>

namespace metrisk {

struct Session;

inline constexpr int subjectSlot = 0;
inline constexpr int measuringSlot = 1;

/// A slot as values. The record outlives it.
class ReliabilitySlot {
  public:
    ReliabilitySlot(Analysis& record, int slot) : r_(record), slot_(static_cast<std::size_t>(slot)) {}

    /// By its name, which wins over its number; null if none is chosen.
    const ReliabilityModel* model() const { return reliabilityModel(r_.Rel_Model[slot_]); }
    void setModel(const ReliabilityModel& model);

    Coefficients theta() const;
    void setTheta(const Coefficients& theta);
    /// Fractions.
    PeriodReliability period() const { return {r_.Rel_BOP[slot_], r_.Rel_AOP[slot_], r_.Rel_EOP[slot_]}; }
    void setPeriod(const PeriodReliability& period);

    double& interval() { return r_.Rel_Interval[slot_]; }
    std::string& intervalPicture() { return r_.Rel_Interval_fmt[slot_]; }
    std::string& units() { return r_.Rel_IntervalUnits[slot_]; }
    double& bop() { return r_.Rel_BOP[slot_]; }
    double& aop() { return r_.Rel_AOP[slot_]; }
    double& eop() { return r_.Rel_EOP[slot_]; }
    std::string& bopPicture() { return r_.Rel_BOP_fmt[slot_]; }
    std::string& aopPicture() { return r_.Rel_AOP_fmt[slot_]; }
    std::string& eopPicture() { return r_.Rel_EOP_fmt[slot_]; }

    /// Interval and the reliabilities that the model needs are there.
    bool dataComplete() const;
    /// There are coefficients that do not say what the slot holds.
    bool questionable() const;

  private:
    Analysis& r_;
    std::size_t slot_;
};

/// Writes the reliability that the slot's bias option asks for into the parameter's % in-tolerance, with its
/// picture, and fits the parameter again if the percentage has changed and the other entries are there. A
/// reliability of 0 is none. False, with everything as it was, if the user has been told that it is no
/// percentage.
bool CommitReliability(Session& session, int slot);

} // namespace metrisk
