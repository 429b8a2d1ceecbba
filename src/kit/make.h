// SPDX-License-Identifier: MIT
// Making a theme from its source.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/bitmap.h"
#include "kit/findings.h"
#include "kit/source.h"

namespace sorvex {

/// A theme that has been made and not yet written.
struct MadeTheme {
  std::map<std::string, std::string> files;  ///< names and bytes of all but the table of best times
  std::vector<std::optional<Place>> places;  ///< each item's, where it was worked out
};

/// Reads the files that the source names. What is wrong with them goes to `findings`; then the result is incomplete.
/// The same source gives the same bytes.
MadeTheme MakeTheme(const ThemeSource& source, Findings& findings);

/// Why the theme may not be written into `folder`: it would take the place of something that is no theme, or of a file
/// that the source names. Empty: it may.
std::string WhyNotInto(const std::string& folder, const ThemeSource& source);

/// Writes the theme into `folder`, which is made if need be. Files of a theme that this one does not have are removed.
/// A table of best times that is there stays; else one with default rows is written. Throws PathAccessError (75).
void WriteTheme(const std::string& folder, const MadeTheme& theme);

// Its parts.

/// What an item, a container or the target becomes: a picture with transparency, as the theme's two bitmaps. Pixels
/// whose alpha is `threshold` or more are opaque: they are black in the mask and have their color in the picture, where
/// white is #FEFEFE. All others are white in both.
struct PictureAndMask {
  Bitmap picture;
  Bitmap mask;
};
PictureAndMask Separated(const Bitmap& rgba, int threshold);

/// ThemeDetails.ini. Since a field ends at a double quote, those in the texts become typographic ones.
std::string DetailsText(const std::string& description, const std::string& date);

}  // namespace sorvex
