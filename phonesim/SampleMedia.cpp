#include "phonesim/SampleMedia.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace phonesim {
namespace {

constexpr unsigned kTicksPerEighth = 240;

/// Numbers of BMP and GIF stand low byte first.
void AppendLow16(Bytes& out, std::size_t value) {
  out.push_back(static_cast<std::uint8_t>(value));
  out.push_back(static_cast<std::uint8_t>(value >> 8));
}

void AppendLow32(Bytes& out, std::size_t value) {
  AppendLow16(out, value);
  AppendLow16(out, value >> 16);
}

/// A MIDI time span of at most two bytes of seven bits.
void AppendTicks(Bytes& out, unsigned ticks) {
  if (ticks >= 0x80) out.push_back(static_cast<std::uint8_t>(0x80 | ticks >> 7));
  out.push_back(static_cast<std::uint8_t>(ticks & 0x7F));
}

std::uint8_t PaletteIndex(const Colour& colour) {
  return static_cast<std::uint8_t>((colour.red >> 6) << 5 | (colour.green >> 5) << 2 |
                                   colour.blue >> 6);
}

Bytes Palette() {
  Bytes palette;
  for (unsigned index = 0; index < 128; ++index) {
    palette.push_back(static_cast<std::uint8_t>((index >> 5) * 85));
    palette.push_back(static_cast<std::uint8_t>((index >> 2 & 7) * 36));
    palette.push_back(static_cast<std::uint8_t>((index & 3) * 85));
  }
  return palette;
}

/// LZW without compression: a clear code (80) before the table would grow keeps every code at
/// eight bits, so that codes are bytes. 81 ends the picture.
Bytes GifCodes(std::size_t width, std::size_t height, const Painter& paint) {
  constexpr std::size_t kRun = 120;
  Bytes codes;
  for (std::size_t point = 0; point < width * height; ++point) {
    if (point % kRun == 0) codes.push_back(0x80);
    codes.push_back(PaletteIndex(paint(point % width, point / width)));
  }
  codes.push_back(0x81);
  return codes;
}

std::uint8_t HexDigit(char digit) {
  return static_cast<std::uint8_t>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
}

/// The ustar header: name (100), mode, owner, group (8 each), size, time (12), checksum (8), type.
Bytes TarHeader(std::string_view name, std::size_t size) {
  Bytes header(512, 0);
  const auto put = [&header](std::size_t at, std::string_view text) {
    std::copy(text.begin(), text.end(), header.begin() + static_cast<std::ptrdiff_t>(at));
  };
  std::array<char, 16> number{};
  const auto octal = [&number](const char* form, std::size_t value) {
    std::snprintf(number.data(), number.size(), form, static_cast<unsigned>(value));
    return std::string_view(number.data());
  };
  put(0, name);
  put(100, "0000644");
  put(108, "0000000");
  put(116, "0000000");
  put(124, octal("%011o", size));
  put(136, "10000000000");
  put(148, "        ");
  put(156, "0");
  put(257, "ustar");
  put(263, "00");
  std::size_t sum = 0;
  for (const std::uint8_t byte : header) sum += byte;
  put(148, octal("%06o", sum));
  header[154] = 0;
  return header;
}

constexpr std::string_view kJpeg =
    "FFD8FFE000104A46494600010100000100010000FFDB004300120C0D100D0B12100E10141312151B2C1D1B18181B"
    "362729202C403944433F393E3D47506657474B614D3D3E59795A61696D72737245557D867C6F856670726EFFDB00"
    "43011314141B171B341D1D346E493E496E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E"
    "6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6E6EFFC0001108005A007803012200021101031101FFC4001A000101"
    "000301010000000000000000000000030104050206FFC4002D100002020201020405030500000000000000010212"
    "03041121310541517152618191D13242C106143362A1FFC400190101000301010000000000000000000000000102"
    "030405FFC4001D110003010101010101010000000000000000011112022103314113FFDA000C0301000211031100"
    "3F00D3A8A95A8A9E868E184AA2A56A2A34212A8A95A8A8D084AA2A56A2A34212A8A95A8A8D084AA2A56A2A34212A"
    "8A95A8A8D084AA0AD40D085AA2A56A2A73E8D212A8A95A8A8D084AA2A56A2A34212A8A95A8A8D084AA5B4F525B7B"
    "11C50E9CF77E8BD4C54EB7F4FC62B2E66FF570B8F6F3FE0AF7DCE696E79AE1D2D5D0D7D58A58F1AB2FDF25CB7F53"
    "D6C6A60D98B59B1465CF9F1D57D4B038F4ED3AA290F94F11D07A5B14E5CA12EB193F4356A7D0F8FC62F5F137FA94"
    "FA7B71D7F838753B38EDBE7D39BBE63F095415A82DA290AD454AD454C346B095454AD454684255152B5151A10954"
    "54AD454684255363473BD4D85938E63DA4BD51E2A2A1BA1287D262CB0CD053C72528FC8CCE71C71729C9462BBB67"
    "CE45CA0F9849C5FAA7C09CA791F3394A4FE6F932C1A6CAF896D7F779957FC70E91F9FCCD3A94754F86D27EE66A68"
    "9C50CDFAC95415A8274215A91CFB383074C9349FA2EACD0DEF149646E1ACDC61E72F37F839DDFB99A4FF00A53AFA"
    "A5E23AEFC5B0794323FA23D63F14D793E25687CDAFC1C505A19FFAF47D2C250C91B639292F54CF553E73166C9867"
    "6C53717F23B1A5E298F3710CFC639FAF93FC1569A36E3E8BAF19B75152B533529A35846A2A5AA6BED6D61D58F392"
    "5CCBCA2BBB1AA438BD663364860C6E791F097FD38DB3E2197336A0DC21E8BBBF727B5B53DACB79F44BF4C576440D"
    "5239BBFA5F102FAFB5975DAA4B98F9C5F62009334E7E1F43ABB10DAC768746BBC7D01C5D4D896AE6538F6ED25EA8"
    "1469FF000E8E7E89AF48035E5B127D924787924FBC99730CB36F94BB98BC7E25F734C1309C9B8A517DA4BEE64D20"
    "9B5D9F020C9D5D7DED8D75C63C8EBF0BEA8DB5E39B1C75C789FD1FE4E1472CD7EEE7DCA4763E28FD8ABE53253ED7"
    "E33A997C5F6B22E14A38D7FA234A527293726DB7DDB26B2C1FEEE3DCF69A7D984922ADB7FA00049500369777C1E1"
    "E582F3E7D803D8212D8F857DC02D96440049700000000000000000033697C4FEE2D2F57F730000000000003FFFD9";

}  // namespace

Bytes MakeMidi(const Tune& tune, std::uint8_t program) {
  Bytes track = {0x00, 0xFF, 0x51, 0x03, 0x07, 0xA1, 0x20, 0x00, 0xC0, program};
  unsigned pause = 0;
  for (const auto& [note, eighths] : tune) {
    const unsigned ticks = eighths * kTicksPerEighth;
    if (note == 0) {
      pause += ticks;
      continue;
    }
    AppendTicks(track, pause);
    Append(track, Bytes{0x90, note, 0x60});
    AppendTicks(track, ticks);
    Append(track, Bytes{0x80, note, 0x40});
    pause = 0;
  }
  Append(track, Bytes{0x00, 0xFF, 0x2F, 0x00});
  Bytes file = ToBytes("MThd");
  Append32(file, 6);
  Append16(file, 0);
  Append16(file, 1);
  Append16(file, kTicksPerEighth + kTicksPerEighth);
  Append(file, "MTrk");
  Append32(file, static_cast<std::uint32_t>(track.size()));
  Append(file, track);
  return file;
}

Bytes MakeBmp(std::size_t width, std::size_t height, const Painter& paint) {
  const std::size_t row = (width * 3 + 3) / 4 * 4;
  Bytes file = ToBytes("BM");
  for (const std::size_t value :
       {54 + row * height, std::size_t{0}, std::size_t{54}, std::size_t{40}, width, height}) {
    AppendLow32(file, value);
  }
  AppendLow16(file, 1);
  AppendLow16(file, 24);
  file.resize(54);
  for (std::size_t y = height; y-- > 0;) {
    for (std::size_t x = 0; x < width; ++x) {
      const Colour colour = paint(x, y);
      Append(file, Bytes{colour.blue, colour.green, colour.red});
    }
    file.resize(file.size() + row - width * 3);
  }
  return file;
}

Bytes MakeGif(std::size_t width, std::size_t height, const Painter& paint) {
  Bytes file = ToBytes("GIF89a");
  AppendLow16(file, width);
  AppendLow16(file, height);
  Append(file, Bytes{0xF6, 0x00, 0x00});
  Append(file, Palette());
  Append(file, Bytes{0x2C, 0, 0, 0, 0});
  AppendLow16(file, width);
  AppendLow16(file, height);
  Append(file, Bytes{0x00, 0x07});
  const Bytes codes = GifCodes(width, height, paint);
  for (ByteView rest(codes); !rest.empty();) {
    const std::size_t count = std::min<std::size_t>(rest.size(), 255);
    file.push_back(static_cast<std::uint8_t>(count));
    Append(file, rest.first(count));
    rest = rest.subspan(count);
  }
  Append(file, Bytes{0x00, 0x3B});
  return file;
}

Bytes MakeJpeg() {
  Bytes file;
  for (std::size_t at = 0; at + 1 < kJpeg.size(); at += 2) {
    file.push_back(static_cast<std::uint8_t>(HexDigit(kJpeg[at]) << 4 | HexDigit(kJpeg[at + 1])));
  }
  return file;
}

Bytes MakeTar(const std::vector<std::pair<std::string_view, Bytes>>& files) {
  Bytes tar;
  for (const auto& [name, data] : files) {
    Append(tar, TarHeader(name, data.size()));
    Append(tar, data);
    tar.resize((tar.size() + 511) / 512 * 512);
  }
  tar.resize(tar.size() + 1024);
  return tar;
}

Bytes MakeMovie(std::string_view brand, std::size_t size) {
  Bytes file;
  Append32(file, 20);
  Append(file, "ftyp");
  Append(file, brand);
  Append32(file, 0x200);
  Append(file, brand);
  Append32(file, static_cast<std::uint32_t>(size - 20));
  Append(file, "mdat");
  std::uint32_t noise = 0x2545F491;
  while (file.size() < size) {
    noise = noise * 1664525 + 1013904223;
    file.push_back(static_cast<std::uint8_t>(noise >> 24));
  }
  return file;
}

}  // namespace phonesim
