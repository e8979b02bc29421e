// The kinds of items that need more than their type to be told apart in an analysis file.
#pragma once

namespace metrisk {

/// A flag held as a 32-bit number.
template <class T>
struct AsLong {
    T& flag;
};
template <class T>
AsLong(T&) -> AsLong<T>;

/// A text written with all its 60 characters.
template <class T>
struct AsFixed {
    T& text;
};
template <class T>
AsFixed(T&) -> AsFixed<T>;

/// A number of samples; more than the record can hold is a fault.
template <class T>
struct AsSampleSize {
    T& size;
};
template <class T>
AsSampleSize(T&) -> AsSampleSize<T>;

/// A number of which only the magnitude is kept when read.
template <class T>
struct AsMagnitude {
    T& number;
};
template <class T>
AsMagnitude(T&) -> AsMagnitude<T>;

/// An item without a meaning: written as false.
struct UnusedItem {};

/// Points of the layout at which a reader has more to do than to store what it read.
enum class LayoutPoint { Options, ErrorTable, SourceNames, Units, Statistics };

/// Characters of a fixed text.
inline constexpr int fixedTextLength = 60;

} // namespace metrisk
