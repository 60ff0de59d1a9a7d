// The file as hex text in memory: cut into records, shown in the cells, stored back, in both
// variants of the file.
#include <gtest/gtest.h>

#include "store/image.h"
#include "support/fixture.h"
#include "ui/navigation.h"

namespace {

class Image_Test : public Window_Test, public ::testing::WithParamInterface<bool> {
 protected:
  bool Buka() const { return GetParam(); }
  Bytes File() const { return Buka() ? Buka_File() : Standard_File(); }
  // Record k as it lies in the file, 28 bytes for the Buka stump.
  Bytes Record(int k) const {
    Bytes record = Record_Bytes(k);
    if (Buka() && k == 50) record.resize(28);
    return record;
  }
};

INSTANTIATE_TEST_SUITE_P(Variants, Image_Test, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "Buka" : "Standard"; });

// Loading cuts every record at its place; every record reaches the cells and comes back
// unchanged, and walking through them all changes nothing.
TEST_P(Image_Test, EveryRecordReachesTheCellsAndComesBackUnchanged) {
  Open_Bytes("075.npc", File());
  EXPECT_EQ(std::tuple(window.HexImage.size(), window.FileType, window.Current_Record),
            std::tuple(3200u, Buka() ? "ja" : "", 0));
  for (int k = 1; k <= 50; ++k) {
    EXPECT_EQ(window.Record(k), image::Hex_Text(Record(k))) << "record " << k;
    Event([&] { Slider_Set_Value(window, k); });
    EXPECT_EQ(Cells_Text(window), image::Hex_Text(Record(k))) << "record " << k;
  }
  Event([&] { Slider_Set_Value(window, 0); });
  EXPECT_EQ(window.HexImage, window.Saved_Image);
  EXPECT_EQ(image::Bytes_Of(window.HexImage), File());
  Set_Cells(window, std::string(64, 'E'));
  New_Data(window);
  EXPECT_EQ(window.HexImage, window.Saved_Image) << "nothing is stored while no record is on show";
}

// A changed cell lands at its own offset and nowhere else; put back, the image is clean again.
TEST_P(Image_Test, AChangedCellLandsAtItsOffsetAndNowhereElse) {
  const Bytes original = File();
  Open_Bytes("075.npc", original);
  for (const int k : {1, 2, 25, 49, 50}) {
    Event([&] { Slider_Set_Value(window, k); });
    const int last_cell = Buka() && k == 50 ? 28 : 32;
    const std::size_t offset = (Buka() ? 4 : 0) + 32 * static_cast<std::size_t>(k - 1);
    const std::string before = Cells_Text(window);
    window.L(1).Caption = "EE";
    window.L(last_cell).Caption = "DD";
    Event([&] { Read_From_File(window); });
    Bytes expected = original;
    expected[offset] = 0xEE;
    expected[offset + static_cast<std::size_t>(last_cell) - 1] = 0xDD;
    EXPECT_EQ(image::Bytes_Of(window.HexImage), expected) << "record " << k;
    Set_Cells(window, before + std::string(64 - before.size(), '0'));
    for (int n = last_cell + 1; n <= 32; ++n) window.L(n).Caption.clear();
    Event([&] { Read_From_File(window); });
    EXPECT_EQ(window.HexImage, window.Saved_Image) << "record " << k;
  }
}

TEST_F(Window_Test, AStandardFileThatBeginsWithTheMarkIsTakenForBuka) {
  Bytes file = Standard_File();
  file[0] = 0x39, file[1] = 0x00, file[2] = 0x35, file[3] = 0x00;
  Open_Bytes("075.npc", file);
  EXPECT_EQ(window.FileType, "ja");
  EXPECT_EQ(window.Record(1), image::Hex_Text(Bytes(file.begin() + 4, file.begin() + 36)));
  EXPECT_EQ(window.Record(50).size(), 56u);
  EXPECT_EQ(image::Bytes_Of(window.HexImage), file);
}

TEST_F(Window_Test, AnImageTooShortForTheRecordIsAFatalMemoryFault) {
  window.SBar_2.SimpleText = "x.npc";
  window.HexImage = std::string(100, '0');
  window.Slider.Value = 5;
  Event([&] { Read_From_File(window); });
  EXPECT_EQ(platform.Messages,
            (std::vector<Shown_Message>{{"Программа вызвала неустранимую ошибку в памяти", 16, "ERROR"}}));
  EXPECT_TRUE(platform.Ended && window.Ended);
}

}  // namespace
