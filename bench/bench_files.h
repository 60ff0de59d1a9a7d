// The files the benchmarks work on, made byte by byte: an NPC file of typical records and a
// speech file with a message for each of them, in a temporary folder of their own.
#pragma once

#include "support/files.h"

// A record as the games' files hold them: conditions on an item, a trigger and a quest, a
// message, a quest given, control passed on, a trigger set and an item handed over, most of them
// numbers with a name to look up. The values change with k, so two records differ in most fields.
Bytes Typical_Record(int k);
// 50 typical records, 1600 bytes.
Bytes Typical_File();
// A speech file of the first kind (480-byte entries) with a sentence of about 150 letters for
// messages 0 .. 59.
Bytes Speech_File();
