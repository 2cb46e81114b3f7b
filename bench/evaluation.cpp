#include "evaluation.h"

#include <array>
#include <stdexcept>

#include "core/grid.h"
#include "final/form6.h"
#include "store/evaluation_file.h"
#include "support/menus.h"
#include "support/use.h"

namespace velmora::bench {

namespace {

// The worked day of toluene, xylene and ethylbenzene.
constexpr std::array<double, 3> kLimits = {192, 221, 442};
constexpr std::array<std::array<std::string_view, 4>, 3> kSamples = {{
    {"120", "95", "150", "110"},
    {"30", "45", "20", "35"},
    {"15", "25", "10", "20"},
}};

constexpr int kColumnsOfTable = 9;
constexpr int kFirstResult = 3;  ///< column of the final table; those before it are of the plan

}  // namespace

void Unexpected(std::string_view what) {
    throw std::logic_error("unexpected: " + std::string(what));
}

std::tm LocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

void PlanWorkedDay(EvaluacionRecord& record) {
    record.NumJornadas = 1;
    record.NumTareas = 1;
    record.TiempoExposicion(1, 1) = 8;
    record.Muestras15(1, 1) = 3;
    record.NumContaminantes(1) = 3;
    for (int c = 1; c <= 3; ++c) {
        const double limit = kLimits.at(static_cast<std::size_t>(c - 1));
        record.VlaEd(1, c) = limit;
        record.VlaEc(1, c) = 2 * limit;
        record.TiempoMuestreo(1, c) = 15;
        record.Aditivo(1, c) = c == 1 ? 0 : 1;
    }
}

void Restore(const std::string& file, EvaluacionRecord& record) {
    ReadEvaluation(file, record);
    if (record.NumJornadas != 3) throw std::logic_error("no evaluation of three days in " + file);
}

const std::function<void()>& HandlerOf(const Screen& screen, int button) {
    static constexpr std::array<std::string_view, kButtons> kNames = {
        "Command1", "Command2", "Command3", "Command4",
        "Command5", "Command6", "Command7", "Command8"};
    return screen.FindControl(kNames.at(static_cast<std::size_t>(button - 1)))->events.Click;
}

void TypeDay(const Form5& sheet, int day, const DaySheet& slot) {
    use::Choose(sheet, EntryOf(kBeginDay, day));
    for (int row = 0; row < grid::kRows; ++row) {
        for (int column = grid::kFirstSample; column <= grid::kLastSample; ++column) {
            const int cell = row * grid::kColumns + column;
            const std::string& measured = slot(cell + 1);
            if (!measured.empty()) use::Type(sheet, Indexed("Text1", cell), measured);
        }
    }
}

void Evaluate(Core& core, const EvaluacionRecord& measured) {
    core.chain.Go(ScreenId::Form5);
    for (int day = 1; day <= 3; ++day) {
        auto& sheet = core.Current<Form5>();
        TypeDay(sheet, day, measured.Hoja(day));
        for (int button = 1; button <= kButtons; ++button) HandlerOf(sheet, button)();
        if (core.record.Hoja(day) != measured.Hoja(day)) {
            throw std::logic_error("a day came to something else");
        }
    }
    core.chain.Go(ScreenId::Form6);
    core.Current<Form6>().Command1_Click();
    core.chain.Settle();
    if (core.record.HojaFinal != measured.HojaFinal) {
        throw std::logic_error("the final table came to something else");
    }
}

Form5& WorkDay(Core& core) {
    DaySheet measured;
    for (std::size_t row = 0; row < kSamples.size(); ++row) {
        int entry = static_cast<int>(row) * grid::kColumns + grid::kFirstSample + 1;
        for (const std::string_view sample : kSamples.at(row)) measured(entry++) = sample;
    }
    PlanWorkedDay(core.record);
    core.chain.Go(ScreenId::Form5);
    auto& sheet = core.Current<Form5>();
    TypeDay(sheet, 1, measured);
    for (const int button : {1, 4, 5, 8}) HandlerOf(sheet, button)();
    return sheet;
}

EvaluacionRecord PlanOf(EvaluacionRecord record) {
    record.HojaPrimerDia = record.HojaSegundoDia = record.HojaTercerDia = {};
    for (auto& row : record.HojaFinal) {
        for (int column = kFirstResult; column <= kColumnsOfTable; ++column) row(column).clear();
    }
    return record;
}

}  // namespace velmora::bench
