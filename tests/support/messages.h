#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "forms/screen.h"

/// What the six screens say in their boxes and ask for in a field, as the tests expect it.
namespace velmora::messages {

inline constexpr const char* kExit = "¿Está seguro de que quiere salir?";
inline constexpr const char* kNoName = "Debe cumplimentarse por lo menos el nombre de la empresa";
inline constexpr const char* kNameHint = " El nombre de la empresa es imprescindible.";
inline constexpr const char* kGoBack =
    "Si regresa perderá todos los datos introducidos hasta el momento\r\n"
    "¿Está seguro de que quiere regresar?";
inline constexpr const char* kRestart =
    "Modificar los datos correspondientes al número de días y jornadas\r\n"
    "supone reiniciar todo el proceso de nuevo\r\n"
    " y perder los datos introducidos hasta el momento.\r\n"
    "¿Desea reiniciar el proceso?";
inline constexpr const char* kSumAboveSix =
    "La suma total de contaminantes de 30' y de 15' ha de ser menor o igual que 6";
inline constexpr const char* kNoPick = "Indique el número de Jornadas y de Tareas ";
inline constexpr const char* kEntryIncomplete = "Antes de validar introduzca  todos los datos";
inline constexpr const char* kEntryIncoherent =
    "El número de Jornadas y Tareas seleccionado debe ser coherente con los valores asignados";
inline constexpr const char* kSumDiffers =
    "El número total de contaminantes es  la suma de los expresados para 30' y 15' ";
inline constexpr const char* kNoPlan =
    "No puede cargar datos de mediciones si no indica previamente el número de jornadas y de "
    "tareas";
inline constexpr const char* kIncompletePlan =
    " Aún le faltan datos por introducir y sin ellos\r\n"
    "  el programa no funcionará correctamente\r\n"
    "¿Está seguro de que quiere continuar ?";
inline constexpr const char* kNoTask = " Seleccione una tarea";
inline constexpr const char* kTaskAbove = " El número de tareas seleccionado no es coherente";
inline constexpr const char* kTaskAboveOnPick =
    " El número de tareas seleccionado no es coherente con el valor asignado inicialmente";
inline constexpr const char* kRowsIncomplete = " Cumplimente todos los datos";
inline constexpr const char* kIncoherentDay =
    " El número de día seleccionado no es coherente con los datos introducidos";
inline constexpr const char* kNoLimits = "No se dispone de datos relativos a los contaminantes ";
inline constexpr const char* kNoData = "No hay datos para operar";
inline constexpr const char* kNoDataOfLaterTask = " No hay datos para operar";
inline constexpr const char* kFewSamples = "No hay datos suficientes para operar ";
inline constexpr const char* kNoGaps = "No deje espacios vacios";

/// What a screen asks ahead of its page, and the pages that it sets in the dialog.
struct Print {
    ScreenId screen;
    const char* notice;
    int first_page;
    int last_page;
};

// clang-format off
inline constexpr std::array<Print, 5> kPrints = {{
    {ScreenId::Form2, "Se imprimirá la pantalla",                  0, 2},
    {ScreenId::Form3, "Se imprimirá la pantalla",                  0, 1000},
    {ScreenId::Form4, "Se imprimirá pantalla",                     0, 1000},
    {ScreenId::Form5, "Se imprimirán todos los datos en pantalla", 0, 1000},
    {ScreenId::Form6, "Se imprimirán los resultados en  pantalla", 1, 1000},
}};
// clang-format on

/// The question ahead of a page; its first line is the screen's own.
inline std::string PrintQuestion(std::string_view notice) {
    return std::string(notice) +
           "\r\n¿Desea continuar?\r\n \r\nPulsar 'Si' no admite cancelación posterior";
}
inline std::string PrintQuestion(ScreenId screen) {
    return PrintQuestion(std::ranges::find(kPrints, screen, &Print::screen)->notice);
}

}  // namespace velmora::messages
