// The game's vocabulary: numbers to Russian names.
//
// Every table procedure takes one text that holds a decimal number (digits only, no sign,
// no leading zero, no blank). A number with a row is overwritten by the row's text; a number
// without a row is left as it was, so the caller tells a miss by the text's length or by a
// range test made before. A row with a "|" holds the JA2 text in front of the bar and the UB
// text behind it; nothing splits it.
#pragma once

#include <string>
#include <vector>

namespace vocab {

// The numbers the games count, from 0. Every number up to these has a row of its table, but the
// triggers: 307 of their 500 numbers have one.
constexpr int Last_Npc = 169;
constexpr int Last_Quest = 29;
constexpr int Last_Item = 350;
constexpr int Last_Trigger = 499;

}  // namespace vocab

namespace Position {

void Npc_Name(std::string& text);         // 0 .. Last_Npc; 163 .. 169 are empty texts
void Quest_Give_Name(std::string& text);  // 0 .. Last_Quest
void Quest_Take_Name(std::string& text);  // 0 .. Last_Quest
void Item_Name(std::string& text);        // 0 .. Last_Item
void Trigger_Name(std::string& text);     // rows between 0 and Last_Trigger
void Action_Name(std::string& text);      // player's action codes (byte 12)
void Reaction_Name(std::string& text);    // NPC's reaction codes (bytes 27-28)

}  // namespace Position

namespace vocab {

// The stored lines of the two code lists of the View menu, in list order.
const std::vector<std::string>& Input_Code_Lines();   // "Show Input codes", 10 lines
const std::vector<std::string>& Action_Code_Lines();  // "Show Action codes", 8 lines

}  // namespace vocab
