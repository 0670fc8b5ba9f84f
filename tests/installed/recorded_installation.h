#pragma once

#include <string>

#include "tests/installed/sample_record.h"
#include "tests/installed/scratch_machine.h"

/// Writes sampleRecord under `key`, as an installation would.
inline void recordInstallation(const ScratchMachine& machine, const std::string& key) {
    for (const auto& [name, text] : sampleRecord().fields) {
        if (!text.empty()) {
            machine.setText(key, name, text);
        }
    }
}
