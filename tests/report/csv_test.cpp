#include "report/csv.h"

#include <gtest/gtest.h>

namespace velmora::report {
namespace {

TEST(CsvTest, TextIsQuotedWhereItHasTo) {
    EXPECT_EQ(TextField("Tolueno"), "Tolueno");
    EXPECT_EQ(TextField("Talleres; S.L."), "\"Talleres; S.L.\"");
    EXPECT_EQ(TextField("el \"grande\""), "\"el \"\"grande\"\"\"");
    EXPECT_EQ(TextField("1,5"), "1,5") << "a comma separates nothing";
    EXPECT_EQ(TextField(""), "");
}

TEST(CsvTest, TextNeverBreaksALine) { EXPECT_EQ(TextField("a\r\nb"), "a  b"); }

TEST(CsvTest, TextBecomesNoFormula) {
    EXPECT_EQ(TextField("=1+1"), "'=1+1");
    EXPECT_EQ(TextField("+34 976"), "'+34 976");
    EXPECT_EQ(TextField("-a"), "'-a");
    EXPECT_EQ(TextField("@SUM(A1)"), "'@SUM(A1)");
    EXPECT_EQ(TextField("  =1"), "'=1") << "behind blanks";
    EXPECT_EQ(TextField("\t=1"), "'=1") << "behind a tab";
    EXPECT_EQ(TextField("=\"a;b\""), "\"'=\"\"a;b\"\"\"") << "inside quotes";
    EXPECT_EQ(TextField("a=1"), "a=1");
}

TEST(CsvTest, FigureKeepsTheDigitsOfTheSheet) {
    EXPECT_EQ(FigureField(".61", ','), "0,61");
    EXPECT_EQ(FigureField("1.", ','), "1");
    EXPECT_EQ(FigureField(".", ','), "0");
    EXPECT_EQ(FigureField("117.76", ','), "117,76");
    EXPECT_EQ(FigureField("117.76", '.'), "117.76");
    EXPECT_EQ(FigureField("536.069661301946", ','), "536,069661301946");
    EXPECT_EQ(FigureField("1E-05", ','), "1E-05");
    EXPECT_EQ(FigureField("-.5", ','), "-0,5");
    EXPECT_EQ(FigureField("", ','), "");
}

TEST(CsvTest, WhatIsNoFigureIsAText) {
    EXPECT_EQ(FigureField("1.2.3", ','), "1.2.3");
    EXPECT_EQ(FigureField("=2", ','), "'=2");
    EXPECT_EQ(FigureField("+2", ','), "'+2");
    EXPECT_EQ(FigureField("-2;3", ','), "\"'-2;3\"");
}

}  // namespace
}  // namespace velmora::report
