#pragma once

#include <string>

#include "core/record.h"

namespace velmora {

/// The evaluation file: 1524 lines in Windows-1252 that end with CR LF, one value each, in a fixed
/// order. Strings stand between double quotes with nothing escaped, numbers in plain notation with
/// a point whatever the locale. `MG`, `GSD`, `MGmas` and `GSDmas` aren't in it.

/// Writes the saved part of the record, replacing the file. A name that can't be opened writes
/// nothing; a write that fails leaves the file cut short. Neither is reported.
void WriteEvaluation(const std::string& file_name, const EvaluacionRecord& record);

/// Reads the file into the record, value by value. A step that fails, be it for want of a file, of
/// a line or of a number, leaves its field as it was; nothing is reported. Each step spends one
/// line. Only regular files are read, at most 1524 lines of them.
void ReadEvaluation(const std::string& file_name, EvaluacionRecord& record);

} // namespace velmora
