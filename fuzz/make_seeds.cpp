// make_seeds <folder>: writes the seeds that are no plain text, a folder for each fuzzer.

#include <array>
#include <bit>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/route.h"

namespace velmora::fuzz {
namespace {

class Folder {
public:
    explicit Folder(std::filesystem::path path) : path_(std::move(path)) {
        std::filesystem::create_directories(path_);
    }

    void Write(std::string_view name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }

private:
    std::filesystem::path path_;
};

std::string BitsOf(double number) {
    std::string bytes;
    const auto bits = std::bit_cast<std::uint64_t>(number);
    for (unsigned i = 0; i < 8; ++i) bytes += static_cast<char>(bits >> (8 * i) & 0xFFU);
    return bytes;
}

// --- fuzz_numbers: "2" is a Double under the point, "3" one under the comma.

void MakeNumbers(const Folder& folder) {
    folder.Write("half-a-hundredth", "2" + BitsOf(0.125));
    folder.Write("just-below-a-half", "3" + BitsOf(2.675));
    folder.Write("carries", "2" + BitsOf(0.995));
    folder.Write("first-exponential", "2" + BitsOf(1e15));
    folder.Write("last-fixed", "3" + BitsOf(0.0001));
    folder.Write("smallest", "2" + BitsOf(5e-324));
    folder.Write("largest", "2" + BitsOf(1.7976931348623157e308));
    folder.Write("mean-of-the-worked-day", "3" + BitsOf(-117.11));
}

// --- fuzz_statistics

/// Samples as the fuzzer reads them when they are typed.
std::string Typed(std::string start, std::initializer_list<int> samples) {
    for (const int sample : samples) {
        start += static_cast<char>(sample % 256);
        start += static_cast<char>(sample / 256);
    }
    return start;
}

void MakeStatistics(const Folder& folder) {
    const std::string mean(4, '\0');
    folder.Write("worked-day-toluene", Typed(mean, {120, 95, 150, 110}));
    folder.Write("worked-day-xylene", Typed(mean, {30, 45, 20, 35}));
    folder.Write("two", Typed(mean, {2, 8}));
    folder.Write("six", Typed(mean, {1, 2, 3, 4, 5, 6}));
    folder.Write("one", Typed(mean, {3, 0, 7}));
    folder.Write("negative", std::string("\1\0\0\0", 4) + BitsOf(2) + BitsOf(-1));
    folder.Write("wide", std::string("\1\0\0\0", 4) + BitsOf(1e-300) + BitsOf(1e300) + BitsOf(1));
    folder.Write("out-of-bounds", Typed(std::string("\2\0\0\0\x84", 5), {2, 8}));
    folder.Write("ladder", Typed("\4", {10, 3}));
    folder.Write("ladder-crossing", "\5" + BitsOf(1) + BitsOf(0.9986));
    folder.Write("ladder-edge", Typed("\6", {4, 2}) + "\2\3");
}

// --- fuzz_use

constexpr int kPlace = 8;  ///< a start, in the first byte
constexpr int kComma = 7;

std::string BytesOf(const Route& route, int first = 0) {
    std::string bytes(1, static_cast<char>(first));
    for (const Deed& deed : route.Deeds()) {
        bytes += static_cast<char>(deed.kind);
        bytes += static_cast<char>(deed.which);
        bytes += static_cast<char>(deed.what);
    }
    return bytes;
}

struct Contaminant {
    std::string_view name;
    std::string_view limit;
    std::string_view short_limit;
    std::string_view group;
    std::array<std::string_view, 4> samples;
};

constexpr std::array<Contaminant, 3> kWorkedDay = {
    {{"Tolueno", "192", "384", "0", {"120", "95", "150", "110"}},
     {"Xileno", "221", "442", "1", {"30", "45", "20", "35"}},
     {"Etilbenceno", "442", "884", "1", {"15", "25", "10", "20"}}}};

/// The worked day: eight hours, three contaminants, a whole evaluation that is saved.
void WorkDay(Route& route) {
    route.Choose("Nuevaempresa").Write("Text1(1)", "Tolueno").Choose("datosiniciales");
    route.Pick("Combo1(0)", "1").Pick("Combo1(1)", "1").Press("Command1");
    route.Pick("Combo1(2)", "1").Pick("Combo1(3)", "1").Pick("Combo1(4)", "8");
    route.Pick("Combo1(5)", "0").Pick("Combo1(6)", "3").Pick("Combo1(7)", "3").Press("Command2");
    route.Choose("contaminantes").Pick("Combo1", "1");
    for (int i = 0; i < 3; ++i) {
        const Contaminant& agent = kWorkedDay.at(static_cast<std::size_t>(i));
        route.Write(Indexed("Text1", 5 * i + 1), agent.name);
        route.Type(Indexed("Text1", 5 * i + 2), "\b" + std::string(agent.limit));
        route.Type(Indexed("Text1", 5 * i + 3), "\b" + std::string(agent.short_limit));
        route.Type(Indexed("Text1", 5 * i + 4), agent.group);
        route.DoubleClick(Indexed("Text3", i));
        route.Pick(Indexed("Combo13", i), "mg/m3");
    }
    route.Press("Command1").Choose("pagina5").Choose("introprimero");
    for (int i = 0; i < 3; ++i) {
        for (int c = 0; c < 4; ++c) {
            const auto& samples = kWorkedDay.at(static_cast<std::size_t>(i)).samples;
            route.Type(Indexed("Text1", 18 * i + 7 + c), samples.at(static_cast<std::size_t>(c)));
        }
    }
    for (const char* const button : {"Command1", "Command4", "Command5", "Command8"}) {
        route.Press(button);
    }
    route.Choose("resultadosfinales").Press("Command1");
    route.Choose("guardararchivo", MsgBoxAnswer::Yes, "una.doc").Choose("regresar");
    route.Choose("recupprimerdia");
}

void MakeUses(const Folder& folder) {
    Route day;
    WorkDay(day);
    folder.Write("worked-day", BytesOf(day));
    folder.Write("worked-day-comma", BytesOf(day, kComma));

    Route refusals;
    refusals.Choose("Nuevaempresa").Write("Text1(1)", "").Choose("calculos");
    refusals.Write("Text1(1)", "Xileno");
    refusals.Choose("datosiniciales").Press("Command1").Choose("pagina5", MsgBoxAnswer::No);
    refusals.Choose("contaminantes").Press("Command1").Press("Command3").Choose("datosdeempresa");
    refusals.Choose("Regresar").Choose("Nuevaempresa").Choose("imprimir");
    folder.Write("refusals", BytesOf(refusals));

    // From here on by pieces of work, from the places where the uses may start.
    using enum Deed::Kind;
    const auto write = [&](std::string_view name, int start, const std::vector<Deed>& deeds) {
        std::string bytes(1, static_cast<char>(start * kPlace));
        for (const auto& [kind, which, what] : deeds) {
            for (const auto byte : {static_cast<std::uint8_t>(kind), which, what}) {
                bytes += static_cast<char>(byte);
            }
        }
        folder.Write(name, bytes);
    };
    write("new-evaluation", 0, {{Work, 0, 0}, {Work, 0, 0}, {Work, 0, 0}, {Work, 0, 1}});
    write("restore", 1, {{Choose, 5, 4}, {Choose, 2, 0}, {Choose, 3, 0}, {Choose, 4, 0}});
    write("restore-harmed", 1, {{Harm, 29, 1}, {Choose, 5, 4}, {Choose, 1, 0}, {Pick, 0, 0}});
    write("plan-again", 2, {{Work, 0, 0}, {Work, 0, 2}, {Pick, 0, 0x81}, {Work, 1, 2}});
    write("contaminants", 3, {{Work, 0, 0}, {Work, 5, 20}, {Press, 1, 0}, {Double, 0, 0}});
    write("one-sample", 4, {{Work, 0, 0}, {Work, 0, 4}});
    write("sheet", 4, {{Work, 0, 0}, {Key, 9, '5'}, {Key, 9, '.'}, {Type, 3, 7}, {Work, 2, 6}});
    write("three-days", 5, {{Choose, 1, 0}, {Work, 1, 0}, {Choose, 2, 0}, {Work, 3, 6}});
    write("results", 6, {{Work, 0, 0}, {Tick, 0, 99}, {Choose, 3, 0}, {Choose, 8, 0}});
    write("saved-and-harmed", 7, {{Work, 3, 0}, {Harm, 0, 0}, {Choose, 5, 0}, {Choose, 0, 0}});
}

}  // namespace
}  // namespace velmora::fuzz

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::cerr << "make_seeds <folder>\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    velmora::fuzz::MakeNumbers(velmora::fuzz::Folder(folder / "fuzz_numbers"));
    velmora::fuzz::MakeStatistics(velmora::fuzz::Folder(folder / "fuzz_statistics"));
    velmora::fuzz::MakeUses(velmora::fuzz::Folder(folder / "fuzz_use"));
    return 0;
}
