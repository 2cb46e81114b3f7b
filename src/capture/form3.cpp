#include "capture/form3.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "capture/form2.h"
#include "core/numbers.h"

namespace velmora {

namespace {

constexpr Box kAreaCliente{0, 0, 11880, 8310};

constexpr std::string_view kPlanFijado = " NO OPERATIVO";
constexpr std::string_view kPlanPorFijar = "Validar";

constexpr Color kAzulPalido = 0xF5E6D8;
constexpr Color kAzulMarino = 0x5A2D0C;
constexpr Color kColorDeLaMarca = 0xB0603C;

constexpr int kAnchoDeCelda = 615;
constexpr int kAltoDeCelda = 285;
constexpr int kFilas = 9;
constexpr int kPrimerTabDeLaRejilla = 10;

/// A heading: points as large as its text fits its box, bold where that fits, too.
constexpr Look Cabecera(double points, bool bold, Align align = Align::Left) {
    return {
        .points = points, .bold = bold, .align = align, .fore = kAzulMarino, .back = kAzulPalido};
}

constexpr std::array<std::string_view, 15> kCifras = {"0", "1", "2",  "3",  "4",  "5",  "6", "7",
                                                      "8", "9", "10", "11", "12", "13", "14"};
constexpr std::array<std::string_view, 2> kUnaOTresJornadas = {"1", "3"};

/// The items from `primero` to `ultimo`.
constexpr std::span<const std::string_view> De(std::size_t primero, std::size_t ultimo) {
    return std::span(kCifras).subspan(primero, ultimo - primero + 1);
}

// clang-format off
constexpr Row kLabel2{.name = "Label2", .box = {9120, 7980, 2655, 255}, .look = kAspectoDelReloj};
constexpr Row kText2{.name = "Text2", .box = {9000, 480, 75, 105}, .look = {.back = kColorDeLaMarca},
                     .spoken = "Marca de color, sin función"};
constexpr Row kCommand1{.name = "Command1", .box = {9000, 120, 2655, 255}, .text = kPlanPorFijar,
                        .tab = 2, .spoken = "Validar jornadas y tareas"};
constexpr Row kCommand2{.name = "Command2", .box = {9000, 840, 2655, 255}, .text = "Validar",
                        .tab = 3, .spoken = "Validar la línea del plan"};

constexpr std::array<Row, 2> kLabel1 = {{
    {.name = "Label1", .index = 2, .box = { 360, 120, 3135, 255}, .text = "  Número de jornadas muestreadas:",
     .look = Cabecera(8.25, false)},
    {.name = "Label1", .index = 3, .box = {4320, 120, 3735, 255}, .text = "Número de tareas  en cada jornada:",
     .look = Cabecera(8.25, false)},
}};

/// A list, with the heading above it where it has one.
struct Lista {
    Box box;
    int tab;
    std::span<const std::string_view> items;
    std::string_view nombre; ///< as a screen reader says it
    std::string_view cabecera;
    Look aspecto;
};

constexpr std::array<Lista, 8> kListas = {{
    {{3480, 120,  735, 315}, 0, kUnaOTresJornadas, "Número de jornadas muestreadas",    "", {}},
    {{8040, 120,  855, 315}, 1, De(1, 3),          "Número de tareas en cada jornada",  "", {}},
    {{ 360, 840,  615, 315}, 4, De(1, 3),          "Día",                               "     Día",              Cabecera(6.75, false)},
    {{1080, 840,  615, 315}, 5, De(1, 3),          "Tarea",                             "Tarea",                 Cabecera(6.75, false)},
    {{1800, 840, 1815, 315}, 6, De(1, 14),         "Tiempo de exposición en horas",     "Tiempo exposi. horas.", Cabecera(6.75, false)},
    {{3720, 840, 1455, 315}, 7, De(0, 6),          "Número de muestras de 30 minutos",  "  Nº de muestras 30'",  Cabecera(6.75, false)},
    {{5280, 840, 1695, 315}, 8, De(0, 6),          "Número de muestras de 15 minutos",  "Nº de muestras 15'",    Cabecera(6.75, false)},
    {{7080, 840, 1815, 315}, 9, De(1, 6),          "Número de contaminantes",           "Nº de contaminantes",   Cabecera(6.75, false)},
}};

/// A column of the grid, with its heading.
struct Columna {
    int left;
    std::string_view nombre; ///< as a screen reader says it
    std::string_view cabecera;
    Look aspecto;
};

constexpr std::array<Columna, 6> kColumnas = {{
    { 360, "día",                           "Día",                   Cabecera(6.75, false, Align::Center)},
    {1080, "tarea",                         "Tarea",                 Cabecera(6.75, false, Align::Center)},
    {1800, "tiempo de exposición en horas", "Tiempo exposi. horas.", Cabecera(5.5,  false, Align::Center)},
    {2520, "muestras de 30 minutos",        "Muestras 30'",          Cabecera(6.75, false, Align::Center)},
    {3240, "muestras de 15 minutos",        "Muestras  15'",         Cabecera(6.75, false, Align::Center)},
    {3960, "contaminantes",                 "Contami_  nantes",      Cabecera(6.75, false, Align::Center)},
}};
// clang-format on

constexpr int kPrimeraListaDeEntrada = 2;
constexpr int kUltimaListaDeEntrada = 7;
constexpr int kPrimeraCabeceraDeLaRejilla = 6;

/// Row `i` of a table, counted from 0.
template <class T, std::size_t N>
constexpr const T& En(const std::array<T, N>& tabla, int i) {
    return tabla.at(static_cast<std::size_t>(i));
}

constexpr Row FilaDeLaLista(int i) {
    const Lista& lista = En(kListas, i);
    return {.name = "Combo1",
            .index = i,
            .box = lista.box,
            .look = {.back = kFondoDeVentana},
            .tab = lista.tab,
            .spoken = lista.nombre,
            .items = lista.items};
}

/// Heading `i` of `Label3`: 0 to 5 above the lists of the entry row, 6 to 11 above the grid.
constexpr Row FilaDeLaCabecera(int i) {
    if (i < kPrimeraCabeceraDeLaRejilla) {
        const Lista& lista = En(kListas, i + kPrimeraListaDeEntrada);
        return {.name = "Label3",
                .index = i,
                .box = {lista.box.left, 480, lista.box.width, 255},
                .text = lista.cabecera,
                .look = lista.aspecto};
    }
    const Columna& columna = En(kColumnas, i - kPrimeraCabeceraDeLaRejilla);
    return {.name = "Label3",
            .index = i,
            .box = {columna.left, 1320, kAnchoDeCelda, 375},
            .text = columna.cabecera,
            .look = columna.aspecto};
}

/// The cell of row `k`, from 1, in a column, from 0.
constexpr Row FilaDeLaCelda(int k, int columna) {
    const int i = 6 * (k - 1) + columna;
    return {.name = "Text1",
            .index = i,
            .box = {En(kColumnas, columna).left, 1800 + 360 * (k - 1), kAnchoDeCelda, kAltoDeCelda},
            .look = {.back = kFondoDeVentana},
            .tab = kPrimerTabDeLaRejilla + i};
}

}  // namespace

Form3::Form3(const Entorno& entorno)
    : Screen(ScreenId::Form3, "    Velmora / h3", kAreaCliente, Label2), entorno_(entorno) {
    PonerControles();
    PonerMenu();
}

void Form3::PonerControles() {
    for (const Row& row : kLabel1) Place(Label1(row.index), row);
    for (int i = 0; i <= 7; ++i) {
        Place(Combo1(i), FilaDeLaLista(i),
              {.Click = [this, i] { Combo1_Click(i); },
               .KeyPress = [this, i](KeyCode& tecla) { Combo1_KeyPress(i, tecla); }});
    }
    Place(Command1, kCommand1, [this] { Command1_Click(); });
    Place(Command2, kCommand2, [this] { Command2_Click(); });
    Place(Text2, kText2);
    Text2.BackColor = kColorDeLaMarca;
    for (int i = 0; i <= 11; ++i) Place(Label3(i), FilaDeLaCabecera(i));
    for (int k = 1; k <= kFilas; ++k) {
        for (int c = 0; c <= 5; ++c) {
            const Row row = FilaDeLaCelda(k, c);
            Place(Text1(row.index), row,
                  {.KeyPress = [this, i = row.index](KeyCode& tecla) { Text1_KeyPress(i, tecla); }},
                  "Fila " + TextoEntero(k) + ", " + std::string(En(kColumnas, c).nombre));
        }
    }
    Place(Label2, kLabel2);
}

void Form3::PonerMenu() {
    SetMenu({{"vacio1"},
             {"vacio2"},
             {"continuar",
              "Continuar/Regresar",
              {},
              {{"contaminantes", "Contaminantes", [this] { contaminantes_Click(); }},
               {"pagina5", "Cálculos", [this] { pagina5_Click(); }},
               {"datosdeempresa", "Datos de empresa", [this] { datosdeempresa_Click(); }},
               {"resultadofinal", "Resultado final", [this] { resultadofinal_Click(); }}}},
             {"vacio8"},
             {"vacio9"},
             {"imprimir", "Imprimir", [this] { imprimir_Click(); }},
             {"vacio20"},
             {"vacio22"},
             {"salir", "Salir", [this] { salir_Click(); }}});
}

Entero Form3::FilasDelPlan() const {
    return entorno_.record.NumTareas * entorno_.record.NumJornadas;
}

Entero Form3::CeldasDelPlan() const { return FilasDelPlan() * 6; }

void Form3::Form_Load() {
    const bool hay_plan = entorno_.record.NumJornadas != 0 && entorno_.record.NumTareas != 0;
    if (!hay_plan) {
        OcultarEntrada();
    } else {
        Command1.Caption = kPlanFijado;
        Command1.Enabled = false;
    }
    for (int i = 0; i <= 53; ++i) CerrarCelda(i);
    if (!hay_plan) return;

    AbrirCeldas(CeldasDelPlan());
    NumerarFilas();
    RellenarFilas();
}

void Form3::OcultarEntrada() {
    for (Label& cabecera : Label3) cabecera.Visible = false;
    Command2.Visible = false;
    Command2.Enabled = false;
    for (int i = kPrimeraListaDeEntrada; i <= kUltimaListaDeEntrada; ++i) {
        Combo1(i).Visible = false;
        Combo1(i).Locked = true;
    }
}

void Form3::MostrarEntrada() {
    for (Label& cabecera : Label3) cabecera.Visible = true;
    Command2.Visible = true;
    Command2.Enabled = true;
    for (int i = kPrimeraListaDeEntrada; i <= kUltimaListaDeEntrada; ++i) {
        Combo1(i).Visible = true;
        Combo1(i).Locked = false;
    }
}

void Form3::CerrarCelda(int i) {
    Text1(i).Locked = true;
    Text1(i).Visible = false;
    Text1(i).Text.clear();
}

void Form3::AbrirCeldas(Entero n) {
    for (int i = 0; i < n.Valor(); ++i) {
        Text1(i).Locked = false;
        Text1(i).Visible = true;
        Text1(i).Text.clear();
    }
}

void Form3::NumerarFilas() {
    Entero k = 1;
    for (int d = 1; d <= entorno_.record.NumJornadas.Valor(); ++d) {
        for (int t = 1; t <= entorno_.record.NumTareas.Valor(); ++t) {
            Text1(6 * k - 6).Text = TextoEntero(d);
            Text1(6 * k - 5).Text = TextoEntero(t);
            ++k;
        }
    }
}

void Form3::RellenarFilas() {
    // A row that was never entered shows zeros, and the count of its task, on purpose: the refresh
    // after an entry leaves such a row empty.
    for (int k = 1; k <= FilasDelPlan().Valor(); ++k) {
        const Entero d = RedondearEntero(LeerValor(Text1(6 * k - 6).Text));
        const Entero t = RedondearEntero(LeerValor(Text1(6 * k - 5).Text));
        EscribirFila(k, d, t);
    }
}

void Form3::Combo1_KeyPress(int /*Index*/, KeyCode& tecla) { tecla = kTeclaRechazada; }

void Form3::Text1_KeyPress(int /*Index*/, KeyCode& tecla) { tecla = kTeclaRechazada; }

void Form3::Combo1_Click(int Index) {
    // A list's number read as text: it is meant, and gives the number.
    const Doble indice = LeerValor(TextoEntero(Index));
    // The limit is looked at when the 15-minute count is picked, and at no other pick.
    if (indice == 6 && LeerValor(Combo1(6).Text) + LeerValor(Combo1(5).Text) > 6) {
        entorno_.host.MsgBox(
            "La suma total de contaminantes de 30' y de 15' ha de ser menor o igual que 6");
    }
    if ((indice == 0 || indice == 1) && Command1.Caption == kPlanFijado) OfrecerReinicio();
}

void Form3::OfrecerReinicio() {
    const Respuesta respuesta = entorno_.host.MsgBox(
        "Modificar los datos correspondientes al número de días y jornadas\r\n"
        "supone reiniciar todo el proceso de nuevo\r\n"
        " y perder los datos introducidos hasta el momento.\r\n"
        "¿Desea reiniciar el proceso?",
        Estilo::SiNoPreguntaNo, "Aviso");
    if (respuesta != Respuesta::Si) return;

    // The screen alone starts again: the record keeps the plan and all that was entered.
    Command1.Enabled = true;
    Command1.Caption = kPlanPorFijar;
    OcultarEntrada();
    const Entero celdas = CeldasDelPlan();
    for (int i = 0; i < celdas.Valor(); ++i) CerrarCelda(i);
}

void Form3::Command1_Click() {
    const ComboBox& jornadas = Combo1(0);
    const ComboBox& tareas = Combo1(1);
    if (jornadas.Text.empty() || tareas.Text.empty() || LeerValor(jornadas.Text) == 0 ||
        LeerValor(tareas.Text) == 0) {
        entorno_.host.MsgBox("Indique el número de Jornadas y de Tareas ");
        return;
    }
    if (jornadas.Locked || tareas.Locked) return;

    if (LeerValor(jornadas.Text) > 0) {
        entorno_.record.NumJornadas = RedondearEntero(LeerValor(jornadas.Text));
    }
    // The condition reads by the locale's rules, the value by the leading-number rule.
    if (ConvertirDoble(tareas.Text) > 0) {
        entorno_.record.NumTareas = RedondearEntero(LeerValor(tareas.Text));
    }
    Command1.Caption = kPlanFijado;
    Command1.Enabled = false;
    MostrarEntrada();
    AbrirCeldas(CeldasDelPlan());
    NumerarFilas();
}

void Form3::Timer1_Timer() { Label2.Caption = FormatoFecha(entorno_.host.Now()); }

bool Form3::PlanCompleto() const {
    const EvaluacionRecord& record = entorno_.record;
    if (record.NumTareas == 0 || record.NumJornadas == 0) return false;

    const Entero celdas = CeldasDelPlan();
    for (int i = 0; i < celdas.Valor(); ++i) {
        if (Text1(i).Text.empty()) return false;
    }
    for (int d = 1; d <= record.NumJornadas.Valor(); ++d) {
        for (int t = 1; t <= record.NumTareas.Valor(); ++t) {
            // The plan's last pair is looked at on every pass, not the pair (d, t).
            if (record.TiempoExposicion(record.NumJornadas, record.NumTareas) == 0) return false;
        }
    }
    return true;
}

void Form3::IrSiPlanCompleto(ScreenId destino) {
    if (!PlanCompleto()) {
        const Respuesta respuesta = entorno_.host.MsgBox(
            " Aún le faltan datos por introducir y sin ellos\r\n"
            "  el programa no funcionará correctamente\r\n"
            "¿Está seguro de que quiere continuar ?",
            Estilo::SiNoInformacionNo);
        if (respuesta == Respuesta::No) return;
    }
    entorno_.chain.Go(destino);
}

void Form3::contaminantes_Click() { IrSiPlanCompleto(ScreenId::Form4); }
void Form3::pagina5_Click() { IrSiPlanCompleto(ScreenId::Form5); }
void Form3::resultadofinal_Click() { IrSiPlanCompleto(ScreenId::Form6); }

void Form3::datosdeempresa_Click() {
    // The one place where a screen touches another: Form2 is loaded, with its load handler, before
    // this screen is left, and its boxes show DatosEmpresa even without a company's name.
    auto& form2 = dynamic_cast<Form2&>(entorno_.chain.Load(ScreenId::Form2));
    form2.MostrarDatosEmpresa();
    entorno_.chain.Go(ScreenId::Form2);
}

void Form3::imprimir_Click() {
    Imprimir(entorno_.host, CommonDialog1, {"Se imprimirá la pantalla", 0, 1000});
}

void Form3::salir_Click() { Salir(entorno_.host, Estilo::SiNoInformacionNo); }

}  // namespace velmora
