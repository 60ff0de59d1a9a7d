// The record's 21 fields: the one table that the grid, the explanations and the editor read.
#pragma once

#include <span>
#include <string_view>

struct Vorlane;

struct Field {
  std::string_view Name;      // Fire_Mode, Held_Item, ...
  int First;                  // first byte cell, 1 .. 32
  int Width;                  // cells: 1, 2 or 4
  std::string_view Caption;   // shown in L_NByte; the key of the help texts
  void (*Explain)(Vorlane&);  // the sentence for the field's value

  int Last() const { return First + Width - 1; }
  bool Holds(int cell) const { return cell >= First && cell <= Last(); }
};

// One row of the Edit window's field list: the 21 fields, with bytes 29 .. 32 as four rows.
struct Edit_Row {
  std::string_view Text;      // the list item
  int First;                  // first byte
  int Width;                  // 1 for a byte, 2 for a word
  std::string_view Help_Key;  // what goes to Byte_Help
};

namespace fields {

// The 21 fields in record order, which is the order of every field list of the program.
std::span<const Field> All();
// The field that holds byte cell n, 1 .. 32.
const Field& Of_Cell(int n);
// The 24 rows of the Edit window's list, in list order.
std::span<const Edit_Row> Edit_Rows();

}  // namespace fields
