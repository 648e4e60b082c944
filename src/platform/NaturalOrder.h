#pragma once

#include <string_view>

/// Whether name `a` stands before `b` in a list for people: whatever the case, and numbers by their value
/// ("wall2" before "Wall10"). Names that differ in nothing else keep one order all the same.
bool naturallyBefore(std::string_view a, std::string_view b);
