// A registry for tests, and records in it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "desk/computer/described_machine.h"
#include "tests/installed/sample_record.h"

inline void setText(DescribedMachine& machine, const std::string& key, const std::string& name,
                    const std::string& text) {
    machine.registry.keys[key].set(registryText(name, text));
}

/// As an installation would.
inline void setRecord(DescribedMachine& machine, const std::string& key) {
    for (const auto& [name, text] : sampleRecord().fields) {
        if (!text.empty()) {
            setText(machine, key, name, text);
        }
    }
}
