#include <algorithm>

#include "core/numbers.h"
#include "sheet/form5.h"
#include "stats/verdicts.h"

namespace velmora {

namespace {

constexpr int kEd = 2;
constexpr int kEc = 3;
constexpr int kTiempoMuestreo = 5;
constexpr int kIndice = 14;
constexpr int kIndiceMas = 15;

constexpr Color kRojo30 = 250;  ///< mark of a 30-minute sample over its limit
constexpr Color kRojo15 = 255;  ///< mark of a 15-minute sample over its limit

/// The greatest number in the cells first, first + step, ... , last of an array of cells; 0 when
/// none is above it.
template <class Cells>
Doble Mayor(const Cells& celdas, int first, int last, int step) {
    Doble mayor = 0;
    for (int i = first; i <= last; i += step) {
        const Doble valor = LeerValor(celdas(i).Text);
        if (valor > mayor) mayor = valor;
    }
    return mayor;
}

}  // namespace

void Form5::Command8_Click() {
    const Doble x = Mayor(Text1, kIndice, 320, hoja::kColumnas);
    const Doble y = std::max(Mayor(Text1, kIndiceMas, 321, hoja::kColumnas), x);
    Text2.Text = TextoDoble(y);
    const Doble p = Mayor(Text3, 3, 71, hoja::kColumnas3);
    Text4.Text = TextoDoble(p);
    BuscarMuestraSobreLimite();
    EscribirVeredictos(y, p);
    GuardarHoja();
    LlevarAHojaFinal();
}

void Form5::BuscarMuestraSobreLimite() {
    // The first sample over its limit ends the search: the 30-minute rows come first.
    if (HayMuestraSobreLimite(30, kRojo30)) return;
    HayMuestraSobreLimite(15, kRojo15);
}

bool Form5::HayMuestraSobreLimite(int minutos, Color color) {
    for (int i = kTiempoMuestreo; i <= 311; i += hoja::kColumnas) {
        if (Valor(i) != minutos) continue;
        const Doble limite =
            minutos == 30 ? 3 * Valor(i - kTiempoMuestreo + kEd) : Valor(i - kTiempoMuestreo + kEc);
        for (int m = 1; m <= 6; ++m) {
            TextCell& celda = Text1(i + 1 + m);
            if (LeerValor(celda.Text) < limite) {
                Text7.Text = "NO";
                continue;
            }
            Text7.Text = "SI";
            celda.BackColor = color;
            celda.ForeColor = kFondoDeVentana;
            return true;
        }
    }
    return false;
}

void Form5::EscribirVeredictos(const Doble& indice, const Doble& probabilidad) {
    if (DiaActual < 1 || DiaActual > 3) return;
    Text5.Text =
        kVeredictoDelIndice.at(static_cast<std::size_t>(DiaActual.Valor() - 1)).Para(indice);
    Text6.Text = kVeredictoDeLaProbabilidad.Para(probabilidad);
}

void Form5::GuardarHoja() {
    HojaDelDia* const hoja_del_dia = HojaDelDiaActual();
    if (hoja_del_dia == nullptr) return;
    for (int i = 1; i <= 324; ++i) (*hoja_del_dia)(i) = Text1(i - 1).Text;
    for (int i = 325; i <= 396; ++i) (*hoja_del_dia)(i) = Text3(i - 325).Text;
    (*hoja_del_dia)(397) = Text2.Text;
    (*hoja_del_dia)(398) = Text4.Text;
    (*hoja_del_dia)(399) = Text5.Text;
    (*hoja_del_dia)(400) = Text6.Text;
    (*hoja_del_dia)(401) = Text7.Text;
}

void Form5::LlevarAHojaFinal() {
    if (DiaActual < 1 || DiaActual > 3) return;
    const int columna_indice = 2 + DiaActual.Valor();        // "I1", "I2", "I3"
    const int columna_probabilidad = 6 + DiaActual.Valor();  // "P1", "P2", "P3"
    // An empty cell leaves what an earlier press put into the table.
    const auto llevar = [this](const std::string& texto, int fila, int columna) {
        if (!texto.empty()) entorno_.record.HojaFinal(fila, columna) = TextoDoble(LeerValor(texto));
    };
    for (int fila = 1; fila <= hoja::kFilas; ++fila) {
        llevar(Text1(fila * 18 - 3).Text, fila, columna_indice);
        llevar(Text3(fila * 4 - 1).Text, fila, columna_probabilidad);
    }
}

void Form5::IndiceFinal(const Entero& a) {
    for (int i = 1; i <= hoja::kFilas; ++i) {
        if (Valor(i * 18 - 12) != i - 1) continue;
        entorno_.record.HojaFinal(a + 1, i) = TextoDoble(Valor(i * 18 - 4));
    }
}

}  // namespace velmora
