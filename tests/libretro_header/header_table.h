#pragma once

#include <map>
#include <string>

using HeaderTable = std::map<std::string, long long>;

HeaderTable velmoraHeaderTable();
HeaderTable publishedHeaderTable();
