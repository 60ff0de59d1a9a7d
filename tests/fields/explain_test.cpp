// The sentence under every field for every kind of value, case by case from sentences.txt.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

#include "fields/field_map.h"
#include "support/data.h"
#include "support/fixture.h"

namespace {

// The 64 hex characters of a case's record: as written, or "N HH HH .." for pairs from cell N
// in a record of 00 with 01 in cell 32 (in cell 1 when the pairs reach cell 32).
std::string Record_Of(const std::string& cells) {
  if (cells.size() == 64) return cells;
  std::istringstream in(cells);
  std::size_t cell = 0;
  in >> cell;
  std::string record(64, '0');
  for (std::string pair; in >> pair; ++cell) record.replace(2 * (cell - 1), 2, pair);
  record.replace(cell > 32 ? 0 : 62, 2, "01");
  return record;
}

class Sentences : public Window_Test, public testing::WithParamInterface<Data_Row> {};

TEST_P(Sentences, SayWhatTheValueMeans) {
  const Data_Row& row = GetParam();
  const auto all = fields::All();
  const auto field = std::ranges::find(all, row[0], &Field::Caption);
  ASSERT_NE(field, all.end()) << row[0];
  Set_Cells(window, Record_Of(row[1]));
  window.L_Info_User.Caption = "before";
  window.L_Edt.Caption = "speech";
  window.L_Message.Caption = "7";

  field->Explain(window);
  EXPECT_EQ(window.L_Info_User.Caption, row[2]);
  // With the pane off, only the message field empties the speech text of a record that is none.
  EXPECT_EQ(window.L_Edt.Caption, row.size() > 3 ? row[3] : "speech");
  EXPECT_EQ(window.L_Message.Caption, "7");
  EXPECT_TRUE(platform.Messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, Sentences, testing::ValuesIn(Read_Data("sentences.txt")));

}  // namespace
