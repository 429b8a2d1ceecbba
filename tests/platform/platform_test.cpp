// SPDX-License-Identifier: MIT
// How a message is broken into lines, what setting a surface's size or picture does, and what several failing handlers
// of one delivery come to.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/box_text.h"
#include "platform/desktop.h"
#include "platform/handler_runner.h"
#include "support/random_surfaces.h"

namespace sorvex {
namespace {

// A letter is 10 wide, a tab 40, a line 20 high.
Size Measure(std::string_view line) {
  const auto tabs = static_cast<int>(std::ranges::count(line, '\t'));
  return {static_cast<int>(Utf16Length(line)) * 10 + tabs * 30, 20};
}

TEST(ABox, BreaksLinesAtBlanksAndEndsWithAnEllipsisWhereItsScreenEnds) {
  const std::string endless(64 << 10, 'x');
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"as it is", "as it is"},
      {"ten letter", "ten letter"},
      {"of ten  letters", "of ten \r\nletters"},
      {"a linewithoutblanks", "a\r\nlinewithou\r\ntblanks"},
      {"One:\r\n\tand two, three\r\nTwo:\r\n\t\r\n", "One:\r\n\tand\r\n\ttwo,\r\n\tthree\u2026"},
      {"1\r\n2\n3\r4", "1\r\n2\r\n3\r\n4"},
      {"1\r\n2\r\n3\r\n4\r\n", "1\r\n2\r\n3\r\n4\r\n"},
      {"1\r\n2\r\n3\r\n4\r\n5", "1\r\n2\r\n3\r\n4\u2026"},
      {endless, "xxxxxxxxxx\r\nxxxxxxxxxx\r\nxxxxxxxxxx\r\nxxxxxxxxx\u2026"},
  };
  for (const auto& [text, shown] : cases) EXPECT_EQ(BoxText(text, {100, 280}, &Measure), shown);
  EXPECT_EQ(BoxText("\u00EB\u00EB", {3, 3}, &Measure), "\u2026") << "no screen at all";
}

TEST(Surface, OfAFixedSizeCutsItsPictureAndShowsBackgroundBesideIt) {
  PictureBox surface = FixedSurface(Bitmap({5, 5}));
  surface.Background = 0xFF0000FF;
  surface.SetPicture(MakePicture(Bitmap({3, 9}, kWhite)));
  EXPECT_EQ(surface.Image().At(2, 4), kWhite);
  EXPECT_EQ(surface.Image().At(3, 0), 0xFF0000FF);
  surface.Resize(10, 6);
  EXPECT_EQ(surface.Image().Extent(), (Size{6, 2}));
  EXPECT_EQ(surface.Image().At(2, 1), kWhite) << "resizing keeps the image";
  EXPECT_EQ(surface.Image().At(5, 0), 0xFF0000FF);
  surface.Resize(9, 12);
  EXPECT_EQ(surface.Image().At(2, 7), kWhite) << "a larger area shows more of the picture";
  surface.Drawing().Row(0)[0] = kBlack;
  surface.Resize(9, 13);
  EXPECT_EQ(surface.Image().At(0, 0), kBlack) << "resizing keeps what was drawn";
  EXPECT_EQ(surface.Image().At(2, 8), 0xFF0000FF) << "which the picture no longer goes on behind";
  surface.Resize(3, 3);
  EXPECT_EQ(surface.Image().Extent(), (Size{0, 0}));
}

TEST(FailingHandlers, AreReportedByTheFirstButForTheEndOfTheProgram) {
  HandlerRunner runner([] {});
  const auto serve = [&](const std::function<void()>& last) {
    runner.Serve([&] {
      for (const std::function<void()>& handler : {std::function<void()>([] { throw Overflow(); }),
                                                   std::function<void()>([] { throw SubscriptOutOfRange(); }), last})
        runner.Run(handler);
    });
  };
  try {
    serve([] {});
    FAIL() << "nothing was thrown";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), Overflow().Number());
  }
  EXPECT_THROW(serve([] { throw ProgramEnded{}; }), ProgramEnded);
}

}  // namespace
}  // namespace sorvex
