#pragma once

/// A row of a compiled-in table of texts.
struct TextRow {
    const char* key;
    const char* value;
};
