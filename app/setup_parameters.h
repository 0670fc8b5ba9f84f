// What the product's setup utility is handed: one parameter string, composed from the decisions
// made so far.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// One field of the string; written as they are, no quoting or escaping.
struct SetupField {
    const char* name;
    std::string value;
};

/// "/hide_usd " and the fields, each closed by a backquote, the last included; cut to 2048
/// characters.
std::string composeSetupParameters(const std::vector<SetupField>& fields);

/// "x64" for a product that has a setup of its own for 64-bit Windows, when running there; else
/// "x86".
std::string setupBitness(bool hasProcessorSpecificSetups, bool on64BitWindows);

/// The word that tells the setup utility what to install. `typeSuffix` may be empty.
std::string productTypeWord(unsigned productType, int productNumber, std::string_view typeSuffix,
                            std::string_view bitness);

/// The edition word in the program folder's name; empty for the live product.
const char* programFolderEdition(unsigned productType);

/// The part of `sourceDirectory` that ends with its last backslash.
std::string temporaryFolder(const std::string& sourceDirectory);
