#pragma once

#include <string>
#include <utility>
#include <vector>

/// Name and value of what the results may depend on: system, code page, scale, fonts, date.
std::vector<std::pair<std::string, std::string>> MachineFacts();

/// Empty on Windows.
std::string WineVersion();
