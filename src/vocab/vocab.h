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

namespace Position {

void Npc_Name(std::string& text);         // 0 .. 169; 163 .. 169 are empty texts
void Quest_Give_Name(std::string& text);  // 0 .. 29
void Quest_Take_Name(std::string& text);  // 0 .. 29
void Item_Name(std::string& text);        // 0 .. 350
void Trigger_Name(std::string& text);     // 307 rows between 0 and 423
void Action_Name(std::string& text);      // player's action codes (byte 12)
void Reaction_Name(std::string& text);    // NPC's reaction codes (bytes 27-28)

}  // namespace Position

namespace vocab {

// The stored lines of the two code lists of the View menu, in list order.
const std::vector<std::string>& Input_Code_Lines();   // "Show Input codes", 10 lines
const std::vector<std::string>& Action_Code_Lines();  // "Show Action codes", 8 lines

}  // namespace vocab
