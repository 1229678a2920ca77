#pragma once

#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "phonesim/Bytes.h"

/// Small media files, made byte by byte, that real players and viewers take.
namespace phonesim {

/// A note by its MIDI number, 0 for a rest, and its length in eighths.
using Tune = std::vector<std::pair<std::uint8_t, unsigned>>;

/// A Standard MIDI File of format 0: one voice on the instrument `program`, 0 to 127.
Bytes MakeMidi(const Tune& tune, std::uint8_t program);

/// Red, green and blue, each 0 to 255, of a point.
struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};
using Painter = std::function<Colour(std::size_t x, std::size_t y)>;

/// A Windows bitmap, 24 bits a point.
Bytes MakeBmp(std::size_t width, std::size_t height, const Painter& paint);

/// A GIF89a picture in 128 colours: two bits of red, three of green, two of blue.
Bytes MakeGif(std::size_t width, std::size_t height, const Painter& paint);

/// A JPEG photograph of 120 x 90 points: a sun over hills.
Bytes MakeJpeg();

/// An archive in the ustar form, as phone themes are.
Bytes MakeTar(const std::vector<std::pair<std::string_view, Bytes>>& files);

/// A 3GP or MP4 file of `size` bytes, at least 32: the brand and a block of media data, no film.
Bytes MakeMovie(std::string_view brand, std::size_t size);

}  // namespace phonesim
