// A registry for tests, and records in it.
#pragma once

#include <gtest/gtest.h>

#include <string>

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

inline void setText(DescribedMachine& machine, const std::string& key, const std::string& name,
                    const std::string& text) {
    machine.registry.keys[key][name] = registryText(text);
}

/// As an installation would.
inline void setRecord(DescribedMachine& machine, const std::string& key) {
    for (const auto& [name, text] : sampleRecord().fields) {
        if (!text.empty()) {
            setText(machine, key, name, text);
        }
    }
}
