// velmora_bits [fused | plain]: what the program's arithmetic gives on this system, bit by bit: a
// digest for each thousand random arguments of each function, then the figures of the data sets of
// tests/reference. compare_bits.sh compares the printouts of two systems.
//
// With a word, on Windows, that way of exp, log and pow instead of the one that the processor has.

#include <bit>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <functional>
#include <iomanip>
#include <iostream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>

#include "core/numbers.h"
#include "stats/statistics.h"
#ifdef _WIN32
#include "windows/numbers.h"
#endif

namespace velmora {
namespace {

struct Ways {
    double (*exp)(double) = std::exp;
    double (*log)(double) = std::log;
    double (*pow)(double, double) = std::pow;
};

/// Random numbers that are the same on every system.
class Chance {
public:
    std::uint64_t Bits() { return random_(); }
    double Between(double low, double high) {
        constexpr double kStep = 0x1p-53;
        return low + (high - low) * (static_cast<double>(random_() >> 11U) * kStep);
    }
    /// Of any size, so that small ones are as frequent as large ones.
    double Positive(double smallest_power, double largest_power) {
        return std::ldexp(Between(1, 2), static_cast<int>(Between(smallest_power, largest_power)));
    }

private:
    std::mt19937_64 random_{20240229};
};

/// FNV-1a over eight bytes at a time.
void Add(std::uint64_t& digest, std::uint64_t bits) { digest = (digest ^ bits) * 0x100000001b3; }

std::uint64_t BitsOf(double value) {
    return std::bit_cast<std::uint64_t>(std::isnan(value) ? std::nan("") : value);
}

constexpr int kThousands = 1000;

void Print(std::string_view function, Chance& chance,
           const std::function<double(Chance&)>& result) {
    for (int block = 0; block < kThousands; ++block) {
        std::uint64_t digest = 0xcbf29ce484222325;
        for (int i = 0; i < 1000; ++i) Add(digest, BitsOf(result(chance)));
        std::cout << function << ' ' << block << ' ' << digest << '\n';
    }
}

void PrintFunctions(const Ways& ways) {
    Chance chance;
    const auto print = [&](std::string_view name, const std::function<double(Chance&)>& result) {
        Print(name, chance, result);
    };
    print("exp", [&](Chance& c) { return ways.exp(c.Between(-20, 20)); });
    print("exp-extreme", [&](Chance& c) { return ways.exp(c.Between(-760, 720)); });
    print("log", [&](Chance& c) { return ways.log(c.Positive(-20, 20)); });
    print("log-near-1", [&](Chance& c) { return ways.log(c.Between(0.9, 1.1)); });
    print("log-any", [&](Chance& c) { return ways.log(std::bit_cast<double>(c.Bits())); });
    print("pow", [&](Chance& c) { return ways.pow(c.Positive(-10, 10), c.Between(-4, 4)); });
    print("pow-square", [&](Chance& c) { return ways.pow(c.Between(-100, 100), 2.0); });
    print("pow-extreme", [&](Chance& c) {
        const double base = std::bit_cast<double>(c.Bits());
        return ways.pow(base, c.Between(-9, 9));
    });
    print("sqrt", [](Chance& c) { return std::sqrt(c.Positive(-1000, 1000)); });
    print("floor", [](Chance& c) { return std::floor(c.Between(-1e6, 1e6)); });
    print("nearbyint", [](Chance& c) { return std::nearbyint(c.Between(-1e6, 1e6)); });
    print("text", [](Chance& c) { return LeerValor(TextoDoble(c.Positive(-900, 900))).Value(); });
    print("digits", [](Chance& c) {
        return LeerValor(TextoDoble(c.Positive(-30, 30)).substr(0, 9)).Value();
    });
}

/// Each data set's geometric mean, deviation and estimated mean. One that ends in an error gives
/// its name.
void PrintFigures(std::istream& sets) {
    std::string line;
    std::getline(sets, line);
    while (std::getline(sets, line)) {
        std::istringstream columns(line);
        std::string id, source, samples;
        std::getline(std::getline(std::getline(columns, id, ','), source, ','), samples, ',');
        Muestras values;
        std::istringstream words(samples);
        std::string word;
        for (int i = 1; i <= 6 && words >> word; ++i) values(i) = LeerValor(word);
        EvaluacionRecord record;
        std::cout << id << std::hex;
        try {
            const Doble mean = MediaEstimada(record, values, 1, 1, 1);
            for (const Doble figure : {record.MG(1, 1, 1), record.GSD(1, 1, 1), mean}) {
                std::cout << ' ' << BitsOf(figure.Value());
            }
        } catch (const std::exception& error) {
            std::cout << ' ' << error.what();
        }
        std::cout << std::dec << '\n';
    }
}

}  // namespace
}  // namespace velmora

int main(int argc, char* argv[]) {
    velmora::Ways ways;
    const std::string_view way = argc > 1 ? argv[1] : "";
#ifdef _WIN32
    if (way == "fused") ways = {exp_fused, log_fused, pow_fused};
    if (way == "plain") ways = {exp_plain, log_plain, pow_plain};
#else
    if (!way.empty()) return EXIT_FAILURE;
#endif
    std::ifstream sets(REFERENCE_FOLDER "/data_sets.csv");
    velmora::PrintFunctions(ways);
    velmora::PrintFigures(sets);
    return sets.eof() ? EXIT_SUCCESS : EXIT_FAILURE;
}
