// Player action codes (byte 12) and NPC reaction codes (bytes 27-28), and the lines of the two
// reference lists that show them. The list lines carry the bytes in hex as the grid shows them,
// but keep their historical labels: "(0Е)" with a Cyrillic letter, "(19)" for code 19, and
// "(00 00)" for the move reaction 65528 (F8 FF).
#include "vocab/table.h"
#include "vocab/vocab.h"

#include <string>
#include <vector>

namespace {

// Input_Code
constexpr vocab::Row Action_Rows[] = {
    {0, "Любое стандартное воздействие"},
    {1, "Игрок говорит дружески"},
    {2, "Игрок говорит прямо"},
    {3, "Игрок угрожает НПЦ"},
    {4, "Игрок хочет нанять НПЦ"},
    {6, "НПЦ получает\\имеет предмет от наемника\\НПЦ"},
    {10, "Запись получила управление от другой записи\\НПЦ"},
    {13, "Игрок пытается говорить с НПЦ (враждебным)"},
    {14, "Игрок виден и НПЦ враждебен (НПЦ сам вступает в разговор)"},
    {19, "Игрок пытается говорить с НПЦ (дружеским) во время боя"},
};
static_assert(vocab::Rows_Ascending(Action_Rows));

// Reaction_Code: byte 27 + 256 * byte 28
constexpr vocab::Row Reaction_Rows[] = {
    {0, "Стандартная реакция на данное воздействие"},
    {1, "НПЦ возвращает предмет переданный наемником"},
    {4, "НПЦ вступает в отряд (бесплатно)"},
    {21, "НПЦ вступает в бой (и уже до этого был враждебен)"},
    {22, "НПЦ вступает в бой (и становиться враждебен)"},
    {23, "НПЦ вступает в отряд (за деньги)"},
    {24, "НПЦ прекращает разговор и диалоговое окно закрывается"},
    {65528, "НПЦ перемещается"},
};
static_assert(vocab::Rows_Ascending(Reaction_Rows));

}  // namespace

void Position::Action_Name(std::string& text) { vocab::Look_Up(Action_Rows, text); }
void Position::Reaction_Name(std::string& text) { vocab::Look_Up(Reaction_Rows, text); }

const std::vector<std::string>& vocab::Input_Code_Lines() {
  static const std::vector<std::string> lines{
      "(00) Любое стандартное воздействие",
      "(01) Игрок говорит дружески",
      "(02) Игрок говорит прямо",
      "(03) Игрок угрожает НПЦ",
      "(04) Игрок хочет нанять НПЦ",
      "(06) НПЦ получает\\имеет предмет от наемника\\НПЦ",
      "(0A) Запись получила управление от другой записи\\НПЦ",
      "(0D) Игрок пытается говорить с НПЦ (враждебным)",
      "(0Е) Игрок виден и НПЦ враждебен (НПЦ сам вступает в разговор)",
      "(19) Игрок пытается говорить с НПЦ (дружеским) во время боя",
  };
  return lines;
}

const std::vector<std::string>& vocab::Action_Code_Lines() {
  static const std::vector<std::string> lines{
      "(00 00) Стандартная реакция на данное воздействие",
      "(01 00) НПЦ возвращает предмет переданный наемником",
      "(04 00) НПЦ вступает в отряд (бесплатно)",
      "(15 00) НПЦ вступает в бой (и уже до этого был враждебен)",
      "(16 00) НПЦ вступает в бой (и становиться враждебен)",
      "(17 00) НПЦ вступает в отряд (за деньги)",
      "(18 00) НПЦ прекращает разговор и диалоговое окно закрывается",
      "(00 00) НПЦ перемещается",
  };
  return lines;
}
