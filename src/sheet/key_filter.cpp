#include "sheet/form5.h"

namespace velmora {

void Form5::Text1_KeyPress(int Index, KeyCode& key) {
    if (CeldaFiltrada != Index) {
        CifrasTecleadas = 0;
        PuntosTecleados = 0;
        CeldaFiltrada = Index;
    }
    // A locked cell, too, is wiped by a backspace, and the whole of it: both are meant.
    FilterNumber(Text1(Index), key, CifrasTecleadas, PuntosTecleados);
}

}  // namespace velmora
