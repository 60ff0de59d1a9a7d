// A small GIF writer for pictures that the program draws itself: one image, a global colour
// table, LZW compression with variable code width and clear codes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace gif {

struct Colour {
  std::uint8_t R, G, B;
};

// An indexed picture as a GIF89a file. The palette has 2, 4, .. 256 entries; pixels holds
// width x height palette indexes, row by row from the top.
std::vector<std::uint8_t> Encode(int width, int height, std::span<const Colour> palette,
                                 std::span<const std::uint8_t> pixels);

// Brings a file made by Encode to exactly `size` bytes with a comment block before the trailer.
// False when that can't be done: the file is longer, or short by 1, 2 or 4 bytes, which no
// comment block fills.
bool Pad_To(std::vector<std::uint8_t>& file, std::size_t size);

}  // namespace gif
