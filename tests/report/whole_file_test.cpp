#include "report/whole_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>

#include "support/files.h"

namespace velmora::report {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class WholeFileTest : public ::testing::Test {
protected:
    WholeFileTest() { fs::create_directories(folder_); }
    ~WholeFileTest() override { fs::remove_all(folder_); }

    fs::path Name(const std::string& name) const { return folder_ / PathOf(name); }
    void Put(const fs::path& path, const std::string& text) const { std::ofstream(path) << text; }
    std::string Text(const fs::path& path) const {
        std::ifstream in(path);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    auto Count() const { return std::distance(fs::directory_iterator(folder_), {}); }

    std::string Refusal(const fs::path& target, bool replace) const {
        try {
            WholeFile file(target, replace);
            file.Finish();
        } catch (const FileError& error) {
            return error.what();
        }
        return "";
    }

    const fs::path folder_ = fs::path(::testing::TempDir()) /
                             ::testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(WholeFileTest, FinishedItHasItsNameAndNothingElseIsLeft) {
    WholeFile file(Name("informe ñ.html"), false);
    file.Stream() << "nuevo";
    EXPECT_FALSE(fs::exists(Name("informe ñ.html")));
    file.Finish();
    EXPECT_EQ(Text(Name("informe ñ.html")), "nuevo");
    EXPECT_EQ(Count(), 1);
}

TEST_F(WholeFileTest, LeftUnfinishedTheOldOneStands) {
    Put(Name("a"), "viejo");
    { WholeFile(Name("a"), true).Stream() << "nuevo"; }
    EXPECT_EQ(Text(Name("a")), "viejo");
    EXPECT_EQ(Count(), 1);
}

TEST_F(WholeFileTest, AnExistingOneIsReplacedOnlyWhenAsked) {
    Put(Name("a"), "viejo");
    EXPECT_THAT(Refusal(Name("a"), false), HasSubstr("ya existe"));
    EXPECT_EQ(Text(Name("a")), "viejo");
    EXPECT_EQ(Refusal(Name("a"), true), "");
    EXPECT_EQ(Text(Name("a")), "");
}

TEST_F(WholeFileTest, OneThatCameMeanwhileIsNotReplaced) {
    WholeFile file(Name("a"), false);
    Put(Name("a"), "de otro");
    EXPECT_THROW(file.Finish(), FileError);
    EXPECT_EQ(Text(Name("a")), "de otro");
}

TEST_F(WholeFileTest, WhatIsNoFileIsNeverReplaced) {
    fs::create_directory(Name("carpeta"));
    EXPECT_THAT(Refusal(Name("carpeta"), true), HasSubstr("no es un fichero corriente"));
    EXPECT_THAT(Refusal(test::kNullDevice, true), HasSubstr("no es un fichero corriente"));
}

TEST_F(WholeFileTest, AMissingFolderIsSaidWithTheName) {
    const fs::path target = Name("nada") / "a.html";
    EXPECT_EQ(Refusal(target, false), "«" + NameOf(target) + "»: no se puede escribir");
}

TEST_F(WholeFileTest, AFullDiskLeavesTheOldOne) {
    Put(Name("a"), "viejo");
    WholeFile file(Name("a"), true);
    file.Stream().setstate(std::ios::badbit);
    EXPECT_THROW(file.Finish(), FileError);
    EXPECT_EQ(Text(Name("a")), "viejo");
}

}  // namespace
}  // namespace velmora::report
