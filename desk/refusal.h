// How the release engineer's desk turns down what it was given.
#pragma once

#include <stdexcept>

/// Thrown when what a command was given is wrong: names the file, what is wrong and what to do.
/// The program prints it and ends with exitWrong.
class Refusal : public std::runtime_error {
    using std::runtime_error::runtime_error;
};
