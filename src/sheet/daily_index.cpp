#include "core/numbers.h"
#include "sheet/form5.h"

namespace velmora {

void Form5::Command4_Click() {
    for (int R = 1; R <= hoja::kFilas; ++R) Text1(18 * R - 3).Text.clear();
    SumarGrupos();
    MostrarMediasYDesviaciones();
    Abrir(Command5);
    CopiarIndicesSinGrupo();
    RepartirSumas();
}

void Form5::SumarGrupos() {
    for (int k = 1; k <= 20; ++k) {
        int F = 0;  // the A+ cell of the group's first row
        for (int c = 6; c <= 312; c += 18) {
            if (F == 0 && Valor(c) == k) F = c;
            if (Valor(c) == k) {
                // The running sum lives in that one cell, as text.
                const Doble x = Valor(c + 8);
                const Doble y = Valor(F + 9);
                Text1(F + 9).Text = TextoDoble(x + y);
            }
        }
        // Also when no row holds k: then F is 0, and the first row's C3 goes if it reads as its
        // C2. That is required, not to be guarded.
        const Doble u = Valor(F + 8);
        const Doble v = Valor(F + 9);
        if (u == v) Text1(F + 9).Text.clear();
    }
}

void Form5::MostrarMediasYDesviaciones() {
    const EvaluacionRecord& record = entorno_.record;
    for (int t = 1; t <= 3; ++t) {
        for (int c = 1; c <= hoja::kFilasPorTarea; ++c) {
            const int R = 6 * (t - 1) + c;
            Text1(18 * R - 2).Text = FormatoDosDecimales(record.MG(DiaActual, t, c));
            Text1(18 * R - 1).Text = FormatoDosDecimales(record.GSD(DiaActual, t, c));
        }
    }
}

void Form5::CopiarIndicesSinGrupo() {
    for (int R = 1; R <= hoja::kFilas; ++R) {
        if (Valor(18 * R - 12) == 0) Text1(18 * R - 3).Text = Text1(18 * R - 4).Text;
    }
}

void Form5::RepartirSumas() {
    // Only a group that bears the number of its first row is spread; the others keep their sum on
    // their first row.
    for (int R = 1; R <= hoja::kFilas; ++R) {
        if (Valor(18 * R - 12) != R) continue;
        const Doble w = Valor(18 * R - 3);
        for (int M = R + 1; M <= hoja::kFilas; ++M) {
            if (Valor(18 * M - 12) == R) Text1(18 * M - 3).Text = TextoDoble(w);
        }
    }
}

}  // namespace velmora
