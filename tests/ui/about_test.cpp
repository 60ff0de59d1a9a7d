// The About window blocks the main window while shown and goes at the first click or character
// key. Its picture is checked in tests/qt/about_picture_test.cpp.
#include "ui/about.h"

#include <optional>

#include "support/fixture.h"

namespace {

class About_Test : public Window_Test {
 protected:
  About_Form& Open_About() {
    Event([&] { nAbout_Click(window); });
    EXPECT_FALSE(window.Enabled);
    return *window.About;
  }
};

TEST_F(About_Test, OpensCentredAndAKeyWithoutACharacterLeavesItOpen) {
  About_Form& about = Open_About();
  EXPECT_EQ(about.Left, (platform.Screen_Twips.Width - 6255) / 2);
  EXPECT_EQ(about.Top, (platform.Screen_Twips.Height - 5355) / 3);
  Event([&] { About_KeyPress(about, 0); });
  EXPECT_NE(window.About, nullptr);
  EXPECT_FALSE(window.Enabled);
}

TEST_F(About_Test, ACharacterOrAClickClosesItAndFocusesTheSlider) {
  const std::optional<int> inputs[] = {1, 13, 27, ' ', 0x44F, std::nullopt};  // nothing: a click
  for (const auto& key : inputs) {
    SCOPED_TRACE(key ? *key : -1);
    About_Form& about = Open_About();
    const unsigned serial = window.Focus_Serial;
    Event([&] { key ? About_KeyPress(about, *key) : Img1_Click(about); });
    EXPECT_EQ(window.About, nullptr);
    EXPECT_TRUE(window.Enabled);
    EXPECT_EQ(window.Focus, "Slider");
    EXPECT_GT(window.Focus_Serial, serial);
  }
}

}  // namespace
