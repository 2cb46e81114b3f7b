#include <cmath>

#include "core/numbers.h"
#include "sheet/form5.h"
#include "stats/statistics.h"

namespace velmora {

/// What differs between the three buttons.
struct Form5::ExposicionCorta {
    int tarea;
    int base;       ///< first cell of the task in Text1
    int base3;      ///< first cell of the task in Text3
    double factor;  ///< turns the A+ cell of a group's first member into its EC+ cell
    Entero n;       ///< contaminants of the task

    /// First cell of the row of contaminant i in Text1, and in Text3.
    int Fila(int i) const { return base + (i - 1) * hoja::kColumnas; }
    int Fila3(int i) const { return base3 + (i - 1) * hoja::kColumnas3; }

    /// The A+ cells of the task's rows, first and last.
    int PrimeraMarca() const { return base + 6; }
    int UltimaMarca() const { return (Entero(base) + Entero(18) * (n - 1) + 6).Valor(); }
};

/// The samples of one additive group.
struct Form5::Mezcla {
    Array<Array<Doble, 1, 6>, 1, 7> muestras;  ///< rows 1 to 6 by the member's place, 7 the sums
    int miembros = 0;
    int primera_marca = 0;  ///< the A+ cell of the first member
};

namespace {

constexpr int kUltimoGrupo = 6;

// Columns of Text1.
constexpr int kEd = 2;
constexpr int kEc = 3;
constexpr int kAditivo = 6;
constexpr int kMg = 16;
constexpr int kGsd = 17;

// Columns of Text3.
constexpr int kEcMas = 0;
constexpr int kMgMas = 1;
constexpr int kGsdMas = 2;
constexpr int kProb = 3;

}  // namespace

void Form5::Command5_Click() {
    EvaluarExposicionCorta({1, 0, 0, 0.222, entorno_.record.NumContaminantes(1)});
    if (entorno_.record.NumTareas > 1) Abrir(Command6);
    if (entorno_.record.NumTareas == 1) {
        Abrir(Command8);
        MostrarConclusiones();
    }
}

void Form5::Command6_Click() {
    // The factor is the first task's: from the third row on it misses the EC+ cell and hits the
    // Prob. cell of the row above. Required as it stands.
    EvaluarExposicionCorta({2, 108, 24, 0.222, entorno_.record.NumContaminantes(2)});
    if (entorno_.record.NumTareas > 2) Abrir(Command7);
    if (entorno_.record.NumTareas == 2) {
        Abrir(Command8);
        MostrarConclusiones();
    }
}

void Form5::Command7_Click() {
    EvaluarExposicionCorta({3, 216, 48, 0.2222, entorno_.record.NumContaminantes(3)});
    if (entorno_.record.NumTareas == 3) {
        Abrir(Command8);
        MostrarConclusiones();
    }
}

void Form5::EvaluarExposicionCorta(const ExposicionCorta& tarea) {
    EvaluarNoAditivos(tarea);
    EvaluarGruposDeUno(tarea);
    LimiteDeMezclas(tarea);
    EstadisticaDeMezclas(tarea);
    CalcularProbabilidades(tarea);
}

/// EC+, MG+ and GSD+ of a row judged by itself; c and d are its first cells in Text1 and Text3, ec
/// what its "EC" reads.
void Form5::LlenarFilaSimple(int c, int d, Doble ec) {
    Text3(d + kEcMas).Text = TextoDoble(ec == 0 ? 3 * Valor(c + kEd) : ec);
    Text3(d + kMgMas).Text = TextoDoble(Valor(c + kMg));
    Text3(d + kGsdMas).Text = TextoDoble(Valor(c + kGsd));
}

void Form5::EvaluarNoAditivos(const ExposicionCorta& tarea) {
    for (int i = 1; i <= tarea.n.Valor(); ++i) {
        const Doble a = Valor(tarea.Fila(i) + kAditivo);
        const Doble e = Valor(tarea.Fila(i) + kEc);
        if (a == 0) LlenarFilaSimple(tarea.Fila(i), tarea.Fila3(i), e);
    }
}

void Form5::EvaluarGruposDeUno(const ExposicionCorta& tarea) {
    for (int k = 1; k <= kUltimoGrupo; ++k) {
        int miembros = 0;
        int ultimo = 0;
        for (int i = 1; i <= tarea.n.Valor(); ++i) {
            if (Valor(tarea.Fila(i) + kAditivo) == k) {
                ++miembros;
                ultimo = i;
            }
        }
        if (miembros != 1) continue;
        LlenarFilaSimple(tarea.Fila(ultimo), tarea.Fila3(ultimo), Valor(tarea.Fila(ultimo) + kEc));
    }
}

/// The limit of each mixture: the harmonic mean of its members' limits, weighted by their MMP.
void Form5::LimiteDeMezclas(const ExposicionCorta& tarea) {
    for (int k = 1; k <= kUltimoGrupo; ++k) {
        Doble W;
        Doble S;
        int n = 0;
        int p = 0;
        for (int j = tarea.PrimeraMarca(); j <= tarea.UltimaMarca(); j += 18) {
            const Doble marca = Valor(j);
            if (marca == 0 || marca != k) continue;
            if (p == 0) p = j;
            ++n;
            const Doble mmp = Valor(j + 7);
            const Doble ec = Valor(j - 3);
            W += ec == 0 ? mmp / (3 * Valor(j - 4)) : mmp / ec;
            S += mmp;
        }
        if (W != 0 && n >= 2) {
            const double celda = std::floor(static_cast<double>(p) * tarea.factor - 1.3);
            Text3(RedondearEntero(celda)).Text = TextoDoble(S / W);
        }
    }
}

Form5::Mezcla Form5::ReunirMezcla(const ExposicionCorta& tarea, int grupo) const {
    Mezcla mezcla;
    int r = 0;
    for (int j = tarea.PrimeraMarca(); j <= tarea.UltimaMarca(); j += 18) {
        ++r;  // runs over all rows of the task, members or not
        if (Valor(j) != grupo) continue;
        ++mezcla.miembros;
        if (mezcla.primera_marca == 0) mezcla.primera_marca = j;
        for (int m = 1; m <= 6; ++m) mezcla.muestras(r, m) = Valor(j + m);
    }
    return mezcla;
}

/// MG+ and GSD+ of each mixture, from the sums of its members' samples.
void Form5::EstadisticaDeMezclas(const ExposicionCorta& tarea) {
    EvaluacionRecord& record = entorno_.record;
    for (int k = 1; k <= kUltimoGrupo; ++k) {
        Mezcla mezcla = ReunirMezcla(tarea, k);
        if (mezcla.miembros < 2) continue;
        auto& fila7 = mezcla.muestras(7);

        // A sample counts only if every member has it; the first that one lacks ends the series.
        for (int m = 1; m <= 6; ++m) {
            int q = 0;
            for (int r = 1; r <= 6; ++r) {
                if (mezcla.muestras(r, m) == 0) continue;
                fila7(m) += mezcla.muestras(r, m);
                ++q;
            }
            if (q < mezcla.miembros) {
                fila7(m) = 0;
                break;
            }
        }
        Entero z;
        Doble L;
        for (int m = 1; m <= 6; ++m) {
            if (fila7(m) == 0) break;
            fila7(m) = Logaritmo(fila7(m));
            L += fila7(m);
            ++z;
        }
        const Doble g = L / z.ComoDoble();
        // The contaminant's number is read anew from the first member's cell each time.
        const auto numero = [&] { return Valor(mezcla.primera_marca - 6); };

        const Doble mg_mas = Exponencial(g);
        record.MGmas(DiaActual, tarea.tarea, RedondearEntero(numero())) = mg_mas;
        Text3(RedondearEntero(tarea.base3 + numero() * 4 - 3)).Text =
            TextoDoble(record.MGmas(DiaActual, tarea.tarea, RedondearEntero(numero())));

        Doble Q;
        for (int m = 1; m <= z.Valor(); ++m) Q += Potencia(Absoluto(g - fila7(m)), 2.0);
        const Doble gsd_mas = Exponencial(Potencia(Q / (z - 1).ComoDoble(), 0.5));
        record.GSDmas(DiaActual, tarea.tarea, RedondearEntero(numero())) = gsd_mas;
        Text3(RedondearEntero(tarea.base3 + numero() * 4 - 2)).Text = TextoDoble(gsd_mas);
    }
}

void Form5::CalcularProbabilidades(const ExposicionCorta& tarea) {
    const int ultima = (Entero(tarea.base3) + (tarea.n - 1) * 4).Valor();
    for (int i = tarea.base3; i <= ultima; i += 4) {
        if (Text3(i + kEcMas).Text.empty()) continue;
        const Doble mg = LeerValor(Text3(i + kMgMas).Text);
        const Doble razon = LeerValor(Text3(i + kEcMas).Text) / mg;
        const Doble dispersion = LeerValor(Text3(i + kGsdMas).Text);
        Text3(i + kProb).Text = TextoDoble(ProbabilidadExceso(razon, dispersion));
    }
}

}  // namespace velmora
