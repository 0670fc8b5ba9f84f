// What a registry for tests holds.
#pragma once

#include "desk/computer/described_machine.h"
#include "installed/installation_record.h"

/// A record that says just enough to be an installation.
inline InstallationRecord sampleRecord() {
    InstallationRecord record;
    record.fields["Product Id"] = "0b";
    record.fields["Product Name"] = "Analyzer";
    record.fields["Program Folder"] = "Halvick Analyzer";
    record.fields["Seinda"] = "1";
    record.fields["Temp Reference"] = "C:\\Temp";
    record.fields["Installation Path"] = "C:\\Analyzer";
    return record;
}

/// Values of a key.
inline void setTexts(RegistryKeys& keys, const std::string& key, const FieldMap& texts) {
    for (const auto& [name, text] : texts) {
        keys[key][name] = registryText(text);
    }
}

/// A record, as an installation would.
inline void setRecord(RegistryKeys& keys, const std::string& key) {
    setTexts(keys, key, sampleRecord().fields);
}

/// A whole entry of the uninstall list.
inline void setEntry(RegistryKeys& keys, const std::string& key, const std::string& displayName) {
    setTexts(keys, key,
             {{"DisplayName", displayName},
              {"DisplayVersion", "12.0.0.0"},
              {"UninstallString", "C:\\remove.exe"},
              {"InstallLocation", "C:\\v"}});
}
