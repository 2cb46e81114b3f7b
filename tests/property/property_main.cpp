// Long runs of random use, by hand: velmora_property [seeds [first seed [actions]]]

#include <charconv>
#include <cstring>
#include <iostream>
#include <span>

#include "property/invariant.h"
#include "property/run.h"

namespace {

using velmora::property::Invariants;
using velmora::property::Orders;
using velmora::property::Reach;

/// The number of the argument at a place, or what stands in for it.
std::uint64_t Argument(std::span<char*> arguments, std::size_t place, std::uint64_t otherwise) {
    if (place >= arguments.size()) return otherwise;
    const char* const text = arguments[place];
    const char* const end = text + std::strlen(text);
    std::uint64_t number = 0;
    const auto read = std::from_chars(text, end, number);
    return read.ec == std::errc() && read.ptr == end ? number : otherwise;
}

/// Every fourth run is under a comma, and in half of them files come to harm.
Orders OrdersOf(std::uint64_t seed, int actions) {
    return {.seed = seed,
            .actions = actions,
            .separator = seed % 4 == 3 ? "," : ".",
            .meddles = seed % 2 == 0};
}

}  // namespace

int main(int argc, char* argv[]) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    const std::uint64_t seeds = Argument(arguments, 1, 100);
    const std::uint64_t first = Argument(arguments, 2, 1);
    const int actions = static_cast<int>(Argument(arguments, 3, 5000));

    Reach reach;
    int findings = 0;
    for (std::uint64_t seed = first; seed < first + seeds; ++seed) {
        const Orders orders = OrdersOf(seed, actions);
        if (const auto finding = RunAtRandom(orders, Invariants(), &reach)) {
            Report(std::cout, orders, *finding);
            std::cout << std::endl;
            ++findings;
        }
    }
    std::cout << reach.actions << " actions in " << seeds << " runs from seed " << first << ", "
              << reach.ends << " ends by Salir, " << findings << " findings\n";
    for (const auto& [error, count] : reach.errors) {
        std::cout << count << '\t' << velmora::MessageOf(error) << '\n';
    }
    for (const auto& invariant : Invariants()) {
        std::cout << reach.judged[invariant.sentence] << '\t' << invariant.sentence << '\n';
    }
    for (const auto& [box, count] : reach.boxes) std::cout << count << '\t' << box << '\n';
    return findings == 0 ? 0 : 1;
}
