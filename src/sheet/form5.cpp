#include "sheet/form5.h"

#include <array>
#include <string>

#include "core/numbers.h"
#include "sheet/grid.h"

namespace velmora {

namespace {

constexpr Box kAreaCliente{0, 0, 11880, 8310};

constexpr Color kBlanco = 0xFFFFFF;
constexpr Color kAzulMarino = 0x5A2D0C;
constexpr Color kRojoDeCabecera = 0x1E1EB4;
constexpr Color kAzulPalido = 0xF5E6D8;
constexpr Color kGrisPalido = 0xEFEFEF;      ///< what the plan gives
constexpr Color kVerdePalido = 0xE4F5E4;     ///< what the program computes
constexpr Color kAmarilloPalido = 0xD6F2FF;  ///< what the program computes on short exposures

constexpr Look kCabecera{
    .points = 7.5, .bold = true, .align = Align::Center, .fore = kAzulMarino, .back = kAzulPalido};
constexpr Look kCabeceraDeMuestra{
    .bold = true, .align = Align::Center, .fore = kBlanco, .back = kRojoDeCabecera};
constexpr Look kTitulo{.bold = true, .fore = kAzulMarino, .back = kAzulPalido};
constexpr Look kRespuesta{.bold = true, .fore = kAzulMarino, .back = kVerdePalido};
constexpr Look kRotulo{.points = 7.5, .fore = kAzulMarino, .back = kAzulPalido};

/// A column of the sheet, the same in each task.
struct Columna {
    std::string_view cabecera;
    int left;
    int width;
    Color fondo;
    std::string_view nombre;   ///< as a screen reader says it
    double points = 8.25;      ///< of the cells' letters
    std::string_view ayuda{};  ///< tool tip of the heading
};

// clang-format off
constexpr std::array<Columna, grid::kColumns> kColumnasText1 = {{
    {"Nº",            120,  255, kGrisPalido,     "número"},
    {"Contaminante",  360, 1335, kGrisPalido,     "nombre del contaminante"},
    {"ED",           1680,  495, kGrisPalido,     "VLA-ED"},
    {"EC",           2160,  495, kGrisPalido,     "VLA-EC"},
    {"Unid.",        2640,  495, kGrisPalido,     "unidades", 6.75}, // "mg/m3" fits
    {"T.M.",         3120,  375, kGrisPalido,     "tiempo de muestreo", 8.25,
     "Tiempo de muestreo, en minutos: solo interviene en la pregunta de si se ha superado un límite."},
    {"A+",           3480,  255, kGrisPalido,     "grupo aditivo", 8.25,
     "Grupo aditivo: los agentes con el mismo número suman sus efectos; 0 si el agente no es aditivo."},
    {"C1",           3840,  495, kFondoDeVentana, "muestra C1"},
    {"C2",           4320,  495, kFondoDeVentana, "muestra C2"},
    {"C3",           4800,  495, kFondoDeVentana, "muestra C3"},
    {"C4",           5280,  495, kFondoDeVentana, "muestra C4"},
    {"C5",           5760,  495, kFondoDeVentana, "muestra C5"},
    {"C6",           6240,  495, kFondoDeVentana, "muestra C6"},
    {"MMP",          6840,  855, kVerdePalido,    "media estimada MMP", 8.25,
     "Media estimada de la concentración: MG × F, donde F depende del número de mediciones y de la GSD."},
    {"Indice",       7680,  495, kVerdePalido,    "índice", 8.25,
     "(Horas de exposición × MMP) / (8 × VLA-ED); 0 si no hay VLA-ED."},
    {"Indic.+",      8160,  615, kVerdePalido,    "índice aditivo", 8.25,
     "El índice que cuenta: el propio Indice si el agente no es aditivo, o la suma de los índices de su grupo."},
    {"MG",           8760,  615, kVerdePalido,    "media geométrica MG", 8.25,
     "Media geométrica de las mediciones de la fila."},
    {"GSD",          9360,  495, kVerdePalido,    "desviación geométrica GSD", 8.25,
     "Desviación geométrica de las mediciones de la fila."},
}};

constexpr std::array<Columna, grid::kColumns3> kColumnasText3 = {{
    {"EC+",          9960,  495, kAmarilloPalido, "límite de corta exposición EC+", 6.75,
     "Límite de corta duración: el VLA-EC, o 3 × VLA-ED si no lo hay; en un grupo, el límite de la mezcla."},
    {"MG+",         10440,  495, kAmarilloPalido, "media geométrica MG+", 6.75,
     "Media geométrica que se compara con EC+: la de la fila o, en un grupo, la de la suma de sus concentraciones."},
    {"GSD+",        10920,  495, kAmarilloPalido, "desviación geométrica GSD+", 6.75,
     "Desviación geométrica de lo que se compara con EC+: la fila o, en un grupo, la suma de sus concentraciones."},
    {"Prob.",       11400,  495, kAmarilloPalido, "probabilidad", 6.75,
     "Clase de probabilidad, en tanto por ciento, de que una exposición corta supere EC+."},
}};

/// Where a task's block of the sheet stands.
struct Bloque {
    int primera_fila;
    int cabeceras;
    int titulo;
    std::string_view texto;
};

constexpr std::array<Bloque, 3> kBloques = {{
    { 840,  480,  120, "Datos  relativos a la 1ª tarea"},
    {3120, 2760, 2400, "Datos relativos a la 2ª tarea"},
    {5400, 5040, 4680, "Datos relativos a la 3ª tarea"},
}};

constexpr int kAltoDeFila = 240; ///< cells are 285 high: neighbours overlap a little
constexpr int kAltoDeCelda = 285;
constexpr int kAltoDeRotulo = 255;

// The Tab key runs through the samples of all rows, then the buttons, then the rest of the cells.
constexpr int kTabMuestras = 0;
constexpr int kTabBotones = 108;
constexpr int kTabResto = 116;
constexpr int kTabText3 = 332;
constexpr int kTabRespuestas = 404;

constexpr Row kCommand1{.name = "Command1", .box = { 3840,  120, 4335, 255}, .text = "Validar 1ª tarea", .tab = kTabBotones};
constexpr Row kCommand2{.name = "Command2", .box = { 3840, 2400, 6015, 255}, .text = "Validar 2ª tarea", .tab = kTabBotones + 1};
constexpr Row kCommand3{.name = "Command3", .box = { 3840, 4680, 6015, 255}, .text = "Validar 3ª tarea", .tab = kTabBotones + 2};
constexpr Row kCommand4{.name = "Command4", .box = { 8280,  120, 1575, 255}, .text = "Indice+ / MG / GSD", .tab = kTabBotones + 3};
constexpr Row kCommand5{.name = "Command5", .box = { 9960,  120, 1935, 255}, .text = "EC+/MG+/GSD+/Prob.", .tab = kTabBotones + 4,
                        .spoken = "EC+, MG+, GSD+ y probabilidad de la 1ª tarea"};
constexpr Row kCommand6{.name = "Command6", .box = { 9960, 2400, 1935, 255}, .text = "EC+/MG+/GSD+/Prob.", .tab = kTabBotones + 5,
                        .spoken = "EC+, MG+, GSD+ y probabilidad de la 2ª tarea"};
constexpr Row kCommand7{.name = "Command7", .box = { 9960, 4680, 1935, 255}, .text = "EC+/MG+/GSD+/Prob.", .tab = kTabBotones + 6,
                        .spoken = "EC+, MG+, GSD+ y probabilidad de la 3ª tarea"};
constexpr Row kCommand8{.name = "Command8", .box = { 4080, 7080, 7695, 255},
                        .text = "Conclusiones referidas a la jornada en curso :     Validar", .tab = kTabBotones + 7};

constexpr Row kLabel1{.name = "Label1", .box = {120, 7080, 3255, 255}, .text = "¿Se ha superado   3 x VLA-ED  o    VLA-EC ?", .look = kRotulo};
constexpr Row kLabel2{.name = "Label2", .box = {120, 7440, 3255, 255}, .text = "Mayor indice calculado: simple y aditivo", .look = kRotulo};
constexpr Row kLabel4{.name = "Label4", .box = {120, 7800, 3255, 255}, .text = "Probabilidad de superar corta exposición:", .look = kRotulo};
constexpr Row kLabel5{.name = "Label5", .box = {9840, 8160, 2535, 255}, .look = kAspectoDelReloj};

constexpr Row kText7{.name = "Text7", .box = {3360, 7080,  615, 285}, .look = kRespuesta, .tab = kTabRespuestas,
                     .spoken = "¿Se ha superado 3 x VLA-ED o VLA-EC?"};
constexpr Row kText2{.name = "Text2", .box = {3360, 7440,  615, 285}, .look = kRespuesta, .tab = kTabRespuestas + 1,
                     .spoken = "Mayor índice calculado, simple y aditivo"};
constexpr Row kText5{.name = "Text5", .box = {4080, 7440, 7695, 285}, .look = kRespuesta, .tab = kTabRespuestas + 2,
                     .spoken = "Conclusión sobre el índice"};
constexpr Row kText4{.name = "Text4", .box = {3360, 7800,  615, 285}, .look = kRespuesta, .tab = kTabRespuestas + 3,
                     .spoken = "Probabilidad de superar corta exposición"};
constexpr Row kText6{.name = "Text6", .box = {4080, 7800, 7695, 285}, .look = kRespuesta, .tab = kTabRespuestas + 4,
                     .spoken = "Conclusión sobre la probabilidad"};
// clang-format on

constexpr bool EsMuestra(int columna) {
    return columna >= grid::kFirstSample && columna <= grid::kLastSample;
}

/// Position in the order of the Tab key of a cell of Text1, by sheet row from 0 and column.
constexpr int TabDe(int fila, int columna) {
    if (EsMuestra(columna)) return kTabMuestras + fila * 6 + columna - grid::kFirstSample;
    return kTabResto + fila * 12 + (columna < grid::kFirstSample ? columna : columna - 6);
}

constexpr int TopDe(int fila) {
    return kBloques.at(static_cast<std::size_t>(fila / grid::kRowsPerTask)).primera_fila +
           fila % grid::kRowsPerTask * kAltoDeFila;
}

constexpr Row FilaDeCabecera(std::string_view name, int index, const Columna& columna, int top) {
    return {.name = name,
            .index = index,
            .box = {columna.left, top, columna.width, kAltoDeRotulo},
            .text = columna.cabecera,
            .look = columna.fondo == kFondoDeVentana ? kCabeceraDeMuestra : kCabecera,
            .tool_tip = columna.ayuda,
            .in_table = true};
}

constexpr Row FilaDeCelda(std::string_view name, int index, const Columna& columna, int fila,
                          int tab) {
    return {.name = name,
            .index = index,
            .box = {columna.left, TopDe(fila), columna.width, kAltoDeCelda},
            .look = {.points = columna.points, .back = columna.fondo},
            .tab = tab,
            .tool_tip = columna.fondo == kFondoDeVentana ? kAyudaDeDecimales : std::string_view{},
            .in_table = true};
}

/// "Tarea 1, contaminante 2, muestra C3"
std::string Hablado(int fila, const Columna& columna) {
    return "Tarea " + TextoEntero(fila / grid::kRowsPerTask + 1) + ", contaminante " +
           TextoEntero(fila % grid::kRowsPerTask + 1) + ", " + std::string(columna.nombre);
}

}  // namespace

Form5::Form5(const Entorno& entorno)
    : Screen(ScreenId::Form5,
             " Velmora / h5                                  CÁLCULOS   Y   RESULTADOS ",
             kAreaCliente, Label5),
      entorno_(entorno) {
    PlaceSheet();
    PlaceRestOfScreen();
}

void Form5::PlaceSheet() {
    for (int t = 0; t < 3; ++t) {
        const Bloque& bloque = kBloques.at(static_cast<std::size_t>(t));
        Place(Label7(54 + t), {.name = "Label7",
                               .index = 54 + t,
                               .box = {120, bloque.titulo, 3615, kAltoDeRotulo},
                               .text = bloque.texto,
                               .look = kTitulo,
                               .in_table = true});
        for (int c = 0; c < grid::kColumns; ++c) {
            const int i = t * grid::kColumns + c;
            Place(Label7(i),
                  FilaDeCabecera("Label7", i, kColumnasText1.at(static_cast<std::size_t>(c)),
                                 bloque.cabeceras));
        }
        for (int c = 0; c < grid::kColumns3; ++c) {
            const int i = t * grid::kColumns3 + c;
            Place(Label3(i),
                  FilaDeCabecera("Label3", i, kColumnasText3.at(static_cast<std::size_t>(c)),
                                 bloque.cabeceras));
        }
    }
    for (int fila = 0; fila < grid::kRows; ++fila) {
        for (int c = 0; c < grid::kColumns; ++c) {
            const int i = fila * grid::kColumns + c;
            const Columna& columna = kColumnasText1.at(static_cast<std::size_t>(c));
            Place(Text1(i), FilaDeCelda("Text1", i, columna, fila, TabDe(fila, c)),
                  {.KeyPress = [this, i](KeyCode& tecla) { Text1_KeyPress(i, tecla); }},
                  Hablado(fila, columna));
        }
        for (int c = 0; c < grid::kColumns3; ++c) {
            const int i = fila * grid::kColumns3 + c;
            const Columna& columna = kColumnasText3.at(static_cast<std::size_t>(c));
            Place(Text3(i), FilaDeCelda("Text3", i, columna, fila, kTabText3 + i), {},
                  Hablado(fila, columna));
        }
    }
}

void Form5::PlaceRestOfScreen() {
    Place(Command1, kCommand1, [this] { Command1_Click(); });
    Place(Command2, kCommand2, [this] { Command2_Click(); });
    Place(Command3, kCommand3, [this] { Command3_Click(); });
    Place(Command4, kCommand4, [this] { Command4_Click(); });
    Place(Command5, kCommand5, [this] { Command5_Click(); });
    Place(Command6, kCommand6, [this] { Command6_Click(); });
    Place(Command7, kCommand7, [this] { Command7_Click(); });
    Place(Command8, kCommand8, [this] { Command8_Click(); });
    Place(Label1, kLabel1);
    Place(Label2, kLabel2);
    Place(Label4, kLabel4);
    Place(Label5, kLabel5);
    Place(Text7, kText7);
    Place(Text2, kText2);
    Place(Text5, kText5);
    Place(Text4, kText4);
    Place(Text6, kText6);
    for (TextCell* cell : ConclusionCells()) cell->Locked = true;

    SetMenu({{"vacio1"},
             {"vacio2"},
             {"introducirdatos",
              "Introducir datos",
              {},
              {{"introprimero", "Primer dia", [this] { introprimero_Click(); }},
               {"introsegundo", "Segundo dia", [this] { introsegundo_Click(); }},
               {"introtercero", "Tercer dia", [this] { introtercero_Click(); }}}},
             {"vacio3"},
             {"vacio4"},
             {"recuperar",
              "Recuperar datos/cálculos",
              {},
              {{"recupprimerdia", "Primer dia", [this] { recupprimerdia_Click(); }},
               {"recupsegundodia", "Segundo dia", [this] { recupsegundodia_Click(); }},
               {"recuptercerdia", "Tercer dia", [this] { recuptercerdia_Click(); }}}},
             {"vacio5"},
             {"vacio6"},
             {"continuar",
              "Continuar/Regresar",
              {},
              {{"datosiniciales", "Datos iniciales: Jornadas y Tareas",
                [this] { datosiniciales_Click(); }},
               {"contaminantes", "Contaminantes", [this] { contaminantes_Click(); }},
               {"resultadosfinales", "Resultado final", [this] { resultadosfinales_Click(); }},
               {"datosempresa", "Datos de empresa", [this] { datosempresa_Click(); }}}},
             {"vacio9"},
             {"vacio14"},
             {"imprimir", "Imprimir", [this] { imprimir_Click(); }},
             {"vacio15"},
             {"salir", "Salir", [this] { salir_Click(); }}});
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
    const Entero tasks = entorno_.record.NumTareas;
    if (tasks == task) {
        Open(after_the_last);
    } else if (tasks > task && next != nullptr) {
        Open(this->*next);
    }
}

void Form5::Timer1_Timer() { Label5.Caption = FormatoFecha(entorno_.host.Now()); }

void Form5::datosiniciales_Click() { entorno_.chain.Go(ScreenId::Form3); }
void Form5::contaminantes_Click() { entorno_.chain.Go(ScreenId::Form4); }
void Form5::resultadosfinales_Click() { entorno_.chain.Go(ScreenId::Form6); }
void Form5::datosempresa_Click() { entorno_.chain.Go(ScreenId::Form2); }

void Form5::imprimir_Click() {
    Imprimir(entorno_.host, CommonDialog1, {"Se imprimirán todos los datos en pantalla", 0, 1000});
}

void Form5::salir_Click() { Salir(entorno_.host, Estilo::SiNoInformacion); }

}  // namespace velmora
