// Registry values for one test; keys that were not there before are removed after it.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

class RegistryFixture {
  public:
    RegistryFixture() = default;
    ~RegistryFixture();
    RegistryFixture(const RegistryFixture&) = delete;
    RegistryFixture& operator=(const RegistryFixture&) = delete;

    /// A REG_SZ is stored with its terminator, any other type as the bytes are.
    void set(HKEY root, const std::string& key, const std::string& name, const std::string& value,
             DWORD type = REG_SZ);

    /// An entry of the platform's list of installed programs.
    void addInstalled(const std::string& key, const std::string& displayName,
                      const std::string& version, const std::string& uninstall,
                      const std::string& location);

  private:
    std::vector<std::pair<HKEY, std::string>> created;
};
