// The player's real sound, rendered without a sound card.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "files/FluidPlayer.h"
#include "phonesim/SampleMedia.h"
#include "tests/support/TempFolder.h"

namespace tessarin {
namespace {

class SoundTest : public testing::Test {
 protected:
  SoundTest() {
    const auto tune = phonesim::MakeMidi({{60, 4}, {64, 4}, {67, 4}}, 0);
    folder_.Write("tune.mid", std::string(tune.begin(), tune.end()));
  }
  static FluidPlayer::Options Silent() {
    FluidPlayer::Options options;
    options.drivers.clear();
    return options;
  }
  // The loudest sample of the next tenth of a second.
  static float Peak(FluidPlayer& player) {
    const auto samples = player.Render(FluidPlayer::kSampleRate / 10);
    float peak = 0;
    for (const float sample : samples) peak = std::max(peak, std::abs(sample));
    return peak;
  }

  TempFolder folder_;
};

TEST_F(SoundTest, ATuneIsHeardUntilItPauses) {
  FluidPlayer player(Silent());
  ASSERT_EQ(player.Open(folder_.Path() / "tune.mid"), MediaError::None);
  EXPECT_LT(Peak(player), 0.001f) << "before it plays";
  ASSERT_EQ(player.Play(), MediaError::None);
  float loudest = 0;
  for (int part = 0; part < 5; ++part) loudest = std::max(loudest, Peak(player));
  EXPECT_GT(loudest, 0.02f);
  EXPECT_LT(loudest, 1.0f) << "it clips";
  player.Pause();
  Peak(player);  // what was on its way
  EXPECT_LT(Peak(player), 0.01f);
  ASSERT_EQ(player.Play(), MediaError::None);
  loudest = 0;
  for (int part = 0; part < 12; ++part) loudest = std::max(loudest, Peak(player));
  EXPECT_GT(loudest, 0.02f) << "it goes on with the next note";
  player.Stop();
  player.SeekToStart();
  ASSERT_EQ(player.Play(), MediaError::None);
  loudest = 0;
  for (int part = 0; part < 100; ++part) loudest = std::max(loudest, Peak(player));
  EXPECT_GT(loudest, 0.02f) << "it begins again";
  EXPECT_LT(Peak(player), 0.001f) << "and has come to its end";
  player.SeekToStart();
  ASSERT_EQ(player.Play(), MediaError::None);
  loudest = 0;
  for (int part = 0; part < 5; ++part) loudest = std::max(loudest, Peak(player));
  EXPECT_GT(loudest, 0.02f) << "also after its end";
}

TEST_F(SoundTest, WhatCannotBePlayedIsFoundBeforeAnythingWaits) {
  folder_.Write("damaged.mid", "RIFF no tune");
  folder_.Write("empty.mid", "");
  FluidPlayer player(Silent());
  EXPECT_EQ(player.Play(), MediaError::FileMissing);
  EXPECT_EQ(player.Open(folder_.Path() / "none.mid"), MediaError::FileMissing);
  EXPECT_EQ(player.Open(folder_.Path() / "damaged.mid"), MediaError::FileDamaged);
  EXPECT_EQ(player.Open(folder_.Path() / "empty.mid"), MediaError::FileDamaged);
  EXPECT_EQ(player.Play(), MediaError::FileMissing);
  player.Pause();
  player.Stop();
  player.SeekToStart();
  player.Close();

  FluidPlayer::Options noFont = Silent();
  noFont.soundFonts = {folder_.Path() / "none.sf2", folder_.Path()};
  EXPECT_EQ(FluidPlayer(noFont).Open(folder_.Path() / "tune.mid"), MediaError::NoSoundFont);
  FluidPlayer::Options noDevice;
  noDevice.drivers = {"no such output"};
  FluidPlayer deaf(noDevice);
  ASSERT_EQ(deaf.Open(folder_.Path() / "tune.mid"), MediaError::None);
  EXPECT_EQ(deaf.Play(), MediaError::NoAudioDevice);
}

}  // namespace
}  // namespace tessarin
