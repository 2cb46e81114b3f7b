#include <algorithm>
#include <array>
#include <ostream>

#include "report/html_parts.h"
#include "report/plots.h"
#include "report/text.h"

namespace velmora::report {

namespace {

using Column = Table::Column;

std::string Number(int value) { return Whole(value); }

/// A name that heads a row, which may not be blank.
Markup NameText(std::string_view name) {
    const Markup text = Text(name);
    return text.empty() ? "sin nombre" : text;
}

/// A number of the plan: up to fifteen digits, "—" for none.
Markup LimitText(double value) { return value == 0 ? "—" : Rounded(value, 15); }

// --- The verdicts at a glance.

/// How grave a sentence is: 1 to 3, 0 for none. The sentences are those of the day's conclusions.
int GravityOf(std::string_view sentence) {
    const auto says = [&](std::string_view word) {
        return sentence.find(word) != std::string_view::npos;
    };
    if (says("RIESGO INACEPTABLE") || says("ALTA PROBABILIDAD")) return 3;
    if (says("SEGURA") || says("BAJA PROBABILIDAD")) return 1;
    return Shown(sentence).empty() ? 0 : 2;
}

/// A sign for each gravity, told apart by its form: a tick, a question, a cross.
Markup SignOf(int gravity) {
    constexpr std::array<std::string_view, 4> kPaths = {
        "M5 10H15", "M5 10.5L8.5 14L15 6.5",
        "M7 7.5Q7 5 10 5Q13 5 13 7.5Q13 9.5 10 11V12M10 14.5V15", "M6 6L14 14M14 6L6 14"};
    return "<svg class=\"signo\" aria-hidden=\"true\" viewBox=\"0 0 20 20\" width=\"20\" "
           "height=\"20\"><path d=\"" +
           std::string(kPaths.at(static_cast<std::size_t>(gravity))) + "\"/></svg>";
}

Markup VerdictBox(std::string_view label, const Markup& value, std::string_view sentence) {
    const int gravity = GravityOf(sentence);
    const Markup said = Text(sentence);
    return Element("div",
                   SignOf(gravity) + Element("p", Escaped(label) + " " + Element("b", value)) +
                       Element("p", said.empty() ? "Sin conclusión" : said, "class=\"frase\""),
                   "class=\"veredicto v" + Number(gravity) + "\"");
}

/// Per cent behind a probability class.
Markup PercentOf(const Figure& figure) {
    return Shown(figure.text).empty() ? "—" : Text(figure.text) + "\u00A0%";
}

/// What the plain computation concludes, where it isn't what the sheet says.
Markup OtherConclusion(const Day& day) {
    const Conclusion& sheet = day.sheet;
    const Conclusion& plain = day.plain;
    if (plain.index_sentence.empty()) return "";  // nothing was computed
    Markup others;
    const auto compare = [&](const std::string& ours, const std::string& theirs) {
        if (Shown(ours) != Shown(theirs)) others += Element("li", Text(theirs));
    };
    compare(sheet.index_sentence, plain.index_sentence);
    compare(sheet.probability_sentence, plain.probability_sentence);
    if (Shown(sheet.over_limit) != Shown(plain.over_limit)) {
        others += Element("li", "¿Se ha superado 3 × VLA-ED o VLA-EC? " + Text(plain.over_limit));
    }
    if (others.empty()) return "";
    return Element("div",
                   Element("p",
                           "La segunda lectura llega a otra conclusión "
                           "(<a href=\"#revisar\">por qué</a>):") +
                       Element("ul", others),
                   "class=\"otra\"");
}

Markup DayTitle(const Day& day) {
    return "Jornada " + Number(day.day) + (day.in_plan ? "" : " (fuera del plan)");
}

Markup DayCard(const Day& day) {
    Markup content = Element("h3", DayTitle(day));
    if (!day.validated) {
        content += Element("p", "Sin validar: la hoja de este día no tiene conclusiones.",
                           "class=\"falta\"");
    } else {
        content +=
            VerdictBox("Mayor índice:", Cell(day.sheet.highest_index), day.sheet.index_sentence);
        content += VerdictBox("Exposición corta, clase:", PercentOf(day.sheet.highest_probability),
                              day.sheet.probability_sentence);
        content += Element("p", "¿Se ha superado 3 × VLA-ED o VLA-EC? " +
                                    Element("b", Text(day.sheet.over_limit)));
        content += OtherConclusion(day);
    }
    return Element("article", content, "class=\"tarjeta\"");
}

/// What the findings do to the verdicts, together and one by one.
Markup EffectOf(const Report& report) {
    const auto changing = std::ranges::count(report.findings, true, &Finding::changes_verdict);
    if (changing > 0) {
        return ", de los que <b>" + Whole(changing) + (changing == 1 ? " cambia" : " cambian") +
               " un veredicto</b>.";
    }
    const bool together = std::ranges::any_of(
        report.days, [](const Day& day) { return day.validated && !OtherConclusion(day).empty(); });
    return together ? "; ninguno cambia por sí solo un veredicto, pero juntos sí."
                    : ", ninguno de los cuales cambia un veredicto.";
}

Markup ReviewNotice(const Report& report) {
    const Markup link = "<a href=\"#revisar\">Lo que conviene revisar</a>: ";
    const std::size_t points = report.findings.size();
    Markup text;
    if (points > 0) {
        text = link + Whole(points) + (points == 1 ? " punto" : " puntos") + EffectOf(report);
    }
    if (!report.remarks.empty()) {
        text += (text.empty() ? link : Markup(" ")) +
                "El fichero de la evaluación no se ha leído entero o tal como se escribió.";
    }
    if (text.empty()) return Element("p", "La segunda lectura no encuentra nada que revisar.");
    return Element("p", text, "class=\"aviso\"");
}

// --- The days.

// clang-format off
constexpr std::array kDayColumns = {
    Column{"Nº", true}, Column{"Contaminante", false, true}, Column{"A+", true},
    Column{"C1", true}, Column{"C2", true}, Column{"C3", true},
    Column{"C4", true}, Column{"C5", true}, Column{"C6", true},
    Column{"MMP", true}, Column{"Indice", true}, Column{"Indic.+", true},
    Column{"MG", true}, Column{"GSD", true},
    Column{"EC+", true}, Column{"MG+", true}, Column{"GSD+", true}, Column{"Prob.", true},
};
// clang-format on

std::vector<Markup> CellsOf(const SheetRow& row) {
    Markup name = NameText(row.name);
    if (!row.unit.empty()) name += " <small>" + Escaped(UnitShown(row.unit)) + "</small>";
    std::vector<Markup> cells;
    cells.reserve(kDayColumns.size());
    cells.push_back(Number(row.contaminant));
    cells.push_back(std::move(name));
    cells.push_back(Cell(row.group));
    for (const Figure& sample : row.samples) cells.push_back(Cell(sample));
    for (const Figure* figure : {&row.mmp, &row.index, &row.combined_index, &row.mg, &row.gsd,
                                 &row.ec_plus, &row.mg_plus, &row.gsd_plus, &row.probability}) {
        cells.push_back(Cell(*figure));
    }
    return cells;
}

Markup DayTable(const Day& day) {
    const std::string number = Number(day.day);
    Table table("tabla-dia-" + number,
                "Mediciones y resultados de la jornada " + number +
                    ". Concentraciones en la unidad del contaminante; Prob. es la clase, en %.",
                kDayColumns);
    int task = 0;
    for (const SheetRow& row : day.rows) {
        if (row.task != task) table.BeginGroup("Tarea " + Number(row.task));
        task = row.task;
        table.Row(CellsOf(row));
    }
    return table.Finish();
}

Markup Answer(const Markup& question, const Markup& answer) {
    return Element("div", Element("dt", question) + Element("dd", answer));
}

Markup DayConclusion(const Day& day) {
    const Conclusion& said = day.sheet;
    return Element(
               "dl",
               Answer("¿Se ha superado 3 × VLA-ED o VLA-EC?", Text(said.over_limit)) +
                   Answer("Mayor índice, simple y aditivo", Cell(said.highest_index)) +
                   Answer("Conclusión sobre el índice", Text(said.index_sentence)) +
                   Answer("Probabilidad de superar corta exposición, clase",
                          PercentOf(said.highest_probability)) +
                   Answer("Conclusión sobre la exposición corta", Text(said.probability_sentence)),
               "class=\"respuestas\"") +
           OtherConclusion(day);
}

// --- The final table.

// clang-format off
constexpr std::array kFinalColumns = {
    Column{"Nº", true}, Column{"Contaminante", false, true},
    Column{"I1", true}, Column{"I2", true}, Column{"I3", true}, Column{"IG", true},
    Column{"P1", true}, Column{"P2", true}, Column{"P3", true},
};
// clang-format on

std::vector<Markup> CellsOf(const FinalRow& row) {
    std::vector<Markup> cells = {Number(row.contaminant), NameText(row.name)};
    for (const Figure& index : row.index) cells.push_back(Cell(index));
    cells.push_back(Cell(row.overall));
    for (const Figure& probability : row.probability) cells.push_back(Cell(probability));
    return cells;
}

/// A picture with its caption, and whether there is one.
bool WriteFigure(const Markup& picture, const Markup& caption, std::string_view label,
                 std::ostream& out) {
    if (picture.empty()) return false;
    out << R"(<figure><div class="lienzo" role="group" tabindex="0" aria-label=")" << Escaped(label)
        << "\">" << picture << "</div>\n"
        << Element("figcaption", caption) << "</figure>\n";
    return true;
}

}  // namespace

Markup CompanySection(const Report& report) {
    Markup fields;
    for (const CompanyField& field : report.company) {
        const Markup text = CompanyMarkup(report, field.number);
        fields += Answer(Escaped(field.label), text.empty() ? "—" : text);
    }
    return Section("datos", "Datos de la evaluación", Element("dl", fields, "class=\"datos\""));
}

Markup VerdictSection(const Report& report) {
    Markup cards;
    for (const Day& day : report.days) cards += DayCard(day);
    if (cards.empty()) cards = Element("p", "El plan no tiene ninguna jornada.");
    return Section("conclusiones", "Conclusiones de cada jornada",
                   Element("div", cards, "class=\"tarjetas\"") + ReviewNotice(report));
}

Markup PlanSection(const Report& report) {
    constexpr std::array kColumns = {
        Column{"Tarea", false, true},        Column{"Horas de exposición", true},
        Column{"Con muestras de 30′", true}, Column{"Con muestras de 15′", true},
        Column{"Contaminantes", true},
    };
    Table table("tabla-plan",
                "Jornadas y tareas: horas, y cuántos contaminantes se toman con muestras de cada "
                "duración.",
                kColumns);
    int day = 0;
    for (const PlanLine& line : report.plan) {
        if (line.day != day) table.BeginGroup("Jornada " + Number(line.day));
        day = line.day;
        table.Row({"Tarea " + Number(line.task), Rounded(line.hours, 15), Number(line.samples30),
                   Number(line.samples15), Number(line.contaminants)});
    }
    return Section("plan", "Plan de mediciones", table.Finish());
}

Markup AgentSection(const Report& report) {
    constexpr std::array kColumns = {
        Column{"Nº", true},
        Column{"Contaminante", false, true},
        Column{"VLA-ED", true},
        Column{"VLA-EC", true},
        Column{"Unidad"},
        Column{"T.M., minutos", true},
        Column{"Grupo aditivo", true},
    };
    Table table("tabla-contaminantes",
                "Contaminantes de cada tarea con sus valores límite. «—» quiere decir que no lo "
                "tiene.",
                kColumns);
    int task = 0;
    for (const Agent& agent : report.agents) {
        if (agent.task != task) table.BeginGroup("Tarea " + Number(agent.task));
        task = agent.task;
        table.Row({Number(agent.contaminant), NameText(agent.name), LimitText(agent.vla_ed),
                   LimitText(agent.vla_ec), Escaped(UnitShown(agent.unit)),
                   Number(agent.sampling_minutes), agent.group == 0 ? "—" : Number(agent.group)});
    }
    return Section("contaminantes", "Contaminantes y valores límite", table.Finish());
}

void WriteDaySections(const Report& report, std::ostream& out) {
    out << SectionStart("jornadas", "Jornadas", "jornadas");
    const bool any = std::ranges::any_of(report.days, &Day::validated);
    out << Element("p", any ? "Las cifras están tal como las guarda la hoja, con punto decimal: "
                              ".61 es 0.61, 1. es 1, y un punto solo es un cero o un valor menor "
                              "que 0.005."
                            : "Ninguna jornada está validada.");
    for (const Day& day : report.days) {
        if (!day.validated) continue;
        out << "<div class=\"jornada\">" << Element("h3", DayTitle(day)) << DayTable(day)
            << DayConclusion(day) << "</div>\n";
    }
    out << kSectionEnd;
}

Markup FinalSection(const Report& report) {
    Table table("tabla-final",
                "Tabla final: el índice de cada jornada (I1 a I3), su media geométrica (IG) y la "
                "clase de probabilidad de la exposición corta, en % (P1 a P3).",
                kFinalColumns);
    int task = 0;
    for (const FinalRow& row : report.final_table) {
        if (row.task != task) table.BeginGroup("Tarea " + Number(row.task));
        task = row.task;
        table.Row(CellsOf(row));
    }
    return Section("final", "Tabla final", table.Finish());
}

void WritePictureSection(const Report& report, std::ostream& out) {
    out << SectionStart("graficos", "Gráficos");
    bool any = WriteFigure(IndexPicture(report),
                           "Índice de cada contaminante en cada jornada. Hasta la décima parte del "
                           "límite la situación es segura; por encima del límite, inaceptable.",
                           "Índices", out);
    for (const Day& day : report.days) {
        const std::string label = "Muestras de la jornada " + Whole(day.day);
        any |= WriteFigure(ProbabilityPicture(report, day.day),
                           label +
                               ". Cuanto mejor siguen la recta, mejor se describen con una "
                               "distribución log-normal.",
                           label, out);
    }
    any |= WriteFigure(LadderPicture(report),
                       "Exposición corta: en qué clase de probabilidad cae cada contaminante o "
                       "mezcla.",
                       "Exposición corta", out);
    if (!any) out << Element("p", "No hay resultados que dibujar.");
    out << kSectionEnd;
}

}  // namespace velmora::report
