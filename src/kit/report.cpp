// SPDX-License-Identifier: MIT
// Writing findings down.
#include "kit/report.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/files.h"
#include "base/text.h"
#include "kit/gallery.h"

namespace sorvex {
namespace {

const char* NameOf(Severity severity) { return severity == Severity::Error ? "error" : "warning"; }

// SGR sequences (ECMA-48): bold, red or magenta as compilers have them, and back.
std::string Colored(const std::string& text, const char* parameters) {
  return "\x1B[" + (parameters + ("m" + text)) + "\x1B[0m";
}

std::string Counted(std::ptrdiff_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string JsonText(const std::string& text) {
  std::string json = "\"";
  for (const char c : DecodeText(text)) {
    if (c == '"' || c == '\\') {
      json += {'\\', c};
    } else if (static_cast<unsigned char>(c) < 0x20) {
      std::array<char, 7> code{};
      std::snprintf(code.data(), code.size(), "\\u%04X", static_cast<unsigned>(c));
      json += code.data();
    } else {
      json += c;
    }
  }
  return json + '"';
}

// The least room and its item.
std::string Tightest(const std::vector<ItemProof>& proofs, int Journey::*room) {
  const auto least =
      std::ranges::min_element(proofs, {}, [room](const ItemProof& proof) { return proof.fromStart.*room; });
  return DescribeRoom(least->fromStart.*room) + " at item " + std::to_string(least - proofs.begin());
}

std::string AsJson(const std::string& folder, const Finding& finding) {
  std::string json = "{\"theme\": " + JsonText(folder) + ", \"file\": " + JsonText(finding.file);
  if (finding.line > 0) json += ", \"line\": " + std::to_string(finding.line);
  if (finding.pixel)
    json += ", \"x\": " + std::to_string(finding.pixel->x) + ", \"y\": " + std::to_string(finding.pixel->y);
  return json + ", \"severity\": \"" + NameOf(finding.severity) + "\", \"code\": \"" + std::string(finding.code) +
         "\", \"message\": " + JsonText(finding.message) + "}";
}

}  // namespace

std::string AsLines(const CheckedTheme& theme, bool colored) {
  std::string lines;
  for (const Finding& finding : theme.findings) {
    std::string place = JoinPath(theme.folder, finding.file);
    if (finding.line > 0) place += ":" + std::to_string(finding.line);
    std::string severity = NameOf(finding.severity);
    if (colored) {
      place = Colored(place, "1");
      severity = Colored(severity, finding.severity == Severity::Error ? "1;31" : "1;35");
    }
    for (const std::string_view part :
         {std::string_view(place), std::string_view(": "), std::string_view(severity), std::string_view(": "),
          std::string_view(finding.message), std::string_view(" ["), finding.code, std::string_view("]\n")})
      lines += part;
  }
  return lines;
}

std::string Summary(const CheckedTheme& theme) {
  const auto errors = std::ranges::count(theme.findings, Severity::Error, &Finding::severity);
  const auto warnings = static_cast<std::ptrdiff_t>(theme.findings.size()) - errors;
  std::string summary = theme.folder + ": " + Counted(errors, "error") + ", " + Counted(warnings, "warning");
  const bool areWays =
      std::ranges::all_of(theme.proofs, [](const ItemProof& item) { return item.fromStart.verdict == Verdict::Way; });
  if (areWays && !theme.proofs.empty())
    summary += "; tightness " + Tightest(theme.proofs, &Journey::room) + ", once out " +
               Tightest(theme.proofs, &Journey::roomOnceOut);
  return summary + "\n";
}

std::string AsJson(const std::vector<CheckedTheme>& themes) {
  std::string json;
  for (const CheckedTheme& theme : themes)
    for (const Finding& finding : theme.findings)
      json += (json.empty() ? "\n  " : ",\n  ") + AsJson(theme.folder, finding);
  return "[" + json + "\n]\n";
}

}  // namespace sorvex
