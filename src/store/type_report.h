// Which variant the file on show is, and the conversion of a file on disk between the two.
#pragma once

struct Vorlane;

// Tools > Type > Current: the type and the number of records used, from the records in memory.
void nCurrent_Click(Vorlane& vForm);
// Tools > Type > Change: converts a file on disk, standard to Buka or back.
void nChaing_Click(Vorlane& vForm);
