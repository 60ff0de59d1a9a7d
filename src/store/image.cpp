#include "store/image.h"

#include <exception>

#include "form/vorlane.h"
#include "store/error_text.h"
#include "store/hex.h"
#include "system/failure.h"

namespace {

// Runs an image procedure; any failure inside it takes the one failure road of the image
// procedures: an internal fault, message 2, and the program ends.
template <class Body>
void Guarded(Vorlane& vForm, Body&& body) {
  try {
    body();
  } catch (const Fatal_Error&) {
    throw;
  } catch (const std::exception&) {
    End_With_Error(vForm.Work_Text, "2", vForm.Error_Title);
  }
}

std::int32_t Start_Char_Of(const Vorlane& vForm) { return vForm.FileType == "ja" ? 9 : 1; }

}  // namespace

namespace image {

std::string Hex_Text(const std::vector<std::uint8_t>& bytes) {
  std::string hex;
  hex.reserve(bytes.size() * 2);
  for (const std::uint8_t b : bytes) hex += hex::Pair(b);
  return hex;
}

std::vector<std::uint8_t> Bytes_Of(const std::string& hex) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(hex.size() / 2);
  for (std::size_t p = 0; p + 1 < hex.size(); p += 2)
    bytes.push_back(static_cast<std::uint8_t>(hex::Byte_Value(hex.substr(p, 2))));
  return bytes;
}

void Load(Vorlane& vForm, const std::vector<std::uint8_t>& bytes) {
  vForm.HexImage.clear();
  vForm.Current_Record = 0;
  vForm.HexImage = Hex_Text(bytes);
  vForm.Saved_Image = vForm.HexImage;
  vForm.FileType = vForm.HexImage.compare(0, 8, Buka_Mark) == 0 ? "ja" : "";
  Old_Data(vForm);
}

}  // namespace image

void Old_Data(Vorlane& vForm) {
  Guarded(vForm, [&] {
    vForm.Start_Char = Start_Char_Of(vForm);
    const std::size_t start = static_cast<std::size_t>(vForm.Start_Char - 1);
    for (int k = 1; k <= 49; ++k) vForm.Record(k) = vForm.HexImage.substr(start + 64 * (k - 1), 64);
    const std::size_t last_length = vForm.FileType == "ja" ? 56 : 64;
    vForm.Record(50) = vForm.HexImage.substr(start + 3136, last_length);
    if (vForm.Record(50).size() != last_length) throw std::length_error("short image");
  });
}

void New_Data(Vorlane& vForm) {
  Guarded(vForm, [&] {
    if (vForm.Current_Record == 0) return;
    vForm.Work_Text_3.clear();
    for (int n = 1; n <= 32; ++n) vForm.Work_Text_3 += vForm.L(n).Caption;
    const std::string prefix = vForm.FileType == "ja" ? image::Buka_Mark : "";
    std::string& record = vForm.Record(vForm.Current_Record);
    const bool changed = record != vForm.Work_Text_3;
    if (changed) record = vForm.Work_Text_3;
    // The image is the prefix and the records in order. A whole image already is, but for the
    // record on show: it takes that record's text in its place, and nothing else changes.
    if (vForm.HexImage.size() == 2 * image::File_Size) {
      if (changed) vForm.HexImage.replace(prefix.size() + 64 * (vForm.Current_Record - 1), record.size(), record);
      return;
    }
    vForm.HexImage = prefix;
    for (int k = 1; k <= 50; ++k) vForm.HexImage += vForm.Record(k);
  });
}

void Read_From_File(Vorlane& vForm) {
  New_Data(vForm);
  Guarded(vForm, [&] {
    const int value = vForm.Slider.Value;
    if (value == 0) return;
    vForm.Start_Char = Start_Char_Of(vForm);
    const std::size_t p = static_cast<std::size_t>((value - 1) * 64 + vForm.Start_Char - 1);
    const bool stump = value == 50 && vForm.FileType == "ja";
    if (p + (stump ? 56 : 64) > vForm.HexImage.size()) throw std::length_error("short image");
    for (int n = 1; n <= 32; ++n) {
      std::string& caption = vForm.L(n).Caption;
      if (n > 28 && stump)
        caption.clear();
      else
        caption.assign(vForm.HexImage, p + 2 * (n - 1), 2);
    }
  });
}
