#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace velmora::fuzz {

/// The bytes of a fuzzer's input, taken from the front. Behind the last one come zeros.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : left_(data, size) {}

    bool Empty() const { return left_.empty(); }

    std::uint8_t Byte() {
        if (left_.empty()) return 0;
        const std::uint8_t byte = left_.front();
        left_ = left_.subspan(1);
        return byte;
    }

    /// 0 to n - 1.
    int Below(int n) { return Byte() % n; }

    /// Eight bytes, the lowest first.
    std::uint64_t Word() {
        std::uint64_t word = 0;
        for (unsigned i = 0; i < 8; ++i) word |= std::uint64_t{Byte()} << (8 * i);
        return word;
    }

    /// A Double by its bits: any number, infinities and "not a number" included.
    double Double() { return std::bit_cast<double>(Word()); }

    std::string Rest() {
        const std::string rest(left_.begin(), left_.end());
        left_ = {};
        return rest;
    }

private:
    std::span<const std::uint8_t> left_;
};

}  // namespace velmora::fuzz
