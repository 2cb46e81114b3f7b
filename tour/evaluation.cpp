#include "evaluation.h"

#include <algorithm>

namespace velmora::tour {

// clang-format off
const Company kCompany = {
    "Talleres Ebro Pinturas, S.L.",  // Nombre de la empresa
    "El Cañaveral",                  // Polígono industrial
    "12-B",                          // Parcela
    "Avda. de la Constitución",      // Calle
    "45",                            // Número
    "Utebo",                         // Localidad
    "Zaragoza",                      // Provincia
    "15/03/2024",                    // Fecha de la evaluación
    "Begoña Ibáñez Núñez",           // Responsable
    "B-50000000",                    // C.I.F.
    "976 000 000 / 976 000 001",     // Teléfono / Fax
    "taller@ebropinturas.example",   // E-mail
    "www.ebropinturas.example",      // Página web
    "38",                            // Trabajadores
    "2",                             // Centros de trabajo
    "Nave de pintura",               // Centro evaluado
    "7",                             // Trabajadores expuestos
    "Cabina, limpieza y lijado",     // Identificación
    "EV-2024-07",                    // Código
};

const Company kCompanyOfWorkedDay = {
    "Barnices del Jalón, S.A.",
    "La Charluca",
    "7",
    "Calle del Azafrán",
    "3",
    "Calatayud",
    "Zaragoza",
    "22/05/2024",
    "Iñigo Peña Solé",
    "A-50000001",
    "976 000 002",
    "",
    "",
    "21",
    "1",
    "Sala de mezclas",
    "4",
    "Jornada de ejemplo",
    "EV-2024-11",
};

const std::array<Task, kTasks> kPlan = {{
    {{  // paint booth; the first three agents are those of the worked day
        {"Tolueno",         "192",  "384",  15, "0", "mg/m3"},
        {"Xileno",          "221",  "442",  15, "1", "mg/m3"},
        {"Etilbenceno",     "442",  "884",  15, "1", "mg/m3"},
        {"Acetona",         "1210", "0",    30, "0", "mg/m3"},
        {"Acetato butilo",  "241",  "724",  30, "5", "mg/m3"},
        {"n-Butanol",       "61",   "154",  30, "5", "mg/m3"},
    }},
    {{  // cleaning of the guns
        {"n-Hexano",        "72",   "0",    30, "3", "mg/m3"},
        {"Ciclohexano",     "700",  "0",    30, "3", "mg/m3"},
        {"Isopropanol",     "500",  "1000", 15, "0", "mg/m3"},
        {"Metanol",         "266",  "0",    30, "0", "mg/m3"},
        {"Butanona",        "600",  "900",  15, "0", "mg/m3"},
        {"n-Heptano",       "2085", "0",    30, "0", "mg/m3"},
    }},
    {{  // sanding and finish
        {"Manganeso",       "0.2",  "0",    30, "0", "mg/m3"},
        {"Óxido de cinc",   "2",    "10",   15, "0", "mg/m3"},
        {"Ozono",           "0.1",  "0.2",  15, "0", "ppm"},
        {"Amoníaco",        "20",   "50",   15, "4", "ppm"},
        {"Ácido acético",   "10",   "20",   15, "4", "ppm"},
        {"Formaldehído",    "0.3",  "0.6",  15, "4", "ppm"},
    }},
}};

const std::array<std::array<std::string_view, kTasks>, kDays> kHours = {{
    {"8", "3", "2"},
    {"6", "2", "2"},
    {"7", "3", "1"},
}};

const std::array<std::array<TaskSamples, kTasks>, kDays> kMeasurements = {{
    {{
        {{{"120", "95", "150", "110"},
          {"30", "45", "20", "35"},
          {"15", "25", "10", "20"},
          {"240", "610", "390"},
          {"22", "31", "27", "25", "29"},
          {"6.5", "18.1", "9.4", "15.9", "12.8", "8.7"}}},
        {{{"4.2", "5.6", "3.9"},
          {"35", "52", "41"},
          {"160", "295"},
          {"48", "125", "64", "91"},
          {"40", "260", "75"},
          {"110", "130", "125", "140", "118"}}},
        {{{"0.02", "0.085", "0.047"},
          {"0.3", "0.42", "0.36"},
          {"0.02", "0.06", "0.035", "0.05"},
          {"1.5", "2.1", "1.8"},
          {"0.6", "0.9", "0.7"},
          {"0.02", "0.03", "0.024"}}},
    }},
    {{
        {{{"98", "131", "104", "122"},
          {"41", "28", "36", "33"},
          {"22", "14", "17", "19"},
          {"310", "465", "290", "385"},
          {"35", "28", "33", "30"},
          {"9.2", "17.8", "12.5", "20.9", "11.1", "14.6"}}},
        {{{"15.1", "9.4", "12.3"},
          {"48", "39", "55"},
          {"72", "64", "91"},
          {"52", "131"},
          {"60", "905", "110"},
          {"125", "142", "131", "119", "137", "128"}}},
        {{{"0.031", "0.024", "0.028", "0.035"},
          {"0.6", "1.33"},
          {"0.031", "0.072", "0.047"},
          {"2.2", "1.7", "1.9"},
          {"0.8", "0.7", "1.1"},
          {"0.028", "0.021", "0.033"}}},
    }},
    {{
        {{{"88", "102", "95", "79", "91"},
          {"25", "31", "22", "28"},
          {"12", "16", "11", "14"},
          {"205", "360", "298"},
          {"19", "24", "21", "23"},
          {"8.2", "12.1", "9.7"}}},
        {{{"3.6", "4.1", "3.3"},
          {"31", "37", "29"},
          {"52", "61", "47"},
          {"35", "59", "47"},
          {"48", "126", "77"},
          {"95", "112", "104", "99"}}},
        {{{"0.019", "0.023", "0.021"},
          {"0.27", "0.33", "0.3"},
          {"0.021", "0.038", "0.029", "0.025"},
          {"1.2", "1.5", "1.4", "1.3"},
          {"0.5", "0.7", "0.6", "0.6"},
          {"0.015", "0.02", "0.018", "0.017"}}},
    }},
}};
// clang-format on

int CountSampledFor(int minutes, const Task& task, int agents) {
    return static_cast<int>(
        std::count_if(task.begin(), task.begin() + agents,
                      [minutes](const Agent& agent) { return agent.sampling_minutes == minutes; }));
}

}  // namespace velmora::tour
