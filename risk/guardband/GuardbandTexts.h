// How the guardband worksheets show tolerances and guardbands: as limits or as distances from the mode.
#pragma once

#include <string>

namespace metrisk {

struct Session;
struct SubjectSide;

struct TwoForms {
    std::string limit;  // a value with nominal units
    std::string offset; // a distance with tolerance units, below the mode a negative one
};

TwoForms toleranceForms(const Session& session, const SubjectSide& side);
/// The test limit; its decimals follow those of multiplier and offset.
TwoForms guardbandForms(const Session& session, const SubjectSide& side);

} // namespace metrisk
