#pragma once

#include <string>
#include <vector>

// What a program writes to its standard output; raises Stop when it cannot be run.
std::string outputOf(const std::vector<std::string>& command);
