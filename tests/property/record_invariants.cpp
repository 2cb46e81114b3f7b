#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "property/invariant.h"
#include "property/judging.h"

namespace velmora::property {

namespace {

using enum ScreenId;
using Kind = Action::Kind;

Verdict ARefusedActionChangesNothingInTheRecord(const Step& s) {
    if (!s.Refused()) return Verdict::PassedOver();
    if (s.written.empty()) return Verdict::Holds();
    return Verdict::Broken(NameOf(s.written.front()), " changed");
}

/// The plan line or the task that the lists of the screen tell, 0 for none.
int Picked(const Screenshot& screen, int index) {
    return static_cast<int>(Value(screen.List("Combo1", index).Text));
}

bool MayWriteOnForm3(const Step& s, const Element& e) {
    if (s.action.target == "Command1") {
        return e.field == Field::NumJornadas || e.field == Field::NumTareas;
    }
    if (s.action.target != "Command2") return false;
    const int day = Picked(s.before, 2);
    const int task = Picked(s.before, 3);
    if (e.field == Field::NumContaminantes) return e.i == task;
    const bool of_the_line = e.field == Field::TiempoExposicion || e.field == Field::Muestras30 ||
                             e.field == Field::Muestras15;
    return of_the_line && e.i == day && e.j == task;
}

bool MayWriteOnForm4(const Step& s, const Element& e) {
    if (s.action.target != "Command1") return false;
    const int task = Picked(s.before, 0);
    const int count = s.record_before.NumContaminantes(task).Value();
    if (e.field == Field::HojaFinal) {
        return e.j == 2 && e.i > 6 * (task - 1) && e.i <= 6 * (task - 1) + count;
    }
    const bool of_the_list = e.field >= Field::NombreContaminante && e.field <= Field::Unidades;
    return of_the_list && e.i == task && e.j <= count;
}

bool MayWriteOnForm5(const Step& s, const Element& e) {
    const int day = s.before.Day();
    if (const int task = ValidatedTask(s); task != 0) {
        return (e.field == Field::MG || e.field == Field::GSD) && e.i == day && e.j == task;
    }
    if (const int task = EvaluatedTask(s); task != 0) {
        return (e.field == Field::MGmas || e.field == Field::GSDmas) && e.i == day && e.j == task;
    }
    if (s.action.target != "Command8") return false;
    if (e.field == Field::HojaFinal) return e.j == 2 + day || e.j == 6 + day;
    constexpr std::array kSlots = {Field::HojaPrimerDia, Field::HojaSegundoDia,
                                   Field::HojaTercerDia};
    return e.field == kSlots.at(static_cast<std::size_t>(day - 1));
}

/// A move, or one that failed as its target was loaded.
bool Leaves(const Step& s) { return s.Moved() || s.outcome.error.has_value(); }

bool MayWrite(const Step& s, const Element& e) {
    if (s.action.kind == Kind::Choose) {
        if (s.Chose(Form2, "recuperardatos")) return e.line > 0;
        return e.field == Field::DatosEmpresa &&
               (s.Chose(Form1, "Nuevaempresa") || (s.before.Id() == Form2 && Leaves(s)));
    }
    if (s.action.kind != Kind::Press) return false;
    switch (s.before.Id()) {
        case Form3:
            return MayWriteOnForm3(s, e);
        case Form4:
            return MayWriteOnForm4(s, e);
        case Form5:
            return MayWriteOnForm5(s, e);
        case Form6:
            return e.field == Field::HojaFinal && e.j == 6;
        default:
            return false;
    }
}

Verdict EachActionWritesItsOwnPartOfTheRecord(const Step& s) {
    for (const Element& element : s.written) {
        if (!MayWrite(s, element)) return Verdict::Broken(NameOf(element), " changed");
    }
    return s.written.empty() ? Verdict::PassedOver() : Verdict::Holds();
}

template <class T>
bool IsOneOf(const T& value, std::initializer_list<T> values) {
    return std::ranges::find(values, value) != values.end();
}

/// What is wrong with an element of a record that only the program's own screens have written.
std::string FaultOf(const EvaluacionRecord& record, const Element& e) {
    const auto unless = [&e](bool sound) { return sound ? std::string() : NameOf(e); };
    switch (e.field) {
        case Field::NumJornadas:
            return unless(IsOneOf(record.NumJornadas.Value(), {0, 1, 3}));
        case Field::NumTareas:
            return unless(record.NumTareas >= 0 && record.NumTareas <= 3);
        case Field::TiempoExposicion:
            return unless(record.TiempoExposicion(e.i, e.j) >= 0 &&
                          record.TiempoExposicion(e.i, e.j) <= 14);
        case Field::Muestras30:
        case Field::Muestras15: {
            const bool entered = record.TiempoExposicion(e.i, e.j) != 0;
            const int rows = SampledRows(record, e.i, e.j);
            return unless(entered ? rows >= 1 && rows <= 6 : rows == 0);
        }
        case Field::NumContaminantes:
            return unless(record.NumContaminantes(e.i) >= 0 && record.NumContaminantes(e.i) <= 6);
        case Field::TiempoMuestreo:
            return unless(IsOneOf(record.TiempoMuestreo(e.i, e.j).Value(), {0, 15, 30}));
        case Field::Aditivo:
            return unless(record.Aditivo(e.i, e.j) >= 0 && record.Aditivo(e.i, e.j) <= 9);
        case Field::Unidades:
            return unless(IsOneOf<std::string>(record.Unidades(e.i, e.j), {"", "mg/m3", "ppm"}));
        case Field::VlaEd:
            return unless(record.VlaEd(e.i, e.j) >= 0);
        case Field::VlaEc:
            return unless(record.VlaEc(e.i, e.j) >= 0);
        case Field::MG:
        case Field::GSD: {
            const Doble mean = record.MG(e.i, e.j, e.k);
            const Doble deviation = record.GSD(e.i, e.j, e.k);
            return unless((mean == 0 && deviation == 0) || (mean > 0 && deviation >= 1));
        }
        case Field::HojaFinal:
            return unless(e.j != 1 || record.HojaFinal(e.i, 1).empty());
        default:
            return {};
    }
}

Verdict TheRecordKeepsWithinItsRanges(const Step& s) {
    if (!s.own_after || s.written.empty()) return Verdict::PassedOver();
    for (const Element& element : s.written) {
        const std::string fault = FaultOf(s.record_after, element);
        if (!fault.empty()) return Verdict::Broken(fault, " is out of its range");
    }
    return Verdict::Holds();
}

Verdict NoElementOfDatosEmpresaIsEmptyOnceStored(const Step& s) {
    if (s.before.Id() != Form2 || !s.Moved() || s.action.target == "Regresar") {
        return Verdict::PassedOver();
    }
    const auto Text1 = s.before.Cells("Text1");
    for (int i = 1; i <= 19; ++i) {
        const std::string due = Text1(i).Text.empty() ? "---" : Text1(i).Text;
        if (s.record_after.DatosEmpresa(i) != due) {
            return Verdict::Broken("element ", i, " is \"", s.record_after.DatosEmpresa(i), "\"");
        }
    }
    return Verdict::Holds();
}

Verdict AnOutcomeHangsOnWhatIsShownAndTheRecordAlone(const Step& s) {
    const bool click = s.action.kind == Kind::Press || s.action.kind == Kind::Pick ||
                       s.action.kind == Kind::DoubleClick || s.action.kind == Kind::Choose;
    const bool writes_a_file = s.action.target == "guardararchivo";
    if (!click || writes_a_file) return Verdict::PassedOver();

    Process twin(s.folder);
    twin.record = s.record_before;
    twin.Open(s.before.Id());
    s.before.GiveTo(twin.Current());
    twin.record = s.record_before;
    if (!twin.Offers(s.action)) return Verdict::Broken("a new screen that shows the same refuses");
    const Outcome& outcome = twin.Perform(s.action);
    if (outcome.boxes != s.outcome.boxes) return Verdict::Broken("a new screen shows other boxes");
    if (outcome.error != s.outcome.error || outcome.ended != s.outcome.ended) {
        return Verdict::Broken("a new screen ends otherwise");
    }
    if (!s.Lives()) return Verdict::Holds();
    Screenshot shown;
    shown.Take(twin.Current());
    if (shown.Id() != s.after.Id()) return Verdict::Broken("a new screen moves elsewhere");
    if (!(shown == s.after)) {
        return Verdict::Broken("a new screen ends unlike in ",
                               shown.DifferencesFrom(s.after).front());
    }
    const std::vector<Element> differences = Differences(twin.record, s.record_after);
    if (differences.empty()) return Verdict::Holds();
    return Verdict::Broken("a new screen writes another ", NameOf(differences.front()));
}

Verdict AStepRepeatedChangesNothing(const Step& s) {
    const bool click = s.action.kind == Kind::Press || s.action.kind == Kind::Pick ||
                       s.action.kind == Kind::Choose;
    if (!click || s.previous != s.action || s.Moved() || !s.Lives()) return Verdict::PassedOver();
    if (!s.written.empty()) return Verdict::Broken(NameOf(s.written.front()), " changed");
    if (s.after == s.before) return Verdict::Holds();
    return Verdict::Broken(s.after.DifferencesFrom(s.before).front(), " changed");
}

}  // namespace

const std::vector<Invariant> kRecordInvariants = {
    {"A refused action changes nothing in the record.", ARefusedActionChangesNothingInTheRecord},
    {"Each action writes its own part of the record and no other.",
     EachActionWritesItsOwnPartOfTheRecord},
    {"A record that the program's own screens made keeps within its ranges.",
     TheRecordKeepsWithinItsRanges},
    {"Leaving Form2 by continuar stores each box as it stands, or three dashes for an empty "
     "one.",
     NoElementOfDatosEmpresaIsEmptyOnceStored},
    {"What an action does hangs on what the screen shows and on the record alone.",
     AnOutcomeHangsOnWhatIsShownAndTheRecordAlone},
    {"A step repeated at once changes nothing more.", AStepRepeatedChangesNothing},
};

}  // namespace velmora::property
