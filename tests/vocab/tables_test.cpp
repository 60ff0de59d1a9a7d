// Whole tables against their transcriptions under tests/data: every name, help text, field,
// list line, control rectangle, menu item and event route, row by row.
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>
#include <vector>

#include "fields/byte_help.h"
#include "fields/explain.h"
#include "fields/field_map.h"
#include "form/control_table.h"
#include "support/data.h"
#include "support/fixture.h"
#include "ui/events.h"
#include "vocab/vocab.h"

namespace {

using Table = void (*)(std::string&);

std::string Ask(Table table, std::string text) {
  table(text);
  return text;
}

std::string Field_Text(std::string_view text) { return std::string(text); }
std::string Field_Text(int number) { return std::to_string(number); }
template <class... Fields>
Data_Row Row(const Fields&... fields) {
  return {Field_Text(fields)...};
}

// The first `count` fields of a row, with CR, LF and tab written as in the data files.
std::string Shown(const Data_Row& row, std::size_t count = std::string::npos) {
  std::string shown;
  for (std::size_t i = 0; i < row.size() && i < count; ++i) {
    if (i > 0) shown += " | ";
    for (char c : row[i]) shown += c == '\r' ? "\\r" : c == '\n' ? "\\n" : c == '\t' ? "\\t" : std::string(1, c);
  }
  return shown;
}

// The rows that the code gives against the rows of a data file, matched by their first `key`
// fields (0: by position); names every row that differs, is missing or is one too many.
void Expect_Rows(const std::string& file, const std::vector<Data_Row>& code, std::size_t key = 0) {
  std::map<std::string, std::array<std::string, 2>> rows;  // data, code
  for (const int side : {0, 1}) {
    std::map<std::string, int> seen;
    for (const Data_Row& row : side == 0 ? Read_Data(file) : code) {
      std::string at = key == 0 ? "#" : Shown(row, key);
      if (const int rank = ++seen[at]; rank > 1 || key < 2) at += (key ? " #" : "") + std::to_string(rank);
      rows[at][static_cast<std::size_t>(side)] = "<" + Shown(row) + ">";
    }
  }
  ASSERT_FALSE(rows.empty()) << file;
  for (const auto& [at, row] : rows)
    if (row[0] != row[1]) ADD_FAILURE() << file << ", row " << at << "\n  code: " << row[1] << "\n  data: " << row[0];
}

using namespace Position;  // the table procedures
const std::pair<const char*, Table> kNames[] = {
    {"npc", Npc_Name},         {"quest_give", Quest_Give_Name}, {"quest_take", Quest_Take_Name}, {"item", Item_Name},
    {"trigger", Trigger_Name}, {"action", Action_Name},         {"reaction", Reaction_Name}};

// Every number a word can hold, in every table: a row gives its text, any other stays as its digits.
TEST(Tables, NamesOfEveryNumber) {
  std::vector<Data_Row> code;
  for (const auto& [table, name] : kNames)
    for (int n = 0; n <= 65536; ++n)
      if (const std::string text = Ask(name, std::to_string(n)); text != std::to_string(n))
        code.push_back(Row(table, n, text));
  Expect_Rows("names.txt", code, 2);
}

// Only plain decimal text is a key: other spellings of a number and non-numbers stay as they are.
TEST(Tables, OnlyPlainDecimalTextIsAKey) {
  for (const auto& [table, name] : kNames)
    for (const char* text : {"", "00", "057", "007", "+5", "-0", " 5", "5 ", "1 0", "0x1", "1e1", "5.", "٣", "５",
                             "Барри", "99999999999999999999", "00000000000000000001"})
      EXPECT_EQ(Ask(name, text), text) << table;
}

TEST(Tables, HelpTextOfEveryFieldCaption) {
  std::vector<Data_Row> code;
  for (const Field& f : fields::All()) code.push_back(Row(f.Caption, Ask(Byte_Help, std::string(f.Caption))));
  Expect_Rows("help.txt", code, 1);
  for (const char* text : {"Byte 9", "Byte 0", "Byte 29", "Bytes 1-2", "bytes 01-02", "Byte 09 ", "Byte 09 as BYTE"})
    EXPECT_EQ(Ask(Byte_Help, text), text);
}

#define INFO(span) \
  { Info_For_##span, "Info_For_" #span }
const std::map<void (*)(Vorlane&), std::string_view> kExplain{
    INFO(Bytes_1_2),   INFO(Bytes_3_4),   INFO(Bytes_5_6),  INFO(Bytes_7_8), INFO(Byte_9),      INFO(Byte_10),
    INFO(Byte_11),     INFO(Byte_12),     INFO(Byte_13),    INFO(Byte_14),   INFO(Byte_15),     INFO(Byte_16),
    INFO(Byte_17),     INFO(Byte_18),     INFO(Byte_19),    INFO(Byte_20),   INFO(Bytes_21_22), INFO(Bytes_23_24),
    INFO(Bytes_25_26), INFO(Bytes_27_28), INFO(Bytes_29_32)};

TEST(Tables, FieldMapAndEditList) {
  std::vector<Data_Row> code;
  for (const Field& f : fields::All())
    code.push_back(
        Row(f.First, f.Last(), f.Name, f.Caption, kExplain.contains(f.Explain) ? kExplain.at(f.Explain) : "?"));
  Expect_Rows("fields.txt", code);
  code.clear();
  for (const Edit_Row& r : fields::Edit_Rows())
    code.push_back(Row(static_cast<int>(code.size()), r.Text, r.First, r.Width, r.Help_Key));
  Expect_Rows("edit_rows.txt", code);
}

class Tables_Window : public Window_Test {};

TEST_F(Tables_Window, ReferenceListsLineByLine) {
  std::vector<Data_Row> code;
  for (const char* item : {"nKey_1", "nKey_2", "nNPC_Names", "nQests", "nQuests", "nItem", "nTrigers"}) {
    ASSERT_TRUE(Raise(window, window::Main, item, Event::Click)) << item;
    for (const std::string& line : window.List.Items) code.push_back(Row(item, line));
  }
  Expect_Rows("lists.txt", code, 1);
}

TEST_F(Tables_Window, MenusAfterStartUp) {
  std::vector<Data_Row> code;
  for (const Control& entry : controls::Of(window::Main)) {
    if (entry.Kind != Control_Kind::Menu_Item) continue;
    const Menu_Item& item = *window.Menu(entry.Name);  // the window has an item for every entry
    code.push_back(Row(entry.Name, entry.Parent, item.Caption, entry.Shortcut, item.Enabled ? 1 : 0));
  }
  Expect_Rows("menus.txt", code);
}

}  // namespace
