#include "sheet/form5.h"

namespace velmora {

void Form5::Text1_KeyPress(int Index, KeyCode& tecla) {
    if (CeldaFiltrada != Index) {
        CifrasTecleadas = 0;
        PuntosTecleados = 0;
        CeldaFiltrada = Index;
    }
    if (tecla == kRetroceso) {
        // One backspace wipes the whole cell, a locked one too: both are meant.
        Text1(Index).Text.clear();
        CifrasTecleadas = 0;
        PuntosTecleados = 0;
    } else if (tecla == '.') {
        if (CifrasTecleadas > 0 && PuntosTecleados == 0)
            ++PuntosTecleados;
        else
            tecla = kTeclaRechazada;
    } else if (EsCifra(tecla)) {
        ++CifrasTecleadas;
    } else {
        tecla = kTeclaRechazada;
    }
}

}  // namespace velmora
