#include <algorithm>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <sstream>
#include <string>

#include "expected.h"
#include "forms/screen.h"
#include "steps.h"
#include "support/messages.h"

namespace velmora::tour {

namespace {

constexpr int kColumns = 9;
constexpr std::string_view kEmptyCell = "----";
/// Columns of the table after the name, from 0, in the order of FinalRow.
constexpr std::array kResultColumns = {2, 3, 4, 5, 6, 7, 8};

std::string BytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::filesystem::path WithExtension(std::filesystem::path file) {
    return file.replace_extension(".doc");
}

/// The table as the screen shows it, row by row, against the expected one.
void CompareFinalTable(const Road& road) {
    const auto cell = [](int row, int column) { return Indexed("Text1", row * kColumns + column); };
    road.guide.Say("Contaminante      I1     I2     I3     IG                 P1    P2    P3");
    for (int row = 0; row < kFinalRows; ++row) {
        const FinalRow& expected = kFinalTable.at(static_cast<std::size_t>(row));
        const std::string name = road.robot.Text(cell(row, 1));
        std::string line = name;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const std::string seen = road.robot.Text(cell(row, kResultColumns.at(i)));
            road.guide.CheckQuietly("tabla final, " + name, seen,
                                    expected.at(i).empty() ? kEmptyCell : expected.at(i));
            line.append("  ").append(seen);
        }
        road.guide.Say(line);
    }
}

void CompareBoxes(const Road& road) {
    for (int i = 1; i <= 19; ++i) {
        road.guide.CheckQuietly("campo " + std::to_string(i) + " de la empresa",
                                road.robot.Text(Indexed("Text1", i)),
                                kCompany.at(static_cast<std::size_t>(i - 1)));
    }
}

/// The file doesn't hold the working values of the sheet.
EvaluacionRecord WithoutWorkingValues(EvaluacionRecord record) {
    record.MG = {};
    record.GSD = {};
    record.MGmas = {};
    record.GSDmas = {};
    return record;
}

void CompareRecords(const Road& road, const EvaluacionRecord& seen,
                    const EvaluacionRecord& expected) {
    road.guide.Check("El registro restaurado es el guardado", seen == expected ? "sí" : "no", "sí");
}

}  // namespace

void ShowFinalTable(const Road& road) {
    road.guide.Title("Resultado final");
    road.robot.Choose("continuar", "resultadosfinales");
    road.guide.Picture(road.robot, "final-vacio");
    road.robot.Press("Command1");
    road.guide.Picture(road.robot, "final");
    CompareFinalTable(road);
}

void Save(const Road& road, const std::filesystem::path& file) {
    const std::filesystem::path saved = WithExtension(file);
    std::filesystem::remove(saved);
    road.guide.Say("Se guarda en disco con el nombre " + file.filename().string() +
                   ": el programa le añade \"doc\"");
    road.robot.ExpectFileDialog(file.string());
    road.robot.ExpectPrompt(saved.filename().string() + " no existe", QMessageBox::Yes);
    road.robot.Choose("guardararchivo");
    const std::string bytes = BytesOf(saved);
    road.guide.Check("Líneas del fichero",
                     std::to_string(std::count(bytes.begin(), bytes.end(), '\n')), "1524");
}

void PrintFinalTable(const Road& road) {
    const std::filesystem::path page = road.guide.Folder() / "resultados.pdf";
    std::filesystem::remove(page);
    road.guide.Say("Se imprime; la pregunta ya avisa: cancelar después no detiene la impresión");
    road.robot.ExpectBox(
        BoxOf(messages::PrintQuestion(ScreenId::Form6), MsgBoxStyle::YesNo, QMessageBox::Yes));
    // Accepting could send the page to a printer of this machine; what Cancel lets through goes to
    // the file.
    if (kHasToolkitsPrintDialog) road.robot.ExpectPrintDialog(Robot::Print::Cancel);
    road.robot.Choose("imprimir");
    road.guide.Check("Página impresa", BytesOf(page).substr(0, 4), "%PDF");
}

void RestoreInPlace(const Road& road, const std::filesystem::path& file) {
    Robot& robot = road.robot;
    road.guide.Title("Restauración del fichero");
    road.guide.Say(
        "El título Continuar/Regresar vuelve a la hoja; de ella, a los datos de empresa");
    robot.Choose("regresar");
    robot.Choose("continuar", "datosempresa");
    road.guide.Say("Se escribe otro nombre y se restaura el fichero: vuelven los datos guardados");
    robot.Retype("Text1(1)", "Otra empresa");
    const EvaluacionRecord before = road.program.record;
    robot.ExpectFileDialog(file.string());
    robot.Choose("recuperardatos");
    road.guide.Picture(robot, "empresa-restaurada");
    CompareBoxes(road);
    CompareRecords(road, road.program.record, before);
}

void RestoreInNewRun(const Road& road, const std::filesystem::path& file,
                     const EvaluacionRecord& saved) {
    Robot& robot = road.robot;
    road.guide.Title("Lo guardado, en otra ejecución");
    robot.ExpectFileDialog(file.string());
    robot.Choose("recuperardatos");
    CompareBoxes(road);
    CompareRecords(road, road.program.record, WithoutWorkingValues(saved));
    robot.Choose("continuar", "datosiniciales");
    road.guide.Picture(robot, "plan-restaurado");
    robot.Choose("continuar", "pagina5");
    for (int day = 0; day < kDays; ++day) RecoverDay(road, day);
    ShowFinalTable(road);
    const std::filesystem::path again = road.guide.Folder() / "evaluacion-otra-vez";
    Save(road, again);
    road.guide.Check("Los bytes de los dos ficheros son los mismos",
                     BytesOf(WithExtension(again)) == BytesOf(WithExtension(file)) ? "sí" : "no",
                     "sí");
}

void Leave(const Road& road, QMessageBox::StandardButton preset) {
    road.guide.Title("Salida");
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        road.robot.ExpectBox({.text = messages::kExit,
                              .answer = answer,
                              .icon = QMessageBox::Information,
                              .buttons = QMessageBox::Yes | QMessageBox::No,
                              .preset = preset});
        road.robot.Choose("salir");
        const std::vector<int>& ends = road.program.ends;
        road.guide.Check(answer == QMessageBox::No ? "Con No, el programa" : "Con Sí, el programa",
                         ends.empty() ? "sigue" : "termina con " + std::to_string(ends.back()),
                         answer == QMessageBox::No ? "sigue" : "termina con 0");
    }
}

}  // namespace velmora::tour
