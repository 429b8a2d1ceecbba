// SPDX-License-Identifier: MIT
// What a player can do with one item, as a search over its places: where the pointer can hold it, where it touches, and
// the widest of the ways that are left.
#include "kit/proof.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <utility>

#include "game/collision.h"
#include "game/mask.h"
#include "game/return_item.h"

namespace sorvex {
namespace {

using Way = std::vector<Place>;
constexpr Rectangle kIntegers{std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::min(),
                              std::numeric_limits<Integer>::max() + 1, std::numeric_limits<Integer>::max() + 1};

Place Sum(Place a, Place b) { return {a.x + b.x, a.y + b.y}; }
Place Difference(Place a, Place b) { return {a.x - b.x, a.y - b.y}; }
Rectangle Held(const Rectangle& box, const Rectangle& area) {
  const Place first = Held(Place{box.left, box.top}, area);
  const Place last = Held(Place{box.right - 1, box.bottom - 1}, area);
  return {first.x, first.y, last.x + 1, last.y + 1};
}

/// The largest of 0 to `most` that fits; 0 does, and with a number all below it.
template <class Fits>
int Largest(int most, Fits fits) {
  int good = 0;
  int bad = 1;
  for (; bad <= most && fits(bad); bad *= 2) good = bad;
  bad = std::min(bad, most + 1);
  while (bad - good > 1) {
    const int middle = good + (bad - good) / 2;
    (fits(middle) ? good : bad) = middle;
  }
  return good;
}

/// The first place of the way, with the one before it, for which `is` holds.
template <class Is>
std::optional<std::pair<Place, Place>> FirstOn(const Way& way, Is is) {
  Place place = way.front();
  if (is(place)) return std::pair{place, place};
  for (const Place corner : way) {
    while (place != corner) {
      const Place before = place;
      place = {before.x + std::clamp(corner.x - before.x, -1, 1), before.y + std::clamp(corner.y - before.y, -1, 1)};
      if (is(place)) return std::pair{place, before};
    }
  }
  return std::nullopt;
}

/// The way as far as the first place of `goal`: there the item is put in.
Way UpTo(const Way& way, const Rectangle& goal) {
  Way shorter;
  Place before = way.front();
  for (const Place corner : way) {
    const Rectangle straight{std::min(before.x, corner.x), std::min(before.y, corner.y),
                             std::max(before.x, corner.x) + 1, std::max(before.y, corner.y) + 1};
    const Rectangle over = Intersection(straight, goal);
    GoStraight(shorter, over.Empty() ? corner : Held(before, over));
    if (!over.Empty()) break;
    before = corner;
  }
  return shorter;
}

/// Where an item may be: places that a pointer can hold it at, and those of them where it touches.
struct Ground {
  Rectangle reach;    ///< beyond it every place is free
  PlaceSet contacts;  ///< at least those that a free place has beside it, as far as kMostRoom beyond `window`
  Rectangle window;

  /// A way inside `within`, a part of the window, that keeps all places within `room` free of contact.
  std::optional<Way> Find(int room, std::span<const Rectangle> from, const Rectangle& to,
                          const Rectangle& within) const {
    std::vector<Rectangle> begins;
    for (const Rectangle& box : from)
      if (!Intersection(box, within).Empty()) begins.push_back(Intersection(box, within));
    const Rectangle ends = Intersection(to, within);
    if (begins.empty() || ends.Empty()) return std::nullopt;

    // What lies further out than the free places next to the reach is taken for the nearest of those.
    Rectangle area = Intersection(within, Grown(reach, room + 1));
    if (area.Empty()) area = OnlyPlace({begins.front().left, begins.front().top});
    std::vector<Rectangle> held;
    held.reserve(begins.size());
    for (const Rectangle& box : begins) held.push_back(Held(box, area));
    const std::optional<Way> inner = FindWay(Crowded(contacts, room, area), held, Held(ends, area));
    if (!inner) return std::nullopt;
    const Place first = inner->front();
    const auto box = std::ranges::find_if(held, [&](const Rectangle& each) { return each.Contains(first.x, first.y); });
    const Place begin = Held(first, begins[static_cast<std::size_t>(box - held.begin())]);
    const Place end = Held(inner->back(), ends);
    Way way;
    for (const Place place : {begin, Place{begin.x, first.y}}) GoStraight(way, place);
    for (const Place place : *inner) GoStraight(way, place);
    for (const Place place : {Place{end.x, inner->back().y}, end}) GoStraight(way, place);
    return way;
  }
  std::optional<Way> Find(int room, Place from, const Rectangle& to) const {
    return Find(room, std::array{OnlyPlace(from)}, to, window);
  }
};

/// The places next to the square of `room` around `rest`, at its sides.
std::array<Rectangle, 4> SidesAround(Place rest, int room) {
  const Rectangle square = Grown(OnlyPlace(rest), room);
  return {{{square.left - 1, square.top, square.left, square.bottom},
           {square.right, square.top, square.right + 1, square.bottom},
           {square.left, square.top - 1, square.right, square.top},
           {square.left, square.bottom, square.right, square.bottom + 1}}};
}

/// One item. Places are relative to its container's corner, but for those of a Journey.
class ItemSearch {
 public:
  ItemSearch(const Theme& theme, Long number)
      : theme_(theme),
        number_(number),
        pictures_(theme.pictures[static_cast<std::size_t>(number)]),
        item_(AsMask(pictures_.itemMask)->ItemOpaque()),
        container_(OutlineOf(AsMask(pictures_.containerMask)->ContainerSolid())),
        corner_{theme.items.ContX(number), theme.items.ContY(number)},
        goal_(PlacesOverTarget(item_.Extent(), theme.target.x - corner_.x, theme.target.y - corner_.y,
                               theme.targetMask->Pixels().Extent())) {
    try {
      const RestPlace rest(ToInteger(corner_.x), ToInteger(corner_.y), pictures_.container->Pixels().Height(),
                           pictures_.item->Pixels().Height());
      rest_ = Difference({rest.x, rest.y}, corner_);
    } catch (const RuntimeError&) {
      // None: the game would end there.
    }
  }

  ItemProof Prove() const {
    const Place start = Difference({theme_.items.ItemX(number_), theme_.items.ItemY(number_)}, corner_);
    ItemProof proof;
    proof.fromStart = From(start);
    if (rest_)
      proof.fromRest = *rest_ == start ? proof.fromStart : From(*rest_);
    else
      proof.fromRest.verdict = Verdict::OutOfRange;
    return proof;
  }

 private:
  Journey From(Place start) const;
  void TryOtherHolds(Journey& journey, Place start) const;
  void FindWhereWallsClose(Journey& journey, Place start) const;
  void Describe(Journey& journey, const Ground& ground, Place start) const;
  std::optional<std::pair<int, Way>> WidestOnceOut(const Ground& ground, Place start) const;

  std::optional<Place> GrabAt(Place start, Place direction) const;
  std::optional<Place> GrabAt(Place start, Place direction, bool picksUp) const;
  bool PicksUp(Place pointer) const;
  Rectangle Window(Place grab, int outside) const;
  Rectangle WindowOfAllHolds(int outside) const;
  Ground GroundOf(const BitPlane& item, const Rectangle& window) const;
  bool Touches(Place place) const {
    return MasksTouch(*AsMask(pictures_.itemMask), *AsMask(pictures_.containerMask), place.x, place.y, item_.Extent());
  }

  const Theme& theme_;
  Long number_;
  const ItemPictures& pictures_;
  const BitPlane& item_;
  BitPlane container_;  // its outline
  Place corner_;
  Rectangle goal_;
  std::optional<Place> rest_;
};

Journey ItemSearch::From(Place start) const {
  Journey journey;
  journey.from = Sum(start, corner_);
  const auto failed = [&](Verdict verdict) { return journey.verdict = verdict, journey; };
  if (!kIntegers.Contains(start.x, start.y)) return failed(Verdict::OutOfRange);
  if (Touches(start)) return failed(Verdict::Touches);
  const std::optional<Place> grab = GrabAt(start, {0, 0});
  if (!grab) return failed(Verdict::NotHeld);
  journey.grab = *grab;

  const Rectangle farthest = Window(*grab, kFarthestOutside);
  if (Intersection(goal_, farthest).Empty()) return failed(Verdict::OutOfReach);

  const Ground inside = GroundOf(item_, Window(*grab, 0));
  if (inside.Find(0, start, goal_))
    Describe(journey, inside, start);
  else if (GroundOf(item_, farthest).Find(0, start, goal_))
    TryOtherHolds(journey, start);
  else
    FindWhereWallsClose(journey, start);
  return journey;
}

// Held by a pixel near another edge, the item gets further while the pointer stays inside. Where none will do, the one
// is taken that goes least far outside.
void ItemSearch::TryOtherHolds(Journey& journey, Place start) const {
  Ground ground = GroundOf(item_, WindowOfAllHolds(kFarthestOutside));
  const Place middle = journey.grab;
  journey.outside = kFarthestOutside + 1;
  for (const Place direction : {Place{0, 0}, {0, 1}, {0, -1}, {1, 0}, {-1, 0}, {1, 1}, {-1, 1}, {1, -1}, {-1, -1}}) {
    const Place grab = GrabAt(start, direction).value_or(middle);
    const auto fails = [&](int outside) {
      ground.window = Window(grab, outside);
      return !ground.Find(0, start, goal_);
    };
    if (fails(journey.outside - 1)) continue;
    journey.outside = fails(0) ? Largest(journey.outside - 1, fails) + 1 : 0;
    journey.grab = grab;
    if (journey.outside == 0) break;
  }
  ground.window = Window(journey.grab, journey.outside);
  Describe(journey, ground, start);
}

void ItemSearch::FindWhereWallsClose(Journey& journey, Place start) const {
  const auto find = [&](int thinner) {
    return GroundOf(Eroded(item_, thinner), Window(journey.grab, kFarthestOutside)).Find(0, start, goal_);
  };
  const int nothingLeft = (std::min(item_.Extent().width, item_.Extent().height) + 1) / 2;
  const int enough = Largest(nothingLeft, [&](int thinner) { return !find(thinner); }) + 1;
  journey.verdict = Verdict::NoWay;
  journey.tooThick = BoundsOf(Eroded(item_, enough)).Empty() ? 0 : enough;
  const auto contact = FirstOn(find(enough).value(), [&](Place place) { return Touches(place); });
  journey.closesAt = Sum(contact.value().second, corner_);
}

void ItemSearch::Describe(Journey& journey, const Ground& ground, Place start) const {
  journey.verdict = Verdict::Way;
  journey.room = Largest(kMostRoom, [&](int room) { return ground.Find(room, start, goal_).has_value(); });
  auto widest = WidestOnceOut(ground, start);
  const bool eased = widest && widest->first >= journey.room;
  if (!eased) widest = {journey.room, ground.Find(journey.room, start, goal_).value()};
  journey.roomOnceOut = widest->first;
  const Way way = UpTo(widest->second, goal_);

  const int more = journey.roomOnceOut + 1;
  if (more <= kMostRoom) {
    const PlaceSet crowded = Crowded(ground.contacts, more, Intersection(ground.window, Grown(ground.reach, more)));
    const Rectangle square = eased ? Grown(OnlyPlace(*rest_), journey.roomOnceOut) : Rectangle{};
    bool out = false;
    const auto tightest = FirstOn(way, [&](Place place) {
      out = out || !square.Contains(place.x, place.y);
      return out && crowded.Has(place);
    });
    if (tightest) journey.tightest = Sum(tightest->first, corner_);
  }
  for (const Place corner : way) journey.corners.push_back(Sum(corner, corner_));
}

// A way that leaves the square of `room` pixels around the rest place at one of its sides and from there on has that
// room. That place, less its room, has the one beside the rest place free of contact, and with them all smaller squares
// can be left likewise: with a number all smaller ones will do, as far as the start can reach the rest place inside the
// square, which takes a number that is not too small.
std::optional<std::pair<int, Way>> ItemSearch::WidestOnceOut(const Ground& ground, Place start) const {
  if (!rest_ || !ground.window.Contains(rest_->x, rest_->y) || Touches(*rest_)) return std::nullopt;
  const auto onward = [&](int room) { return ground.Find(room, SidesAround(*rest_, room), goal_, ground.window); };
  if (!onward(0)) return std::nullopt;
  const int room = Largest(kMostRoom, [&](int each) { return onward(each).has_value(); });
  const Rectangle square = Grown(OnlyPlace(*rest_), room);
  if (!square.Contains(start.x, start.y)) return std::nullopt;
  const Way out = onward(room).value();
  std::optional<Way> way = ground.Find(0, std::array{OnlyPlace(start)}, OnlyPlace(Held(out.front(), square)),
                                       Intersection(square, ground.window));
  if (!way) return std::nullopt;
  for (const Place place : out) GoStraight(*way, place);
  return std::pair{room, *std::move(way)};
}

// --- holding an item ---

// The black pixel furthest in a direction, of several the nearest to the middle, by which the pointer can take the item
// up inside the field.
std::optional<Place> ItemSearch::GrabAt(Place start, Place direction) const {
  const std::optional<Place> grab = GrabAt(start, direction, true);
  return grab ? grab : GrabAt(start, direction, false);
}

std::optional<Place> ItemSearch::GrabAt(Place start, Place direction, bool picksUp) const {
  const Rectangle field = theme_.background->Pixels().Bounds();
  std::optional<Place> best;
  std::pair<std::int64_t, std::int64_t> most;
  for (int y = 0; y < item_.Extent().height; ++y) {
    for (int word = 0; word < item_.WordsPerRow(); ++word) {
      for (std::uint64_t bits = item_.Row(y)[word]; bits != 0; bits &= bits - 1) {
        const Place pixel{word * 64 + std::countr_zero(bits), y};
        const std::int64_t across = 2 * pixel.x + 1 - item_.Extent().width;
        const std::int64_t down = 2 * pixel.y + 1 - item_.Extent().height;
        const std::pair merit{across * direction.x + down * direction.y, -across * across - down * down};
        if (best && merit <= most) continue;
        const Place pointer = Sum(Sum(start, corner_), pixel);
        const Rectangle sensitive{1, 1, pictures_.item->Pixels().Width(), pictures_.item->Pixels().Height()};
        if (!field.Contains(pointer.x, pointer.y)) continue;
        if (picksUp && !(sensitive.Contains(pixel.x, pixel.y) && PicksUp(pointer))) continue;
        best = pixel;
        most = merit;
      }
    }
  }
  return best;
}

// Whether no item before this one takes a press there, all being where they start. Edges do not count.
bool ItemSearch::PicksUp(Place pointer) const {
  for (Long i = 0; i < number_; ++i) {
    const Picture& picture = theme_.pictures[static_cast<std::size_t>(i)].item;
    if (picture == nullptr) continue;  // of a theme that has faults
    const Rectangle sensitive{1, 1, picture->Pixels().Width(), picture->Pixels().Height()};
    if (sensitive.Contains(pointer.x - theme_.items.ItemX(i), pointer.y - theme_.items.ItemY(i))) return false;
  }
  return true;
}

// The places at which the pointer that holds the item lies in the field or up to `outside` pixels beyond it.
Rectangle ItemSearch::Window(Place grab, int outside) const {
  const Rectangle held = Grown(theme_.background->Pixels().Bounds(), outside).Moved(-grab.x, -grab.y);
  return Intersection(Intersection(held, kIntegers).Moved(-corner_.x, -corner_.y), kIntegers);
}

Rectangle ItemSearch::WindowOfAllHolds(int outside) const {
  const Rectangle first = Window({item_.Extent().width - 1, item_.Extent().height - 1}, outside);
  const Rectangle last = Window({0, 0}, outside);
  return {first.left, first.top, last.right, last.bottom};
}

// A step from a free place to a contact brings a pixel of the item's outline over one of the container's.
Ground ItemSearch::GroundOf(const BitPlane& item, const Rectangle& window) const {
  const BitPlane outline = OutlineOf(item);
  return {ReachOf(outline, container_), Contacts(outline, container_, Grown(window, kMostRoom)), window};
}

}  // namespace

ItemProof ProveItem(const Theme& theme, Long item) { return ItemSearch(theme, item).Prove(); }

}  // namespace sorvex
