#pragma once

#include <vector>

#include "installed/installation_record.h"
#include "platform/registry_key.h"

/// Walks the tree below a key and appends one record for each leaf that describes an
/// installation. Values that are no field of a record go into `extras`, a later one replacing an
/// earlier one of its name. `parentPath` is the parent's full path, for the records and for the
/// description of the last failure (walkError). Keys without subkeys are leaves; the values of
/// the others are not looked at, and a failure below them does not count.
///
/// False: there is no parent (null) or name, the key could not be read, or it is a leaf without
/// values.
[[nodiscard]] bool walkKeyTree(const KeyReader* parent, const std::string& subkeyName,
                               const std::string& parentPath,
                               std::vector<InstallationRecord>& records, FieldMap& extras);

/// What the last failing step of a walk was, for the whole process: at most 2048 characters, empty
/// when nothing failed since clearWalkError. Valid until the next walk. For the product line: the
/// index reports nothing.
[[nodiscard]] const char* walkError();

void clearWalkError();
