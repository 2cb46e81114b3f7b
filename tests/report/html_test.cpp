#include "report/html.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "core/record.h"
#include "report/report.h"
#include "store/evaluation_file.h"

namespace velmora::report {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

EvaluacionRecord Example() {
    EvaluacionRecord record;
    ReadEvaluation(std::string(VELMORA_EXAMPLES) + "/tres-dias-tres-tareas.doc", record);
    return record;
}

/// Every text of the evaluation.
template <class Use>
void ForEachText(EvaluacionRecord& record, const Use& use) {
    for (auto* texts : {&record.HojaPrimerDia, &record.HojaSegundoDia, &record.HojaTercerDia}) {
        for (std::string& text : *texts) use(text);
    }
    for (std::string& text : record.DatosEmpresa) use(text);
    for (auto& task : record.NombreContaminante) {
        for (std::string& text : task) use(text);
    }
    for (auto& task : record.Unidades) {
        for (std::string& text : task) use(text);
    }
    for (auto& row : record.HojaFinal) {
        for (std::string& text : row) use(text);
    }
}

TEST(HtmlTest, TheSectionsStandInTheirOrder) {
    const std::string page = Html(MakeReport(Example()));
    std::size_t place = 0;
    for (const char* const name : {"datos", "conclusiones", "plan", "contaminantes", "jornadas",
                                   "final", "graficos", "revisar", "norma", "calculo"}) {
        const std::size_t next = page.find("<h2 id=\"" + std::string(name) + '"');
        ASSERT_NE(next, std::string::npos) << name;
        EXPECT_GT(next, place) << name;
        place = next;
    }
}

TEST(HtmlTest, TheFiguresStandAsTheSheetHoldsThem) {
    const std::string page = Html(MakeReport(Example()));
    // The first day's mixture of xylene and ethylbenzene, from the evaluation file.
    EXPECT_THAT(page, HasSubstr("<td class=\"n\">.15</td><td class=\"n\">0.19</td>"));
    EXPECT_THAT(page, HasSubstr("<td class=\"n\">536.069661301946</td>"));
    EXPECT_THAT(page, HasSubstr("DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS"));
}

TEST(HtmlTest, EachKindOfPictureIsThere) {
    const std::string page = Html(MakeReport(Example()));
    for (const char* const name :
         {"indices", "muestras-1", "muestras-2", "muestras-3", "escalera"}) {
        EXPECT_THAT(page, HasSubstr("aria-labelledby=\"" + std::string(name) + "-t"));
    }
}

TEST(HtmlTest, ThePrintedHeadHoldsCompanyAndCode) {
    const std::string page = Html(MakeReport(Example()));
    EXPECT_THAT(page,
                HasSubstr("@top-left { content: \"Talleres Ebro Pinturas\\2c  S\\2e L\\2e \";"));
    EXPECT_THAT(page, HasSubstr("@top-right { content: \"Evaluación EV\\2d 2024\\2d 07\";"));
}

TEST(HtmlTest, NothingComesFromOutside) {
    const std::string page = Html(MakeReport(Example()));
    for (const char* const part :
         {"<script", "<link", "<img", "src=", "http:", "https:", "@import", "url("}) {
        EXPECT_THAT(page, Not(HasSubstr(part)));
    }
}

TEST(HtmlTest, TheSameEvaluationGivesTheSamePage) {
    EXPECT_EQ(Html(MakeReport(Example())), Html(MakeReport(Example())));
}

TEST(HtmlTest, TextsOfTheFileMarkNothingUp) {
    EvaluacionRecord record = Example();
    const std::string hostile = "</style></title><script>alert('1')</script>\"]]>&\x01 onload=\"x";
    ForEachText(record, [&](std::string& text) { text = hostile + text; });
    const std::string page = Html(MakeReport(record));
    EXPECT_THAT(page, Not(HasSubstr("<script")));
    EXPECT_THAT(page, Not(HasSubstr("\x01")));
    EXPECT_THAT(page, HasSubstr("&lt;script&gt;alert(&#39;1&#39;)"));
    EXPECT_EQ(page.find("</style>"), page.rfind("</style>"));
    EXPECT_EQ(page.find("</title>"), page.find("</title>\n<style>"));
}

TEST(HtmlTest, MegabytesInFieldsDontMakeAPageOfMegabytes) {
    EvaluacionRecord record = Example();
    const std::string large(1U << 20U, '<');
    for (std::string& text : record.DatosEmpresa) text = large;
    for (auto& task : record.NombreContaminante) task(1) = large;
    record.HojaPrimerDia(400) = large;
    EXPECT_LT(Html(MakeReport(record)).size(), large.size()) << "the size of one of them";
}

TEST(HtmlTest, NothingToReviewIsSaidInBothPlaces) {
    Report report = MakeReport(Example());
    report.findings.clear();
    const std::string page = Html(report);
    EXPECT_THAT(page, HasSubstr("La segunda lectura no encuentra nada que revisar."));
    EXPECT_THAT(page, HasSubstr("No se ha encontrado ninguna diferencia."));
}

TEST(HtmlTest, TheNoticeTellsWhatTheFindingsDoToTheVerdicts) {
    Report report = MakeReport(Example());
    report.findings.resize(1);
    report.findings.front().changes_verdict = false;
    EXPECT_THAT(Html(report), HasSubstr("1 punto, ninguno de los cuales cambia un veredicto."));
    report.days.front().plain.over_limit = "SI";
    EXPECT_THAT(Html(report), HasSubstr("ninguno cambia por sí solo un veredicto, pero juntos sí"));
    report.findings.front().changes_verdict = true;
    EXPECT_THAT(Html(report), HasSubstr("de los que <b>1 cambia un veredicto</b>"));
}

TEST(HtmlTest, ADayWithNothingComputedHasNoOtherConclusion) {
    Report report = MakeReport(Example());
    for (Day& day : report.days) day.plain = {};
    EXPECT_THAT(Html(report), Not(HasSubstr("llega a otra conclusión")));
}

TEST(HtmlTest, AnEmptyEvaluationIsAPage) {
    const std::string page = Html(MakeReport(EvaluacionRecord()));
    EXPECT_THAT(page, HasSubstr("Ninguna jornada está validada."));
    EXPECT_THAT(page, HasSubstr("No hay resultados que dibujar."));
}

}  // namespace
}  // namespace velmora::report
