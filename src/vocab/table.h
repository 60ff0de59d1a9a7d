// The lookup shared by all name tables: a number given as text, a table of rows sorted by number.
#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

namespace vocab {

struct Row {
  int Number;
  std::string_view Text;
};

// Rows must be strictly ascending by number for the binary search of Look_Up.
constexpr bool Rows_Ascending(std::span<const Row> rows) {
  return std::adjacent_find(rows.begin(), rows.end(),
                            [](const Row& a, const Row& b) { return a.Number >= b.Number; }) == rows.end();
}

// Rows for every number from 0 to `last` and no other, in rising order.
constexpr bool Rows_Cover(std::span<const Row> rows, int last) {
  return Rows_Ascending(rows) && rows.size() == static_cast<std::size_t>(last) + 1 && rows.front().Number == 0 &&
         rows.back().Number == last;
}

// If `text` is a plain decimal number (digits only, no sign, blank or leading zero) that has a
// row, `text` becomes the row's text. Anything else leaves `text` as it was, which is how the
// callers tell a miss. Called for every line of a list fill and on every mouse move, so it
// parses at most a few digits and searches in log time.
void Look_Up(std::span<const Row> rows, std::string& text);

}  // namespace vocab
