// Reading the registry: what an open key answers, and what the raw data of a value is as text.
// Anything can be stored under any type, with or without a terminator.
#pragma once

#include <memory>
#include <string>

#include "platform/windows_constants.h"

/// An open key, closed with the object. Its operations mirror those of winreg.h and return Windows'
/// error codes, and count in its unsigned long (DWORD); what a failing one should have filled is
/// not to be relied on.
class KeyReader {
  public:
    virtual ~KeyReader() = default;
    KeyReader& operator=(KeyReader&&) = delete;  // nor is it copied

    /// For reading, in the program's own registry view: the products' 32-bit installers write
    /// there. `path` can have several levels. On failure `subkey` keeps what it held.
    [[nodiscard]] virtual std::uint32_t openSubkey(const char* path,
                                                   std::unique_ptr<KeyReader>& subkey) const = 0;
    [[nodiscard]] virtual std::uint32_t count(unsigned long& subkeys,
                                              unsigned long& values) const = 0;
    /// The name, terminated. `size` counts bytes: the buffer's, then the name's without terminator.
    [[nodiscard]] virtual std::uint32_t enumerateSubkey(unsigned long index, char* name,
                                                        unsigned long& size) const = 0;
    /// The same for a value, with its data as they are.
    [[nodiscard]] virtual std::uint32_t enumerateValue(unsigned long index, char* name,
                                                       unsigned long& nameSize, char* data,
                                                       unsigned long& dataSize) const = 0;
    /// The data as they are; a null buffer asks for their size alone.
    [[nodiscard]] virtual std::uint32_t queryValue(const char* name, unsigned long& type,
                                                   char* data, unsigned long& size) const = 0;
    /// GetLastError, which these operations need not set.
    [[nodiscard]] virtual std::uint32_t lastError() const = 0;
};

/// Reads a terminated value of a string type. `size` is the capacity of `buffer` in bytes, and
/// becomes the size of the data with its terminator; 0 on failure and for data without any byte,
/// which is the empty string. A null `buffer` asks for the size alone, and nothing is known of the
/// terminator then. `type`, where one is given, becomes which of the two string types it is.
/// Returns the Windows error code; errorInvalidData for any other type and for data without a
/// terminator.
[[nodiscard]] std::uint32_t readStringValue(const KeyReader& key, const char* name, char* buffer,
                                            unsigned long& size, unsigned long* type = nullptr);

/// Whether `type` is one of the two string types.
[[nodiscard]] bool isStringType(unsigned long type);

/// The data up to its first zero byte, or all of it. Points into `data`.
[[nodiscard]] std::string_view textOfData(const char* data, std::size_t size);
