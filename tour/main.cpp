#include <QApplication>
#include <QLoggingCategory>

#include <charconv>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "qt/appearance.h"
#include "qt/platform.h"
#include "steps.h"

namespace velmora::tour {

namespace {

constexpr int kDifferent = 1;
constexpr int kBadStart = 2;

constexpr std::string_view kUse =
    "Uso: velmora_recorrido [carpeta] [--ritmo MILISEGUNDOS] [--ejemplos CARPETA]\n";

struct Options {
    std::filesystem::path folder = "build/recorrido";
    int pace = 0;
    std::optional<std::filesystem::path> examples;
};

/// Nothing when the arguments aren't as told.
std::optional<Options> ReadOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--ritmo" || argument == "--ejemplos") {
            if (++i == arguments.size()) return std::nullopt;
            const std::string& value = arguments[i];
            if (argument == "--ejemplos") {
                options.examples = value;
                continue;
            }
            const char* const end = value.data() + value.size();
            const auto [stop, error] = std::from_chars(value.data(), end, options.pace);
            if (error != std::errc() || stop != end || options.pace < 0) return std::nullopt;
        } else if (argument.starts_with("--")) {
            return std::nullopt;
        } else {
            options.folder = argument;
        }
    }
    return options;
}

/// From nothing to the saved final table, and everything found again in another run.
void GoTheWholeRoad(Guide& guide, int pace) {
    const std::filesystem::path file = guide.Folder() / "evaluacion";
    const std::filesystem::path saved_file = guide.Folder() / "evaluacion.doc";
    EvaluacionRecord saved;
    {
        Program program(guide.Folder() / "resultados.pdf", pace);
        const Road road{program, program.robot, guide};
        guide.PictureBoxes(program.robot);
        Start(road);
        EnterCompany(road, kCompany);
        EnterPlan(road, kDays, kTasks, kAgents);
        EnterContaminants(road, kTasks, kAgents);
        program.robot.Choose("continuar", "pagina5");
        for (int day = 0; day < kDays; ++day) {
            EvaluateDay(road, day);
            if (day == 0) CompareWorkedDay(road);
        }
        RecoverFirstDay(road);
        ShowFinalTable(road);
        Save(road, file);
        PrintFinalTable(road);
        saved = program.record;
        RestoreInPlace(road, saved_file);
        Leave(road, QMessageBox::No);
    }
    Program again(guide.Folder() / "resultados-otra-vez.pdf", pace);
    const Road road{again, again.robot, guide};
    Start(road);
    RestoreInNewRun(road, saved_file, saved);
    Leave(road, QMessageBox::Yes);
}

/// The evaluation files that stand beside the program as examples.
void MakeExamples(Guide& guide, const std::filesystem::path& folder, int pace) {
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(guide.Folder() / "evaluacion.doc",
                               folder / "tres-dias-tres-tareas.doc",
                               std::filesystem::copy_options::overwrite_existing);
    Program program(guide.Folder() / "sin-uso.pdf", pace);
    const Road road{program, program.robot, guide};
    Start(road);
    EnterCompany(road, kCompanyOfWorkedDay);
    EnterPlan(road, 1, 1, kAgentsOfWorkedDay);
    EnterContaminants(road, 1, kAgentsOfWorkedDay);
    program.robot.Choose("continuar", "resultadosfinales");
    Save(road, std::filesystem::absolute(folder) / "plan-dia-trabajado");
}

int Run(const Options& options) {
    Guide guide(options.folder);
    try {
        GoTheWholeRoad(guide, options.pace);
        if (options.examples) MakeExamples(guide, *options.examples, options.pace);
    } catch (const std::exception& error) {
        guide.Summary();
        std::cerr << "EL RECORRIDO SE DETIENE: " << error.what() << '\n';
        return kDifferent;
    }
    return guide.Summary() ? 0 : kDifferent;
}

}  // namespace

}  // namespace velmora::tour

int main(int argc, char* argv[]) {
    namespace tour = velmora::tour;
    const std::string separator = velmora::SeparatorOfTheRegion();
    QApplication application(argc, argv);
    velmora::DressApplication(application);
    velmora::SetDecimalSeparator(separator);

    const auto options = tour::ReadOptions({argv + 1, argv + argc});
    if (!options) {
        std::cerr << tour::kUse;
        return tour::kBadStart;
    }
    if (separator != ".") {
        std::cerr << "El separador decimal es \"" << separator
                  << "\": el recorrido necesita el punto. Arránquelo con LC_ALL=C.UTF-8.\n";
        return tour::kBadStart;
    }
    // Without a display the platform says of every box that it can't raise it.
    if (QGuiApplication::platformName() == QStringLiteral("offscreen")) {
        QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    }
    return tour::Run(*options);
}
