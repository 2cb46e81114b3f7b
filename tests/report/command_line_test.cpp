#include "report/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora::report {
namespace {

using ::testing::ElementsAre;

Order Read(std::initializer_list<std::string> words) {
    return ReadOrder(std::vector<std::string>(words));
}

std::string Refusal(std::initializer_list<std::string> words) {
    try {
        Read(words);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "";
}

TEST(CommandLineTest, NamesAloneAskForReports) {
    const Order order = Read({"a.doc", "b.doc"});
    EXPECT_THAT(order.evaluations, ElementsAre("a.doc", "b.doc"));
    EXPECT_TRUE(order.WantsReports());
    EXPECT_FALSE(order.replace);
}

TEST(CommandLineTest, TableAndSummaryTakeTheReportsPlace) {
    EXPECT_FALSE(Read({"--csv=t.csv", "a"}).WantsReports());
    EXPECT_FALSE(Read({"--resumen", "a"}).WantsReports());
    EXPECT_TRUE(Read({"--resumen", "--salida", "i.html", "a"}).WantsReports());
}

TEST(CommandLineTest, ValuesStandBehindAnEqualsSignOrInTheNextWord) {
    EXPECT_EQ(Read({"--salida=x=y.html", "a"}).report, "x=y.html");
    EXPECT_EQ(Read({"--salida", "--raro", "a"}).report, "--raro");
    EXPECT_EQ(Read({"--csv", "t", "a"}).table, "t");
}

TEST(CommandLineTest, OptionsStandAnywhereUntilTwoHyphens) {
    const Order order = Read({"a", "--reemplazar", "--", "--resumen", "-b"});
    EXPECT_TRUE(order.replace);
    EXPECT_FALSE(order.summary);
    EXPECT_THAT(order.evaluations, ElementsAre("a", "--resumen", "-b"));
}

TEST(CommandLineTest, OptionsMayBeShortenedWhileTheyStayUnique) {
    EXPECT_TRUE(Read({"--ree", "a"}).replace);
    EXPECT_EQ(Read({"--sal=x", "a"}).report, "x");
    EXPECT_EQ(Refusal({"--re", "a"}), "la opción «--re» es ambigua");
}

TEST(CommandLineTest, HelpAndVersionNeedNoName) {
    EXPECT_TRUE(Read({"--ayuda"}).help);
    EXPECT_TRUE(Read({"--help"}).help);
    EXPECT_TRUE(Read({"--version"}).version);
}

TEST(CommandLineTest, WhatIsNotUnderstoodIsSaid) {
    EXPECT_EQ(Refusal({}), "falta el fichero de la evaluación");
    EXPECT_EQ(Refusal({"--otra", "a"}), "no hay ninguna opción «--otra»");
    EXPECT_EQ(Refusal({"-x", "a"}), "no hay ninguna opción «-x»");
    EXPECT_EQ(Refusal({"--=x", "a"}), "no hay ninguna opción «--»");
    EXPECT_EQ(Refusal({"a", "--salida"}), "la opción «--salida» necesita un nombre");
    EXPECT_EQ(Refusal({"--salida=", "a"}), "la opción «--salida» necesita un nombre");
    EXPECT_EQ(Refusal({"--csv=a", "--csv=b", "c"}), "la opción «--csv» está dos veces");
    EXPECT_EQ(Refusal({"--resumen=no", "a"}), "la opción «--resumen» no lleva valor");
    EXPECT_EQ(Refusal({"--salida=x", "a", "b"}), "«--salida» es para una sola evaluación");
    EXPECT_EQ(Refusal({"--punto", "a"}), "«--punto» es para «--csv»");
}

TEST(CommandLineTest, TheUsageNamesEveryOption) {
    for (const char* const option :
         {"--salida", "--reemplazar", "--csv", "--punto", "--resumen", "--ayuda", "--version"}) {
        EXPECT_THAT(std::string(UsageText()), ::testing::HasSubstr(option));
    }
}

}  // namespace
}  // namespace velmora::report
