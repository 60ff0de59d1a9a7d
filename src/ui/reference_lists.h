// The seven reference lists of the View menu, shown in List beside the record.
#pragma once

struct Vorlane;

void nKey_1_Click(Vorlane& vForm);      // "Show Input codes"
void nKey_2_Click(Vorlane& vForm);      // "Show Action codes"
void nNPC_Names_Click(Vorlane& vForm);  // "Show NPC Names"
void nQests_Click(Vorlane& vForm);      // "Show Quests(give)"
void nQuests_Click(Vorlane& vForm);     // "Show Quests(take)"
void nItem_Click(Vorlane& vForm);       // "Show Items"
void nTrigers_Click(Vorlane& vForm);    // "Show Trigers"

// List got the focus, or the mouse moved over it: the selected line becomes its tool tip.
void List_GotFocus(Vorlane& vForm);
void List_MouseMove(Vorlane& vForm);
