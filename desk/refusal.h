// How the release engineer's desk turns down what it was given, and names things in its messages.
#pragma once

#include <stdexcept>
#include <string>

/// Thrown when what a command was given is wrong: names the file, what is wrong and what to do.
/// The program prints it and ends with exitWrong.
class Refusal : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A text or path as messages name it.
[[nodiscard]] inline std::string inQuotes(const std::string& text) {
    return '"' + text + '"';
}

/// Throws Refusal with what is wrong with something of this name.
[[noreturn]] inline void refuse(const std::string& name, const std::string& what) {
    throw Refusal(inQuotes(name) + ' ' + what);
}

/// The texts with `separator` between them.
template <class Texts>
[[nodiscard]] std::string joined(const Texts& texts, const std::string& separator = ", ") {
    std::string all;
    for (const std::string& text : texts) {
        all += (all.empty() ? "" : separator) + text;
    }
    return all;
}
