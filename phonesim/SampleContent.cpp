#include "phonesim/SampleContent.h"

#include <chrono>
#include <cmath>
#include <fstream>
#include <map>
#include <string>

#include "phonesim/Memory.h"
#include "phonesim/SampleCalendar.h"
#include "phonesim/SampleContacts.h"
#include "phonesim/SampleMedia.h"
#include "phonesim/SampleMessages.h"
#include "phonesim/SampleSim.h"

namespace phonesim {
namespace {

namespace fs = std::filesystem;

const Tune kOde = {{64, 2}, {64, 2}, {65, 2}, {67, 2}, {67, 2}, {65, 2}, {64, 2}, {62, 2},
                   {60, 2}, {60, 2}, {62, 2}, {64, 2}, {64, 3}, {62, 1}, {62, 4}};
const Tune kRound = {{60, 2}, {62, 2}, {64, 2}, {60, 2}, {60, 2}, {62, 2}, {64, 2},
                     {60, 2}, {64, 2}, {65, 2}, {67, 4}, {64, 2}, {65, 2}, {67, 4}};
const Tune kChime = {{76, 1}, {72, 1}, {74, 1}, {67, 3}, {0, 2},
                     {67, 1}, {74, 1}, {76, 1}, {72, 4}};
const Tune kScale = {{57, 1}, {59, 1}, {60, 1}, {62, 1}, {64, 1}, {65, 1}, {68, 1}, {69, 3}};
const Tune kPentatonic = {{72, 1}, {69, 1}, {67, 2}, {64, 1}, {67, 1}, {69, 2},
                          {0, 1},  {67, 1}, {64, 1}, {62, 1}, {60, 4}};

std::uint8_t Part(std::size_t at, std::size_t whole) {
  return static_cast<std::uint8_t>(at * 255 / whole);
}

Colour Dusk(std::size_t x, std::size_t y) {
  return {Part(y, 160), Part(x + y, 448), static_cast<std::uint8_t>(200 - Part(y, 320))};
}

Colour Rings(std::size_t x, std::size_t y) {
  const double distance = std::hypot(static_cast<double>(x) - 48, static_cast<double>(y) - 48);
  const bool light = static_cast<int>(distance / 8) % 2 == 0;
  return light ? Colour{255, 216, 85} : Colour{0, Part(y, 96), 170};
}

Colour Chess(std::size_t x, std::size_t y) {
  return (x / 12 + y / 12) % 2 == 0 ? Colour{255, 255, 255} : Colour{85, 36, 0};
}

Colour Smile(std::size_t x, std::size_t y) {
  const double dx = static_cast<double>(x) - 32;
  const double dy = static_cast<double>(y) - 32;
  const double distance = std::hypot(dx, dy);
  const bool eye = std::hypot(std::abs(dx) - 10, dy + 8) < 4;
  const bool mouth = dy > 4 && std::abs(distance - 19) < 2.5;
  if (distance > 29) return {255, 255, 255};
  return eye || mouth ? Colour{0, 0, 0} : Colour{255, 216, 0};
}

Bytes MakeTheme(std::string_view name, const Painter& background) {
  const std::string xml = "<?xml version=\"1.0\"?>\r\n<Theme name=\"" + std::string(name) +
                          "\">\r\n<Background_image Source=\"background.gif\"/>\r\n</Theme>\r\n";
  return MakeTar({{"Theme.xml", ToBytes(xml)}, {"background.gif", MakeGif(128, 160, background)}});
}

Bytes MakeMelody() {
  return ToBytes(
      "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:Walk\r\nBEAT:120\r\n"
      "MELODY:*4c3*4e3*4g3*5c2r3*4g3*5c1\r\nEND:IMELODY\r\n");
}

Bytes MakeNotes() {
  return ToBytes(
      "Shopping\r\n- bread\r\n- 2 l milk\r\n- caf\xC3\xA9\r\n\r\nCall back at 18:30.\r\n");
}

using Content = std::map<std::string, Bytes>;

void AddSounds(Content& content) {
  const std::string folder = "Phone/Sounds/Ringtones/";
  content[folder + "Ode.mid"] = MakeMidi(kOde, 0);
  content[folder + "Fr\u00E8re Jacques.mid"] = MakeMidi(kRound, 73);
  content[folder + "Tower.Bell.chime.mid"] = MakeMidi(kChime, 14);
  content[folder + "\u041A\u043E\u043B\u044B\u0431\u0435\u043B\u044C\u043D\u0430\u044F.mid"] =
      MakeMidi(kScale, 24);
  content[folder + "\u8309\u8389\u82B1.mid"] = MakeMidi(kPentatonic, 107);
  content[folder + "Rock & 'Roll' <loud> \"x\".mid"] = MakeMidi(kScale, 30);
  content[folder + "walk.imy"] = MakeMelody();
  content["Card/Sounds/Ringtones/BIG BAND.MID"] = MakeMidi(kOde, 61);
}

void AddPictures(Content& content) {
  content["Phone/Pictures/camera_semc/DSC00001.JPG"] = MakeJpeg();
  content["Phone/Pictures/camera_semc/DSC00002.JPG"] = MakeJpeg();
  content["Phone/Pictures/Image/Dusk.bmp"] = MakeBmp(128, 160, Dusk);
  content["Phone/Pictures/Image/Rings.gif"] = MakeGif(96, 96, Rings);
  content["Phone/Pictures/Image/smile.gif"] = MakeGif(64, 64, Smile);
  content["Phone/Pictures/Image/Caf\u00E9 Gar\u00E7on.jpg"] = MakeJpeg();
  content["Phone/Pictures/Image/\u5C71\u6C34.gif"] = MakeGif(96, 64, Dusk);
  content["Card/Pictures/Image/\u0417\u0430\u043A\u0430\u0442.bmp"] = MakeBmp(101, 80, Dusk);
  content["Card/Pictures/Image/chess.v2.final.gif"] = MakeGif(96, 96, Chess);
}

void AddOthers(Content& content) {
  content["Phone/Themes/Dusk.thm"] = MakeTheme("Dusk", Dusk);
  content["Phone/Themes/Rings.thm"] = MakeTheme("Rings", Rings);
  content["Phone/Movies/camera/MOV00001.3gp"] = MakeMovie("3gp4", 24'000);
  content["Phone/Movies/camera/MOV00002.3gp"] = MakeMovie("3gp4", 307'200);
  content["Card/Movies/camera/holiday.mp4"] = MakeMovie("mp42", 48'000);
  content["Phone/Other/notes.txt"] = MakeNotes();
  content["Phone/Other/README"] = ToBytes("This folder takes anything.\r\n");
  content["Phone/Other/empty.txt"] = {};
  content["Phone/Other/" + std::string(196, 'n') + ".txt"] = MakeNotes();
  content["Card/Other/archive.2004.06.01.txt"] = MakeNotes();
}

void WriteFile(const fs::path& path, const Bytes& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

/// True when the folder holds anything besides the books.
bool HasFiles(const fs::path& folder) {
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().filename() != kBooksFolder) return true;
  }
  return false;
}

int ThisYear() {
  const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  return static_cast<int>(std::chrono::year_month_day(today).year());
}

void FillBooks(const fs::path& folder) {
  fs::create_directories(folder / kBooksFolder);
  Books books(folder / kBooksFolder);
  books.contacts.Fill(MakeSampleContacts());
  books.events.Fill(MakeSampleCalendar(ThisYear()));
  books.sim.Fill(MakeSampleSim());
  books.messages.Fill(MakeSampleMessages(ThisYear()));
}

}  // namespace

bool FillWithSamples(const fs::path& folder) {
  const bool books = !fs::exists(folder / kBooksFolder);
  if (books) FillBooks(folder);
  if (HasFiles(folder)) return books;
  Content content;
  AddSounds(content);
  AddPictures(content);
  AddOthers(content);
  for (const auto& [name, bytes] : content) WriteFile(folder / name, bytes);
  fs::create_directories(folder / "Card/Themes");
  return true;
}

}  // namespace phonesim
