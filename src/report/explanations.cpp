#include "report/explanations.h"

#include <algorithm>
#include <array>

namespace velmora::report {

namespace {

// clang-format off
constexpr std::array kExplanations = {
    Explanation{FindingKind::DayNotValidated,
     "El plan tiene este día, pero sus conclusiones no se han validado o no llegaron al fichero.",
     "qué-se-guarda-y-qué-se-pierde"},
    Explanation{FindingKind::DayWithoutMeasurements,
     "Las conclusiones se validaron sin nada calculado: una hoja vacía da índice 0 y «situación segura».",
     "un-día-sin-mediciones-también-se-cierra"},
    Explanation{FindingKind::SheetCutShort,
     "El fichero acaba antes que la hoja de este día, y lo que le falta no se puede revisar.",
     "qué-se-guarda-y-qué-se-pierde"},
    Explanation{FindingKind::DayBeyondPlan,
     "El día se validó y después se redujo el número de jornadas del plan; no se ha vuelto a calcular.",
     "datos-iniciales-jornadas-y-tareas"},
    Explanation{FindingKind::PlanChanged,
     "El plan se cambió después de validar el día, y la hoja conserva lo de entonces.",
     "al-recuperar-un-día"},
    Explanation{FindingKind::AgentChanged,
     "Los datos del contaminante se cambiaron después de validar el día, y la hoja conserva los de entonces.",
     "al-recuperar-un-día"},
    Explanation{FindingKind::CellWiped,
     "La tecla de retroceso vacía también las casillas que vienen del plan, y la hoja siguió con la casilla en blanco.",
     "el-manejo"},
    Explanation{FindingKind::CommaLocale,
     "El día se calculó con la coma como separador decimal: la hoja lee sus propias cifras solo hasta la coma.",
     "el-punto-decimal"},
    Explanation{FindingKind::DoesNotFollow,
     "La cifra no sale de las mediciones ni de las otras casillas de la hoja: se cambió algo después de calcular y no se repitieron los botones.",
     "una-cifra-que-no-sale-de-las-mediciones"},
    Explanation{FindingKind::SampleMisread,
     "La hoja lee una medición solo hasta el primer carácter que no puede ser parte del número.",
     "una-medición-con-dos-puntos"},
    Explanation{FindingKind::MeansLost,
     "Se pulsó Indice+ / MG / GSD sin validar antes esta tarea, y sus medias quedaron a cero.",
     "al-recuperar-un-día"},
    Explanation{FindingKind::SampleEmptied,
     "C2 y C3 de la primera fila son iguales, y al buscar los grupos la hoja vació C3.",
     "la-tercera-medición-de-la-primera-fila-puede-borrarse"},
    Explanation{FindingKind::FirstDaysTime,
     "La sexta fila de la segunda tarea se calcula siempre con las horas que la tarea tuvo el primer día.",
     "la-sexta-fila-de-la-segunda-tarea-usa-las-horas-del-primer-día"},
    Explanation{FindingKind::SumNotSpread,
     "La suma del grupo solo llega a todos sus miembros si su número es el de la fila de la hoja que ocupa el primero.",
     "cómo-numerar-los-grupos-aditivos"},
    Explanation{FindingKind::SumErased,
     "La suma del grupo es igual al índice de su primer miembro, y la hoja la deja en blanco.",
     "cómo-numerar-los-grupos-aditivos"},
    Explanation{FindingKind::GroupSpansTasks,
     "El número del grupo está en varias tareas: para el índice se suman todas, para la exposición corta se evalúa cada una por su lado.",
     "cómo-numerar-los-grupos-aditivos"},
    Explanation{FindingKind::GroupWithoutShortLimit,
     "La exposición corta solo mira los grupos 1 a 6; los demás números quedan sin evaluar.",
     "cómo-numerar-los-grupos-aditivos"},
    Explanation{FindingKind::EcPlusElsewhere,
     "En la segunda tarea, el límite de un grupo que empieza en la tercera fila o más abajo va a parar a la casilla Prob. de la fila anterior, y el grupo se queda sin probabilidad.",
     "cómo-numerar-los-grupos-aditivos"},
    Explanation{FindingKind::EcPlusAsProbability,
     "En la segunda tarea, el límite de un grupo que empieza en la tercera fila o más abajo va a parar a la casilla Prob. de la fila anterior, y ahí se toma por una probabilidad.",
     "cómo-numerar-los-grupos-aditivos"},
    Explanation{FindingKind::RowsBeyondContaminants,
     "Este día tiene más filas que contaminantes la tarea: las que sobran se calculan, pero no entran en la exposición corta.",
     "datos-iniciales-jornadas-y-tareas"},
    Explanation{FindingKind::ContaminantsBeyondRows,
     "Este día tiene menos filas que contaminantes la tarea: los que faltan no están en la hoja.",
     "datos-iniciales-jornadas-y-tareas"},
    Explanation{FindingKind::NoLimitForSamples,
     "La hoja compara las mediciones con un límite que el agente no tiene: cualquiera llega a cero, y la respuesta es siempre SI.",
     "las-tres-respuestas"},
    Explanation{FindingKind::NoSamplingTime,
     "El T.M. no es 15 ni 30, y la pregunta de si se ha superado un límite no mira esta fila.",
     "las-tres-respuestas"},
    Explanation{FindingKind::ClassDiffers,
     "Las curvas que separan las clases son aproximadas; la cola exacta de la distribución log-normal cae en otra clase.",
     "qué-son-las-clases-de-probabilidad"},
    Explanation{FindingKind::RoundedIndex,
     "El índice da justo en el umbral, o queda a ese lado de él, solo por los dos decimales con los que trabaja la hoja.",
     "la-frase-del-índice"},
    Explanation{FindingKind::OverallZero,
     "Falta el índice del tercer día, y la tabla multiplica por cero.",
     "la-tabla-final"},
    Explanation{FindingKind::OverallMissing,
     "El fichero se guardó sin pulsar RESULTADOS FINALES con los tres días validados.",
     "la-tabla-final"},
    Explanation{FindingKind::StaleFinal,
     "La tabla final conserva un valor de una vuelta anterior: una casilla en blanco no lo borra, e IG solo cambia al pulsar su botón.",
     "la-tabla-final"},
};
// clang-format on

}  // namespace

const Explanation& ExplanationOf(FindingKind kind) {
    return *std::find_if(kExplanations.begin(), kExplanations.end(),
                         [kind](const Explanation& e) { return e.kind == kind; });
}

}  // namespace velmora::report
