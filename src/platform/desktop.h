// SPDX-License-Identifier: MIT
// What the game asks of a window system, one contract a function. A front end implements this class and mirrors the
// forms' controls; it decides nothing that another front end would have to decide alike.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "base/bitmap.h"
#include "base/numbers.h"
#include "platform/controls.h"
#include "platform/picture.h"
#include "platform/registry.h"

namespace sorvex {

/// Thrown by a handler to end the program at once: no further handler runs, every wait is left, every window closes.
struct ProgramEnded {};

enum class BoxIcon { None, Critical, Exclamation, Information };

/// What the program says of itself.
struct VersionInfo {
  std::string Title;
  int Major = 0;
  int Minor = 0;
  int Revision = 0;
  std::string Comments;
  std::string LegalCopyright;
};

struct ScreenPoint {
  Long x = 0;
  Long y = 0;
};

/// How much an entry field holds, as the classic text-input box has it.
inline constexpr int kLongestEntry = 254;

/// The new content of a file; none: it stays as it is.
using FileContent = std::function<std::optional<std::string>()>;

/// Handlers run only inside Show, DeliverEvents, ShowMessage and InputBox, on the calling thread. What a handler throws
/// leaves the call that ran it.
class Desktop {
 public:
  virtual ~Desktop() = default;

  // Windows
  /// Shows `form` and serves events until its Loaded is cleared. With an owner it is modal: meanwhile the owner takes
  /// no input.
  virtual void Show(Form& form, Form* owner) = 0;
  /// Brings every window up to date, delivers all pending events (input in order, due timers, paints), returns. When
  /// nothing is pending it first waits for something, up to `patience` milliseconds.
  virtual void DeliverEvents(int patience = 0) = 0;
  /// The longest patience, 24 days: until an event comes.
  static constexpr int kUntilAnEvent = std::numeric_limits<int>::max();
  /// Shows the surface's image on the screen before returning. Since the last call only what lies in the boxes
  /// `changed` (drawing area pixels) has changed.
  virtual void Refresh(PictureBox& surface, std::span<const Rectangle> changed) = 0;
  /// A modal box with one OK button. Lines of `text` end with CR LF.
  virtual void ShowMessage(const std::string& text, const std::string& title, BoxIcon icon) = 0;
  /// A modal box with an empty entry field that takes up to kLongestEntry characters (UTF-16 code units), OK and
  /// Cancel; what was typed, empty on Cancel.
  virtual std::string InputBox(const std::string& prompt, const std::string& title) = 0;

  // Pictures and text
  /// One of the built-in pictures that are shown on surfaces.
  virtual Picture BuiltInPicture(BuiltIn which) = 0;
  /// Pixels that `text` takes in `font`; wrapped to `wrapWidth` pixels when that is above 0.
  virtual Size MeasureText(const Font& font, const std::string& text, int wrapWidth) = 0;
  /// What a system colour is; an RGB colour comes back as it is.
  virtual Pixel ResolveColor(Color color) = 0;
  /// Twips a pixel of the screen.
  virtual TwipRatio TwipsPerPixel() = 0;

  // The surroundings
  /// Milliseconds since the system started, as a 32-bit value read as signed.
  virtual Long TickCount() = 0;
  /// The pointer's place on the screen, pixels.
  virtual ScreenPoint PointerPosition() = 0;
  /// Starts a wave file, cutting off the one that plays; a file that cannot be played gives the default sound.
  virtual void PlayWave(const std::string& path) = 0;
  /// Names the wave files that may be played next, so that they can start at once.
  virtual void PrepareWaves(std::span<const std::string> paths) = 0;
  /// Opens a web or mail address with the desktop's program for it; nothing visible when there is none.
  virtual void OpenAddress(const std::string& address) = 0;
  /// Today in the desktop's short date format.
  virtual std::string ShortDate() = 0;
  /// The folder that holds the executable.
  virtual std::string ProgramFolder() = 0;
  virtual VersionInfo Version() = 0;
  /// Makes what `content` returns the content of the file, nothing when it returns none: afterwards the file holds the
  /// old content or the new one, never part of one. While `content` runs and the file is written, no other copy of the
  /// program is inside this function for a file of that folder. A link is followed; a read-only file stays; throws 76
  /// (no such folder), 75 (not writable), 61 (disk full), 57, and what `content` throws.
  virtual void UpdateFile(const std::string& path, const FileContent& content) = 0;
  /// Where the program records its folder.
  virtual Registry& SystemRegistry() = 0;
};

/// The front end that this program was linked with.
std::unique_ptr<Desktop> MakeDesktop(int& argc, char** argv);

}  // namespace sorvex
