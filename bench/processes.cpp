#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>
#include <sstream>
#include <stdexcept>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "rows.h"

namespace velmora::bench {

namespace {

using Words = std::vector<std::string>;

/// The words as a list that ends with null, as programs are started with.
std::vector<char*> Pointers(Words& words) {
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

constexpr int kReportedTo = 3;  ///< descriptor of the started program that is read here

/// Runs a program to its end with `extra` in its environment, and returns what it writes to the
/// descriptor. Throws std::runtime_error when it can't be started or fails.
std::string Run(Words command, int descriptor, const Words& extra = {}) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    Words environment = extra;
    for (char** entry = environ; *entry != nullptr; ++entry) environment.emplace_back(*entry);

    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], descriptor);
    if (descriptor != STDERR_FILENO) {
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    }
    pid_t child = 0;
    const int trouble = posix_spawnp(&child, command.front().c_str(), &actions, nullptr,
                                     Pointers(command).data(), Pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    std::string report;
    std::array<char, 4096> part{};
    while (trouble == 0) {
        const ssize_t count = read(ends[0], part.data(), part.size());
        if (count <= 0) break;
        report.append(part.data(), static_cast<std::size_t>(count));
    }
    close(ends[0]);
    int status = 0;
    if (trouble != 0 || waitpid(child, &status, 0) < 0 || status != 0) {
        throw std::runtime_error(command.front() + " fails");
    }
    return report;
}

/// What the plug-in tells of a program's first screen.
struct FirstScreen {
    double milliseconds = 0;  ///< since the program was started
    double resident = 0;      ///< bytes
    int width = 0;
    int height = 0;
};

FirstScreen Start(const Places& places, const Words& command) {
    const auto start = std::chrono::steady_clock::now().time_since_epoch();
    std::istringstream report(Run(command, kReportedTo,
                                  {"QT_PLUGIN_PATH=" + places.build + "/bench/plugins",
                                   "QT_QPA_GENERIC_PLUGINS=velmora_watch", "VELMORA_WATCH=3"}));
    std::int64_t moment = 0;
    FirstScreen seen;
    report >> moment >> seen.resident >> seen.width >> seen.height;
    if (!report) throw std::runtime_error(command.front() + " showed no window");
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::nanoseconds(moment) - std::chrono::nanoseconds(start);
    seen.milliseconds = taken.count();
    return seen;
}

Rows MeasureStart(const Places& places) {
    constexpr int kRepetitions = 21;
    constexpr double kBudget = 1.3;
    constexpr double kMemoryBudget = 1.1;
    constexpr int kMemoryRepetitions = 3;
    const Words velmora = {places.build + "/velmora"};
    const FirstScreen first = Start(places, velmora);
    // An empty window would load no letters, which no program with a text can do without.
    const Words worded = {places.build + "/bench/velmora_empty", std::to_string(first.width),
                          std::to_string(first.height), "Velmora"};
    const auto time_of = [&](const Words& command) {
        return [&places, command] { return Start(places, command).milliseconds; };
    };
    const auto memory_of = [&](const Words& command) {
        return [&places, command] { return Start(places, command).resident / kMegabyte; };
    };
    const std::string one_word = "an empty window with one word";
    return {
        CompareValues("start to the first screen", one_word, "ms", time_of(velmora),
                      time_of(worded), kRepetitions, kBudget),
        CompareValues("resident memory at the first screen", one_word, "MB", memory_of(velmora),
                      memory_of(worded), kMemoryRepetitions, kMemoryBudget),
    };
}

Row MeasureMemoryOfSheet(const Places& places) {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    const auto memory = [&](const char* what) {
        return std::stod(Run({self, what, places.examples}, STDOUT_FILENO)) / kMegabyte;
    };
    return CompareValues(
        "resident memory on a full sheet", "an empty window that links as much", "MB",
        [&] { return memory("--sheet"); }, [&] { return memory("--empty"); }, 3, 1.15);
}

/// A day's figures as a program prints them: the first four numbers of each line.
std::vector<double> FiguresOf(const std::string& output) {
    std::vector<double> figures;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        double figure = 0;
        for (int i = 0; i < 4 && words >> figure; ++i) figures.push_back(figure);
    }
    return figures;
}

bool Has(const char* program) {
    return std::system((std::string("command -v ") + program + " >/dev/null").c_str()) == 0;
}

double Milliseconds(const std::function<void()>& act) { return Time({act}) / 1000; }

/// A day's figures from a cold start, against another program that computes the same.
Row MeasureDay(const Places& places, const std::string& name, const Words& command,
               const std::function<std::string()>& output, int repetitions) {
    const Words ours = {places.build + "/bench/velmora_day"};
    if (FiguresOf(Run(ours, STDOUT_FILENO)) != FiguresOf(output())) {
        throw std::runtime_error(name + " comes to other figures");
    }
    return CompareValues(
        "the worked day's figures from a cold start", name, "ms",
        [&] { return Milliseconds([&] { Run(ours, STDOUT_FILENO); }); },
        [&] { return Milliseconds([&] { Run(command, STDOUT_FILENO); }); }, repetitions);
}

/// A report from a cold start, against R that starts and does nothing.
Row MeasureReportProgram(const Places& places) {
    const Words ours = {places.build + "/velmora-informe", "--reemplazar",
                        "--salida=" + places.scratch + "/started.html", places.examples};
    return CompareValues(
        "a report of three days from a cold start", "R starting", "ms",
        [&] { return Milliseconds([&] { Run(ours, STDOUT_FILENO); }); },
        [&] { return Milliseconds([&] {
                  Run({"Rscript", "-e", "0"}, STDOUT_FILENO);
              }); }, 7);
}

Rows MeasureDays(const Places& places) {
    Rows rows;
    if (Has("Rscript")) {
        const Words r = {"Rscript", "--vanilla", places.source + "/day.R"};
        rows.push_back(MeasureDay(
            places, "R", r, [&] { return Run(r, STDOUT_FILENO); }, 7));
        rows.push_back(MeasureReportProgram(places));
    } else {
        std::cerr << "R isn't installed (r-base-core): its rows are left out\n";
    }
    if (Has("soffice")) {
        const Words calc = {"soffice",
                            "--headless",
                            "-env:UserInstallation=file://" + places.scratch + "/office",
                            "--convert-to",
                            "csv:Text - txt - csv (StarCalc):32,,76,1,,0,false,true",
                            "--outdir",
                            places.scratch,
                            places.source + "/day.fods"};
        const auto output = [&] {
            Run(calc, STDOUT_FILENO);
            return Run({"cat", places.scratch + "/day.csv"}, STDOUT_FILENO);
        };
        rows.push_back(MeasureDay(places, "LibreOffice Calc, without a window", calc, output, 3));
    } else {
        std::cerr << "LibreOffice Calc isn't installed (libreoffice-calc-nogui): its row is left "
                     "out\n";
    }
    return rows;
}

}  // namespace

Rows MeasureProcesses(const Places& places) {
    Rows rows = MeasureStart(places);
    rows.push_back(MeasureMemoryOfSheet(places));
    for (const Row& row : MeasureDays(places)) rows.push_back(row);
    return rows;
}

}  // namespace velmora::bench
