// SPDX-License-Identifier: MIT
// Pictures and pages written by the kit: what is in them, and that a page can be opened anywhere.
#include "kit/gallery.h"

#include <gtest/gtest.h>

#include "bitmaps/png.h"
#include "game/mask.h"
#include "kit/preview.h"
#include "support/temp_folder.h"

namespace sorvex {
namespace {

TEST(Gallery, ShowsThemesWithoutTrustingThem) {
  Theme theme;
  theme.background = theme.background2 = MakePicture(Bitmap({61, 41}, 0xFF204060));
  theme.targetPicture = theme.targetMask = MakeMask(Bitmap({10, 10}));
  theme.target = {45, 25};
  theme.details.description = "<script>alert(\"a\" & 'b')</script>";
  const Picture item = MakeMask(Bitmap({4, 4}));
  theme.pictures.push_back({item, item, MakePicture(Bitmap({20, 20}, kWhite)), MakeMask(Bitmap({20, 20}, kWhite))});
  theme.items.LastItem = 0;
  theme.items.ItemInPlay(0) = theme.items.ContInPlay(0) = true;
  theme.items.ItemX(0) = theme.items.ItemY(0) = 8;

  const TempFolder folder;
  const GalleryTheme shown[] = {{"a<b> \"\xE9\"", &theme, {ProveItem(theme, 0)}},
                                {"Gl\xC3\xBC"
                                 "ck & 1",
                                 &theme,
                                 {}}};
  WriteFile(folder.Path() / "new/web/play/themes" / u8"Gl\u00FCck & 1.zip", "");
  WriteGallery((folder.Path() / "new" / "web").string(), shown);
  const std::string page = ReadWholeFile(folder.Path() / "new" / "web" / "index.html");
  EXPECT_NE(page.find("a&lt;b&gt; &quot;\xC3\xA9&quot;"), page.npos);
  EXPECT_NE(page.find("inside the field"), page.npos);
  EXPECT_NE(page.find("255 or more"), page.npos);
  const std::size_t link = page.find("<a href=\"play/index.html?theme=Gl%C3%BCck%20%26%201\">");
  EXPECT_NE(link, page.npos) << "the page for browsers has this theme";
  EXPECT_EQ(page.find("<a "), link) << "and no other";
  for (const char* foreign : {"<script", "http:", "https:", "//", "\xE9\""}) EXPECT_EQ(page.find(foreign), page.npos);
  EXPECT_EQ(ReadPng(folder.Path() / "new" / "web" / "1.png"), DrawPreview(theme));
  const Bitmap ways = ReadPng(folder.Path() / "new" / "web" / "1-ways.png");
  EXPECT_EQ(ways.At(8, 8), kBlack) << "the item, beside its way";
  EXPECT_EQ(ways.At(10, 10), ColorOf(0)) << "its center, where the way begins";
}

}  // namespace
}  // namespace sorvex
