#include "capture/form4.h"

#include <array>
#include <string>
#include <string_view>

#include "core/numbers.h"

namespace velmora {

namespace {

constexpr Box kAreaCliente{0, 0, 11880, 8310};

constexpr Color kAzulPalido = 0xF5E6D8;
constexpr Color kAzulMarino = 0x5A2D0C;

constexpr int kAltoDeCelda = 285;
constexpr int kAltoDeLista = 330;

/// A heading: points as large as its text fits its box, bold where that fits, too.
constexpr Look Cabecera(double points, bool bold, Align align = Align::Center) {
    return {
        .points = points, .bold = bold, .align = align, .fore = kAzulMarino, .back = kAzulPalido};
}

constexpr std::array<std::string_view, 3> kTareas = {"1", "2", "3"};
constexpr std::array<std::string_view, 2> kUnidades = {"mg/m3", "ppm"};

// clang-format off
constexpr Row kLabel1{.name = "Label1", .box = {9120, 7980, 2655, 255}, .look = kAspectoDelReloj};
constexpr Row kLabel2{.name = "Label2", .box = {120, 0, 11895, 375},
                      .text = "Cararcteristicas de los contaminates  analizados por  tareas ", .look = Cabecera(14.25, false)};
constexpr Row kLabel3{.name = "Label3", .index = 0, .box = {120, 480, 975, 255}, .text = "Tarea",
                      .look = Cabecera(8.25, true, Align::Left)};
constexpr Row kCombo1{.name = "Combo1", .box = {1080, 480, 855, 315}, .look = {.back = kFondoDeVentana},
                      .tab = 44, .spoken = "Tarea", .items = kTareas};
constexpr Row kCommand3{.name = "Command3", .box = {2040, 480, 3855, 255}, .text = "Visualizar / Modificar", .tab = 43};
constexpr Row kCommand1{.name = "Command1", .box = {120, 840, 5775, 255}, .text = "Validar", .tab = 42,
                        .spoken = "Validar los contaminantes de la tarea"};

/// A column of the rows, with its heading. The Tab key runs down the columns, not along the rows.
struct Columna {
    int left;
    int width;
    int primer_tab;
    std::string_view nombre; ///< as a screen reader says it
    std::string_view cabecera;
    Look aspecto;
    std::string_view ayuda{};         ///< tool tip of the heading
    std::string_view ayuda_celdas{};  ///< tool tip of the cells
};

/// The five columns of `Text1`, in the order of its index.
constexpr std::array<Columna, 5> kColumnas = {{
    { 120,  375, 36, "número",        "Nº",                      Cabecera(7.5,  false)},
    { 600, 2055, 12, "nombre",        "Nombre del contaminante", Cabecera(7.5,  false)},
    {2760,  615, 18, "VLA-ED",        "VLA-ED",                  Cabecera(7.5,  false), {}, kAyudaDeDecimales},
    {3480,  615, 24, "VLA-EC",        "VLA-EC",                  Cabecera(7.5,  false), {}, kAyudaDeDecimales},
    {4680,  375, 30, "grupo aditivo", "Adit.",                   Cabecera(7.5,  false),
     "0 si el agente no es aditivo; si lo es, el número de su grupo."},
}};
constexpr Columna kUnidad =
    {5160,  735,  0, "unidad",                       "Unidades", Cabecera(7.5,  false)};
constexpr Columna kTiempoDeMuestreo =
    {4200,  375,  6, "tiempo de muestreo en minutos", "TM",      Cabecera(7.5,  false),
     "Tiempo de muestreo, en minutos: 30 o 15.", "Un doble clic, o F2, pone 30; otro, 15."};
// clang-format on

constexpr int kColumnaNombre = 1;
constexpr int kColumnaVlaEd = 2;
constexpr int kColumnaVlaEc = 3;
constexpr int kColumnaAditivo = 4;

constexpr Row FilaDeLaCabecera(std::string_view name, int index, const Columna& columna) {
    return {.name = name,
            .index = index,
            .box = {columna.left, 1200, columna.width, 255},
            .text = columna.cabecera,
            .look = columna.aspecto,
            .tool_tip = columna.ayuda,
            .in_table = true};
}

/// The control of row `r`, from 1, in a column.
constexpr Row FilaDelControl(std::string_view name, int index, int r, const Columna& columna,
                             int height = kAltoDeCelda) {
    return {.name = name,
            .index = index,
            .box = {columna.left, 1560 + 360 * (r - 1), columna.width, height},
            .look = {.back = kFondoDeVentana},
            .tab = columna.primer_tab + r - 1,
            .tool_tip = columna.ayuda_celdas,
            .in_table = true};
}

std::string NombreHablado(int r, const Columna& columna) {
    return "Contaminante " + TextoEntero(r) + ", " + std::string(columna.nombre);
}

}  // namespace

Form4::Form4(const Entorno& entorno)
    : Screen(ScreenId::Form4, " Velmora / h4", kAreaCliente, Label1), entorno_(entorno) {
    PonerControles();
    PonerMenu();
}

void Form4::PonerControles() {
    Place(Label2, kLabel2);
    Place(Label3(0), kLabel3);
    Place(Combo1, kCombo1,
          {.Click = [this] { Combo1_Click(); },
           .KeyPress = [this](KeyCode& tecla) { Combo1_KeyPress(tecla); }});
    Place(Command3, kCommand3, [this] { Command3_Click(); });
    Place(Command1, kCommand1, [this] { Command1_Click(); });
    for (int i = 0; i <= 4; ++i) {
        Place(Label4(i), FilaDeLaCabecera("Label4", i, kColumnas.at(static_cast<std::size_t>(i))));
    }
    Place(Label4(5), FilaDeLaCabecera("Label4", 5, kUnidad));
    Place(Label5, FilaDeLaCabecera("Label5", Row::kSinIndice, kTiempoDeMuestreo));
    // The headings come with the first pick of a task, and stay.
    for (Label& cabecera : Label4) cabecera.Visible = false;
    Label5.Visible = false;
    for (int r = 1; r <= 6; ++r) PonerFila(r);
    Place(Label1, kLabel1);
}

void Form4::PonerFila(int r) {
    for (int c = 0; c <= 4; ++c) {
        const Columna& columna = kColumnas.at(static_cast<std::size_t>(c));
        const int i = 5 * r - 5 + c;
        Place(Text1(i), FilaDelControl("Text1", i, r, columna),
              {.KeyPress = [this, i](KeyCode& tecla) { Text1_KeyPress(i, tecla); },
               .free_text = c == kColumnaNombre},
              NombreHablado(r, columna));
    }
    const int i = r - 1;
    Place(Text3(i), FilaDelControl("Text3", i, r, kTiempoDeMuestreo),
          {.KeyPress = [this, i](KeyCode& tecla) { Text3_KeyPress(i, tecla); },
           .DblClick = [this, i] { Text3_DblClick(i); }},
          NombreHablado(r, kTiempoDeMuestreo));
    Row unidad = FilaDelControl("Combo13", i, r, kUnidad, kAltoDeLista);
    unidad.items = kUnidades;
    unidad.look.points = 6;  // "mg/m3" fits beside the arrow
    Place(Combo13(i), unidad,
          {.KeyPress = [this, i](KeyCode& tecla) { Combo13_KeyPress(i, tecla); }},
          NombreHablado(r, kUnidad));
}

void Form4::PonerMenu() {
    SetMenu({{"vacio1"},
             {"vacio7"},
             {"continuar",
              "Continuar/Regresar",
              {},
              {{"pagina5", "Cálculos", [this] { pagina5_Click(); }},
               {"datosiniciales", "Datos iniciales: Jornadas y Tareas",
                [this] { datosiniciales_Click(); }},
               {"datosdeempresa", "Datos de empresa", [this] { datosdeempresa_Click(); }},
               {"resultadosfinales", "Resultado final", [this] { resultadosfinales_Click(); }}}},
             {"vacio10"},
             {"vacio11"},
             {"imprimir", "Imprimir", [this] { imprimir_Click(); }},
             {"vacio22"},
             {"vacio23"},
             {"salir", "Salir", [this] { salir_Click(); }}});
}

void Form4::Form_Load() { VaciarFilas(); }

void Form4::VaciarFilas() {
    for (TextCell& celda : Text1) {
        celda.Text.clear();
        celda.Visible = false;
    }
    for (ComboBox& unidad : Combo13) {
        unidad.Visible = false;
        unidad.Locked = true;
        unidad.Text.clear();
    }
    for (TextCell& tiempo : Text3) {
        tiempo.Text.clear();
        tiempo.Visible = false;
    }
}

void Form4::CerrarFilas() {
    VaciarFilas();
    for (TextCell& celda : Text1) celda.Locked = true;
    for (TextCell& tiempo : Text3) tiempo.Locked = true;
    for (Label& cabecera : Label4) cabecera.Visible = true;
    Label5.Visible = true;
}

void Form4::AbrirFilas(Entero n) {
    const Entero celdas = 5 * n;
    for (int i = 0; i < celdas.Valor(); ++i) {
        Text1(i).Locked = false;
        Text1(i).Visible = true;
        Text1(i).Text.clear();
    }
    for (int i = 0; i < n.Valor(); ++i) {
        Combo13(i).Locked = false;
        Combo13(i).Visible = true;
        Text3(i).Locked = false;
        Text3(i).Visible = true;
    }
    for (int c = 1; c <= n.Valor(); ++c) {
        TextCell& numero = Text1(5 * c - 5);
        numero.Text = TextoEntero(c);
        numero.Locked = true;
    }
}

Entero Form4::ContaminantesDeLaTarea() const {
    return entorno_.record.NumContaminantes(RedondearEntero(LeerValor(Combo1.Text)));
}

void Form4::Combo1_Click() {
    CerrarFilas();
    if (Combo1.Text.empty()) {
        entorno_.host.MsgBox(" Seleccione una tarea");
        return;
    }
    if (ConvertirDoble(Combo1.Text) > entorno_.record.NumTareas.ComoDoble()) {
        entorno_.host.MsgBox(
            " El número de tareas seleccionado no es coherente con el valor asignado inicialmente");
        return;
    }
    AbrirFilas(ContaminantesDeLaTarea());
}

void Form4::Combo1_KeyPress(KeyCode& tecla) { tecla = kTeclaRechazada; }

void Form4::Combo13_KeyPress(int /*Index*/, KeyCode& tecla) { tecla = kTeclaRechazada; }

void Form4::Text3_KeyPress(int /*Index*/, KeyCode& tecla) { tecla = kTeclaRechazada; }

void Form4::Text3_DblClick(int Index) {
    if (Index < 0 || Index > 5) return;
    std::string& tiempo = Text3(Index).Text;
    if (tiempo.empty()) {
        tiempo = TextoEntero(30);
    } else if (LeerValor(tiempo) == 30) {
        tiempo = "15";
    } else if (LeerValor(tiempo) == 15) {
        tiempo = "30";
    }
}

void Form4::Text1_KeyPress(int Index, KeyCode& tecla) {
    if (UltimaCelda != Index) {
        CifrasEd = 0;
        PuntosEd = 0;
        CifrasEc = 0;
        PuntosEc = 0;
    }
    UltimaCelda = Index;
    switch (Index % 5) {
        case kColumnaVlaEd:
            FiltrarLimite(Index, tecla, CifrasEd, PuntosEd);
            break;
        case kColumnaVlaEc:
            FiltrarLimite(Index, tecla, CifrasEc, PuntosEc);
            break;
        case kColumnaAditivo:
            FiltrarMarca(Index, tecla);
            break;
        default:  // names are free text, the cells of the row numbers are locked
            break;
    }
}

/// Digits and, after the first digit, one point; a backspace wipes the whole cell.
void Form4::FiltrarLimite(int Index, KeyCode& tecla, Entero& cifras, Entero& puntos) {
    if (tecla == kRetroceso) {
        Text1(Index).Text.clear();
        cifras = 0;
        puntos = 0;
    } else if (tecla == '.' && cifras > 0 && puntos == 0) {
        ++puntos;
    } else if (EsCifra(tecla)) {
        ++cifras;
    } else {
        tecla = kTeclaRechazada;
    }
}

/// One digit, the last one typed.
void Form4::FiltrarMarca(int Index, KeyCode& tecla) {
    if (EsCifra(tecla)) {
        Text1(Index).Text.clear();
    } else {
        tecla = kTeclaRechazada;
    }
}

/// Whether a task of the plan is picked; otherwise tells why.
bool Form4::TareaElegida() {
    if (Combo1.Text.empty()) {
        entorno_.host.MsgBox(" Seleccione una tarea");
        return false;
    }
    if (LeerValor(Combo1.Text) > entorno_.record.NumTareas.ComoDoble()) {
        entorno_.host.MsgBox(" El número de tareas seleccionado no es coherente");
        return false;
    }
    return true;
}

bool Form4::FilasCompletas(Entero n) const {
    const Entero celdas = 5 * n;
    for (int i = 0; i < celdas.Valor(); ++i) {
        if (Text1(i).Text.empty()) return false;
    }
    for (int i = 0; i < n.Valor(); ++i) {
        if (Combo13(i).Text.empty() || Text3(i).Text.empty()) return false;
    }
    return true;
}

void Form4::GuardarFilas(Entero n) {
    EvaluacionRecord& record = entorno_.record;
    const int t = ConvertirLargo(Combo1.Text);
    for (int r = 1; r <= n.Valor(); ++r) {
        record.NombreContaminante(t, r) = Text1(5 * r - 4).Text;
        record.VlaEd(t, r) = LeerValor(Text1(5 * r - 3).Text);
        record.VlaEc(t, r) = LeerValor(Text1(5 * r - 2).Text);
        record.Aditivo(t, r) = RedondearEntero(LeerValor(Text1(5 * r - 1).Text));
        record.Unidades(t, r) = Combo13(r - 1).Text;
    }
    for (int r = 1; r <= n.Valor(); ++r) {
        record.TiempoMuestreo(t, r) = RedondearEntero(LeerValor(Text3(r - 1).Text));
    }
    // Each task has six rows of the final table, used or not.
    for (int r = 1; r <= n.Valor(); ++r) {
        record.HojaFinal(6 * (t - 1) + r, 2) = Text1(5 * r - 4).Text;
    }
}

void Form4::Command1_Click() {
    if (!TareaElegida()) return;
    const Entero n = ContaminantesDeLaTarea();
    if (!FilasCompletas(n)) {
        entorno_.host.MsgBox(" Cumplimente todos los datos");
        return;
    }
    GuardarFilas(n);
}

void Form4::Command3_Click() {
    if (!TareaElegida()) return;
    const EvaluacionRecord& record = entorno_.record;
    const int t = ConvertirLargo(Combo1.Text);
    const Entero n = record.NumContaminantes(t);
    for (int r = 1; r <= n.Valor(); ++r) {
        Text1(5 * r - 4).Text = record.NombreContaminante(t, r);
        Text1(5 * r - 3).Text = TextoDoble(record.VlaEd(t, r));
        Text1(5 * r - 2).Text = TextoDoble(record.VlaEc(t, r));
        Text1(5 * r - 1).Text = TextoEntero(record.Aditivo(t, r));
        Combo13(r - 1).Text = record.Unidades(t, r);
    }
    for (int r = 1; r <= n.Valor(); ++r) {
        Text3(r - 1).Text = TextoEntero(record.TiempoMuestreo(t, r));
    }
}

void Form4::pagina5_Click() { entorno_.chain.Go(ScreenId::Form5); }
void Form4::datosiniciales_Click() { entorno_.chain.Go(ScreenId::Form3); }
void Form4::datosdeempresa_Click() { entorno_.chain.Go(ScreenId::Form2); }
void Form4::resultadosfinales_Click() { entorno_.chain.Go(ScreenId::Form6); }

void Form4::Timer1_Timer() { Label1.Caption = FormatoFecha(entorno_.host.Now()); }

void Form4::imprimir_Click() {
    Imprimir(entorno_.host, CommonDialog1, {"Se imprimirá pantalla", 0, 1000});
}

void Form4::salir_Click() { Salir(entorno_.host, Estilo::SiNoInformacion); }

}  // namespace velmora
