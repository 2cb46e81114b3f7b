// velmora_bench <build folder> <source folder>: the table of ratios, on the standard output.

#include <QApplication>

#include <array>
#include <filesystem>
#include <iostream>
#include <string>

#include "qt/appearance.h"
#include "rows.h"

namespace bench = velmora::bench;

int main(int argc, char* argv[]) try {
    QApplication application(argc, argv);
    const std::string first = argc > 1 ? argv[1] : "";
    if (first == "--empty") return bench::ShowMemoryOfEmptyWindow();

    velmora::DressApplication(application);
    bench::Places places;
    if (first == "--sheet" && argc == 3) {
        places.examples = argv[2];
        return bench::ShowMemoryOfSheet(places);
    }
    if (argc != 3) {
        std::cerr << "usage: velmora_bench <build folder> <source folder>\n";
        return EXIT_FAILURE;
    }
    places.build = first;
    places.source = std::string(argv[2]) + "/bench";
    places.examples = std::string(argv[2]) + "/examples/tres-dias-tres-tareas.doc";
    places.scratch = places.build + "/bench/scratch";
    std::filesystem::create_directories(places.scratch);

    bench::Rows all;
    constexpr std::array kParts = {bench::MeasureProcesses, bench::MeasureWindow,
                                   bench::MeasureFiles, bench::MeasureReport, bench::MeasureCore};
    for (const auto& measure : kParts) {
        for (const bench::Row& row : measure(places)) all.push_back(row);
    }
    bench::Print(all, std::cout);
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::cerr << "velmora_bench: " << error.what() << '\n';
    return EXIT_FAILURE;
}
