#include <algorithm>
#include <array>
#include <span>

#include "report/cells.h"
#include "report/html_parts.h"
#include "report/text.h"
#include "report/version.h"
#include "stats/statistics.h"

namespace velmora::report {

namespace {

using Heading = Table::Column;

/// A number of the plan, "todas" for 0.
std::string Which(int number) { return number == 0 ? "todas" : Whole(number); }

/// The other rows of a finding, each as task and contaminant: " (también 1·3, 2·1)".
Markup OtherRows(const Finding& finding) {
    if (finding.rows.size() < 2) return "";
    Markup others;
    for (const int row : std::span(finding.rows).subspan(1)) {
        others +=
            (others.empty() ? "" : ", ") + Whole(TaskOf(row)) + "·" + Whole(ContaminantOf(row));
    }
    return " <small>(también " + others + ")</small>";
}

Markup NameOf(const Finding& finding) {
    if (finding.contaminant == 0) return finding.name.empty() ? "—" : Text(finding.name);
    const std::string number = Whole(finding.contaminant);
    return (finding.name.empty() ? "nº " + number : number + " " + Text(finding.name)) +
           OtherRows(finding);
}

Markup OrDash(std::string_view text) {
    const Markup shown = Text(text);
    return shown.empty() ? "—" : shown;
}

Markup FindingTable(const Report& report) {
    constexpr std::array kColumns = {
        Heading{"Jornada"},
        Heading{"Tarea"},
        Heading{"Contaminante", false, true},
        Heading{"Qué"},
        Heading{"La hoja"},
        Heading{"Cálculo llano"},
        Heading{"Por qué"},
        Heading{"¿Cambia el veredicto?"},
    };
    Table table("tabla-revisar", "Lo que dice la hoja y lo que sale al calcularlo de nuevo.",
                kColumns);
    for (const Finding& finding : report.findings) {
        const Markup link = finding.anchor.empty() ? "" : " " + GuideLink(finding.anchor) + ".";
        table.Row({Which(finding.day), Which(finding.task), NameOf(finding), OrDash(finding.what),
                   OrDash(finding.sheet), OrDash(finding.plain), Escaped(finding.why) + link,
                   finding.changes_verdict ? "<strong>Sí</strong>" : "No"});
    }
    return table.Finish();
}

constexpr std::string_view kReadingOfTable =
    "Un punto cambia el veredicto si alguna de las tres respuestas o de las dos frases del día "
    "sería otra al corregir solo ese punto en la hoja, o al dejar solo ese punto sin corregir. Los "
    "enlaces abren la guía del usuario instalada con Velmora; donde no lo esté, el título dice qué "
    "apartado de la guía lo explica.";

Markup RemarkList(const Report& report) {
    Markup items;
    for (const Remark& remark : report.remarks) {
        const Markup line = remark.line == 0 ? "" : "Línea " + Whole(remark.line) + ": ";
        items += Element("li", line + Text(remark.text));
    }
    return Element("h3", "Al leer el fichero") + Element("ul", items);
}

Markup TestName(const PreliminaryTest& test) {
    if (test.group != 0) return "Grupo " + Whole(test.group) + ": " + Text(test.name);
    return "Tarea " + Whole(test.task) + ": " + Text(test.name);
}

/// The result of a day, or "—".
Markup ResultOf(const PreliminaryTest& test, int day) {
    const auto result = std::ranges::find(test.results, day, &PreliminaryTest::Result::day);
    return result == test.results.end() ? "—" : Rounded(result->index, 3);
}

Markup Formula(const Markup& formula) { return Element("p", formula, "class=\"formula\""); }

Markup FactorTable() {
    constexpr std::array kColumns = {Heading{"Mediciones", true, true}, Heading{"F"}};
    Table table("tabla-f", "Factor F de la media estimada; nunca menor que 1.", kColumns);
    table.Row({"2", "1"});
    for (const Correction& factor : kCorrections) {
        table.Row({Whole(factor.n),
                   Rounded(factor.a) + " × e<sup>" + Rounded(factor.b) + " × GSD</sup>"});
    }
    return table.Finish();
}

Markup CurveTable() {
    constexpr std::array kColumns = {Heading{"Clase, %", true, true}, Heading{"Curva"}};
    Table table("tabla-curvas",
                "Clases de probabilidad, con r = EC+ / MG+: vale la primera curva que queda por "
                "encima de GSD+.",
                kColumns);
    for (const LimitCurve& curve : kCurves) {
        table.Row(
            {Rounded(curve.rank), Rounded(curve.a, 5) + " × r<sup>" + Rounded(curve.b) + "</sup>"});
    }
    table.Row({"50", "ninguna queda por encima"});
    return table.Finish();
}

constexpr std::string_view kSources =
    "<ul>\n<li>UNE-EN 689:2018+AC:2019, Exposición en el lugar de trabajo. Medición de la "
    "exposición "
    "por inhalación de agentes químicos. La prueba preliminar es la de su apartado 5.5.2; las tres "
    "jornadas y las frases de la hoja siguen la manera de proceder de la edición anterior, de "
    "1995.</li>\n"
    "<li>Guía técnica para la evaluación y prevención de los riesgos relacionados con los agentes "
    "químicos presentes en los lugares de trabajo, del Instituto Nacional de Seguridad y Salud en "
    "el Trabajo.</li>\n"
    "<li>Los valores límite son los que el técnico ha escrito en la evaluación.</li>\n"
    "<li>Las posiciones (i − 3/8) / (n + 1/4) de los gráficos de probabilidad son las de Blom "
    "(1958).</li>\n</ul>\n";

}  // namespace

Markup ReviewSection(const Report& report) {
    Markup content = Element("p",
                             "A partir solo de las muestras y del plan se ha calculado todo otra "
                             "vez con las fórmulas de "
                             "la guía, sin las particularidades de la hoja. Cada fila es una "
                             "diferencia. Las cifras de la "
                             "hoja no se han cambiado en ninguna parte de este informe.");
    if (report.findings.empty()) {
        content += Element("p", "<b>No se ha encontrado ninguna diferencia.</b>");
    } else {
        content += FindingTable(report);
        content += Element("p", Markup(kReadingOfTable), "class=\"nota\"");
    }
    if (!report.remarks.empty()) content += RemarkList(report);
    return Section("revisar", "Lo que conviene revisar", content);
}

Markup NormSection(const Report& report) {
    constexpr std::array kColumns = {
        Heading{"Contaminante o grupo", false, true},
        Heading{"Jornada 1", true},
        Heading{"Jornada 2", true},
        Heading{"Jornada 3", true},
        Heading{"Umbral", true},
        Heading{"Resultado"},
    };
    Table table("tabla-norma", "Exposición de cada jornada dividida por el VLA-ED, sin redondear.",
                kColumns);
    for (const PreliminaryTest& test : report.preliminary_tests) {
        table.Row({TestName(test), ResultOf(test, 1), ResultOf(test, 2), ResultOf(test, 3),
                   test.threshold ? Rounded(*test.threshold) : "—", Text(test.sentence)});
    }
    const Markup text = Element(
        "p",
        "A título informativo: la prueba preliminar de la norma UNE-EN 689:2018+AC:2019 (apartado "
        "5.5.2) aplicada a las jornadas validadas. Con tres, cuatro o cinco resultados hay "
        "conformidad si ninguno pasa de 0.1, 0.15 o 0.2 veces el valor límite; no la hay si uno "
        "pasa "
        "del valor límite; en otro caso hacen falta más mediciones. No juzga los límites de corta "
        "duración, ni si las mediciones representan la exposición.");
    const Markup none = Element("p", "No hay resultados a los que aplicarla.");
    return Section("norma", "Lo que dice hoy la norma",
                   text + (report.preliminary_tests.empty() ? none : table.Finish()), "caja");
}

Markup MethodSection() {
    const Markup content =
        Element(
            "p",
            "Se supone que las concentraciones de cada contaminante siguen una distribución "
            "log-normal. MG y GSD son la media y la desviación geométricas de sus n mediciones:") +
        Formula(
            "MG = e<sup>m</sup>, GSD = e<sup>s</sup>, con m y s la media y la desviación típica "
            "(divisor n − 1) de los logaritmos neperianos") +
        Formula("MMP = MG × F") + FactorTable() +
        Formula("Indice = (horas de exposición × MMP) / (8 × VLA-ED)") +
        Element("p",
                "Indic.+ es el propio índice, o en un grupo aditivo la suma de los índices de sus "
                "miembros. IG es la raíz cúbica de I1 × I2 × I3.") +
        Formula("EC+ = VLA-EC, o 3 × VLA-ED si no lo hay; en una mezcla, ΣMMP / Σ(MMP / límite)") +
        Element(
            "p",
            "MG+ y GSD+ son las de la fila o, en una mezcla, las de la suma de las mediciones de "
            "sus miembros, posición por posición. La clase de probabilidad sale de cinco curvas:") +
        CurveTable() +
        Element("p",
                "La hoja guarda los resultados con dos decimales, y cada paso parte de los del "
                "anterior ya redondeados. La cola exacta de la distribución log-normal que se cita "
                "junto a las clases es 1 − Φ(ln r / ln GSD+).") +
        Element("h3", "Fuentes") + std::string(kSources) +
        Element("p", "Informe hecho con Velmora " + Escaped(Version()) +
                         " a partir del fichero de la evaluación. El mismo fichero da siempre el "
                         "mismo informe.");
    return Section("calculo", "Cómo se ha calculado", content);
}

}  // namespace velmora::report
