// SPDX-License-Identifier: MIT
// The proof held against a plain search that asks the game's contact test pixel by pixel, and its ways through the
// default theme played with the real pointer handlers and the frame loop.
#include "kit/proof.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>

#include "game/collision.h"
#include "game/mask.h"
#include "game/return_item.h"
#include "kit/preview.h"
#include "support/random_surfaces.h"
#include "support/story.h"

namespace sorvex {
namespace {

constexpr Size kField{64, 52};
// Every contact of the themes made here lies inside this box, and all its places within kUnheardOf of each other.
constexpr Rectangle kAround{-60, -60, 124, 112};
constexpr int kUnheardOf = 140;

Bitmap RandomContainer(Random& random) {
  const Size size{random.Number(8, 30), random.Number(8, 30)};
  Bitmap mask = CupMask(size, random.Number(0, 4));
  const auto bar = [&](Rectangle box, Pixel pixel) {
    box = Intersection(box, mask.Bounds());
    for (int y = box.top; y < box.bottom; ++y) std::fill(mask.Row(y) + box.left, mask.Row(y) + box.right, pixel);
  };
  if (random.Number(0, 1) == 0) bar(Rectangle::At(0, random.Number(0, 6), {size.width, random.Number(1, 3)}), kBlack);
  for (int bars = random.Number(0, 4); bars > 0; --bars)
    bar(Rectangle::At(random.Number(0, size.width), random.Number(0, size.height),
                      {random.Number(1, 14), random.Number(1, 9)}),
        random.Number(0, 3) > 0 ? kWhite : random.MaskPixel());
  return mask;
}

Theme ThemeOfOneItem(Random& random) {
  Theme theme;
  Bitmap mask({random.Number(2, 9), random.Number(2, 9)}, kBlack);
  for (int dots = random.Number(0, 8); dots > 0; --dots)
    mask.Row(random.Number(0, mask.Height() - 1))[random.Number(1, mask.Width() - 1)] = random.MaskPixel();
  const Picture item = MakeMask(std::move(mask));
  const Picture container = MakeMask(RandomContainer(random));
  theme.pictures.push_back({item, item, container, container});
  theme.background = MakePicture(Bitmap(kField, kWhite));
  theme.target = {ToInteger(random.Number(-4, kField.width)), ToInteger(random.Number(-4, kField.height))};
  theme.targetPicture = theme.targetMask = MakeMask(Bitmap({random.Number(2, 20), random.Number(2, 20)}));
  theme.items.LastItem = 0;
  theme.items.ItemInPlay(0) = theme.items.ContInPlay(0) = true;
  const Integer left = theme.items.ContX(0) = ToInteger(random.Number(-5, 50));
  const Integer top = theme.items.ContY(0) =
      ToInteger(random.Number(0, 3) == 0 ? random.Number(-18, -6) : random.Number(-8, 40));
  const RestPlace rest(left, top, container->Pixels().Height(), item->Pixels().Height());
  const bool atRest = random.Number(0, 2) > 0;
  theme.items.ItemX(0) = atRest ? rest.x : ToInteger(left + random.Number(-3, 30));
  theme.items.ItemY(0) = atRest ? rest.y : ToInteger(top + random.Number(-3, 30));
  return theme;
}

class PlainSearch {
 public:
  explicit PlainSearch(const Theme& theme) : theme_(theme) {
    HitsAt({0, 0});  // the first test sees only part of a larger item
    std::vector<Place> contacts;
    for (int y = kAround.top; y < kAround.bottom; ++y)
      for (int x = kAround.left; x < kAround.right; ++x)
        if (HitsAt({x, y})) contacts.push_back({x, y});
    for (int y = kAround.top; y < kAround.bottom; ++y)
      for (int x = kAround.left; x < kAround.right; ++x)
        for (const Place contact : contacts)
          distance_[At({x, y})] =
              std::min(distance_[At({x, y})], std::max(std::abs(contact.x - x), std::abs(contact.y - y)));
  }

  bool HitsAt(Place at) {
    return HitsContainer(ToInteger(at.x), ToInteger(at.y), theme_.items.ContX(0), theme_.items.ContY(0), item_,
                         container_, work_);
  }
  int DistanceAt(Place at) const { return distance_[At(at)]; }
  bool IsOver(Place at) const {
    return OverTarget(ToInteger(at.x), ToInteger(at.y), theme_.target.x, theme_.target.y, item_, target_);
  }
  // With a rest place the room counts from the first place outside the square around it, which must be left.
  bool Finds(Place from, Place grab, int outside, int room, const Place* rest = nullptr) const {
    const Rectangle places = Intersection(Grown(Rectangle::At(-grab.x, -grab.y, kField), outside), kAround);
    std::vector<bool> seen[2] = {std::vector<bool>(distance_.size()), std::vector<bool>(distance_.size())};
    std::deque<std::pair<Place, int>> next;
    const auto visit = [&](Place place, int out) {
      if (rest == nullptr || !Grown(OnlyPlace(*rest), room).Contains(place.x, place.y)) out = 1;
      if (!places.Contains(place.x, place.y) || seen[out][At(place)] || distance_[At(place)] <= out * room) return;
      seen[out][At(place)] = true;
      next.emplace_back(place, out);
    };
    for (visit(from, 0); !next.empty(); next.pop_front()) {
      const auto [place, out] = next.front();
      if (out == 1 && IsOver(place)) return true;
      for (const Place step : {Place{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) visit({place.x + step.x, place.y + step.y}, out);
    }
    return false;
  }

 private:
  static std::size_t At(Place place) {
    return static_cast<std::size_t>((place.y - kAround.top) * kAround.Width() + place.x - kAround.left);
  }

  const Theme& theme_;
  PictureBox item_ = AutoSurface(theme_.pictures[0].itemMask->Pixels());
  PictureBox container_ = AutoSurface(theme_.pictures[0].containerMask->Pixels());
  PictureBox target_ = AutoSurface(theme_.targetMask->Pixels(), Frame::Flat);
  PictureBox work_;
  // To the nearest contact, across or down.
  std::vector<int> distance_ = std::vector<int>(static_cast<std::size_t>(kAround.Width() * kAround.Height()), 1000);
};

// Every place on the way behind the one where it begins.
void ForEachStep(const Journey& journey, const std::function<void(Place)>& visit) {
  Place place = journey.from;
  for (const Place corner : journey.corners) {
    while (place != corner) {
      place.x += (corner.x > place.x) - (corner.x < place.x);
      place.y += (corner.y > place.y) - (corner.y < place.y);
      visit(place);
    }
  }
}

int LargestRoom(const std::function<bool(int)>& finds) {
  int largest = 0;
  for (int room = 1; room <= kUnheardOf; ++room)
    if (finds(room)) largest = room;
  return largest == kUnheardOf ? kMostRoom : largest;
}

void ExpectAgreement(const Theme& theme, const Journey& journey, Place rest) {
  PlainSearch plain(theme);
  const Place from = journey.from, grab = journey.grab;
  const int outside = journey.outside;
  switch (journey.verdict) {
    case Verdict::Touches: EXPECT_TRUE(plain.HitsAt(from)); break;
    case Verdict::NotHeld: EXPECT_FALSE(plain.HitsAt(from)); break;
    case Verdict::NoWay:
      EXPECT_FALSE(plain.Finds(from, grab, 40, 0));
      EXPECT_EQ(plain.DistanceAt(journey.closesAt), 1);
      break;
    case Verdict::Way: {
      EXPECT_TRUE(plain.Finds(from, grab, outside, 0));
      EXPECT_FALSE(outside > 0 && plain.Finds(from, grab, outside - 1, 0)) << outside << " pixels outside";
      EXPECT_EQ(LargestRoom([&](int room) { return plain.Finds(from, grab, outside, room); }), journey.room);
      const bool rests =
          !plain.HitsAt(rest) && Grown(Rectangle::At(-grab.x, -grab.y, kField), outside).Contains(rest.x, rest.y);
      const auto onceOut = [&](int room) { return plain.Finds(from, grab, outside, room, &rest); };
      EXPECT_EQ(std::max(rests ? LargestRoom(onceOut) : 0, journey.room), journey.roomOnceOut);
      ForEachStep(journey, [&](Place place) { EXPECT_FALSE(plain.HitsAt(place)); });
      EXPECT_TRUE(plain.IsOver(journey.corners.back()));
      break;
    }
    default: ADD_FAILURE() << "unexpected verdict";
  }
}

// Few and many pixels and dithers, so that each of the ways to find the contacts of wide masks has its turn.
TEST(Contacts, AreWhereMasksTouch) {
  Random random;
  SCOPED_TRACE(random.Seed);
  const auto mask = [&](Size size, int dither) {
    const int oneIn = random.Number(0, 1) == 0 ? random.Number(2, 8) : random.Number(30, 900);
    Bitmap bitmap(size, kWhite);
    for (int y = 0; y < size.height; ++y)
      for (int x = 0; x < size.width; ++x)
        if ((x + y) % dither == 0 && random.Number(1, oneIn) == 1) bitmap.Row(y)[x] = kBlack;
    return Mask(std::move(bitmap));
  };
  for (int round = 0; round < 110; ++round) {
    const bool tall = round >= 100;
    const int dither = tall ? random.Number(1, 5) : 1;
    const Mask item = mask({random.Number(1, 300), tall ? random.Number(180, 220) : random.Number(1, 30)}, dither);
    const Mask container = mask({random.Number(1, 500), tall ? 200 : random.Number(1, 30)}, dither);
    const Rectangle area{random.Number(-310, 0), random.Number(-31, 0), random.Number(1, 510), random.Number(1, 31)};
    const PlaceSet contacts = Contacts(item.ItemOpaque(), container.ContainerSolid(), area);
    for (int y = area.top; y < area.bottom; ++y)
      for (int x = area.left; x < area.right; ++x)
        ASSERT_EQ(contacts.Has({x, y}), MasksTouch(item, container, x, y, item.Pixels().Extent())) << x << ", " << y;
  }
}

TEST(Proof, AgreesWithAPlainSearch) {
  Random random;
  SCOPED_TRACE(random.Seed);
  int ways = 0;
  for (int round = 0; round < 40 && !HasFailure(); ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    const Theme theme = ThemeOfOneItem(random);
    const ItemProof proof = ProveItem(theme, 0);
    for (const Journey& journey : {proof.fromStart, proof.fromRest}) {
      ExpectAgreement(theme, journey, proof.fromRest.from);
      ways += journey.verdict == Verdict::Way ? 1 : 0;
    }
  }
  EXPECT_GT(ways, 15);
}

// Item `i` is picked up where it stands and moved pixel by pixel along the way, a frame after each.
void QueueWay(Story& story, const Theme& theme, int i, const Journey& journey) {
  const auto at = [](int pixel) { return static_cast<float>(pixel); };
  story.Move(at(theme.items.ContX(i) + 1), at(theme.items.ContY(i) + 1));
  story.Grab(at(journey.from.x + journey.grab.x), at(journey.from.y + journey.grab.y));
  ForEachStep(journey, [&](Place item) { story.Move(at(item.x + journey.grab.x), at(item.y + journey.grab.y)); });
  story.Frames(1).Then([&story, i] { EXPECT_FALSE(story.state.ItemInPlay(i)) << "item " << i; }).Release();
}

TEST(Proof, ItsWaysPlayTheCabinetToItsEnd) {
  const std::string source = SORVEX_SOURCE_FOLDER "/themes/Cabinet";
  Story story{std::vector<TestTheme>{}};
  for (const auto& file : std::filesystem::directory_iterator(source))
    if (file.is_regular_file()) WriteFile(story.ThemeFile(file.path().filename().string()), ReadWholeFile(file.path()));
  const Theme theme = ReadTheme(source);
  story.Start().Then([&] { EXPECT_EQ(DrawPreview(theme), story.Field()) << "the preview is the first frame"; });
  for (Long i = 0; i <= theme.items.LastItem; ++i) {
    const Journey journey = ProveItem(theme, i).fromStart;
    ASSERT_EQ(journey.verdict, Verdict::Way) << "item " << i;
    EXPECT_EQ(journey.from, ProveItem(theme, i).fromRest.from) << "item " << i << " does not start at rest";
    EXPECT_EQ(journey.outside, 0) << "item " << i;
    EXPECT_GE(journey.roomOnceOut, 1) << "item " << i;
    QueueWay(story, theme, i, journey);
  }
  story.Run();
  EXPECT_TRUE(EveryItemIsPutIn(story.state));
  EXPECT_EQ(std::ranges::count(story.Sounds(), "HitTube"), 0);
}

}  // namespace
}  // namespace sorvex
