#include "app/program_folder.h"

#include "platform/format_text.h"

std::string programFolderCandidate(const std::string& folderName, int productNumber, int number) {
    const char* const maker = productNumber == 55 || productNumber == 56 ? "" : "Halvick ";
    return number == 1 ? maker + folderName
                       : formatPath("%s%s %d", maker, folderName.c_str(), number);
}
