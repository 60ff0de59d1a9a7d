// The About window blocks the main window while shown and goes at the first click or character
// key. Its picture is checked on the real widgets.
#include "ui/about.h"

#include "support/fixture.h"

namespace {

using About = Window_Test;

// It opens centred across the screen, a third of the free height above it. A key without a
// character, such as a function key, leaves it open; a character or a click closes it.
TEST_F(About, OpensCentredAndGoesAtACharacterOrAClick) {
  for (const int key : {0, 1, 13, 27, 32, 0x44F, -1}) {  // -1: a click on the picture
    Raise(window, window::Main, "nAbout", Event::Click);
    ASSERT_NE(window.About, nullptr);
    EXPECT_EQ(std::tuple(window.About->Left, window.About->Top, window.Enabled, window.About->Focus),
              std::tuple(4552, 2055, false, "About"));
    const unsigned serial = window.Focus_Serial;
    Event_Args args{key};
    key < 0 ? Raise(window, window::About, "Img1", Event::Click)
            : Raise(window, window::About, window::About, Event::Key_Press, args);
    EXPECT_EQ(std::tuple(window.About == nullptr, window.Enabled, window.Focus, window.Focus_Serial > serial),
              std::tuple(key != 0, key != 0, "Slider", key != 0))
        << key;
  }
}

}  // namespace
