#include "support/data.h"

#include <fstream>
#include <stdexcept>

namespace {

std::string Field(std::string raw) {
  if (raw.size() >= 2 && raw.front() == '"' && raw.back() == '"') raw = raw.substr(1, raw.size() - 2);
  std::string field;
  for (std::size_t i = 0; i < raw.size(); ++i) {
    if (raw[i] != '\\' || i + 1 == raw.size()) {
      field += raw[i];
      continue;
    }
    const char next = raw[++i];
    field += next == 't' ? '\t' : next == 'r' ? '\r' : next == 'n' ? '\n' : next;
  }
  return field;
}

}  // namespace

std::string Data_Path(const std::string& name) { return std::string(VORLANE_TEST_DATA) + "/" + name; }

std::vector<Data_Row> Read_Data(const std::string& name) {
  std::ifstream in(Data_Path(name));
  if (!in) throw std::runtime_error("no data file " + Data_Path(name));
  std::vector<Data_Row> rows;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line.front() == '#') continue;
    Data_Row row;
    for (std::size_t start = 0;;) {
      const std::size_t tab = line.find('\t', start);
      row.push_back(Field(line.substr(start, tab - start)));
      if (tab == std::string::npos) break;
      start = tab + 1;
    }
    rows.push_back(std::move(row));
  }
  return rows;
}
