#include "vocab/table.h"

#include <optional>

namespace {

// No table goes beyond five digits (65535); longer digit runs can only miss.
constexpr std::size_t Max_Digits = 9;

std::optional<int> Plain_Decimal(std::string_view text) {
  if (text.empty() || text.size() > Max_Digits) return std::nullopt;
  if (text.size() > 1 && text.front() == '0') return std::nullopt;
  int value = 0;
  for (char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return value;
}

}  // namespace

void vocab::Look_Up(std::span<const Row> rows, std::string& text) {
  const std::optional<int> number = Plain_Decimal(text);
  if (!number) return;
  const auto row = std::ranges::lower_bound(rows, *number, {}, &Row::Number);
  if (row != rows.end() && row->Number == *number) text.assign(row->Text);
}
