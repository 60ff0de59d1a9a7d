// The About window: it blocks the main window while shown and goes at the first click or
// character key. Its picture is read back with a GIF reader of the test's own.
#include "ui/about.h"

#include <cmath>
#include <optional>

#include "support/fixture.h"
#include "ui/gif.h"

namespace {

// --- Window ----------------------------------------------------------------------------------

class About_Test : public Window_Test {
 protected:
  About_Form& Open_About() {
    Event([&] { nAbout_Click(window); });
    EXPECT_NE(window.About, nullptr);
    return *window.About;
  }
};

TEST_F(About_Test, OpeningBlocksTheMainWindowAndCentresItself) {
  const About_Form& about = Open_About();
  EXPECT_FALSE(window.Enabled);
  EXPECT_EQ(about.Width, 6255);  // no border: the outer size is the client area
  EXPECT_EQ(about.Height, 5355);
  EXPECT_EQ(about.Left, (platform.Screen_Twips.Width - 6255) / 2);
  EXPECT_EQ(about.Top, (platform.Screen_Twips.Height - 5355) / 3);
}

struct Closing_Input {
  const char* Name;
  std::optional<int> Key;  // nothing: a click on the picture
};

class About_Closing : public About_Test, public ::testing::WithParamInterface<Closing_Input> {};

TEST_P(About_Closing, ClosesReenablesAndFocusesTheSlider) {
  About_Form& about = Open_About();
  const unsigned serial = window.Focus_Serial;
  const auto& key = GetParam().Key;
  Event([&] { key ? About_KeyPress(about, *key) : Img1_Click(about); });
  EXPECT_EQ(window.About, nullptr);
  EXPECT_TRUE(window.Enabled);
  EXPECT_EQ(window.Focus, "Slider");
  EXPECT_GT(window.Focus_Serial, serial);
}

INSTANTIATE_TEST_SUITE_P(Inputs, About_Closing,
                         ::testing::Values(Closing_Input{"Letter", 'a'}, Closing_Input{"Enter", 13},
                                           Closing_Input{"Escape", 27}, Closing_Input{"Space", ' '},
                                           Closing_Input{"Cyrillic", 0x44F}, Closing_Input{"Click", std::nullopt}),
                         [](const auto& info) { return std::string(info.param.Name); });

TEST_F(About_Test, AKeyWithoutACharacterLeavesItOpen) {
  About_Form& about = Open_About();
  Event([&] { About_KeyPress(about, 0); });
  EXPECT_NE(window.About, nullptr);
  EXPECT_FALSE(window.Enabled);
}

TEST_F(About_Test, EachOpeningMakesTheWindowAnew) {
  Event([&] { Img1_Click(Open_About()); });
  ASSERT_EQ(window.About, nullptr);
  Open_About();
  EXPECT_FALSE(window.Enabled);
}

// --- Picture ---------------------------------------------------------------------------------

struct Rgb {
  int R, G, B;
  bool operator==(const Rgb&) const = default;
};

struct Decoded {
  int Width = 0, Height = 0;
  std::vector<Rgb> Palette;
  std::vector<std::uint8_t> Pixels;
  bool Trailer = false;

  Rgb At(int x, int y) const {
    const auto index = static_cast<std::size_t>(y) * static_cast<std::size_t>(Width) + static_cast<std::size_t>(x);
    return Palette.at(Pixels.at(index));
  }
};

// Reads a GIF with one image: header, global table, extensions skipped, LZW data.
Decoded Read_Gif(const std::vector<std::uint8_t>& file) {
  Decoded out;
  std::size_t p = 0;
  const auto byte = [&]() -> int {
    if (p >= file.size()) throw std::runtime_error("GIF ends early");
    return file[p++];
  };
  const auto word = [&] {
    const int low = byte();
    return low | (byte() << 8);
  };
  const auto blocks = [&] {
    std::vector<std::uint8_t> data;
    for (int n = byte(); n != 0; n = byte())
      for (int i = 0; i < n; ++i) data.push_back(static_cast<std::uint8_t>(byte()));
    return data;
  };

  const std::string signature(file.begin(), file.begin() + 6);
  if (signature != "GIF89a" && signature != "GIF87a") throw std::runtime_error("no GIF signature");
  p = 6;
  out.Width = word();
  out.Height = word();
  const int flags = byte();
  byte(), byte();
  if (flags & 0x80)
    for (int i = 0; i < (2 << (flags & 7)); ++i) {
      const int r = byte(), g = byte(), b = byte();
      out.Palette.push_back({r, g, b});
    }

  std::vector<std::uint8_t> data;
  int min_code_size = 0;
  for (;;) {
    const int kind = byte();
    if (kind == 0x3B) {
      out.Trailer = p == file.size();
      break;
    }
    if (kind == 0x21) {
      byte();
      blocks();
      continue;
    }
    if (kind != 0x2C) throw std::runtime_error("unknown block");
    word(), word();
    if (word() != out.Width || word() != out.Height) throw std::runtime_error("image is not the whole screen");
    if (byte() & 0xC0) throw std::runtime_error("local table or interlace");
    min_code_size = byte();
    data = blocks();
  }

  // LZW: each entry is its prefix entry plus one pixel; codes widen as the table grows.
  const int clear = 1 << min_code_size, end = clear + 1;
  std::vector<std::pair<int, std::uint8_t>> entries;  // (prefix, last pixel)
  const auto reset_entries = [&] {
    entries.clear();
    for (int i = 0; i < clear; ++i) entries.push_back({-1, static_cast<std::uint8_t>(i)});
    entries.push_back({-1, 0});
    entries.push_back({-1, 0});
  };
  const auto first_of = [&](int code) {
    while (entries[static_cast<std::size_t>(code)].first >= 0) code = entries[static_cast<std::size_t>(code)].first;
    return entries[static_cast<std::size_t>(code)].second;
  };
  const auto write = [&](int code) {
    std::vector<std::uint8_t> run;
    for (; code >= 0; code = entries[static_cast<std::size_t>(code)].first)
      run.push_back(entries[static_cast<std::size_t>(code)].second);
    out.Pixels.insert(out.Pixels.end(), run.rbegin(), run.rend());
  };
  reset_entries();
  int width = min_code_size + 1;
  int previous = -1;
  std::size_t bit = 0;
  for (;;) {
    if (bit + static_cast<std::size_t>(width) > data.size() * 8) throw std::runtime_error("no end code");
    int code = 0;
    for (int i = 0; i < width; ++i, ++bit) code |= ((data[bit / 8] >> (bit % 8)) & 1) << i;
    if (code == clear) {
      reset_entries();
      width = min_code_size + 1;
      previous = -1;
      continue;
    }
    if (code == end) break;
    const int size = static_cast<int>(entries.size());
    if (code > size || (code == size && previous < 0)) throw std::runtime_error("bad code");
    if (previous >= 0 && size < 4096)
      entries.push_back({previous, code < size ? first_of(code) : first_of(previous)});
    write(code);
    previous = code;
    if (static_cast<int>(entries.size()) == (1 << width) && width < 12) ++width;
  }
  return out;
}

class About_Picture_Test : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { picture = new Decoded(Read_Gif(About_Picture())); }
  static void TearDownTestSuite() { delete picture; }

  // The window's ellipse (30, 20) - (360, 345) seen from the picture, which lies at (24, 8).
  static constexpr double Centre_X = (30 + 360) / 2.0 - 24, Centre_Y = (20 + 345) / 2.0 - 8;
  static constexpr double Semi_X = (360 - 30) / 2.0, Semi_Y = (345 - 20) / 2.0;

  static Rgb At_Polar(double radius, double degrees) {
    const double a = degrees * std::acos(-1.0) / 180;
    return picture->At(static_cast<int>(std::floor(Centre_X + radius * std::cos(a))),
                       static_cast<int>(std::floor(Centre_Y + radius * std::sin(a))));
  }
  static bool Is_Red(const Rgb& c) { return c.R >= 0xC0 && c.G < 0x40 && c.B < 0x40; }

  static Decoded* picture;
  static constexpr Rgb White{255, 255, 255}, Black{0, 0, 0};
};

Decoded* About_Picture_Test::picture = nullptr;

TEST_F(About_Picture_Test, IsAGifOfTheWindowsSizeAndLength) {
  const auto& file = About_Picture();
  EXPECT_EQ(file.size(), 6380u);
  EXPECT_EQ(file.back(), 0x3B);
  EXPECT_TRUE(picture->Trailer);
  EXPECT_EQ(picture->Width, 341);
  EXPECT_EQ(picture->Height, 343);
  EXPECT_EQ(picture->Palette.size(), 8u);
  EXPECT_EQ(picture->Pixels.size(), 341u * 343u);
  // Its natural size fills Img1: 5115 x 5145 twips.
  EXPECT_EQ(picture->Width * 15, 5115);
  EXPECT_EQ(picture->Height * 15, 5145);
  EXPECT_EQ(&About_Picture(), &file) << "built once";
}

TEST_F(About_Picture_Test, IsWhiteOutsideTheWindowsEllipse) {
  int coloured = 0;
  for (int y = 0; y < picture->Height; ++y)
    for (int x = 0; x < picture->Width; ++x) {
      const double dx = (x + 0.5 - Centre_X) / Semi_X, dy = (y + 0.5 - Centre_Y) / Semi_Y;
      if (dx * dx + dy * dy >= 0.97 && !(picture->At(x, y) == White)) ++coloured;
    }
  EXPECT_EQ(coloured, 0);
  for (const auto& [x, y] : {std::pair{0, 0}, {340, 0}, {0, 342}, {340, 342}}) EXPECT_EQ(picture->At(x, y), White);
}

TEST_F(About_Picture_Test, HasARedRingAllRoundInsideTheEllipse) {
  // Find the ring on the ray to the right, clear of the bar, then follow it round.
  double inner = 0, outer = 0;
  for (double r = 40; r < Semi_X; r += 0.5) {
    const bool red = Is_Red(At_Polar(r, 0));
    if (red && inner == 0) inner = r;
    if (!red && inner != 0) {
      outer = r;
      break;
    }
  }
  ASSERT_GT(inner, 60);
  ASSERT_GT(outer - inner, 10) << "a ring, not a line";
  EXPECT_LT(outer, std::min(Semi_X, Semi_Y) - 3);
  const double middle = (inner + outer) / 2;
  for (int degrees = 0; degrees < 360; degrees += 5) {
    EXPECT_TRUE(Is_Red(At_Polar(middle, degrees))) << degrees;
    EXPECT_EQ(At_Polar(outer + 6, degrees), White) << degrees;
  }
}

TEST_F(About_Picture_Test, ABarCrossesTheMiddleDiagonally) {
  // Red from the middle towards top left and bottom right; the other diagonal is free of it.
  for (double r = 0; r < 100; r += 4) {
    EXPECT_TRUE(Is_Red(At_Polar(r, 45))) << r;
    EXPECT_TRUE(Is_Red(At_Polar(r, 225))) << r;
  }
  for (double r = 30; r < 100; r += 4) {
    EXPECT_FALSE(Is_Red(At_Polar(r, 135))) << r;
    EXPECT_FALSE(Is_Red(At_Polar(r, 315))) << r;
  }
}

TEST_F(About_Picture_Test, AFigureInBlackStrokesStandsInTheMiddle) {
  int black = 0, other = 0;
  int top = picture->Height, bottom = 0, left = picture->Width, right = 0;
  for (int y = 0; y < picture->Height; ++y)
    for (int x = 0; x < picture->Width; ++x) {
      const Rgb c = picture->At(x, y);
      if (c == Black) {
        ++black;
        top = std::min(top, y), bottom = std::max(bottom, y);
        left = std::min(left, x), right = std::max(right, x);
      } else if (!(c == White) && !Is_Red(c)) {
        ++other;
      }
    }
  EXPECT_EQ(other, 0) << "white ground, red sign, black figure";
  EXPECT_GT(black, 1000);
  // Strokes, not a filled shape: the figure covers a small part of its bounding box.
  EXPECT_LT(black, (bottom - top + 1) * (right - left + 1) / 4);
  // It stands within the ring, around the middle, and is taller than wide.
  EXPECT_GT(bottom - top, right - left);
  EXPECT_LT(std::abs((top + bottom) / 2.0 - Centre_Y), 30);
  EXPECT_LT(std::abs((left + right) / 2.0 - Centre_X), 10);
  EXPECT_GT(bottom - top, 120);
}

// --- The GIF writer beyond the one picture ---------------------------------------------------

// Pictures that fill the code table many times over (noise), that never grow it (one colour),
// and palettes of every depth: what goes in comes out.
TEST(Gif_Writer, RoundTripsPicturesOfEveryPaletteDepth) {
  std::uint32_t seed = 12345;
  const auto random = [&] { return seed = seed * 1103515245u + 12345u, (seed >> 16) & 0x7FFF; };
  for (int depth = 1; depth <= 8; ++depth) {
    std::vector<gif::Colour> palette;
    for (int i = 0; i < (1 << depth); ++i) {
      const auto v = static_cast<std::uint8_t>(i);
      palette.push_back({v, static_cast<std::uint8_t>(255 - v), static_cast<std::uint8_t>(v * 7)});
    }
    for (const int kind : {0, 1, 2}) {
      const int width = 297 + depth, height = 201;
      std::vector<std::uint8_t> pixels;
      for (int i = 0; i < width * height; ++i) {
        const unsigned noise = random() % palette.size();
        // Noise, one flat colour, or stripes with a little noise.
        const std::size_t pixel = kind == 0   ? noise
                                  : kind == 1 ? palette.size() - 1
                                              : (static_cast<std::size_t>(i) / 5 + noise % 2) % palette.size();
        pixels.push_back(static_cast<std::uint8_t>(pixel));
      }
      const Decoded back = Read_Gif(gif::Encode(width, height, palette, pixels));
      ASSERT_EQ(back.Width, width);
      ASSERT_EQ(back.Height, height);
      ASSERT_EQ(back.Palette.size(), palette.size());
      EXPECT_EQ(back.Palette.back(), (Rgb{palette.back().R, palette.back().G, palette.back().B}));
      EXPECT_EQ(back.Pixels, pixels) << "depth " << depth << ", kind " << kind;
      EXPECT_TRUE(back.Trailer);
    }
  }
}

TEST(Gif_Writer, PadsToAnExactLengthWhereACommentCanFillTheGap) {
  const std::vector<gif::Colour> palette{{0, 0, 0}, {255, 255, 255}};
  const std::vector<std::uint8_t> pixels(20 * 10, 1);
  const std::vector<std::uint8_t> plain = gif::Encode(20, 10, palette, pixels);
  for (std::size_t missing = 0; missing <= 800; ++missing) {
    std::vector<std::uint8_t> file = plain;
    const bool possible = missing != 1 && missing != 2 && missing != 4;
    ASSERT_EQ(gif::Pad_To(file, plain.size() + missing), possible) << missing;
    if (!possible) continue;
    ASSERT_EQ(file.size(), plain.size() + missing);
    const Decoded back = Read_Gif(file);
    ASSERT_TRUE(back.Trailer) << missing;
    ASSERT_EQ(back.Pixels, pixels) << missing;
  }
  std::vector<std::uint8_t> file = plain;
  EXPECT_FALSE(gif::Pad_To(file, plain.size() - 1));
  EXPECT_EQ(file, plain);
}

}  // namespace
