// What carries the short texts by which two programs trigger each other.
#pragma once

#include <functional>
#include <span>
#include <string>

namespace metrisk {

/// A new text for a control of the other program's form. Neither holds a tab or a line end.
struct Poke {
    std::string item;
    std::string text;

    friend bool operator==(const Poke&, const Poke&) = default;
};

class Carrier {
  public:
    virtual ~Carrier() = default;

    /// Begins to take in pokes. False if it cannot be, as when another program of the user's does.
    virtual bool listen() = 0;
    virtual bool isListening() const = 0;

    /// Sends the pokes, in that order, to the program of that topic ("ERLED2|DDE_Form"). Never waits; false
    /// if no such program listens.
    virtual bool poke(const std::string& topic, std::span<const Poke> pokes) = 0;

    /// Told of each poke that comes in, between the user's actions.
    std::function<void(const Poke& poke)> received;
};

} // namespace metrisk
