// SPDX-License-Identifier: MIT
// Where things stand and rest, asked of the game's own rules.
#include <algorithm>
#include <optional>
#include <vector>

#include "game/collision.h"
#include "game/mask.h"
#include "game/return_item.h"
#include "kit/check.h"
#include "kit/place_set.h"

namespace sorvex {
namespace {

std::string Said(Size size) { return std::to_string(size.width) + " x " + std::to_string(size.height); }

// How many pixels must come off all edges of the item's mask until it does not touch the container (dx, dy) further in.
int TooThick(const Mask& item, const Mask& container, int dx, int dy) {
  const BitPlane& opaque = item.ItemOpaque();
  const auto touches = [&](int less) {
    const Rectangle place = OnlyPlace({dx, dy});
    return Contacts(Eroded(opaque, less), container.ContainerSolid(), place).Has({dx, dy});
  };
  int touching = 0;
  int free = (std::min(opaque.Extent().width, opaque.Extent().height) + 1) / 2;  // by then nothing is left
  while (free - touching > 1) (touches((touching + free) / 2) ? touching : free) = (touching + free) / 2;
  return free;
}

// One item with its container, as far as it could be read whole.
class Placing {
 public:
  Placing(const Theme& theme, Long number)
      : theme_(theme), number_(number), pictures_(theme.pictures[static_cast<std::size_t>(number)]) {}

  bool Readable() const {
    return theme_.items.ItemInPlay(number_) && pictures_.item && pictures_.itemMask && pictures_.container &&
           pictures_.containerMask;
  }
  Long Number() const { return number_; }
  std::string Name() const { return "item " + std::to_string(number_); }
  int StartLine() const { return static_cast<int>(number_) * kLinesPerItem + 1; }
  int ContainerLine() const { return StartLine() + 2; }
  Place Start() const { return {theme_.items.ItemX(number_), theme_.items.ItemY(number_)}; }
  Place ContainerPlace() const { return {theme_.items.ContX(number_), theme_.items.ContY(number_)}; }
  RestPlace Rest() const {
    return {theme_.items.ContX(number_), theme_.items.ContY(number_), pictures_.container->Pixels().Height(),
            pictures_.item->Pixels().Height()};
  }
  Rectangle Box(Place place) const { return Rectangle::At(place.x, place.y, pictures_.item->Pixels().Extent()); }
  Rectangle ContainerBox() const {
    return Rectangle::At(ContainerPlace().x, ContainerPlace().y, pictures_.container->Pixels().Extent());
  }
  const Mask& ItemMask() const { return *AsMask(pictures_.itemMask); }
  const Mask& ContainerMask() const { return *AsMask(pictures_.containerMask); }

 private:
  const Theme& theme_;
  Long number_;
  const ItemPictures& pictures_;
};

Rectangle PointerArea(const Rectangle& box) { return {box.left + 1, box.top + 1, box.right, box.bottom}; }

class PlaceChecks {
 public:
  PlaceChecks(const Theme& theme, Findings& findings) : theme_(theme), findings_(findings) {
    const auto isIn = [&](const char* file) {
      return std::ranges::any_of(findings_, [&](const Finding& finding) {
        return finding.severity == Severity::Error && finding.file == file;
      });
    };
    linesCount_ = !isIn(kItemsFile);
    hasTarget_ = theme.targetMask && !isIn(kTargetFile);
    if (theme.background) field_ = theme.background->Pixels().Extent();
  }

  void Run() {
    // With a line too few nobody knows whose the others are.
    const bool areKnown = std::ranges::find(findings_, "item-cut-short", &Finding::code) == findings_.end();
    for (Long n = 0; areKnown && n <= theme_.items.LastItem; ++n) {
      const Placing item(theme_, n);
      if (!item.Readable() || Overflows(item)) continue;
      CheckRest(item);
      CheckStart(item);
      CheckEdges(item);
      CheckPointer(item);
      CheckContainerPointer(item);
      before_.push_back(item);
    }
    if (field_ && hasTarget_) {
      const Mask& mask = *AsMask(theme_.targetMask);
      CheckEdge(kTargetFile, 0, "the target", mask.ItemOpaque(), {theme_.target.x, theme_.target.y});
    }
  }

 private:
  void Add(Severity severity, std::string_view code, int line, const std::string& message) {
    findings_.push_back({severity, code, kItemsFile, linesCount_ ? line : 0, std::nullopt, message});
  }

  // The game reckons with Integers.
  bool Overflows(const Placing& item) {
    try {
      static_cast<void>(item.Rest());
      const auto [x, y] = item.Start();
      for (const int distance : {x - item.ContainerPlace().x, y - item.ContainerPlace().y}) ToInteger(distance);
      if (field_)
        for (const int distance : {field_->width - x, field_->height - y}) ToInteger(distance);
      return false;
    } catch (const RuntimeError&) {
      Add(Severity::Error, "too-far-apart", item.StartLine(),
          item.Name() +
              ", its container, its rest place and the field lie more than 32767 pixels apart: the game stops" +
              " with an overflow");
      return true;
    }
  }

  int Touch(const Placing& item, Place place) const {
    const int dx = place.x - item.ContainerPlace().x;
    const int dy = place.y - item.ContainerPlace().y;
    const Mask& mask = item.ItemMask();
    return MasksTouch(mask, item.ContainerMask(), dx, dy, mask.ItemOpaque().Extent())
               ? TooThick(mask, item.ContainerMask(), dx, dy)
               : 0;
  }

  bool IsOverTarget(const Placing& item, Place place) const {
    return hasTarget_ && PlacesOverTarget(item.ItemMask().Pixels().Extent(), theme_.target.x, theme_.target.y,
                                          theme_.targetMask->Pixels().Extent())
                             .Contains(place.x, place.y);
  }

  bool IsInField(Place place) const { return !field_ || Rectangle::At(0, 0, *field_).Contains(place.x, place.y); }

  void CheckRest(const Placing& item) {
    const RestPlace rest = item.Rest();
    const std::string where = item.Name() + " comes to rest at " + Said(Place{rest.x, rest.y});
    if (const int pixels = Touch(item, {rest.x, rest.y}); pixels > 0)
      Add(Severity::Error, "item-touches-container", item.ContainerLine(),
          where + " and touches its container there: wall or border is " + CountedPixels(pixels) +
              " too thick, and the game then answers no pointer");
    if (IsOverTarget(item, {rest.x, rest.y}))
      Add(Severity::Error, "item-over-target", item.ContainerLine(),
          where + " with its center over the target: it is put in without being moved");
    if (!IsInField({rest.x, rest.y}))
      Add(Severity::Error, "rest-outside-field", item.ContainerLine(),
          where + ", outside the field of " + Said(*field_) + " pixels: move its container");
  }

  void CheckStart(const Placing& item) {
    const Place start = item.Start();
    const RestPlace rest = item.Rest();
    if (start.x == rest.x && start.y == rest.y) return;
    const std::string where = item.Name() + " starts at " + Said(start);
    const bool isRestGood = Touch(item, {rest.x, rest.y}) == 0 && IsInField({rest.x, rest.y});
    const std::string cure =
        isRestGood ? "; start it at " + Said(Place{rest.x, rest.y}) + ", where it comes to rest" : std::string();
    if (const int pixels = Touch(item, start); pixels > 0)
      Add(Severity::Error, "item-touches-container", item.StartLine(),
          where + " and touches its container there: wall or border is " + CountedPixels(pixels) +
              " too thick, and the game sends it to its rest place at once" + cure);
    if (IsOverTarget(item, start))
      Add(Severity::Error, "item-over-target", item.StartLine(),
          where + " with its center over the target: it is put in without being moved" + cure);
  }

  // What is opaque of a picture at `place` must lie inside the field.
  void CheckEdge(const char* file, int line, const std::string& what, const BitPlane& opaque, Place place) {
    const Rectangle box = BoundsOf(opaque).Moved(place.x, place.y);
    if (box.Empty()) return;
    const Rectangle field = Rectangle::At(0, 0, *field_);
    const struct {
      int pixels;
      const char* edge;
    } sides[] = {{-box.left, "left"},
                 {-box.top, "upper"},
                 {box.right - field.right, "right"},
                 {box.bottom - field.bottom, "lower"}};
    std::string beyond;
    for (const auto& [pixels, edge] : sides)
      if (pixels > 0)
        beyond += (beyond.empty() ? "" : " and ") + CountedPixels(pixels) + " beyond the " + edge + " edge";
    if (beyond.empty()) return;
    const bool wholly = Intersection(box, field).Empty();
    findings_.push_back({Severity::Warning, "outside-field", file, linesCount_ ? line : 0, std::nullopt,
                         what + " at " + Said(place) + (wholly ? " lies outside" : " reaches outside") +
                             " the field of " + Said(*field_) + " pixels, " + beyond});
  }

  void CheckEdges(const Placing& item) {
    if (!field_) return;
    const RestPlace rest = item.Rest();
    const Place start = item.Start();
    const BitPlane& opaque = item.ItemMask().ItemOpaque();
    CheckEdge(kItemsFile, item.StartLine(), item.Name(), opaque, start);
    if ((start.x != rest.x || start.y != rest.y) && IsInField({rest.x, rest.y}))
      CheckEdge(kItemsFile, item.ContainerLine(), item.Name() + " at rest", opaque, {rest.x, rest.y});
    CheckEdge(kItemsFile, item.ContainerLine(), "container " + std::to_string(item.Number()),
              item.ContainerMask().ContainerSolid(), item.ContainerPlace());
  }

  // A press picks the item with the lowest number whose box is there, whatever is drawn on top.
  void CheckPointer(const Placing& item) {
    const auto areaAtStart = [](const Placing& other) { return PointerArea(other.Box(other.Start())); };
    const auto areaAtRest = [](const Placing& other) {
      const RestPlace rest = other.Rest();
      return PointerArea(other.Box({rest.x, rest.y}));
    };
    if (!CheckCover(item, item.Start(), "starts", areaAtStart))
      CheckCover(item, {item.Rest().x, item.Rest().y}, "rests", areaAtRest);
  }

  template <class AreaOf>
  bool CheckCover(const Placing& item, Place place, const char* when, const AreaOf& areaOf) {
    const Rectangle own = areaOf(item);
    std::vector<Rectangle> above;
    std::string names;
    for (const Placing& other : before_) {
      if (Intersection(areaOf(other), own).Empty()) continue;
      above.push_back(areaOf(other));
      names += (names.empty() ? "" : ", ") + other.Name();
    }
    if (above.empty()) return false;
    const Bitmap& mask = item.ItemMask().Pixels();
    int black = 0;
    int covered = 0;
    for (int y = 0; y < mask.Height(); ++y) {
      for (int x = 0; x < mask.Width(); ++x) {
        const auto isThere = [&](const Rectangle& area) { return area.Contains(place.x + x, place.y + y); };
        if (mask.At(x, y) != kBlack || !isThere(own)) continue;
        ++black;
        if (std::ranges::any_of(above, isThere)) ++covered;
      }
    }
    if (2 * covered <= black) return false;
    Add(Severity::Warning, "item-covered", item.StartLine(),
        "where " + item.Name() + " " + when + ", at " + Said(place) + ", a press on " + std::to_string(covered) +
            " of its " + CountedPixels(black) + " picks up " + names + " instead: the lower number comes first");
    return true;
  }

  // The corner of what is left of a container beside those before it is a corner of its own or lies on their edges.
  void CheckContainerPointer(const Placing& item) {
    const auto inside = [&](const Rectangle& area) {
      return field_ ? Intersection(area, Rectangle::At(0, 0, *field_)) : area;
    };
    if (inside(item.ContainerBox()).Empty()) return;
    const Rectangle own = inside(PointerArea(item.ContainerBox()));
    std::vector<int> lefts{own.left};
    std::vector<int> tops{own.top};
    std::vector<Rectangle> above;
    std::string names;
    for (const Placing& other : before_) {
      const Rectangle area = PointerArea(other.ContainerBox());
      if (Intersection(area, own).Empty()) continue;
      above.push_back(area);
      lefts.push_back(area.right);
      tops.push_back(area.bottom);
      names += (names.empty() ? "" : ", ") + std::to_string(other.Number());
    }
    for (const int x : lefts)
      for (const int y : tops)
        if (own.Contains(x, y) &&
            std::ranges::none_of(above, [&](const Rectangle& area) { return area.Contains(x, y); }))
          return;
    Add(Severity::Warning, "container-covered", item.ContainerLine(),
        "container " + std::to_string(item.Number()) +
            (above.empty()
                 ? " has no place inside the field where the pointer could choose it"
                 : " can never be chosen: it lies under container " + names + ", and the lower number comes first"));
  }

  const Theme& theme_;
  Findings& findings_;
  bool linesCount_;  // every line of the items' file is where an item's number puts it
  bool hasTarget_;
  std::optional<Size> field_;
  std::vector<Placing> before_;  // lower-numbered ones
};

}  // namespace

void CheckPlaces(const Theme& theme, Findings& findings) {
  if (theme.items.LastItem < 0 &&
      std::ranges::none_of(findings, [](const Finding& finding) { return finding.file == kItemsFile; }))
    findings.push_back(
        {Severity::Error, "no-items", kItemsFile, 0, std::nullopt, "empty: without an item there is nothing to play"});
  PlaceChecks(theme, findings).Run();
}

}  // namespace sorvex
