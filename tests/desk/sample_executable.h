// A small executable that its headers and checksum call whole.
#pragma once

#include "desk/executables/executable.h"

inline std::string executable(const std::string& content) {
    constexpr std::size_t headers = 512, optionalHeader = 64 + 24, sections = optionalHeader + 224;
    std::string image(headers, '\0');
    const auto put = [&image](std::size_t offset, std::size_t number, int size) {
        for (int index = 0; index < size; ++index) {
            image[offset + static_cast<std::size_t>(index)] =
                static_cast<char>(number >> (8 * index));
        }
    };
    image.replace(0, 2, "MZ");
    put(60, 64, 4);
    image.replace(64, 2, "PE");
    put(64 + 6, 1, 2);                      // one section
    put(64 + 20, 224, 2);                   // size of the optional header
    put(optionalHeader, 0x10B, 2);          // 32-bit
    put(sections + 16, content.size(), 4);  // of the section's bytes
    put(sections + 20, headers, 4);         // their offset
    image += content;
    put(optionalHeader + 64, Executable(image).checksum(), 4);
    return image;
}
