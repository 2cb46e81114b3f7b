#include "property/record_walk.h"

#include <array>
#include <string_view>

#include "property/say.h"

namespace velmora::property {

std::string NameOf(const Element& element) {
    static constexpr std::array<std::string_view, 21> kNames = {"DatosEmpresa",
                                                                "NumJornadas",
                                                                "NumTareas",
                                                                "TiempoExposicion",
                                                                "Muestras30",
                                                                "Muestras15",
                                                                "NumContaminantes",
                                                                "NombreContaminante",
                                                                "VlaEd",
                                                                "VlaEc",
                                                                "TiempoMuestreo",
                                                                "Aditivo",
                                                                "Unidades",
                                                                "MG",
                                                                "GSD",
                                                                "MGmas",
                                                                "GSDmas",
                                                                "HojaPrimerDia",
                                                                "HojaSegundoDia",
                                                                "HojaTercerDia",
                                                                "HojaFinal"};
    std::string name(kNames.at(static_cast<std::size_t>(element.field)));
    if (element.i == 0) return name;
    name += Say("(", element.i);
    if (element.j != 0) name += Say(",", element.j);
    if (element.k != 0) name += Say(",", element.k);
    return name + ")";
}

std::vector<Element> Differences(const EvaluacionRecord& before, const EvaluacionRecord& after) {
    std::vector<Element> differences;
    if (before == after) return differences;
    WalkTogether(before, after, [&](const Element& element, const auto& a, const auto& b) {
        if (!(a == b)) differences.push_back(element);
    });
    return differences;
}

}  // namespace velmora::property
