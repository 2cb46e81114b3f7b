#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace velmora::endurance {

/// What the process holds at one moment.
struct Reading {
    int done;     ///< moves or evaluations so far
    long rss;     ///< resident memory, KiB
    long heap;    ///< allocated by the program and the toolkit, bytes
    int widgets;  ///< of the toolkit, shown or hidden
    int objects;  ///< of the toolkit, with a parent or without
    int files;    ///< open ones
};

/// Starts to count the toolkit's objects. Called once, before the first of them is made.
void CountObjects();

Reading Take(int done);

/// Bytes allocated by the program and the toolkit.
std::size_t Allocated();

/// Whether `Allocated` tells anything: under a sanitizer it doesn't.
bool MemoryIsJudged();

/// One row for each quarter of the readings, with medians of memory and the least of all else.
void Print(std::ostream& out, const std::vector<Reading>& readings);

/// What isn't flat. The first quarter of the readings is the warm-up; the last one's median of
/// resident memory may be 1 % above that of the second, that of allocated memory 100 bytes for each
/// time in between, and the least widgets, objects and files of the last may not be above those of
/// the second: what comes and goes makes a reading larger, what stays makes all of them so. A
/// sanitizer keeps what was freed, so memory isn't judged under one.
std::vector<std::string> Faults(const std::vector<Reading>& readings);

}  // namespace velmora::endurance
