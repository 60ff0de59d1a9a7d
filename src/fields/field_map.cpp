#include "fields/field_map.h"

#include <array>

#include "fields/explain.h"

namespace fields {
namespace {

constexpr std::array<Field, 21> table{{
    {"Fire_Mode", 1, 2, "Bytes 01-02", Info_For_Bytes_1_2},
    {"Held_Item", 3, 2, "Bytes 03-04", Info_For_Bytes_3_4},
    {"Trigger_True", 5, 2, "Bytes 05-06", Info_For_Bytes_5_6},
    {"Trigger_False", 7, 2, "Bytes 07-08", Info_For_Bytes_7_8},
    {"Quest_Needed", 9, 1, "Byte 09", Info_For_Byte_9},
    {"First_Day", 10, 1, "Byte 10", Info_For_Byte_10},
    {"Last_Day", 11, 1, "Byte 11", Info_For_Byte_11},
    {"Input_Code", 12, 1, "Byte 12", Info_For_Byte_12},
    {"Min_Leadership", 13, 1, "Byte 13", Info_For_Byte_13},
    {"Message_Number", 14, 1, "Byte 14", Info_For_Byte_14},
    {"Message_Count", 15, 1, "Byte 15", Info_For_Byte_15},
    {"Quest_Give", 16, 1, "Byte 16", Info_For_Byte_16},
    {"Quest_Take", 17, 1, "Byte 17", Info_For_Byte_17},
    {"Goto_Npc", 18, 1, "Byte 18", Info_For_Byte_18},
    {"Goto_Record", 19, 1, "Byte 19", Info_For_Byte_19},
    {"Unknown_Byte", 20, 1, "Byte 20", Info_For_Byte_20},
    {"Trigger_Set", 21, 2, "Bytes 21-22", Info_For_Bytes_21_22},
    {"Given_Item", 23, 2, "Bytes 23-24", Info_For_Bytes_23_24},
    {"Move_Target", 25, 2, "Bytes 25-26", Info_For_Bytes_25_26},
    {"Reaction_Code", 27, 2, "Bytes 27-28", Info_For_Bytes_27_28},
    {"Unknown_Bytes", 29, 4, "Bytes 29-32", Info_For_Bytes_29_32},
}};

// Built from the field table: every field as it is, but bytes 29 .. 32 as four byte rows.
constexpr std::array<Edit_Row, 24> Make_Edit_Rows() {
  std::array<Edit_Row, 24> rows{};
  std::size_t i = 0;
  for (const Field& f : table) {
    if (f.Width == 4) {
      constexpr std::array<std::string_view, 4> names{"Byte 29", "Byte 30", "Byte 31", "Byte 32"};
      for (int b = 0; b < 4; ++b) rows[i++] = {names[static_cast<std::size_t>(b)], f.First + b, 1, f.Caption};
    } else {
      rows[i++] = {f.Caption, f.First, f.Width, f.Caption};
    }
  }
  return rows;
}

constexpr std::array<Edit_Row, 24> edit_rows = Make_Edit_Rows();

}  // namespace

std::span<const Field> All() { return table; }

const Field& Of_Cell(int n) {
  for (const Field& f : table)
    if (f.Holds(n)) return f;
  return table.back();
}

std::span<const Edit_Row> Edit_Rows() { return edit_rows; }

}  // namespace fields
