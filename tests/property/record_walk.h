#pragma once

#include <string>
#include <vector>

#include "core/record.h"

namespace velmora::property {

enum class Field {
    DatosEmpresa,
    NumJornadas,
    NumTareas,
    TiempoExposicion,
    Muestras30,
    Muestras15,
    NumContaminantes,
    NombreContaminante,
    VlaEd,
    VlaEc,
    TiempoMuestreo,
    Aditivo,
    Unidades,
    MG,
    GSD,
    MGmas,
    GSDmas,
    HojaPrimerDia,
    HojaSegundoDia,
    HojaTercerDia,
    HojaFinal
};

/// One element of the record: its field, its subscripts (0 where there are fewer) and the line of
/// the evaluation file that holds it, 0 for the working values that no file holds.
struct Element {
    Field field;
    int i = 0;
    int j = 0;
    int k = 0;
    int line = 0;
};

std::string NameOf(const Element& element);

constexpr int kLinesOfAFile = 1524;

// The walk over the parts of two records, in the file's order.

template <class A, class B, class Visit>
void WalkPlan(A& a, B& b, Visit& visit) {
    for (int i = 1; i <= 19; ++i) {
        visit(Element{Field::DatosEmpresa, i, 0, 0, i}, a.DatosEmpresa(i), b.DatosEmpresa(i));
    }
    visit(Element{Field::NumJornadas, 0, 0, 0, 20}, a.NumJornadas, b.NumJornadas);
    visit(Element{Field::NumTareas, 0, 0, 0, 21}, a.NumTareas, b.NumTareas);
    for (int d = 1; d <= 3; ++d) {
        for (int t = 1; t <= 3; ++t) {
            const int line = 22 + 9 * (d - 1) + 3 * (t - 1);
            visit(Element{Field::TiempoExposicion, d, t, 0, line}, a.TiempoExposicion(d, t),
                  b.TiempoExposicion(d, t));
            visit(Element{Field::Muestras30, d, t, 0, line + 1}, a.Muestras30(d, t),
                  b.Muestras30(d, t));
            visit(Element{Field::Muestras15, d, t, 0, line + 2}, a.Muestras15(d, t),
                  b.Muestras15(d, t));
        }
    }
}

template <class A, class B, class Visit>
void WalkTasks(A& a, B& b, Visit& visit) {
    for (int t = 1; t <= 3; ++t) {
        visit(Element{Field::NumContaminantes, t, 0, 0, 48 + t}, a.NumContaminantes(t),
              b.NumContaminantes(t));
        for (int c = 1; c <= 6; ++c) {
            const int line = 52 + 36 * (t - 1) + 6 * (c - 1);
            const auto at = [&](Field field, int offset) {
                return Element{field, t, c, 0, line + offset};
            };
            visit(at(Field::NombreContaminante, 0), a.NombreContaminante(t, c),
                  b.NombreContaminante(t, c));
            visit(at(Field::VlaEd, 1), a.VlaEd(t, c), b.VlaEd(t, c));
            visit(at(Field::VlaEc, 2), a.VlaEc(t, c), b.VlaEc(t, c));
            visit(at(Field::TiempoMuestreo, 3), a.TiempoMuestreo(t, c), b.TiempoMuestreo(t, c));
            visit(at(Field::Aditivo, 4), a.Aditivo(t, c), b.Aditivo(t, c));
            visit(at(Field::Unidades, 5), a.Unidades(t, c), b.Unidades(t, c));
        }
    }
}

template <class A, class B, class Visit>
void WalkSheets(A& a, B& b, Visit& visit) {
    for (int e = 1; e <= 401; ++e) {
        const int line = 160 + 3 * (e - 1);
        visit(Element{Field::HojaPrimerDia, e, 0, 0, line}, a.HojaPrimerDia(e), b.HojaPrimerDia(e));
        visit(Element{Field::HojaSegundoDia, e, 0, 0, line + 1}, a.HojaSegundoDia(e),
              b.HojaSegundoDia(e));
        visit(Element{Field::HojaTercerDia, e, 0, 0, line + 2}, a.HojaTercerDia(e),
              b.HojaTercerDia(e));
    }
    for (int r = 1; r <= 18; ++r) {
        for (int c = 1; c <= 9; ++c) {
            visit(Element{Field::HojaFinal, r, c, 0, 1363 + 9 * (r - 1) + c - 1}, a.HojaFinal(r, c),
                  b.HojaFinal(r, c));
        }
    }
}

/// What the file leaves out.
template <class A, class B, class Visit>
void WalkStatistics(A& a, B& b, Visit& visit) {
    for (int d = 1; d <= 3; ++d) {
        for (int t = 1; t <= 3; ++t) {
            for (int c = 1; c <= 6; ++c) {
                visit(Element{Field::MG, d, t, c}, a.MG(d, t, c), b.MG(d, t, c));
                visit(Element{Field::GSD, d, t, c}, a.GSD(d, t, c), b.GSD(d, t, c));
                visit(Element{Field::MGmas, d, t, c}, a.MGmas(d, t, c), b.MGmas(d, t, c));
                visit(Element{Field::GSDmas, d, t, c}, a.GSDmas(d, t, c), b.GSDmas(d, t, c));
            }
        }
    }
}

/// Visits every element of two records side by side: `visit(element, a, b)`. The lines are counted
/// from the tables of the file's blocks, not from the program's own walk.
template <class A, class B, class Visit>
void WalkTogether(A& a, B& b, Visit visit) {
    WalkPlan(a, b, visit);
    WalkTasks(a, b, visit);
    WalkSheets(a, b, visit);
    WalkStatistics(a, b, visit);
}

/// The elements in which two records differ.
std::vector<Element> Differences(const EvaluacionRecord& before, const EvaluacionRecord& after);

}  // namespace velmora::property
