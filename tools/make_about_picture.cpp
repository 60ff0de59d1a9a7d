// Draws the picture of the About window and writes it as a GIF file of exactly 6380 bytes: on a
// white ground a red ring crossed by a diagonal bar, over a black stick figure. The program
// carries the file that this writes, data/about.gif.
//
// Usage: vorlane_make_about_picture FILE           writes the picture to FILE
//        vorlane_make_about_picture --check FILE   exits 1 if FILE is not the picture
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "gif.h"
#include "tool_files.h"

namespace {

// The picture: 341 x 343 pixels, 6380 bytes as a file.
constexpr int Picture_Width = 341;
constexpr int Picture_Height = 343;
constexpr std::size_t Picture_Bytes = 6380;

enum Ink : std::uint8_t { White, Black, Red };

constexpr std::array<gif::Colour, 8> Palette{{
    {0xFF, 0xFF, 0xFF},  // white ground
    {0x00, 0x00, 0x00},  // the figure
    {0xE0, 0x00, 0x00},  // the sign
    {0x80, 0x00, 0x00},
    {0x80, 0x80, 0x80},
    {0xC0, 0xC0, 0xC0},
    {0xFF, 0x80, 0x80},
    {0x40, 0x40, 0x40},
}};

// The sign stands in the middle of the window's ellipse, which is (6, 12) - (336, 337) of the
// picture; its outer edge keeps clear of the ellipse's border all round.
constexpr double Centre_X = 171;
constexpr double Centre_Y = 174.5;
constexpr double Ring_Outer = 152;
constexpr double Ring_Inner = 126;
constexpr double Bar_Half_Width = 13;
constexpr double Stroke_Half_Width = 3.5;

struct Segment {
  double X1, Y1, X2, Y2;
};

// A stick figure standing in the middle: body, arms, legs; the head is a circle of its own.
constexpr double Head_X = Centre_X, Head_Y = 96, Head_Radius = 21;
constexpr std::array<Segment, 5> Figure{{
    {Centre_X, 117, Centre_X, 205},       // body
    {Centre_X, 140, Centre_X - 48, 182},  // left arm
    {Centre_X, 140, Centre_X + 48, 182},  // right arm
    {Centre_X, 205, Centre_X - 38, 272},  // left leg
    {Centre_X, 205, Centre_X + 38, 272},  // right leg
}};

double Distance_To(const Segment& s, double x, double y) {
  const double dx = s.X2 - s.X1, dy = s.Y2 - s.Y1;
  double t = ((x - s.X1) * dx + (y - s.Y1) * dy) / (dx * dx + dy * dy);
  t = std::clamp(t, 0.0, 1.0);
  return std::hypot(x - (s.X1 + t * dx), y - (s.Y1 + t * dy));
}

Ink Ink_At(int px, int py) {
  const double x = px + 0.5, y = py + 0.5;  // the pixel's middle
  const double r = std::hypot(x - Centre_X, y - Centre_Y);
  if (r >= Ring_Inner && r <= Ring_Outer) return Red;
  if (r > Ring_Outer) return White;
  // The bar runs from top left to bottom right through the middle, over the figure.
  if (std::abs((x - Centre_X) - (y - Centre_Y)) / std::sqrt(2.0) <= Bar_Half_Width) return Red;
  if (std::abs(std::hypot(x - Head_X, y - Head_Y) - Head_Radius) <= Stroke_Half_Width) return Black;
  for (const Segment& s : Figure)
    if (Distance_To(s, x, y) <= Stroke_Half_Width) return Black;
  return White;
}

std::vector<std::uint8_t> Draw_Picture() {
  std::vector<std::uint8_t> pixels;
  pixels.reserve(static_cast<std::size_t>(Picture_Width) * Picture_Height);
  for (int y = 0; y < Picture_Height; ++y)
    for (int x = 0; x < Picture_Width; ++x) pixels.push_back(Ink_At(x, y));
  std::vector<std::uint8_t> file = gif::Encode(Picture_Width, Picture_Height, Palette, pixels);
  if (!gif::Pad_To(file, Picture_Bytes)) throw std::logic_error("the About picture does not fit its size");
  return file;
}

}  // namespace

int main(int argc, char* argv[]) {
  int status = 0;
  const auto target =
      Target_Of(argc, argv,
                "usage: vorlane_make_about_picture [--check] FILE\n"
                "Writes the About window's picture to FILE, or with --check tells whether FILE is it.\n",
                status);
  return !target ? status : Write_Or_Check(target->Path, Draw_Picture(), target->Check) ? 0 : 1;
}
