#pragma once

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
