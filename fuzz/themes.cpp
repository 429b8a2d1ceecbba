// SPDX-License-Identifier: MIT
// A whole theme folder with damaged files, loaded and played for 50 frames, and checked by the kit. The input is a list
// of damages: a file, an offset, a length to cut out there and bytes to put in.
#include <map>
#include <string>

#include "fuzzing.h"
#include "kit/check.h"
#include "support/story.h"

namespace sorvex {
namespace {

constexpr const char* kFiles[] = {"Theme.ini", "Theme2.ini", "ThemeDetails.ini", "HighScores.ini", "bg.bmp",
                                  "pS.bmp",    "pM.bmp",     "ss0.bmp",          "sm0.bmp",        "cs0.bmp",
                                  "cm0.bmp",   "ss1.bmp",    "sm1.bmp",          "cs1.bmp",        "cm1.bmp"};

TestTheme SmallTheme() {
  TestTheme theme = CupTheme(2);
  theme.field = {150, 110};
  theme.targetX = 100;
  theme.targetY = 75;
  return theme;
}

std::map<std::string, std::string> SoundFiles(const Story& story) {
  std::map<std::string, std::string> files{{"ThemeDetails.ini", "\"Two cups\",\"1/1/26\"\r\n"}};
  for (const char* name : kFiles)
    if (std::filesystem::exists(story.ThemeFile(name))) files[name] = ReadWholeFile(story.ThemeFile(name));
  return files;
}

void Damage(std::map<std::string, std::string>& files, Pieces pieces) {
  for (int damages = 0; damages < 8 && !pieces.AtEnd(); ++damages) {
    std::string& file = files[kFiles[pieces.Byte() % std::size(kFiles)]];
    const std::size_t at = pieces.Word() % (file.size() + 1);
    const std::size_t cut = pieces.Byte();
    const std::size_t put = pieces.Byte();
    file.replace(at, cut, pieces.Bytes(put));
  }
}

}  // namespace
}  // namespace sorvex

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sorvex;
  static Story* const first = new Story({SmallTheme()});
  static const auto* const sound = new auto(SoundFiles(*first));
  std::map<std::string, std::string> files = *sound;
  Damage(files, {data, size});

  Story story({});
  story.state.ThemeName = "Damaged";
  for (const auto& [name, bytes] : files) WriteFile(story.ThemeFile(name, "Damaged"), bytes);
  story.Start().Move(32, 69).Grab(32, 69).Move(34, 0).Move(122, 90).Release().Frames(44).Run();

  // What the game loads without a word has no error; what it refuses has one.
  bool errors = false;
  for (const Finding& finding : CheckTheme(story.ThemeFile("", "Damaged").string()).findings)
    errors = errors || finding.severity == Severity::Error;
  if (story.state.ThemeName != "Damaged") Require(errors);
  return 0;
}
