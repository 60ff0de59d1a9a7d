// Bytes live as text: a hex pair per byte ("0A", "FF"), numbers as decimal text ("10").
#pragma once

#include <string>

namespace Position {

// Hex pair to decimal text, in place: "0A" -> "10". Only the first and the last character count.
// Anything that is no hex digit in capitals is fatal: the program shows its message and ends.
void Sub_DeCode(std::string& text);

// Bare hex to hex pair, in place: a text of exactly one character gets a "0" in front.
void Pad_Hex(std::string& text);

}  // namespace Position

namespace hex {

// The number in capital hexadecimal without leading zeros ("A", "1F4").
std::string Bare(long value);
// A byte value 0 .. 255 as a hex pair.
std::string Pair(int value);
// A hex pair to its byte value, through Sub_DeCode (fatal on a bad pair).
int Byte_Value(std::string pair);
// Two pairs in file order, low byte first, to the word's value 0 .. 65535.
long Word_Value(const std::string& low, const std::string& high);
// A word 0 .. 65535 as its two pairs in file order, low byte first: 300 -> "2C 01".
std::string Word_Pairs(long value);

// The editor's encodings of a whole number. Empty text when the number is over the limit,
// negative or not whole.
std::string Encode_Byte(double number);  // "2C"
std::string Encode_Word(double number);  // "2C 01", low byte first

}  // namespace hex
