#include "report/session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "store/path.h"

namespace velmora::report {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/// A folder with two evaluations, and runs in it.
class SessionTest : public ::testing::Test {
protected:
    SessionTest() {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        const fs::path examples = VELMORA_EXAMPLES;
        fs::copy_file(examples / "tres-dias-tres-tareas.doc", PathOf(Name("tres días.doc")));
        fs::copy_file(examples / "plan-dia-trabajado.doc", Name("plan.doc"));
    }
    ~SessionTest() override { fs::remove_all(folder_); }

    std::string Name(const std::string& name) const { return NameOf(folder_ / PathOf(name)); }

    static std::string Bytes(const std::string& name) {
        std::ifstream in(PathOf(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    static std::vector<std::string> Lines(const std::string& text) {
        std::istringstream in(text);
        std::vector<std::string> lines;
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        return lines;
    }

    int Do(std::initializer_list<std::string> words, bool progress = false) {
        out_.str("");
        err_.str("");
        return report::Run(ReadOrder(std::vector<std::string>(words)), {out_, err_, progress});
    }

    const fs::path folder_ = fs::path(::testing::TempDir()) /
                             ::testing::UnitTest::GetInstance()->current_test_info()->name();
    std::ostringstream out_;
    std::ostringstream err_;
};

TEST_F(SessionTest, AReportComesBesideEachEvaluation) {
    EXPECT_EQ(Do({Name("tres días.doc"), Name("plan.doc")}), 0);
    EXPECT_THAT(Bytes(Name("tres días.html")), HasSubstr("Talleres Ebro"));
    EXPECT_THAT(Bytes(Name("plan.html")), HasSubstr("Barnices del Jalón"));
    EXPECT_EQ(err_.str() + out_.str(), "");
}

TEST_F(SessionTest, AnExistingReportIsReplacedOnlyWhenAsked) {
    std::ofstream(Name("plan.html")) << "de otro";
    EXPECT_EQ(Do({Name("plan.doc")}), 1);
    EXPECT_EQ(Bytes(Name("plan.html")), "de otro");
    EXPECT_THAT(err_.str(), HasSubstr("plan.html»: ya existe"));
    EXPECT_EQ(Do({"--reemplazar", Name("plan.doc")}), 0);
    EXPECT_THAT(Bytes(Name("plan.html")), StartsWith("<!DOCTYPE html>"));
}

TEST_F(SessionTest, NoEvaluationIsEverWrittenOver) {
    const std::string before = Bytes(Name("plan.doc"));
    EXPECT_EQ(Do({"--reemplazar", "--salida", Name("plan.doc"), Name("plan.doc")}), 1);
    EXPECT_EQ(
        Do({"--reemplazar", "--csv", Name("./plan.doc"), Name("tres días.doc"), Name("plan.doc")}),
        1);
    EXPECT_EQ(Bytes(Name("plan.doc")), before);
    fs::copy_file(Name("plan.doc"), Name("raro.html"));
    EXPECT_EQ(Do({"--reemplazar", Name("raro.html")}), 1) << "its own report's name";
    EXPECT_EQ(Bytes(Name("raro.html")), before);
    EXPECT_EQ(Do({"--reemplazar", "--csv", Name("plan.doc"), Name("tres días.doc")}), 1);
    EXPECT_THAT(err_.str(), HasSubstr("plan.doc»: es una evaluación"));
    EXPECT_EQ(Bytes(Name("plan.doc")), before);
}

TEST_F(SessionTest, TwoEvaluationsDontShareAReport) {
    fs::copy_file(PathOf(Name("tres días.doc")), Name("plan.txt"));
    EXPECT_EQ(Do({"--reemplazar", Name("plan.doc"), Name("plan.txt")}), 1);
    EXPECT_THAT(Bytes(Name("plan.html")), HasSubstr("Barnices del Jalón"));
}

TEST_F(SessionTest, WhatCantBeReadIsNamedAndTheRestIsDone) {
    std::ofstream(Name("lista.txt")) << "leche\npan\n";
    EXPECT_EQ(Do({Name("nada.doc"), Name("lista.txt"), Name("plan.doc")}), 1);
    EXPECT_THAT(Lines(err_.str()),
                ElementsAre(StartsWith("velmora-informe: «" + Name("nada.doc") + "»: "),
                            StartsWith("velmora-informe: «" + Name("lista.txt") + "»: ")));
    EXPECT_TRUE(fs::exists(Name("plan.html")));
    EXPECT_FALSE(fs::exists(Name("lista.html")));
}

TEST_F(SessionTest, TheTableHoldsALineForEachRowOfEachDay) {
    EXPECT_EQ(Do({"--csv", Name("t.csv"), Name("tres días.doc"), Name("plan.doc")}), 0);
    const std::vector<std::string> lines = Lines(Bytes(Name("t.csv")));
    ASSERT_EQ(lines.size(), 1U + 3 * 18) << "the plan has no validated day";
    EXPECT_EQ(lines[0],
              "\xEF\xBB\xBF"
              "Fichero;Código;Empresa;Jornada;Tarea;Nº;Contaminante;Unidad;Horas;VLA-ED;VLA-EC;"
              "T.M.;A+;C1;C2;C3;C4;C5;C6;MMP;Indice;Indic.+;MG;GSD;EC+;MG+;GSD+;Prob.;IG\r");
    // The worked day's xylene; IG of the file, with a comma.
    EXPECT_THAT(lines[2], StartsWith("tres días.doc;EV-2024-07;Talleres Ebro Pinturas, S.L.;1;1;2;"
                                     "Xileno;mg/m3;8;221;442;15;1;30;45;20;35;;;32,77;0,15;0,19;"
                                     "31,18;1,4;536,069661301946;47,7472786976975;"
                                     "1,43136286612149;0,001;"));
    EXPECT_FALSE(fs::exists(Name("plan.html")));
}

TEST_F(SessionTest, TheTableMayHaveDecimalPoints) {
    EXPECT_EQ(Do({"--csv", Name("t.csv"), "--punto", Name("tres días.doc")}), 0);
    EXPECT_THAT(Bytes(Name("t.csv")), HasSubstr(";32.77;0.15;0.19;"));
}

TEST_F(SessionTest, WithoutAnyEvaluationThereIsNoTable) {
    EXPECT_EQ(Do({"--csv", Name("t.csv"), Name("nada.doc")}), 1);
    EXPECT_FALSE(fs::exists(Name("t.csv")));
}

TEST_F(SessionTest, TheSummaryIsALineForEachEvaluation) {
    EXPECT_EQ(Do({"--resumen", Name("tres días.doc"), Name("plan.doc")}), 0);
    const std::vector<std::string> lines = Lines(out_.str());
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_THAT(
        lines[0],
        StartsWith("EV-2024-07\tTalleres Ebro Pinturas, S.L.\tJornada 1: índice 0.61; corta "
                   "exposición 1 %; DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS; "
                   "SITUACIÓN DE INCERTIDUMBRE PARA EXPOSICIONES EN PERIODOS CORTOS\t"));
    EXPECT_THAT(lines[1], HasSubstr("\tJornada 1: sin validar\t"));
    EXPECT_THAT(lines[1], ::testing::EndsWith("\t" + Name("plan.doc")));
}

TEST_F(SessionTest, ProgressIsToldOfMoreThanTwentyFiles) {
    Order order;
    order.summary = true;
    order.evaluations.assign(20, Name("plan.doc"));
    report::Run(order, {out_, err_, true});
    EXPECT_EQ(err_.str(), "");
    order.evaluations.push_back(Name("plan.doc"));
    report::Run(order, {out_, err_, false});
    EXPECT_EQ(err_.str(), "");
    report::Run(order, {out_, err_, true});
    EXPECT_THAT(err_.str(), ::testing::EndsWith("\r20 de 21\r21 de 21\n"));
}

TEST_F(SessionTest, AnOutputThatCantBeWrittenIsAnError) {
    out_.setstate(std::ios::badbit);
    EXPECT_EQ(report::Run(ReadOrder(std::vector<std::string>{"--resumen", Name("plan.doc")}),
                          {out_, err_, false}),
              1);
    EXPECT_THAT(err_.str(), HasSubstr("salida estándar"));
}

TEST(ReportNameTest, TheEndingIsReplaced) {
    EXPECT_EQ(ReportNameOf("a/b.c/evaluación.doc"), "a/b.c/evaluación.html");
    EXPECT_EQ(ReportNameOf("a/sin"), "a/sin.html");
    EXPECT_EQ(ReportNameOf("dos.puntos.doc"), "dos.puntos.html");
}

}  // namespace
}  // namespace velmora::report
