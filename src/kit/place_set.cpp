// SPDX-License-Identifier: MIT
// Places in words of 64: products of bit rows, squares by doubling, and a flood over runs of free places.
#include "kit/place_set.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <deque>
#include <limits>
#include <utility>

namespace sorvex {
namespace {

using Bits = std::uint64_t;
constexpr Bits kFull = ~Bits{0};

// The bits of one word from `first` up to, not including, `end`; both may lie outside it.
constexpr Bits Span(int first, int end) {
  const Bits from = first <= 0 ? kFull : first >= 64 ? 0 : kFull << first;
  const Bits upTo = end <= 0 ? 0 : end >= 64 ? kFull : kFull >> (64 - end);
  return from & upTo;
}

// 64 bits of a row of `words` words from bit `at` on; beyond the row all are 0.
Bits BitsFrom(const Bits* row, int words, int at) {
  const int word = at >> 6;
  const int shift = at & 63;
  const Bits low = word >= 0 && word < words ? row[word] : 0;
  const Bits high = word + 1 >= 0 && word + 1 < words ? row[word + 1] : 0;
  return low >> shift | high << 1 << (63 - shift);
}

// --- where two masks meet ---

struct Word {
  int index = 0;
  int count = 0;  // of its set bits
  Bits bits = 0;
};

// A row of a plane, as it is (with a word of zeros on either side) and as its words that are not 0.
struct Row {
  const Bits* words = nullptr;
  int length = 0;
  std::vector<Word> set;
  int count = 0;  // of its set bits
};

std::vector<Row> RowsOf(const BitPlane& plane) {
  std::vector<Row> rows;
  for (int y = 0; y < plane.Extent().height; ++y) {
    Row row{plane.Row(y), plane.WordsPerRow(), {}, 0};
    for (int i = 0; i < row.length; ++i)
      if (row.words[i] != 0) row.set.push_back({i, std::popcount(row.words[i]), row.words[i]});
    for (const Word& word : row.set) row.count += word.count;
    rows.push_back(std::move(row));
  }
  return rows;
}

// Row y holds the bits of all rows y, y + period, y + 2 * period ...
BitPlane Folded(const BitPlane& plane, int period) {
  BitPlane folded({plane.Extent().width, period});
  for (int y = 0; y < plane.Extent().height; ++y)
    for (int i = 0; i < plane.WordsPerRow(); ++i) folded.Row(y % period)[i] |= plane.Row(y)[i];
  return folded;
}

BitPlane Mirrored(const BitPlane& plane) {
  BitPlane mirrored(plane.Extent());
  const int width = plane.Extent().width;
  for (int y = 0; y < plane.Extent().height; ++y)
    for (int x = 0; x < width; ++x)
      if ((plane.Row(y)[x / 64] >> (x % 64) & 1) != 0)
        mirrored.Row(y)[(width - 1 - x) / 64] |= Bits{1} << ((width - 1 - x) % 64);
  return mirrored;
}

// The sums of the places of a bit of one row and one of another, as bits of which the words `first` to `last` are
// wanted. There are three ways to add those of two rows; which is the fastest depends on how many bits are set and how
// many words are full already: hold all that they can come to.
class Sums {
 public:
  explicit Sums(int length) : words_(static_cast<std::size_t>(length + 63) / 64 + 2), most_(words_.size(), kFull) {}

  // Only the bits from `from` up to `end` are wanted.
  void Begin(int from, int end) {
    first_ = from / 64;
    last_ = (end - 1) / 64;
    firstUnwanted_ = Span(0, from % 64);
    lastUnwanted_ = Span(end - last_ * 64, 64);
    std::ranges::fill(most_, kFull);
    Clear();
  }
  // What has been added so far is all that any sum from now on can come to; nothing counts as added any more.
  void BoundByAdded() {
    std::ranges::swap(words_, most_);
    Clear();
  }

  void Add(const Row& a, const Row& b) {
    const Row& few = a.count < b.count ? a : b;
    const Row& many = a.count < b.count ? b : a;
    if (few.count == 0) return;
    const auto open = static_cast<std::int64_t>(open_.size());
    const auto pairs = static_cast<std::int64_t>(few.set.size() * many.set.size());
    const std::int64_t forPairs =
        pairs + pairs * (4 + 4 * few.count / std::ssize(few.set)) * open / (last_ - first_ + 1);
    const std::int64_t forRows = few.count * (4 + many.length / 2);
    const std::int64_t forOpenWords = 2 * open * (1 + few.count);
    if (forPairs <= std::min(forRows, forOpenWords))
      AddPairs(few, many);
    else if (forRows < forOpenWords)
      AddRows(few, many);
    else
      AddToOpenWords(few, many);
    if (++added_ % 8 == 0) FindOpenWords();
  }

  bool AllFull() const { return open_.empty(); }
  Bits From(int at) const { return BitsFrom(words_.data(), static_cast<int>(words_.size()), at); }

 private:
  Bits& At(int word) { return words_[static_cast<std::size_t>(word)]; }
  Bits Most(int word) const { return most_[static_cast<std::size_t>(word)]; }
  bool IsFull(int word) { return At(word) == Most(word); }

  void Clear() {
    std::ranges::fill(words_, 0);
    At(first_) |= firstUnwanted_;
    At(last_) |= lastUnwanted_;
    added_ = 0;
    FindOpenWords();
  }

  void FindOpenWords() {
    open_.clear();
    for (int i = first_; i <= last_; ++i)
      if (!IsFull(i)) open_.push_back(i);
  }

  void AddPairs(const Row& few, const Row& many) {
    for (const Word& one : few.set) {
      for (const Word& other : many.set) {
        const int at = one.index + other.index;
        if (at > last_) break;
        if (at + 1 < first_ || (IsFull(at) && IsFull(at + 1))) continue;
        Bits bits = one.count < other.count ? one.bits : other.bits;
        const Bits shifted = one.count < other.count ? other.bits : one.bits;
        for (; bits != 0; bits &= bits - 1) {
          const int shift = std::countr_zero(bits);
          At(at) |= shifted << shift;
          At(at + 1) |= shifted >> 1 >> (63 - shift);
        }
      }
    }
  }

  void AddRows(const Row& few, const Row& many) {
    for (const Word& word : few.set) {
      const int begin = std::max(0, first_ - word.index);
      const int end = std::min(many.length, last_ - word.index);
      for (Bits bits = word.bits; bits != 0; bits &= bits - 1) {
        const int shift = std::countr_zero(bits);
        Bits* out = words_.data() + word.index;
        for (int i = begin; i <= end; ++i) out[i] |= many.words[i] << shift | many.words[i - 1] >> 1 >> (63 - shift);
      }
    }
  }

  void AddToOpenWords(const Row& few, const Row& many) {
    for (const int at : open_) {
      Bits sums = At(at);
      for (const Word& word : few.set) {
        const int i = at - word.index;
        if (i < 0 || sums == Most(at)) break;
        if (i > many.length || (many.words[i] | many.words[i - 1]) == 0) continue;
        for (Bits bits = word.bits; bits != 0; bits &= bits - 1) {
          const int shift = std::countr_zero(bits);
          sums |= many.words[i] << shift | many.words[i - 1] >> 1 >> (63 - shift);
        }
      }
      At(at) = sums;
    }
  }

  std::vector<Bits> words_;
  std::vector<Bits> most_;
  int first_ = 0;
  int last_ = 0;
  Bits firstUnwanted_ = 0;  // bits of the first and of the last word
  Bits lastUnwanted_ = 0;
  std::vector<int> open_;  // words that were not full when last looked at
  int added_ = 0;
};

// --- runs of free places ---

struct Run {
  int left;
  int right;  // the first place that is not of it
  int y;
  std::uint32_t from;  // the run it was reached from
};
constexpr std::uint32_t kNoRun = std::numeric_limits<std::uint32_t>::max();

class Flood {
 public:
  Flood(PlaceSet& taken, const Rectangle& goal) : taken_(taken), goal_(goal) {}

  // The last of the runs that lead to the goal, kNoRun when none do.
  std::uint32_t Spread(std::span<const Rectangle> from) {
    for (const Rectangle& box : from)
      for (int y = box.top; y < box.bottom; ++y) Enter(y, box.left, box.right, kNoRun);
    for (std::uint32_t i = 0; i < runs_.size() && reached_ == kNoRun; ++i) {
      const Run run = runs_[i];
      Enter(run.y - 1, run.left, run.right, i);
      Enter(run.y + 1, run.left, run.right, i);
    }
    return reached_;
  }
  const Run& At(std::uint32_t run) const { return runs_[run]; }

 private:
  // Takes the free runs of row `y` that have a place from `left` up to `right`.
  void Enter(int y, int left, int right, std::uint32_t from) {
    if (y < taken_.area.top || y >= taken_.area.bottom) return;
    const int origin = taken_.area.left;
    Bits* row = taken_.bits.Row(y - taken_.area.top);
    for (int x = NextFree(row, left - origin, right - origin); x < right - origin;) {
      const Run run{origin + Begin(row, x), origin + End(row, x), y, from};
      Take(row, run.left - origin, run.right - origin);
      if (!Intersection(goal_, {run.left, y, run.right, y + 1}).Empty())
        reached_ = std::min(reached_, static_cast<std::uint32_t>(runs_.size()));
      runs_.push_back(run);
      x = NextFree(row, run.right - origin, right - origin);
    }
  }

  static int NextFree(const Bits* row, int x, int end) {
    while (x < end) {
      const Bits free = ~row[x / 64] & Span(x % 64, 64);
      if (free != 0) return std::min(end, x / 64 * 64 + std::countr_zero(free));
      x = (x / 64 + 1) * 64;
    }
    return end;
  }
  int End(const Bits* row, int x) const {
    for (const int width = taken_.area.Width(); x < width; x = (x / 64 + 1) * 64) {
      const Bits taken = row[x / 64] & Span(x % 64, 64);
      if (taken != 0) return std::min(width, x / 64 * 64 + std::countr_zero(taken));
    }
    return taken_.area.Width();
  }
  static int Begin(const Bits* row, int x) {
    for (; x >= 0; x = x / 64 * 64 - 1) {
      const Bits taken = row[x / 64] & Span(0, x % 64 + 1);
      if (taken != 0) return x / 64 * 64 + 64 - std::countl_zero(taken);
    }
    return 0;
  }
  static void Take(Bits* row, int left, int right) {
    for (int word = left / 64; word * 64 < right; ++word) row[word] |= Span(left - word * 64, right - word * 64);
  }

  PlaceSet& taken_;
  Rectangle goal_;
  std::deque<Run> runs_;
  std::uint32_t reached_ = kNoRun;
};

}  // namespace

Rectangle BoundsOf(const BitPlane& plane) {
  Rectangle bounds{plane.Extent().width, plane.Extent().height, 0, 0};
  for (int y = 0; y < plane.Extent().height; ++y) {
    for (int word = 0; word < plane.WordsPerRow(); ++word) {
      const Bits bits = plane.Row(y)[word];
      if (bits == 0) continue;
      bounds = {std::min(bounds.left, word * 64 + std::countr_zero(bits)), std::min(bounds.top, y),
                std::max(bounds.right, word * 64 + 64 - std::countl_zero(bits)), y + 1};
    }
  }
  return bounds;
}

BitPlane OutlineOf(const BitPlane& plane) {
  BitPlane outline(plane.Extent());
  for (int y = 1; y + 1 < plane.Extent().height; ++y) {
    const Bits* row = plane.Row(y);
    for (int i = 0; i < plane.WordsPerRow(); ++i) {
      const Bits sides = (row[i] << 1 | row[i - 1] >> 63) & (row[i] >> 1 | row[i + 1] << 63);
      outline.Row(y)[i] = row[i] & ~(sides & plane.Row(y - 1)[i] & plane.Row(y + 1)[i]);
    }
  }
  for (const int y : {0, plane.Extent().height - 1}) std::copy_n(plane.Row(y), plane.WordsPerRow(), outline.Row(y));
  return outline;
}

BitPlane Eroded(const BitPlane& plane, int by) {
  const Rectangle inside = Rectangle::At(0, 0, plane.Extent());
  PlaceSet clear{Grown(inside, 1), BitPlane({inside.Width() + 2, inside.Height() + 2})};
  for (int y = -1; y <= inside.bottom; ++y) {
    const bool isRow = y >= 0 && y < inside.bottom;
    Bits* row = clear.bits.Row(y + 1);
    for (int i = 0; i < clear.bits.WordsPerRow(); ++i)
      row[i] = ~(isRow ? BitsFrom(plane.Row(y), plane.WordsPerRow(), i * 64 - 1) : 0);
  }
  const PlaceSet lost = Crowded(clear, by, inside);
  BitPlane eroded(plane.Extent());
  for (int y = 0; y < inside.bottom; ++y)
    for (int i = 0; i < plane.WordsPerRow(); ++i) eroded.Row(y)[i] = plane.Row(y)[i] & ~lost.bits.Row(y)[i];
  return eroded;
}

Rectangle ReachOf(const BitPlane& item, const BitPlane& container) {
  const Rectangle a = BoundsOf(item);
  const Rectangle b = BoundsOf(container);
  if (a.Empty() || b.Empty()) return {};
  return {b.left - a.right + 1, b.top - a.bottom + 1, b.right - a.left, b.bottom - a.top};
}

PlaceSet Contacts(const BitPlane& item, const BitPlane& container, const Rectangle& area) {
  const Rectangle box = Intersection(area, ReachOf(item, container));
  if (box.Empty()) return {};
  PlaceSet contacts{box, BitPlane({box.Width(), box.Height()})};
  const auto [width, height] = item.Extent();
  const BitPlane mirrored = Mirrored(item);
  const std::vector<Row> itemRows = RowsOf(mirrored);
  const std::vector<Row> containerRows = RowsOf(container);
  // Dithered masks leave places free between contacts, and rows would be added to the end in vain. What folded rows can
  // come to bounds what all can; this period has most of those that dithers have.
  const int period = height < 8 * 24 ? 1 : 24;
  const BitPlane foldedItem = Folded(mirrored, period);
  const BitPlane foldedContainer = Folded(container, period);
  const std::vector<Row> itemFolds = RowsOf(foldedItem);
  const std::vector<Row> containerFolds = RowsOf(foldedContainer);

  // A bit of the container at c lies under one of the item at i where the item stands at c - i, and in the mirrored row
  // that is at width - 1 - i.
  const int from = box.left + width - 1;
  const int end = box.right + width - 1;
  Sums sums(width + container.Extent().width);
  for (int dy = box.top; dy < box.bottom; ++dy) {
    sums.Begin(from, end);
    for (int y = 0; y < period; ++y)
      sums.Add(itemFolds[static_cast<std::size_t>(y)],
               containerFolds[static_cast<std::size_t>(((y + dy) % period + period) % period)]);
    sums.BoundByAdded();
    const int bottom = std::min(height, container.Extent().height - dy);
    for (int y = std::max(0, -dy); y < bottom && !sums.AllFull(); ++y) {
      const int under = y + dy;
      sums.Add(itemRows[static_cast<std::size_t>(y)], containerRows[static_cast<std::size_t>(under)]);
    }
    Bits* row = contacts.bits.Row(dy - box.top);
    for (int i = 0; i < contacts.bits.WordsPerRow(); ++i)
      row[i] = sums.From(from + i * 64) & Span(0, box.Width() - i * 64);
  }
  return contacts;
}

PlaceSet Crowded(const PlaceSet& contacts, int room, const Rectangle& area) {
  // Each place first stands for the square that has it as its corner; the corners of the squares around the places of
  // `area` lie in a box that begins `room` before it.
  const Rectangle box = Grown(area, room);
  PlaceSet crowded{area, BitPlane({box.Width(), box.Height()})};
  BitPlane& plane = crowded.bits;
  const int words = plane.WordsPerRow();
  const int side = 2 * room + 1;
  const int offset = box.left - contacts.area.left;
  const int end = std::min(box.bottom, contacts.area.bottom);
  for (int y = std::max(box.top, contacts.area.top); y < end; ++y) {
    const Bits* source = contacts.bits.Row(y - contacts.area.top);
    Bits* row = plane.Row(y - box.top);
    for (int i = 0; i < words; ++i) row[i] = BitsFrom(source, contacts.bits.WordsPerRow(), offset + i * 64);
    for (int covered = 1; covered < side; covered += std::min(covered, side - covered))
      for (int i = 0; i < words; ++i) row[i] |= BitsFrom(row, words, i * 64 + std::min(covered, side - covered));
  }
  for (int covered = 1; covered < side; covered += std::min(covered, side - covered)) {
    const int step = std::min(covered, side - covered);
    for (int y = 0; y + step < box.Height(); ++y)
      for (int i = 0; i < words; ++i) plane.Row(y)[i] |= plane.Row(y + step)[i];
  }
  return crowded;
}

void GoStraight(std::vector<Place>& way, Place place) {
  if (!way.empty() && way.back() == place) return;
  const auto straight = [&](Place a, Place b) {
    return (a.x == b.x && b.x == place.x) || (a.y == b.y && b.y == place.y);
  };
  if (way.size() > 1 && straight(way[way.size() - 2], way.back()))
    way.back() = place;
  else
    way.push_back(place);
}

std::optional<std::vector<Place>> FindWay(PlaceSet taken, std::span<const Rectangle> from, const Rectangle& to) {
  Flood flood(taken, to);
  std::vector<Run> chain;
  for (std::uint32_t i = flood.Spread(from); i != kNoRun; i = flood.At(i).from) chain.push_back(flood.At(i));
  if (chain.empty()) return std::nullopt;
  std::ranges::reverse(chain);

  const Run& start = chain.front();
  const Rectangle line{start.left, start.y, start.right, start.y + 1};
  const auto* const begin =
      std::ranges::find_if(from, [&](const Rectangle& box) { return !Intersection(box, line).Empty(); }).base();
  const Rectangle choice = Intersection(*begin, line);
  const int toward = chain.size() > 1 ? chain[1].left : to.left;
  std::vector<Place> way;
  Place place = Held({toward, start.y}, choice);
  GoStraight(way, place);
  for (std::size_t i = 1; i < chain.size(); ++i) {
    place = Held(place, Intersection({chain[i - 1].left, place.y, chain[i - 1].right, place.y + 1},
                                     {chain[i].left, place.y, chain[i].right, place.y + 1}));
    GoStraight(way, place);
    place.y = chain[i].y;
    GoStraight(way, place);
  }
  GoStraight(way, Held(place, Intersection(to, {chain.back().left, place.y, chain.back().right, place.y + 1})));
  return way;
}

}  // namespace sorvex
