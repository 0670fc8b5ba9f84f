#include "tools/desk/whole_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

std::optional<std::string> readWholeFile(const std::string& path) {
    std::error_code failure;
    if (!std::filesystem::is_regular_file(path, failure)) {
        return std::nullopt;
    }
    std::ifstream file(path, std::ios::binary);
    std::string content(std::istreambuf_iterator<char>(file), {});
    if (!file.is_open() || file.bad()) {
        return std::nullopt;
    }
    return content;
}

bool writeWholeFile(const std::string& path, std::string_view content, std::string& error) {
    error = "Cannot write \"" + path + "\".";
    std::error_code failure;
    // Renaming would take away a device.
    const std::filesystem::file_status existing = std::filesystem::status(path, failure);
    if (std::filesystem::exists(existing) && !std::filesystem::is_regular_file(existing)) {
        return false;
    }
    // A name of its own, so that two runs at once do not share it.
    const std::string temporary = path + "." + std::to_string(std::random_device()()) + ".part";
    std::ofstream file(temporary, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (file) {
        std::filesystem::rename(temporary, path, failure);
        if (!failure) {
            return true;
        }
    }
    std::filesystem::remove(temporary, failure);
    return false;
}

bool isSameFile(const std::string& left, const std::string& right) {
    std::error_code failure;
    return std::filesystem::equivalent(left, right, failure);
}
