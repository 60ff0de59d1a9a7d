// The sentences of the 21 fields. Each procedure finds its own row of the field table, reads
// its cells from there and goes through its cases from the top; the first that holds is shown.
// A case that says the value is wrong, or that its code has no name, says so in Info_Finding too.
#include "fields/explain.h"

#include <string>
#include <utility>

#include "fields/field_map.h"
#include "form/record_tests.h"
#include "form/vorlane.h"
#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "store/hex.h"
#include "store/image.h"
#include "system/text.h"
#include "vocab/vocab.h"

namespace {

using Explainer = void (*)(Vorlane&);
using Table = void (*)(std::string&);

// The item that stands for "no item": the item fields tell it by this name, not by its number.
const char* const Ignored_Item = "Игнорируется";

// The row of the field table that this procedure explains.
const Field& Own_Field(Explainer explain) {
  for (const Field& field : fields::All())
    if (field.Explain == explain) return field;
  return fields::All().front();  // every procedure here has its row
}

// A sentence, and what it finds in the value.
struct Sentence {
  std::string Text;
  Finding Found = Finding::None;

  Sentence(std::string text, Finding found = Finding::None) : Text(std::move(text)), Found(found) {}
  Sentence(const char* text) : Text(text) {}
};

// A sentence that says the value is wrong.
Sentence Wrong(std::string text) { return {std::move(text), Finding::Wrong_Value}; }

// A field's value both ways: most cases compare the number, a few compare the decimal text.
struct Value {
  long number;
  std::string text;
};

Value Make_Value(long number) { return {number, std::to_string(number)}; }

// A one-byte field.
Value Read_Byte(const Vorlane& vForm, Explainer explain) {
  return Make_Value(hex::Byte_Value(vForm.L(Own_Field(explain).First).Caption));
}

// A two-byte field as a little-endian word: the first cell is the low byte.
Value Read_Word(const Vorlane& vForm, Explainer explain) {
  const int first = Own_Field(explain).First;
  return Make_Value(hex::Word_Value(vForm.L(first).Caption, vForm.L(first + 1).Caption));
}

// FF FF in a word field means that the field is not in use; only both cells together say so.
bool Not_In_Use(const Vorlane& vForm, Explainer explain) {
  const int first = Own_Field(explain).First;
  return vForm.L(first).Caption == "FF" && vForm.L(first + 1).Caption == "FF";
}

// The answer of a name table; a number without a row comes back as it was.
std::string Name_Of(Table table, const Value& value) {
  std::string name = value.text;
  table(name);
  return name;
}

// The common frame: an all-zero record is no record, and none of its fields is explained.
// Otherwise the field's sentence goes to L_Info_User. Tells whether the record was explained.
template <class Cases>
bool Explain(Vorlane& vForm, Cases&& cases) {
  Record_Exsist(vForm);
  if (vForm.Work_Text_2 == "error") {
    vForm.L_Info_User.Caption = vForm.Bad_Record_Text;
    vForm.Info_Finding = Finding::None;
    return false;
  }
  Sentence said = cases();
  vForm.L_Info_User.Caption = std::move(said.Text);
  vForm.Info_Finding = said.Found;
  return true;
}

// Bytes 5-6, 7-8 and 21-22 share the trigger reading and differ in their words.
Sentence Trigger_Sentence(const Vorlane& vForm, Explainer explain, const char* not_in_use, const char* verb,
                          const char* gap_behind_number) {
  if (Not_In_Use(vForm, explain)) return not_in_use;
  const Value v = Read_Word(vForm, explain);
  if (v.number <= vocab::Last_Trigger)
    return "Тригер №_" + v.text + " <" + Name_Of(Position::Trigger_Name, v) + "> " + verb;
  return Wrong("№_" + v.text + gap_behind_number + "слишком большое число! (всего 500 тригеров (0-499))");
}

// Bytes 9, 16 and 17 below 255: a quest number, above the last quest without a name.
Sentence Quest_Sentence(const Value& v, Table names, const std::string& head, const std::string& tail) {
  if (v.number <= vocab::Last_Quest) return head + v.text + " <" + Name_Of(names, v) + ">" + tail;
  return Wrong("Квест №_" + v.text + " <?>");
}

// Byte 12 and bytes 27-28: a code and its name, "?" where the table has no row. A miss comes
// back as its own digits, shorter than any name of the table.
Sentence Code_Sentence(const Value& v, Table names, std::size_t shortest_name) {
  const std::string name = Name_Of(names, v);
  if (text::Length(name) < shortest_name) return {"№_" + v.text + " <?>", Finding::Unnamed_Code};
  return "№_" + v.text + " <" + name + ">";
}

}  // namespace

// --- Bytes 1 to 13 ----------------------------------------------------------------------------

void Info_For_Bytes_1_2(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const int first = Own_Field(Info_For_Bytes_1_2).First;
    const std::string key = vForm.L(first).Caption + vForm.L(first + 1).Caption;
    if (key == "0000") return "Эта запись будет сработывать всегда, без передачи на стандартные записи";
    if (key == "0200")
      return "Эта запись сработает только один раз во всей игре и управление передастся стандартной записи";
    if (key == "0400") return "Эта запись сработает всегда и при повторе управление передастся стандартные записи";
    return Wrong("<?>");
  });
}

void Info_For_Bytes_3_4(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value v = Read_Word(vForm, Info_For_Bytes_3_4);
    if (v.number > vocab::Last_Item) return "№_" + v.text + "<?>";
    const std::string name = Name_Of(Position::Item_Name, v);
    if (name == Ignored_Item) return "№_" + v.text + " Запись не проверят наличия у НПЦ предметов";
    return "Предмет №_" + v.text + " <" + name + "> должен быть у НПЦ";
  });
}

void Info_For_Bytes_5_6(Vorlane& vForm) {
  Explain(vForm, [&] {
    return Trigger_Sentence(vForm, Info_For_Bytes_5_6, "Данная запись не проверяет тригеры на логические значение True",
                            "должен быть выполнен", "   ");
  });
}

void Info_For_Bytes_7_8(Vorlane& vForm) {
  Explain(vForm, [&] {
    return Trigger_Sentence(vForm, Info_For_Bytes_7_8,
                            "Данная запись не проверяет тригеры на логические значение False",
                            "не должен быть выполненым", "   ");
  });
}

void Info_For_Byte_9(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value v = Read_Byte(vForm, Info_For_Byte_9);
    if (v.text == "255") return "№_-1 Запись не проверяет получение квеста игроком";
    return Quest_Sentence(v, Position::Quest_Give_Name, "Квест №_", " уже должен быть получен игроком");
  });
}

void Info_For_Byte_10(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value v = Read_Byte(vForm, Info_For_Byte_10);
    if (v.number == 255) return "Данная запись не сработает никогда!";
    if (v.number == 0) return "Данная запись сработает с начала игры";
    return "Данная запись сработает начиная с " + v.text + " дня";
  });
}

void Info_For_Byte_11(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value v = Read_Byte(vForm, Info_For_Byte_11);
    if (v.text == "255") return "Ограничений на срабатование данной записи нет";
    if (v.text == "0") return "Данная запись не сработает никогда!";
    return "Данная запись сработает только до " + v.text + " дня";
  });
}

void Info_For_Byte_12(Vorlane& vForm) {
  Explain(vForm, [&] { return Code_Sentence(Read_Byte(vForm, Info_For_Byte_12), Position::Action_Name, 4); });
}

void Info_For_Byte_13(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value v = Read_Byte(vForm, Info_For_Byte_13);
    if (v.number > 100)
      return Wrong("Вероятно данный НПЦ никогда не вступит в диалог с игроком. (Ур. лид. должен быть " + v.text + ")");
    if (v.number == 0) return "Данный НПЦ вступит в диалог с игроком независимо от его уровня лидерства";
    return "Данный НПЦ вступит в диалог с игроком, при уровене лидерства игрока > " + v.text;
  });
}

// --- Bytes 14 to 32 ---------------------------------------------------------------------------

void Info_For_Byte_14(Vorlane& vForm) {
  Value v{};
  const bool shown = Explain(vForm, [&]() -> Sentence {
    v = Read_Byte(vForm, Info_For_Byte_14);
    if (v.number == 255) return "НПЦ ничего не скажет";
    return "НПЦ скажет фразу №_" + v.text;
  });
  if (!shown) {
    vForm.L_Edt.Caption.clear();
    return;
  }

  // With the speech pane on, the message of this record follows the explanation.
  if (vForm.Check.Value != 1) return;
  if (v.number == 255) {
    vForm.L_Edt.Caption = "Игнорируетя";
    vForm.L_Message.Caption = "-1";
    return;
  }
  vForm.L_Message.Caption = v.text;
  Read_EDT(vForm);
}

void Info_For_Byte_15(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value m = Read_Byte(vForm, Info_For_Byte_14);
    const Value c = Read_Byte(vForm, Info_For_Byte_15);
    if (m.number == 255 && c.number == 1) return "НПЦ ничего не скажет";
    if (m.number == 255) return Wrong("Байт 14 = 'FF' (НПЦ ничего не скажет), байт 15 должен быть равен '01'!");
    if (c.number == 1) return "НПЦ скажет только фразу №_" + m.text;
    if (c.number == 0) return Wrong("По умолчанию этот байт должен быть равен '01' !");
    if (c.text == "2" || c.text == "3" || c.text == "4")
      return "НПЦ скажет " + c.text + " фразы, после фразы №_" + m.text + " (включительно)";
    return "НПЦ скажет " + c.text + " фраз, после фразы №_" + m.text + " (включительно)";
  });
}

void Info_For_Byte_16(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value v = Read_Byte(vForm, Info_For_Byte_16);
    if (v.number == 255) return "Данная запись не дает квестов";
    return Quest_Sentence(v, Position::Quest_Give_Name, "Игрок получает квест №_", "");
  });
}

void Info_For_Byte_17(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value v = Read_Byte(vForm, Info_For_Byte_17);
    if (v.number == 255) return "Данная запись не принимает квестов";
    return Quest_Sentence(v, Position::Quest_Take_Name, "Квест №_", "");
  });
}

void Info_For_Byte_18(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value v = Read_Byte(vForm, Info_For_Byte_18);
    if (v.number == 255) return "Данная запись не передает управление";
    if (fields::Goto_Npc(v.number))
      return "Управление передается " + Name_Of(Position::Npc_Name, v) + " (№_#" + v.text + ")";
    return Wrong("Запись не передаст управление #" + v.text + " т.к. макс. № НПЦ -169 (см. Bynarydata\\Prof.dat)");
  });
}

void Info_For_Byte_19(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value v = Read_Byte(vForm, Info_For_Byte_19);
    if (v.number == 255) return "Данная запись не передает управление";
    const std::optional<int> record = fields::Goto_Record(v.number);
    if (!record) return Wrong("№_" + v.text + " - файл может иметь максимум 50 записей по 32 байта (0-49)");
    return "Управление передается на запись №_" + v.text + " (Record #" + std::to_string(*record) + ")";
  });
}

void Info_For_Byte_20(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value v = Read_Byte(vForm, Info_For_Byte_20);
    if (v.number == 0) return "Unknown byte";
    return Wrong("Данный байт у всех существующих НПЦ = '00'!");
  });
}

void Info_For_Bytes_21_22(Vorlane& vForm) {
  Explain(vForm, [&] {
    return Trigger_Sentence(vForm, Info_For_Bytes_21_22,
                            "Данная запись не переводит тригеры в логическое значение True",
                            "будет переведен в значение True", " ");
  });
}

void Info_For_Bytes_23_24(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Value v = Read_Word(vForm, Info_For_Bytes_23_24);
    if (v.number > vocab::Last_Item) return "№_" + v.text + " <?>";
    const std::string name = Name_Of(Position::Item_Name, v);
    if (name == Ignored_Item) return "НПЦ не пердает игроку ни каких предметов";
    return "При выполнении всех условий предмет №_" + v.text + " <" + name + "> будет передан игроку ";
  });
}

void Info_For_Bytes_25_26(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    if (Not_In_Use(vForm, Info_For_Bytes_25_26)) return "Данная запись не перемещает НПЦ";
    return "НПЦ переместиться на координаты " + Read_Word(vForm, Info_For_Bytes_25_26).text;
  });
}

void Info_For_Bytes_27_28(Vorlane& vForm) {
  Explain(vForm, [&] { return Code_Sentence(Read_Word(vForm, Info_For_Bytes_27_28), Position::Reaction_Name, 6); });
}

void Info_For_Bytes_29_32(Vorlane& vForm) {
  Explain(vForm, [&]() -> Sentence {
    const Field& field = Own_Field(Info_For_Bytes_29_32);
    for (int n = field.First; n <= field.Last(); ++n)
      if (vForm.L(n).Caption != "00") return Wrong("Данные байты у всех существующих НПЦ = '00'!");
    return "Unknown bytes";
  });
}

std::optional<int> fields::Goto_Npc(long value) {
  if (value < 0 || value > vocab::Last_Npc) return std::nullopt;
  return static_cast<int>(value);
}

std::optional<int> fields::Goto_Record(long value) {
  if (value < 0 || value >= image::Records) return std::nullopt;
  return static_cast<int>(value) + 1;
}
