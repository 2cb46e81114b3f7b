#include "sheet/form5.h"

#include <array>
#include <string>

#include "core/grid.h"
#include "core/numbers.h"
#include "forms/palette.h"

namespace velmora {

namespace {

constexpr Face kFace{ScreenId::Form5,
                     " Velmora / h5                                  CÁLCULOS   Y   RESULTADOS ",
                     {0, 0, 11880, 8310},
                     "fondo5"};

constexpr Color kHeadingRed = 0x1E1EB4;
constexpr Color kPaleGrey = 0xEFEFEF;    ///< what the plan gives
constexpr Color kPaleGreen = 0xE4F5E4;   ///< what the program computes
constexpr Color kPaleYellow = 0xD6F2FF;  ///< what the program computes on short exposures

constexpr Look kHeading = Heading(7.5, true);
constexpr Look kSampleHeading{
    .bold = true, .align = Align::Center, .fore = kWhite, .back = kHeadingRed};
constexpr Look kTaskTitle{.bold = true, .fore = kNavy, .back = kPaleBlue};
constexpr Look kAnswer{.bold = true, .fore = kNavy, .back = kPaleGreen};
constexpr Look kCaption = Heading(7.5, false, Align::Left);

/// A column of the sheet, the same in each task.
struct Column {
    std::string_view heading;
    int left;
    int width;
    Color back;
    std::string_view spoken;      ///< as a screen reader says it
    double points = 8.25;         ///< of the cells' letters
    std::string_view tool_tip{};  ///< of the heading
};

// clang-format off
constexpr Array<Column, 0, grid::kColumns - 1> kText1Columns({{
    {"Nº",            120,  255, kPaleGrey,     "número"},
    {"Contaminante",  360, 1335, kPaleGrey,     "nombre del contaminante"},
    {"ED",           1680,  495, kPaleGrey,     "VLA-ED"},
    {"EC",           2160,  495, kPaleGrey,     "VLA-EC"},
    {"Unid.",        2640,  495, kPaleGrey,     "unidades", 6.75}, // "mg/m3" fits
    {"T.M.",         3120,  375, kPaleGrey,     "tiempo de muestreo", 8.25,
     "Tiempo de muestreo, en minutos: solo interviene en la pregunta de si se ha superado un límite."},
    {"A+",           3480,  255, kPaleGrey,     "grupo aditivo", 8.25,
     "Grupo aditivo: los agentes con el mismo número suman sus efectos; 0 si el agente no es aditivo."},
    {"C1",           3840,  495, kWindowBackground, "muestra C1"},
    {"C2",           4320,  495, kWindowBackground, "muestra C2"},
    {"C3",           4800,  495, kWindowBackground, "muestra C3"},
    {"C4",           5280,  495, kWindowBackground, "muestra C4"},
    {"C5",           5760,  495, kWindowBackground, "muestra C5"},
    {"C6",           6240,  495, kWindowBackground, "muestra C6"},
    {"MMP",          6840,  855, kPaleGreen,    "media estimada MMP", 8.25,
     "Media estimada de la concentración: MG × F, donde F depende del número de mediciones y de la GSD."},
    {"Indice",       7680,  495, kPaleGreen,    "índice", 8.25,
     "(Horas de exposición × MMP) / (8 × VLA-ED); 0 si no hay VLA-ED."},
    {"Indic.+",      8160,  615, kPaleGreen,    "índice aditivo", 8.25,
     "El índice que cuenta: el propio Indice si el agente no es aditivo, o la suma de los índices de su grupo."},
    {"MG",           8760,  615, kPaleGreen,    "media geométrica MG", 8.25,
     "Media geométrica de las mediciones de la fila."},
    {"GSD",          9360,  495, kPaleGreen,    "desviación geométrica GSD", 8.25,
     "Desviación geométrica de las mediciones de la fila."},
}});

constexpr Array<Column, 0, grid::kColumns3 - 1> kText3Columns({{
    {"EC+",          9960,  495, kPaleYellow, "límite de corta exposición EC+", 6.75,
     "Límite de corta duración: el VLA-EC, o 3 × VLA-ED si no lo hay; en un grupo, el límite de la mezcla."},
    {"MG+",         10440,  495, kPaleYellow, "media geométrica MG+", 6.75,
     "Media geométrica que se compara con EC+: la de la fila o, en un grupo, la de la suma de sus concentraciones."},
    {"GSD+",        10920,  495, kPaleYellow, "desviación geométrica GSD+", 6.75,
     "Desviación geométrica de lo que se compara con EC+: la fila o, en un grupo, la suma de sus concentraciones."},
    {"Prob.",       11400,  495, kPaleYellow, "probabilidad", 6.75,
     "Clase de probabilidad, en tanto por ciento, de que una exposición corta supere EC+."},
}});

/// Where a task's block of the sheet stands.
struct Block {
    int first_row;
    int headings;
    int title;
    std::string_view text;
};

constexpr Array<Block, 1, grid::kTasks> kBlocks({{
    { 840,  480,  120, "Datos  relativos a la 1ª tarea"},
    {3120, 2760, 2400, "Datos relativos a la 2ª tarea"},
    {5400, 5040, 4680, "Datos relativos a la 3ª tarea"},
}});

constexpr int kRowHeight = 240; ///< cells are 285 high: neighbours overlap a little
constexpr int kCellHeight = 285;
constexpr int kHeadingHeight = 255;

// The Tab key runs through the samples of all rows, then the buttons, then the rest of the cells.
constexpr int kTabSamples = 0;
constexpr int kTabButtons = 108;
constexpr int kTabRest = 116;
constexpr int kTabText3 = 332;
constexpr int kTabAnswers = 404;

constexpr std::array<StandingControl<Form5>, 17> kControls = {{
    {&Form5::Command1, {.name = "Command1", .box = {3840,  120, 4335, 255}, .text = "Validar 1ª tarea", .tab = kTabButtons}, &Form5::Command1_Click},
    {&Form5::Command2, {.name = "Command2", .box = {3840, 2400, 6015, 255}, .text = "Validar 2ª tarea", .tab = kTabButtons + 1}, &Form5::Command2_Click},
    {&Form5::Command3, {.name = "Command3", .box = {3840, 4680, 6015, 255}, .text = "Validar 3ª tarea", .tab = kTabButtons + 2}, &Form5::Command3_Click},
    {&Form5::Command4, {.name = "Command4", .box = {8280,  120, 1575, 255}, .text = "Indice+ / MG / GSD", .tab = kTabButtons + 3}, &Form5::Command4_Click},
    {&Form5::Command5, {.name = "Command5", .box = {9960,  120, 1935, 255}, .text = "EC+/MG+/GSD+/Prob.", .tab = kTabButtons + 4,
      .spoken = "EC+, MG+, GSD+ y probabilidad de la 1ª tarea"}, &Form5::Command5_Click},
    {&Form5::Command6, {.name = "Command6", .box = {9960, 2400, 1935, 255}, .text = "EC+/MG+/GSD+/Prob.", .tab = kTabButtons + 5,
      .spoken = "EC+, MG+, GSD+ y probabilidad de la 2ª tarea"}, &Form5::Command6_Click},
    {&Form5::Command7, {.name = "Command7", .box = {9960, 4680, 1935, 255}, .text = "EC+/MG+/GSD+/Prob.", .tab = kTabButtons + 6,
      .spoken = "EC+, MG+, GSD+ y probabilidad de la 3ª tarea"}, &Form5::Command7_Click},
    {&Form5::Command8, {.name = "Command8", .box = {4080, 7080, 7695, 255},
      .text = "Conclusiones referidas a la jornada en curso :     Validar", .tab = kTabButtons + 7}, &Form5::Command8_Click},
    {&Form5::Label1, {.name = "Label1", .box = {120, 7080, 3255, 255}, .text = "¿Se ha superado   3 x VLA-ED  o    VLA-EC ?", .look = kCaption}},
    {&Form5::Label2, {.name = "Label2", .box = {120, 7440, 3255, 255}, .text = "Mayor indice calculado: simple y aditivo", .look = kCaption}},
    {&Form5::Label4, {.name = "Label4", .box = {120, 7800, 3255, 255}, .text = "Probabilidad de superar corta exposición:", .look = kCaption}},
    {&Form5::Label5, {.name = "Label5", .box = {9840, 8160, 2535, 255}, .look = kClockLook}},
    {&Form5::Text7, {.name = "Text7", .box = {3360, 7080,  615, 285}, .look = kAnswer, .tab = kTabAnswers,
      .spoken = "¿Se ha superado 3 x VLA-ED o VLA-EC?"}},
    {&Form5::Text2, {.name = "Text2", .box = {3360, 7440,  615, 285}, .look = kAnswer, .tab = kTabAnswers + 1,
      .spoken = "Mayor índice calculado, simple y aditivo"}},
    {&Form5::Text5, {.name = "Text5", .box = {4080, 7440, 7695, 285}, .look = kAnswer, .tab = kTabAnswers + 2,
      .spoken = "Conclusión sobre el índice"}},
    {&Form5::Text4, {.name = "Text4", .box = {3360, 7800,  615, 285}, .look = kAnswer, .tab = kTabAnswers + 3,
      .spoken = "Probabilidad de superar corta exposición"}},
    {&Form5::Text6, {.name = "Text6", .box = {4080, 7800, 7695, 285}, .look = kAnswer, .tab = kTabAnswers + 4,
      .spoken = "Conclusión sobre la probabilidad"}},
}};
// clang-format on

constexpr std::array<EntryRow<Form5>, 3> kDays = {{
    {"introprimero", "Primer dia", &Form5::introprimero_Click},
    {"introsegundo", "Segundo dia", &Form5::introsegundo_Click},
    {"introtercero", "Tercer dia", &Form5::introtercero_Click},
}};
constexpr std::array<EntryRow<Form5>, 3> kKeptDays = {{
    {"recupprimerdia", "Primer dia", &Form5::recupprimerdia_Click},
    {"recupsegundodia", "Segundo dia", &Form5::recupsegundodia_Click},
    {"recuptercerdia", "Tercer dia", &Form5::recuptercerdia_Click},
}};
constexpr std::array<EntryRow<Form5>, 4> kMoves = {{
    {"datosiniciales", "Datos iniciales: Jornadas y Tareas", &Form5::datosiniciales_Click},
    {"contaminantes", "Contaminantes", &Form5::contaminantes_Click},
    {"resultadosfinales", "Resultado final", &Form5::resultadosfinales_Click},
    {"datosempresa", "Datos de empresa", &Form5::datosempresa_Click},
}};

constexpr bool IsSample(int column) {
    return column >= grid::kFirstSample && column <= grid::kLastSample;
}

/// Position in the order of the Tab key of a cell of Text1.
constexpr int TabOf(int row, int column) {
    using grid::kSamples;
    constexpr int kRest = grid::kColumns - kSamples;
    if (IsSample(column)) return kTabSamples + (row - 1) * kSamples + column - grid::kFirstSample;
    return kTabRest + (row - 1) * kRest +
           (column < grid::kFirstSample ? column : column - kSamples);
}

constexpr int TopOf(int row) {
    return kBlocks(grid::TaskOf(row)).first_row + (grid::ContaminantOf(row) - 1) * kRowHeight;
}

constexpr Row HeadingRow(std::string_view name, int index, const Column& column, int top) {
    return {.name = name,
            .index = index,
            .box = {column.left, top, column.width, kHeadingHeight},
            .text = column.heading,
            .look = column.back == kWindowBackground ? kSampleHeading : kHeading,
            .tool_tip = column.tool_tip,
            .in_table = true};
}

constexpr Row CellRow(std::string_view name, int index, const Column& column, int row, int tab) {
    return {.name = name,
            .index = index,
            .box = {column.left, TopOf(row), column.width, kCellHeight},
            .look = {.points = column.points, .back = column.back},
            .tab = tab,
            .tool_tip = column.back == kWindowBackground ? kDecimalsHelp : std::string_view{},
            .in_table = true};
}

}  // namespace

Form5::Form5(const Environment& environment) : BaseScreen(environment, kFace, Label5) {
    PlaceSheet();
    PlaceControls();
    PlaceMenu();
}

void Form5::PlaceSheet() {
    // A task's headings stand in their arrays as a row of cells does.
    for (int task = 1; task <= grid::kTasks; ++task) {
        const Block& block = kBlocks(task);
        const int title = grid::TitleOf(task);
        Place(Label7(title), {.name = "Label7",
                              .index = title,
                              .box = {120, block.title, 3615, kHeadingHeight},
                              .text = block.text,
                              .look = kTaskTitle,
                              .in_table = true});
        for (int c = 0; c < grid::kColumns; ++c) {
            const int i = grid::Cell(task, c);
            Place(Label7(i), HeadingRow("Label7", i, kText1Columns(c), block.headings));
        }
        for (int c = 0; c < grid::kColumns3; ++c) {
            const int i = grid::Cell3(task, c);
            Place(Label3(i), HeadingRow("Label3", i, kText3Columns(c), block.headings));
        }
    }
    for (int row = 1; row <= grid::kRows; ++row) {
        for (int c = 0; c < grid::kColumns; ++c) {
            const int i = grid::Cell(row, c);
            const Column& column = kText1Columns(c);
            Place(Text1(i), CellRow("Text1", i, column, row, TabOf(row, c)),
                  {.KeyPress = [this, i](KeyCode& key) { Text1_KeyPress(i, key); }},
                  SpokenName(row, column.spoken));
        }
        for (int c = 0; c < grid::kColumns3; ++c) {
            const int i = grid::Cell3(row, c);
            const Column& column = kText3Columns(c);
            Place(Text3(i), CellRow("Text3", i, column, row, kTabText3 + i), {},
                  SpokenName(row, column.spoken));
        }
    }
}

void Form5::PlaceControls() {
    Place(kControls);
    for (TextCell* cell : ConclusionCells()) cell->Locked = true;
}

void Form5::PlaceMenu() {
    SetMenu<Form5>({{"vacio1 vacio2", "introducirdatos", "Introducir datos", nullptr, kDays},
                    {"vacio3 vacio4", "recuperar", "Recuperar datos/cálculos", nullptr, kKeptDays},
                    {"vacio5 vacio6", "continuar", "Continuar/Regresar", nullptr, kMoves},
                    {"vacio9 vacio14", "imprimir", "Imprimir", &Form5::imprimir_Click},
                    {"vacio15", "salir", "Salir", &Form5::salir_Click, {}, true}});
}

TextCell& Form5::Cell(int row, int column) { return Text1(grid::Cell(row, column)); }
const TextCell& Form5::Cell(int row, int column) const { return Text1(grid::Cell(row, column)); }
TextCell& Form5::Cell3(int row, int column) { return Text3(grid::Cell3(row, column)); }

Doble Form5::Value(int cell) const { return LeerValor(Text1(cell).Text); }

void Form5::Open(Button& button) {
    button.Visible = true;
    button.Enabled = true;
}

void Form5::OpenAfter(int task, Button Form5::*next, Button& after_the_last) {
    const Entero tasks = environment_.record.NumTareas;
    if (tasks == task) {
        Open(after_the_last);
    } else if (tasks > task && next != nullptr) {
        Open(this->*next);
    }
}

void Form5::datosiniciales_Click() { environment_.chain.Go(ScreenId::Form3); }
void Form5::contaminantes_Click() { environment_.chain.Go(ScreenId::Form4); }
void Form5::resultadosfinales_Click() { environment_.chain.Go(ScreenId::Form6); }
void Form5::datosempresa_Click() { environment_.chain.Go(ScreenId::Form2); }

void Form5::imprimir_Click() {
    Imprimir(environment_.host, CommonDialog1,
             {"Se imprimirán todos los datos en pantalla", 0, 1000});
}

void Form5::salir_Click() { Salir(environment_.host, MsgBoxStyle::YesNoInformation); }

}  // namespace velmora
