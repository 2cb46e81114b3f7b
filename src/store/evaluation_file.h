#pragma once

#include <string>
#include <vector>

#include "core/record.h"

namespace velmora {

/// The evaluation file: 1524 lines in Windows-1252 that end with CR LF, one value each, in a fixed
/// order. Strings stand between double quotes with nothing escaped, numbers in plain notation with
/// a point whatever the locale. `MG`, `GSD`, `MGmas` and `GSDmas` aren't in it.

/// Names are in UTF-8 on every platform.

/// Writes the saved part of the record, replacing the file. A name that can't be opened, or that
/// stands for something other than a regular file, writes nothing; a write that fails leaves the
/// file cut short, its old content gone. Neither is reported.
void WriteEvaluation(const std::string& file_name, const EvaluacionRecord& record);

/// What a reading of an evaluation file came upon. Lines count from 1.
struct ReadingNotes {
    /// Lines of the evaluation that the file holds, up to kLinesOfEvaluation; 0 also for a file
    /// that can't be opened or isn't a regular one.
    int lines = 0;
    bool more = false;                  ///< the file goes on behind them
    std::vector<int> unread_numbers;    ///< lines whose number couldn't be read
    std::vector<int> unquoted_strings;  ///< lines of text not between their only two quotes
};

inline constexpr int kLinesOfEvaluation = 1524;

/// Reads the file into the record, value by value. Each step spends one line, whether it succeeds
/// or not; a step that fails, be it for want of a file, of a line or of a number, leaves its field
/// as it was. Nothing is reported. Only regular files are read, at most 1524 lines of them and
/// 64 MiB; of each line 64 KiB or, once the lines have come to a MiB, 256 bytes.
///
/// A line ends with LF or CR LF, and the last one may lack its end. A string is what stands between
/// the first double quote of its line and the next one, or the end of the line; without any quote,
/// the line without the blanks around it. A number may have blanks around it; an Integer with
/// decimals rounds halves to even and must then fit 16 bits.
void ReadEvaluation(const std::string& file_name, EvaluacionRecord& record);

/// The same, noting what is passed over.
void ReadEvaluation(const std::string& file_name, EvaluacionRecord& record, ReadingNotes& notes);

}  // namespace velmora
