#include "endurance/census.h"

#include <QApplication>
#include <QObject>

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <ostream>

// The toolkit's own seam for tools that watch it: places 3 and 4 are called with each object made
// and destroyed. Exported by its core library, declared in no public header.
extern "C" Q_DECL_IMPORT quintptr qtHookData[];  // NOLINT

namespace velmora::endurance {

namespace {

constexpr int kQuarters = 4;
constexpr double kGrowth = 1.01;
constexpr long kKept = 100;  // bytes, each time

std::atomic<int> objects{0};

void ObjectMade(QObject* /*object*/) { ++objects; }
void ObjectGone(QObject* /*object*/) { --objects; }

long ResidentKib() {
    std::ifstream statm("/proc/self/statm");
    long total = 0;
    long resident = 0;
    statm >> total >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

int OpenFiles() {
    namespace fs = std::filesystem;
    // One of them is the folder being read.
    return static_cast<int>(std::distance(fs::directory_iterator("/proc/self/fd"), {})) - 1;
}

/// A quarter of the readings, from 0.
std::vector<Reading> Quarter(const std::vector<Reading>& readings, std::size_t quarter) {
    const std::size_t size = readings.size() / kQuarters;
    const auto first = readings.begin() + static_cast<std::ptrdiff_t>(quarter * size);
    return {first, first + static_cast<std::ptrdiff_t>(size)};
}

template <class Field>
Field Median(const std::vector<Reading>& readings, Field Reading::*field) {
    std::vector<Field> values;
    for (const Reading& reading : readings) values.push_back(reading.*field);
    std::ranges::sort(values);
    return values.at(values.size() / 2);
}

template <class Field>
Field Least(const std::vector<Reading>& readings, Field Reading::*field) {
    return (*std::ranges::min_element(readings, {}, field)).*field;
}

struct Judged {
    const char* name;
    int Reading::*field;
};

constexpr std::array<Judged, 3> kCounts = {{{"widgets", &Reading::widgets},
                                            {"objects", &Reading::objects},
                                            {"open files", &Reading::files}}};

#ifdef __SANITIZE_ADDRESS__
constexpr bool kMemoryIsJudged = false;
#else
constexpr bool kMemoryIsJudged = true;
#endif

}  // namespace

void CountObjects() {
    constexpr int kAdd = 3;
    constexpr int kRemove = 4;
    qtHookData[kAdd] = reinterpret_cast<quintptr>(&ObjectMade);
    qtHookData[kRemove] = reinterpret_cast<quintptr>(&ObjectGone);
}

std::size_t Allocated() {
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

bool MemoryIsJudged() { return kMemoryIsJudged; }

Reading Take(int done) {
    return {done,
            ResidentKib(),
            static_cast<long>(Allocated()),
            static_cast<int>(QApplication::allWidgets().size()),
            objects,
            OpenFiles()};
}

void Print(std::ostream& out, const std::vector<Reading>& readings) {
    out << "      done  resident KiB  allocated KiB  widgets  objects  open files\n";
    for (std::size_t quarter = 0; quarter < kQuarters; ++quarter) {
        const std::vector<Reading> part = Quarter(readings, quarter);
        out << std::setw(10) << part.back().done << std::setw(14) << Median(part, &Reading::rss)
            << std::setw(15) << Median(part, &Reading::heap) / 1024 << std::setw(9)
            << Least(part, &Reading::widgets) << std::setw(9) << Least(part, &Reading::objects)
            << std::setw(12) << Least(part, &Reading::files) << '\n';
    }
}

std::vector<std::string> Faults(const std::vector<Reading>& readings) {
    const std::vector<Reading> second = Quarter(readings, 1);
    const std::vector<Reading> last = Quarter(readings, kQuarters - 1);
    std::vector<std::string> faults;
    for (const Judged& count : kCounts) {
        if (Least(last, count.field) > Least(second, count.field)) {
            faults.push_back(std::string(count.name) + " grow");
        }
    }
    if (!kMemoryIsJudged) return faults;
    const auto resident = static_cast<double>(Median(second, &Reading::rss));
    if (static_cast<double>(Median(last, &Reading::rss)) > resident * kGrowth) {
        faults.emplace_back("resident memory grows");
    }
    const int times = last.back().done - second.back().done;
    const long kept = Median(last, &Reading::heap) - Median(second, &Reading::heap);
    if (kept > kKept * times) faults.emplace_back("allocated memory grows");
    return faults;
}

}  // namespace velmora::endurance
