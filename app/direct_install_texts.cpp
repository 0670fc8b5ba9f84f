#include "app/direct_install_texts.h"

#include "catalogue/product_data.h"
#include "platform/format_text.h"

std::string analyserPath(const InstalledProduct& product) {
    return formatPath("%s\\Executables\\Core\\%s", product.installLocation.c_str(),
                      analyserProgram);
}

std::string importMarkerPath(const InstalledProduct& product) {
    return formatPath("%s\\liveimport.ini", product.installLocation.c_str());
}

Message couldNotStopMessage(const InstalledProduct& product, std::uint32_t code) {
    // Signed: WAIT_FAILED reads -1.
    return {
        formatText("Could not stop \"%s\" - %d. Please close all copies of %s and restart the "
                   "installation.",
                   product.installLocation.c_str(), static_cast<std::int32_t>(code),
                   product.displayName.c_str())};
}

std::string copyFailedLogLine(const SystemTime& time, const std::string& source,
                              const std::string& target, std::uint32_t error) {
    std::string line;
    FormatTimestamp(time, line, true, '#');
    // Kept: the compiled-in build, whatever the product-data file says; it tells which installer
    // wrote the line.
    return line + " Version " + compiledInBuild + " CopyFile from \"" + source + "\" to \"" +
           target + "\" failed - " + std::to_string(error);
}
