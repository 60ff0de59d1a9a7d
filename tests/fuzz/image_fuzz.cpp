// Loading, cutting, joining and writing an image from arbitrary 1600-byte contents.
//
// Input: a mode byte (0: the bytes as they come, 1: with the Buka mark put in front, 2: with the
// mark broken), then the file's bytes, repeated to 1600; behind the first 1601 input bytes, an
// edit script of (record, cell, value) triples.
//
// Invariants: load then save gives the same bytes; moving through all records and back changes
// nothing; each record reaches the cells exactly as it lies in the file and goes back into the
// image unchanged; edits reach the disk at exactly their byte and nowhere else.
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "store/convert.h"
#include "store/file_commands.h"
#include "store/image.h"
#include "ui/events.h"
#include "ui/navigation.h"
#include "ui/shell.h"
#include "ui/vorlane.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

const std::string Path = "/npc/075.npc";
const Bytes Mark{0x39, 0x00, 0x35, 0x00};

bool Has_Mark(const Bytes& file) { return std::equal(Mark.begin(), Mark.end(), file.begin()); }

// Offset of cell n (1-based) of record k in the file; -1 for a cell the Buka stump lacks.
long Offset_Of(bool buka, int k, int n) {
  if (buka && k == 50 && n > 28) return -1;
  return (buka ? 4 : 0) + 32L * (k - 1) + (n - 1);
}

void Quiet(const Scripted_Platform& platform, const char* when) {
  Require(platform.Messages.empty() && !platform.Ended, std::string("nothing to say ") + when);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const int mode = data[0] % 3;
  const std::size_t body = std::min<std::size_t>(size - 1, 1600);
  Bytes file(1600);
  for (std::size_t i = 0; i < 1600; ++i) file[i] = data[1 + i % body];
  if (mode == 1) std::copy(Mark.begin(), Mark.end(), file.begin());
  if (mode == 2 && Has_Mark(file)) file[1] = 0x01;
  const bool buka = Has_Mark(file);

  Scripted_Platform platform;
  Memory_Files files;
  files.Content[Path] = file;
  Vorlane window(platform, files);
  Form_Load(window);

  platform.Picks.push_back(Dialog_Pick{Path});
  Fire(window, [&] { nOpen_Click(window); });
  Quiet(platform, "on opening");
  Require(window.HexImage == image::Hex_Text(file), "the image is the file as hex text");
  Require(window.Saved_Image == window.HexImage, "a loaded file is unchanged");
  Require(window.FileType == (buka ? "ja" : ""), "the variant is told by the mark");

  // Through all records and back: each record's cells are its bytes, and nothing changes.
  for (int k = 1; k <= 50; ++k) {
    Fire(window, [&] { Slider_Set_Value(window, k); });
    for (int n = 1; n <= 32; ++n) {
      const long at = Offset_Of(buka, k, n);
      const std::string expected = at < 0 ? std::string() : hex::Pair(file[static_cast<std::size_t>(at)]);
      Require(window.L(n).Caption == expected, "cell " + std::to_string(n) + " of record " + std::to_string(k));
    }
  }
  Fire(window, [&] { Slider_Set_Value(window, 0); });
  Quiet(platform, "while moving");
  Require(window.HexImage == window.Saved_Image, "moving changes nothing");

  Fire(window, [&] { nSave_Click(window); });
  Quiet(platform, "on saving");
  Require(files.Content[Path] == file, "load then save gives the same bytes");

  // Edits through the cells, as the Edit window's Apply makes them; the Buka stump has none.
  Bytes expected = file;
  for (std::size_t i = 1 + 1600; i + 2 < size; i += 3) {
    const int k = 1 + data[i] % (buka ? 49 : 50);
    const int n = 1 + data[i + 1] % 32;
    Fire(window, [&] { Slider_Set_Value(window, k); });
    window.L(n).Caption = hex::Pair(data[i + 2]);
    Fire(window, [&] { Read_From_File(window); });
    expected[static_cast<std::size_t>(Offset_Of(buka, k, n))] = data[i + 2];
  }
  Fire(window, [&] { nSave_Click(window); });
  Quiet(platform, "on saving edits");
  Require(files.Content[Path] == expected, "the edits and nothing else reach the disk");
  Require(window.HexImage == window.Saved_Image, "a saved file is unchanged");

  // And the saved file loads as it was written.
  platform.Picks.push_back(Dialog_Pick{Path});
  Fire(window, [&] { nOpen_Click(window); });
  Quiet(platform, "on opening again");
  Require(window.HexImage == image::Hex_Text(expected), "the saved file loads back");
  return 0;
}
