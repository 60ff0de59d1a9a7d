// The file as hex text in memory: HexImage, the record texts, the byte cells.
//
// Standard file: record k at byte 32 (k - 1), 50 x 32 bytes. Buka file: the mark 39 00 35 00,
// then the same records four bytes later, the last one cut to 28 bytes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Vorlane;

namespace image {

constexpr std::size_t File_Size = 1600;
constexpr int Records = 50;
inline const std::string Buka_Mark = "39003500";

// The bytes as hex text: two capitals a byte, leading zero kept.
std::string Hex_Text(const std::vector<std::uint8_t>& bytes);
// Hex text back to bytes, pair by pair through Sub_DeCode (fatal on a bad pair).
std::vector<std::uint8_t> Bytes_Of(const std::string& hex);

// The reading loop of a load: HexImage and Saved_Image from the file's bytes, FileType by the
// mark, Current_Record 0, and the records cut by Old_Data.
void Load(Vorlane& vForm, const std::vector<std::uint8_t>& bytes);

}  // namespace image

// Cuts HexImage into Record_1 .. Record_50.
void Old_Data(Vorlane& vForm);
// Stores the byte cells into the record on show and rebuilds HexImage from the records.
void New_Data(Vorlane& vForm);
// New_Data, then fills the byte cells from HexImage for the record the slider selects.
void Read_From_File(Vorlane& vForm);
