// SPDX-License-Identifier: MIT
// What the proof finds: items that cannot be dragged to the target, or only with the pointer outside the field.
#include <algorithm>
#include <cstddef>

#include "kit/check.h"

namespace sorvex {
namespace {

bool Has(const Findings& findings, std::string_view code, const std::string& file) {
  return std::ranges::any_of(findings, [&](const Finding& found) { return found.code == code && found.file == file; });
}

bool IsWhole(const Theme& theme, Long item) {
  const ItemPictures& pictures = theme.pictures[static_cast<std::size_t>(item)];
  return theme.items.ItemInPlay(item) && pictures.item && pictures.itemMask && pictures.container &&
         pictures.containerMask;
}

// Nothing where the journey is possible inside the field, and where another check tells why it is not.
std::optional<Finding> FindingOf(const Journey& journey, Long item, const std::string& from) {
  const int line = static_cast<int>(item) * kLinesPerItem + 1;
  const std::string what = "item " + std::to_string(item) + " " + from + " at " + Said(journey.from);
  const auto finding = [&](Severity severity, const char* code, const std::string& message) {
    return Finding{severity, code, kItemsFile, line, std::nullopt, what + message};
  };
  switch (journey.verdict) {
    case Verdict::Way:
      if (journey.outside == 0) return std::nullopt;
      return finding(Severity::Warning, "way-leaves-field",
                     " and reaches the target only with the pointer " + CountedPixels(journey.outside) +
                         " outside the field, held at " + Said(journey.grab) + " of its mask");
    case Verdict::NotHeld:
      return finding(Severity::Error, "cannot-be-held",
                     ", where no black pixel of its mask lies inside the field: nobody can pick it up");
    case Verdict::OutOfReach:
      return finding(Severity::Error, "target-out-of-reach",
                     ", and no pointer on or near the field can bring its center over the target");
    case Verdict::NoWay:
      return finding(Severity::Error, "no-way",
                     " and has no way without jumping to the target: the walls close at " + Said(journey.closesAt) +
                         (journey.tooThick == 0 ? std::string()
                                                : ", and " + CountedPixels(journey.tooThick) +
                                                      " off all its edges, or off the walls, would let it through"));
    case Verdict::OutOfRange:
    case Verdict::Touches: break;
  }
  return std::nullopt;
}

}  // namespace

std::vector<ItemProof> CheckWays(const Theme& theme, Findings& findings, const Progress& progress) {
  const bool placesAreKnown = std::ranges::none_of(findings, [](const Finding& found) {
    return found.severity == Severity::Error && found.line == 0 &&
           (found.file == kItemsFile || found.file == kTargetFile);
  });
  if (!placesAreKnown || Has(findings, "item-cut-short", kItemsFile) || !theme.background || !theme.targetPicture ||
      !theme.targetMask)
    return {};
  std::vector<ItemProof> proofs;
  for (Long item = 0; item <= theme.items.LastItem; ++item) {
    if (progress) progress(static_cast<int>(item), static_cast<int>(theme.items.LastItem + 1));
    if (!IsWhole(theme, item)) continue;
    const ItemProof& proof = proofs.emplace_back(ProveItem(theme, item));
    if (Has(findings, "no-black-pixel", "sm" + std::to_string(item) + ".bmp")) continue;
    const std::optional<Finding> start = FindingOf(proof.fromStart, item, "starts");
    if (start) findings.push_back(*start);
    if (proof.fromRest.from == proof.fromStart.from) continue;
    if (const std::optional<Finding> rest = FindingOf(proof.fromRest, item, "comes to rest"))
      if (!start || start->code != rest->code) findings.push_back(*rest);
  }
  return proofs;
}

}  // namespace sorvex
