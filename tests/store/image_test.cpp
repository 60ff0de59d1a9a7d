#include <gtest/gtest.h>

#include "store/failure.h"
#include "store/image.h"
#include "support/fixture.h"
#include "ui/navigation.h"

namespace {

// The image round trips run over both variants of the file.
class Image_Test : public Window_Test, public ::testing::WithParamInterface<bool> {
 protected:
  bool Buka() const { return GetParam(); }
  Bytes File() const { return Buka() ? Buka_File() : Standard_File(); }
  void Load(const Bytes& bytes) {
    image::Load(window, bytes);
    window.SBar_2.SimpleText = "x.npc";  // a file is on show
  }
};

INSTANTIATE_TEST_SUITE_P(Variants, Image_Test, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "Buka" : "Standard"; });

TEST_P(Image_Test, LoadingCutsEveryRecordAtItsPlace) {
  Load(File());
  EXPECT_EQ(window.HexImage.size(), 3200u);
  EXPECT_EQ(window.Saved_Image, window.HexImage);
  EXPECT_EQ(window.FileType, Buka() ? "ja" : "");
  EXPECT_EQ(window.Current_Record, 0);
  for (int k = 1; k <= 50; ++k) {
    Bytes expected = Record_Bytes(k);
    if (Buka() && k == 50) expected.resize(28);
    EXPECT_EQ(window.Record(k), image::Hex_Text(expected)) << "record " << k;
  }
}

TEST_P(Image_Test, EveryRecordReachesTheCellsAndComesBackUnchanged) {
  Load(File());
  for (int k = 1; k <= 50; ++k) {
    Event([&] { Slider_Set_Value(window, k); });
    Bytes expected = Record_Bytes(k);
    const bool stump = Buka() && k == 50;
    if (stump) expected.resize(28);
    EXPECT_EQ(Cells_Text(window), image::Hex_Text(expected)) << "record " << k;
    for (int n = 29; n <= 32; ++n) EXPECT_EQ(window.L(n).Caption.empty(), stump) << "record " << k;
  }
  Event([&] { Slider_Set_Value(window, 0); });
  EXPECT_EQ(window.HexImage, window.Saved_Image) << "walking through the records changes nothing";
  EXPECT_EQ(image::Bytes_Of(window.HexImage), File());
}

TEST_P(Image_Test, AChangedCellLandsAtItsOffsetAndNowhereElse) {
  const Bytes original = File();
  Load(original);
  for (const int k : {1, 2, 25, 49, 50}) {
    Event([&] { Slider_Set_Value(window, k); });
    const int last_cell = Buka() && k == 50 ? 28 : 32;
    window.L(1).Caption = "EE";
    window.L(last_cell).Caption = "DD";
    Event([&] { Read_From_File(window); });
    Bytes expected = original;
    const std::size_t offset = (Buka() ? 4 : 0) + 32 * static_cast<std::size_t>(k - 1);
    expected[offset] = 0xEE;
    expected[offset + static_cast<std::size_t>(last_cell) - 1] = 0xDD;
    EXPECT_EQ(image::Bytes_Of(window.HexImage), expected) << "record " << k;
    EXPECT_NE(window.HexImage, window.Saved_Image);
    // Put the record back: the image is clean again.
    window.L(1).Caption = image::Hex_Text({original[offset]});
    window.L(last_cell).Caption = image::Hex_Text({original[offset + static_cast<std::size_t>(last_cell) - 1]});
    Event([&] { Read_From_File(window); });
    EXPECT_EQ(window.HexImage, window.Saved_Image) << "record " << k;
  }
}

TEST_P(Image_Test, NothingIsStoredWhileNoRecordIsOnShow) {
  Load(File());
  Set_Cells(window, std::string(64, 'E'));
  New_Data(window);
  EXPECT_EQ(window.HexImage, window.Saved_Image);
}

TEST(Image, AStandardFileThatBeginsWithTheMarkIsTakenForBuka) {
  Bytes file = Standard_File();
  file[0] = 0x39, file[1] = 0x00, file[2] = 0x35, file[3] = 0x00;
  Scripted_Platform platform;
  Vorlane window(platform);
  image::Load(window, file);
  EXPECT_EQ(window.FileType, "ja");
  EXPECT_EQ(window.Record(1), image::Hex_Text(Bytes(file.begin() + 4, file.begin() + 36)));
  EXPECT_EQ(window.Record(50).size(), 56u);
  EXPECT_EQ(image::Bytes_Of(window.HexImage), file);
}

TEST(Image, HexTextKeepsEveryByteTwoCharactersWide) {
  EXPECT_EQ(image::Hex_Text({0x00, 0x0A, 0xFF, 0x10}), "000AFF10");
  EXPECT_EQ(image::Bytes_Of("000AFF10"), (Bytes{0x00, 0x0A, 0xFF, 0x10}));
}

TEST_F(Window_Test, AnImageTooShortForTheRecordIsAFatalMemoryFault) {
  window.SBar_2.SimpleText = "x.npc";
  window.HexImage = std::string(100, '0');
  window.Slider.Value = 5;
  Event([&] { Read_From_File(window); });
  ASSERT_EQ(platform.Messages.size(), 1u);
  EXPECT_EQ(platform.Messages[0].Prompt, "Программа вызвала неустранимую ошибку в памяти");
  EXPECT_EQ(platform.Messages[0].Style, 16);
  EXPECT_EQ(platform.Messages[0].Title, "ERROR");
  EXPECT_TRUE(platform.Ended);
  EXPECT_TRUE(window.Ended);
}

}  // namespace
