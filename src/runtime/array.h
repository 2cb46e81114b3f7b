#pragma once

#include <array>
#include <cstddef>

#include "runtime/entero.h"
#include "runtime/error.h"

namespace velmora {

/// An array with fixed bounds, first to last inclusive. Its elements are taken with round
/// brackets; a subscript out of bounds throws `ErrorEjecucion` (SubscriptOutOfRange).
/// Arrays of two or three dimensions are arrays of arrays.
template <class T, int First, int Last>
class Array {
public:
    static constexpr int kFirst = First;
    static constexpr int kLast = Last;
    static constexpr std::size_t kSize = Last - First + 1;

    constexpr Array() = default;
    /// A table: its rows from the first to the last.
    explicit constexpr Array(const std::array<T, kSize>& elements) : elements_(elements) {}

    constexpr T& operator()(int i) { return elements_[Place(i)]; }
    constexpr const T& operator()(int i) const { return elements_[Place(i)]; }
    T& operator()(Entero i) { return (*this)(i.Value()); }
    const T& operator()(Entero i) const { return (*this)(i.Value()); }

    /// One element of an array of arrays: a(i, j) is a(i)(j).
    template <class I, class J, class... Rest>
    auto& operator()(I i, J j, Rest... rest) {
        return (*this)(i)(j, rest...);
    }
    template <class I, class J, class... Rest>
    const auto& operator()(I i, J j, Rest... rest) const {
        return (*this)(i)(j, rest...);
    }

    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

    friend bool operator==(const Array&, const Array&) = default;

private:
    static constexpr std::size_t Place(int i) {
        if (i < First || i > Last) throw ErrorEjecucion(ErrorKind::SubscriptOutOfRange);
        return static_cast<std::size_t>(i - First);
    }

    std::array<T, kSize> elements_{};
};

}  // namespace velmora
