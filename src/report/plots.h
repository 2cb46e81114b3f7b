#pragma once

#include <string>

#include "report/report.h"

namespace velmora::report {

/// The pictures of a report as inline SVG, each readable without colours: days are told apart by
/// the form of their marks, levels by the kind of their line. Empty where there is nothing to show.

/// In units of a picture; it is printed with four of them to the millimetre.
inline constexpr double kPictureWidth = 720;

/// Each contaminant's index on each day on a logarithmic axis, with its IG and the lines 0.1 and 1.
std::string IndexPicture(const Report& report);

/// A day's samples on log-normal probability paper, a task in a row, with the line of MG and GSD
/// and with VLA-ED and EC+ as levels.
std::string ProbabilityPicture(const Report& report, int day);

/// EC+/MG+ against GSD+ on logarithmic axes with the five curves and the classes between them, each
/// row or mixture a labelled point.
std::string LadderPicture(const Report& report);

}  // namespace velmora::report
