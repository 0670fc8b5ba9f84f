#pragma once

#include <string>
#include <string_view>

/// How the maker's contact block is laid out; in columns for the product line.
enum class ContactLayout { Columns, Lines };

/// Whom to ask about the product; empty when the code is empty or not a valid one.
[[nodiscard]] std::string contactText(std::string_view code, ContactLayout layout);
