#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "installed/installation_record.h"

/// Walks the tree below a key and appends one record for each leaf that describes an
/// installation. Values that are no field of a record go into `extras`, a later one replacing an
/// earlier one of its name. `parentPath` is the parent's full path, for the records and for the
/// description of the last failure (walk_error.h). Keys without subkeys are leaves; the values of
/// the others are not looked at, and a failure below them does not count.
///
/// False: the key could not be read, or is a leaf without values. Opens keys in the program's own
/// registry view, where the products' 32-bit installers write.
bool walkKeyTree(HKEY parent, const std::string& subkeyName, const std::string& parentPath,
                 std::vector<InstallationRecord>& records, FieldMap& extras);
