// SPDX-License-Identifier: MIT
// The services that the game needs from a window system. A front end implements this class and mirrors the forms'
// controls; decisions that do not depend on the front end are made in the core.
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

/// Thrown by a handler to end the program at once: no further handler runs, every modal wait ends, every window closes.
struct ProgramEnded {};

enum class BoxIcon { None, Critical, Exclamation, Information };

/// The program's version resource.
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

/// The longest text of an entry field, in UTF-16 code units.
inline constexpr int kLongestEntry = 254;

/// Returns a file's new content, or nullopt to leave the file unchanged.
using FileContent = std::function<std::optional<std::string>()>;

/// Handlers run only inside Show, DeliverEvents, ShowMessage and InputBox, on the calling thread. An exception from a
/// handler is rethrown by that call.
class Desktop {
 public:
  virtual ~Desktop() = default;

  // Windows
  /// Shows `form` and delivers events until its Loaded is cleared. With an owner the form is modal: the owner takes no
  /// input meanwhile.
  virtual void Show(Form& form, Form* owner) = 0;
  /// Synchronizes every window with its form, delivers all pending events (input in order, due timers, paints) and
  /// returns. If none is pending, first blocks for up to `patience` milliseconds until one arrives.
  virtual void DeliverEvents(int patience = 0) = 0;
  /// A patience of 24 days: waits until an event arrives.
  static constexpr int kUntilAnEvent = std::numeric_limits<int>::max();
  /// Shows the surface's image on the screen before returning. `changed` are the dirty rectangles since the last call,
  /// in pixels of the drawing area.
  virtual void Refresh(PictureBox& surface, std::span<const Rectangle> changed) = 0;
  /// Shows a modal box with one OK button until it is closed. Lines of `text` are separated by CR LF.
  virtual void ShowMessage(const std::string& text, const std::string& title, BoxIcon icon) = 0;
  /// Shows a modal box with OK, Cancel and an empty entry field for up to kLongestEntry UTF-16 code units. Returns the
  /// text, empty on Cancel.
  virtual std::string InputBox(const std::string& prompt, const std::string& title) = 0;

  // Pictures and text
  /// A new picture object of a built-in picture for surfaces.
  virtual Picture BuiltInPicture(BuiltIn which) = 0;
  /// The size of `text` in `font`, in pixels; wrapped to `wrapWidth` pixels if that is above 0.
  virtual Size MeasureText(const Font& font, const std::string& text, int wrapWidth) = 0;
  /// A system or RGB color as a pixel value.
  virtual Pixel ResolveColor(Color color) = 0;
  /// Twips per screen pixel.
  virtual TwipRatio TwipsPerPixel() = 0;

  // Other services
  /// Milliseconds since the system started, as a 32-bit value read as signed.
  virtual Long TickCount() = 0;
  /// The pointer's position on the screen, in pixels.
  virtual ScreenPoint PointerPosition() = 0;
  /// Starts playing a wave file and returns at once. Cuts off the sound that is playing; a file that cannot be played
  /// is replaced by the system's default sound.
  virtual void PlayWave(const std::string& path) = 0;
  /// Announces the wave files that may be played next, so that a front end can preload them.
  virtual void PrepareWaves(std::span<const std::string> paths) = 0;
  /// Opens a web or mail address in the user's default program; silent if there is none.
  virtual void OpenAddress(const std::string& address) = 0;
  /// Today's date in the user's short date format.
  virtual std::string ShortDate() = 0;
  /// The path of the folder that contains the executable, without a trailing separator (except a drive's root).
  virtual std::string ProgramFolder() = 0;
  virtual VersionInfo Version() = 0;
  /// Replaces a file's content by what `content` returns, atomically where the file system allows. `content` and the
  /// write run under a lock that excludes other copies of the program from this function for files in the same folder.
  /// Symbolic links are followed. Throws PathNotFound (76), PathAccessError (75; also for read-only files), DiskFull
  /// (61), DeviceError (57), and whatever `content` throws.
  virtual void UpdateFile(const std::string& path, const FileContent& content) = 0;
  /// The registry, in which the program records its folder.
  virtual Registry& SystemRegistry() = 0;
};

/// Creates the desktop of the front end that the program is linked with.
std::unique_ptr<Desktop> MakeDesktop(int& argc, char** argv);

}  // namespace sorvex
