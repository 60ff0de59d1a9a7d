// Makes the example files of examples/: an NPC file of the standard variant whose records show
// every kind of field, the same file in the Buka variant, and a speech file with the messages
// that the records name. Everything is written byte by byte from the tables below.
//
// Usage: vorlane_make_examples FOLDER           writes the files into FOLDER
//        vorlane_make_examples --check FOLDER   exits 1 if a file in FOLDER differs from them
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "edt_text.h"
#include "fields/field_map.h"
#include "tool_files.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using Values = std::vector<std::pair<std::string_view, std::uint32_t>>;

// A record that asks for nothing and does nothing beyond answering: every "not in use" value.
const Values Quiet = {
    {"Trigger_True", 0xFFFF}, {"Trigger_False", 0xFFFF}, {"Quest_Needed", 0xFF},  {"Last_Day", 0xFF},
    {"Message_Number", 0xFF}, {"Message_Count", 1},      {"Quest_Give", 0xFF},    {"Quest_Take", 0xFF},
    {"Goto_Npc", 0xFF},       {"Goto_Record", 0xFF},     {"Trigger_Set", 0xFFFF}, {"Move_Target", 0xFFFF},
};

// The records of character 78, Carmen, in slider order (record 1 first). Each names the fields
// that differ from a quiet record; an empty list is an all-zero record. The records not listed,
// 12 to 50, are all zero as well, as in the games' own files.
const std::vector<Values> Records = {
    // 1: a greeting, every time; remembers that the player has talked to her (trigger 102).
    {{"Input_Code", 1}, {"Message_Number", 0}, {"Trigger_Set", 102}},
    // 2: once in the game, after that talk and unless the player has wounded her, she gives
    // quest 2 in three messages; only to a leader of 40 and more.
    {{"Fire_Mode", 2},
     {"Trigger_True", 102},
     {"Trigger_False", 48},
     {"Input_Code", 2},
     {"Min_Leadership", 40},
     {"Message_Number", 1},
     {"Message_Count", 3},
     {"Quest_Give", 2}},
    // 3: with quest 2 received, she takes it as done and hands over item 25.
    {{"Fire_Mode", 2},
     {"Quest_Needed", 2},
     {"Input_Code", 1},
     {"Message_Number", 4},
     {"Quest_Take", 2},
     {"Given_Item", 25}},
    // 4: given item 215, she gives it back.
    {{"Held_Item", 215}, {"Input_Code", 6}, {"Message_Number", 5}, {"Reaction_Code", 1}},
    // 5: wounded (trigger 47), from day 3 to day 10, five messages; on a repeat the standard
    // records answer.
    {{"Fire_Mode", 4},
     {"Trigger_True", 47},
     {"First_Day", 3},
     {"Last_Day", 10},
     {"Message_Number", 6},
     {"Message_Count", 5}},
    // 6: threatened, she passes control to record 8 (7 counted from 0) of character 86.
    {{"Input_Code", 3}, {"Message_Number", 11}, {"Goto_Npc", 86}, {"Goto_Record", 7}},
    // 7: given control by another record, she walks to a place on the map.
    {{"Input_Code", 10}, {"Message_Number", 12}, {"Move_Target", 12345}, {"Reaction_Code", 65528}},
    // 8: hostile after the player has wounded her, she says nothing and fights.
    {{"Trigger_True", 48}, {"Input_Code", 13}, {"Reaction_Code", 21}},
    // 9: the player wants to hire her: she joins for money, and only a leader of 60 and more.
    {{"Trigger_False", 48}, {"Input_Code", 4}, {"Min_Leadership", 60}, {"Message_Number", 13}, {"Reaction_Code", 23}},
    // 10: all zero.
    {},
    // 11: every field past what it may hold.
    {{"Fire_Mode", 6},       {"Held_Item", 400},      {"Trigger_True", 600},    {"Quest_Needed", 30},
     {"First_Day", 0xFF},    {"Last_Day", 0},         {"Input_Code", 5},        {"Min_Leadership", 101},
     {"Message_Number", 14}, {"Message_Count", 0},    {"Quest_Give", 30},       {"Quest_Take", 30},
     {"Goto_Npc", 170},      {"Goto_Record", 50},     {"Unknown_Byte", 1},      {"Trigger_Set", 500},
     {"Given_Item", 351},    {"Move_Target", 0xFF00}, {"Reaction_Code", 65535}, {"Unknown_Bytes", 0x04030201}},
};

// The messages of the speech file, numbered from 0 as byte 14 names them.
const std::vector<std::string_view> Messages = {
    "Добрый день. Вы здесь по делу или просто так?",  // 0
    "Я охочусь за головами.",                         // 1 .. 3
    "В округе прячутся шестеро опасных людей.",
    "За каждого заплачу наличными.",
    "Все пойманы? Отличная работа, держите.",        // 4
    "Металлоискатель? Мне он ни к чему, заберите.",  // 5
    "Меня задели в перестрелке.",                    // 6 .. 10
    "Рана пустяковая, но болит.",
    "Врача здесь не найти.",
    "Если есть аптечка, поделитесь.",
    "Ладно, не будем об этом.",
    "Угрожаете? Поговорите лучше с Боссом.",  // 11
    "Подождите здесь, я скоро вернусь.",      // 12
    "Могу пойти с вами, но не бесплатно.",    // 13
    "Что-то здесь не так.",                   // 14
};

constexpr std::size_t Entry_Size = 480;  // a speech file of NPC dialogues

void Put_Field(Bytes& record, std::string_view name, std::uint32_t value) {
  for (const Field& field : fields::All()) {
    if (field.Name != name) continue;
    if (field.Width < 4 && value >> (8 * field.Width) != 0)
      throw std::invalid_argument("too large for " + std::string(name));
    for (int i = 0; i < field.Width; ++i)
      record[static_cast<std::size_t>(field.First - 1 + i)] = static_cast<std::uint8_t>(value >> (8 * i));
    return;
  }
  throw std::invalid_argument("no field " + std::string(name));
}

// The standard variant: 50 records of 32 bytes, words low byte first.
Bytes Standard_File() {
  Bytes file;
  for (std::size_t k = 0; k < 50; ++k) {
    Bytes record(32, 0);
    if (k < Records.size() && !Records[k].empty()) {
      for (const auto& [name, value] : Quiet) Put_Field(record, name, value);
      for (const auto& [name, value] : Records[k]) Put_Field(record, name, value);
    }
    file.insert(file.end(), record.begin(), record.end());
  }
  return file;
}

// The Buka variant of the same file: the mark, then the records four bytes later; the last four
// bytes, which are zero, don't fit.
Bytes Buka_File(const Bytes& standard) {
  Bytes file{0x39, 0x00, 0x35, 0x00};
  file.insert(file.end(), standard.begin(), standard.end() - 4);
  return file;
}

// Each message fills one entry.
Bytes Speech_File() {
  Bytes file;
  for (std::string_view text : Messages) {
    const Bytes entry = Edt_Entry(text, Entry_Size);
    file.insert(file.end(), entry.begin(), entry.end());
  }
  return file;
}

}  // namespace

int main(int argc, char* argv[]) {
  int status = 0;
  const auto target =
      Target_Of(argc, argv,
                "usage: vorlane_make_examples [--check] FOLDER\n"
                "Writes 078.npc, buka/078.npc and 078.edt into FOLDER, or with --check tells whether the\n"
                "files there are what it writes.\n",
                status);
  if (!target) return status;
  const Bytes standard = Standard_File();
  const std::pair<const char*, Bytes> files[] = {
      {"078.npc", standard}, {"buka/078.npc", Buka_File(standard)}, {"078.edt", Speech_File()}};
  bool all = true;
  for (const auto& [name, bytes] : files) all = Write_Or_Check(target->Path / name, bytes, target->Check) && all;
  return all ? 0 : 1;
}
