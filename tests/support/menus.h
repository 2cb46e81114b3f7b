#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "forms/screen.h"

namespace velmora {

/// The menu bars of the six screens: names with captions, "!" behind those with a handler, lists in
/// brackets.
inline constexpr std::array<std::string_view, 6> kMenus = {
    "Vacio1=;Vacio2=;Nuevaempresa=Iniciar!;Vacio3=;vacio4=;salir=Salir!;",
    "vacio1=;vacio2=;continuar=Continuar[datosiniciales=Datos iniciales: Jornadas y Tareas!;"
    "contaminantes=Contaminantes!;calculos=Cálculos!;resulatadofinal=Resultado final!;];vacio30=;"
    "vacio32=;Regresar=Regresar!;vacio40=;vacio50=;recuperardatos=Recuperar datos!;vacio51=;"
    "vacio52=;imprimir=Imprimir!;vacio53=;vacio54=;salir=Salir!;",
    "vacio1=;vacio2=;continuar=Continuar/Regresar[contaminantes=Contaminantes!;pagina5=Cálculos!;"
    "datosdeempresa=Datos de empresa!;resultadofinal=Resultado final!;];vacio8=;vacio9=;"
    "imprimir=Imprimir!;vacio20=;vacio22=;salir=Salir!;",
    "vacio1=;vacio7=;continuar=Continuar/Regresar[pagina5=Cálculos!;"
    "datosiniciales=Datos iniciales: Jornadas y Tareas!;datosdeempresa=Datos de empresa!;"
    "resultadosfinales=Resultado final!;];vacio10=;vacio11=;imprimir=Imprimir!;vacio22=;vacio23=;"
    "salir=Salir!;",
    "vacio1=;vacio2=;introducirdatos=Introducir datos[introprimero=Primer dia!;"
    "introsegundo=Segundo dia!;introtercero=Tercer dia!;];vacio3=;vacio4=;"
    "recuperar=Recuperar datos/cálculos[recupprimerdia=Primer dia!;recupsegundodia=Segundo dia!;"
    "recuptercerdia=Tercer dia!;];vacio5=;vacio6=;continuar=Continuar/Regresar["
    "datosiniciales=Datos iniciales: Jornadas y Tareas!;contaminantes=Contaminantes!;"
    "resultadosfinales=Resultado final!;datosempresa=Datos de empresa!;];vacio9=;vacio14=;"
    "imprimir=Imprimir!;vacio15=;salir=Salir!;",
    "vacio1=;vacio2=;regresar=Continuar/Regresar![calculos=Cálculos!;contaminantes=Contaminantes!;"
    "datosiniciales=Datos  iniciales: Jornadas y Tareas!;datosdeempresa=Datos de empresa!;];"
    "vacio10=;vacio11=;guardararchivo=Guardar en disco !;vacio21=;vacio22=;imprimir=Imprimir!;"
    "vacio30=;vacio32=;salir=Salir!;",
};

constexpr std::string_view MenuOf(ScreenId id) {
    return kMenus.at(static_cast<std::size_t>(id) - 1);
}

/// The sheet's entries that begin a day and that recover one, by the day from 1.
using DayEntries = std::array<std::string_view, 3>;
inline constexpr DayEntries kBeginDay = {"introprimero", "introsegundo", "introtercero"};
inline constexpr DayEntries kRecoverDay = {"recupprimerdia", "recupsegundodia", "recuptercerdia"};

constexpr std::string_view EntryOf(const DayEntries& entries, int day) {
    return entries.at(static_cast<std::size_t>(day - 1));
}

/// A menu bar, or a list of one, as it stands in the table.
inline std::string TextOf(const std::vector<MenuEntry>& menu) {
    std::string text;
    for (const MenuEntry& entry : menu) {
        text.append(entry.name).append("=").append(entry.caption);
        if (entry.Click) text += '!';
        if (!entry.list.empty()) text.append("[").append(TextOf(entry.list)).append("]");
        text += ';';
    }
    return text;
}

}  // namespace velmora
