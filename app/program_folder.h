// The name of the product's program folder, numbered when installed versions have taken it.
#pragma once

#include <string>

/// The name to try with this number; 1 is the name without a number. Products 55 and 56 go
/// without the maker's name in front. Numbered names are cut to 260 characters.
std::string programFolderCandidate(const std::string& folderName, int productNumber, int number);

/// The first candidate for which `isTaken` says no. Numbers begin at 2. A name that is so long
/// that its number is cut off is given up on and returned although it is taken.
template <class IsTaken>
std::string uniqueProgramFolder(const std::string& folderName, int productNumber, IsTaken isTaken) {
    std::string candidate = programFolderCandidate(folderName, productNumber, 1);
    for (int number = 2; isTaken(candidate); ++number) {
        std::string next = programFolderCandidate(folderName, productNumber, number);
        if (next == candidate) {
            break;
        }
        candidate = std::move(next);
    }
    return candidate;
}
