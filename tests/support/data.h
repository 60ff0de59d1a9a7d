// The transcriptions and golden files of tests/data. One record a line, its fields between tabs;
// blank lines and lines that begin with "#" don't count. A field may stand between double
// quotes, which are not part of it (so that blanks at its ends are seen); in a field, \t, \r, \n
// and \\ stand for a tab, a carriage return, a line feed and a backslash.
#pragma once

#include <string>
#include <vector>

using Data_Row = std::vector<std::string>;

std::string Data_Path(const std::string& name);
// The rows of a data file; every row of the file `name` under tests/data.
std::vector<Data_Row> Read_Data(const std::string& name);
