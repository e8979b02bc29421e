// The self-check as a page: what was checked with which program, and every figure.
#pragma once

#include "base/Clock.h"
#include "base/Regional.h"
#include "selfcheck/SelfCheck.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace metrisk {

class DrawingSurface;

/// What the head of the page says: names and texts, in their order.
using CheckHeading = std::vector<std::pair<std::string, std::string>>;

/// Program version, compiler, processor, date, and hashes of the program file and of the data.
CheckHeading checkHeading(std::string_view data, const Moment& now, const Regional& regional);

bool allPassed(const std::vector<CheckedFigure>& figures);
/// "198 PASS, 2 NOTE, 0 DIFF".
std::string checkSummary(const std::vector<CheckedFigure>& figures);

std::string checkText(const CheckHeading& heading, const std::vector<CheckedFigure>& figures);

/// The pages of a document, each a drawing in units of 1/96 inch on A4.
std::vector<std::function<void(DrawingSurface&)>> checkPages(const CheckHeading& heading,
                                                             const std::vector<CheckedFigure>& figures);

} // namespace metrisk
