#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "report/assembly.h"
#include "report/findings.h"
#include "store/evaluation_file.h"
#include "store/path.h"

namespace velmora::report {

namespace {

constexpr int kLinesOfAgent = 6;

bool HoldsNumber(int line) {
    if (line < kFirstOfPlan - 2 || line >= kFirstOfSheets) return false;
    if (line < kFirstOfAgents) return true;
    const int field = (line - kFirstOfAgents) % kLinesOfAgent;  // name and unit are the texts
    return field != 0 && field != kLinesOfAgent - 1;
}

/// What the number of a line is.
std::string NameOfNumber(int line) {
    static constexpr std::array<std::string_view, 2> kPlan = {"jornadas", "tareas"};
    static constexpr std::array<std::string_view, 3> kLine = {"horas", "muestras de 30'",
                                                              "muestras de 15'"};
    static constexpr std::array<std::string_view, 6> kAgent = {"",     "VLA-ED", "VLA-EC",
                                                               "T.M.", "grupo",  ""};
    const auto of = [](const auto& names, int i) {
        return std::string(names.at(static_cast<std::size_t>(i)));
    };
    if (line < kFirstOfPlan) return "número de " + of(kPlan, line - kFirstOfPlan + 2);
    if (line < kFirstCount) {
        const int at = line - kFirstOfPlan;
        return of(kLine, at % 3) + ", día " + NumberText(at / 9 + 1) + ", tarea " +
               NumberText(at / 3 % 3 + 1);
    }
    if (line < kFirstOfAgents) {
        return "contaminantes de la tarea " + NumberText(line - kFirstCount + 1);
    }
    const int at = line - kFirstOfAgents;
    return of(kAgent, at % 6) + ", tarea " + NumberText(at / 36 + 1) + ", contaminante " +
           NumberText(at / 6 % 6 + 1);
}

bool CanBeRead(const std::string& file_name) {
    const std::filesystem::path file = PathOf(file_name);
    return TypeOf(file) == std::filesystem::file_type::regular && std::ifstream(file);
}

/// An evaluation has most of its texts between quotes and most of its numbers as numbers.
bool LooksLikeEvaluation(const ReadingNotes& notes) {
    int numbers = 0;
    for (int line = 1; line <= notes.lines; ++line) {
        if (HoldsNumber(line)) ++numbers;
    }
    const int texts = notes.lines - numbers;
    return 2 * std::ssize(notes.unquoted_strings) <= texts &&
           2 * std::ssize(notes.unread_numbers) <= numbers;
}

std::string Line(int line) { return "Línea " + NumberText(line); }

void TellLines(const ReadingNotes& notes, std::vector<Remark>& remarks) {
    for (const int line : notes.unread_numbers) {
        remarks.push_back({line, Line(line) + " (" + NameOfNumber(line) +
                                     "): no es un número que se pueda leer; se ha tomado 0."});
    }
    for (const int line : notes.unquoted_strings) {
        remarks.push_back({line, Line(line) + ": el texto no está entre dos comillas, o lleva "
                                              "otras dentro; puede haberse leído cortado."});
    }
    std::sort(remarks.begin(), remarks.end(),
              [](const Remark& a, const Remark& b) { return a.line < b.line; });
    if (notes.lines < kLinesOfEvaluation) {
        remarks.push_back({0, "El fichero acaba en la línea " + NumberText(notes.lines) +
                                  " de sus 1524; lo que falta se ha tomado por vacío."});
    }
    if (notes.more) {
        remarks.push_back(
            {0,
             "El fichero sigue después de su última línea, la 1524; lo que sigue no se ha "
             "leído."});
    }
}

void TellRange(Entero value, int least, int most, const std::string& what,
               std::vector<Remark>& remarks) {
    if (value >= least && value <= most) return;
    remarks.push_back({0, "El plan dice «" + what + ": " + NumberText(value.Value()) +
                              "», fuera de lo que admite; se ha cortado."});
}

void TellPlan(const EvaluacionRecord& record, std::vector<Remark>& remarks) {
    TellRange(record.NumJornadas, 0, 3, "jornadas", remarks);
    TellRange(record.NumTareas, 0, 3, "tareas", remarks);
    for (int task = 1; task <= 3; ++task) {
        TellRange(record.NumContaminantes(task), 0, 6,
                  "contaminantes de la tarea " + NumberText(task), remarks);
    }
}

}  // namespace

Report ReadReport(const std::string& file_name) {
    if (!CanBeRead(file_name)) throw Refused("no se puede abrir, o no es un fichero");
    EvaluacionRecord record;
    ReadingNotes notes;
    ReadEvaluation(file_name, record, notes);
    if (notes.lines == 0) throw Refused("está vacío");
    if (!LooksLikeEvaluation(notes)) throw Refused("no es una evaluación de Velmora");

    Report report = MakeReport(record, notes.lines);
    TellLines(notes, report.remarks);
    TellPlan(record, report.remarks);
    return report;
}

}  // namespace velmora::report
