// SPDX-License-Identifier: MIT
// The functions of the page's script. Windows, controls and boxes are known to it by numbers from 1 that the program
// chooses; texts are UTF-8 and zero-terminated; places and sizes are pixels of a form. What the script allocates is
// freed with std::free.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "base/bitmap.h"

namespace sorvex {

enum class PageEventKind : std::int32_t {
  Moved,    ///< the window's client area is at (x, y)
  Move,     ///< pointer over `control` (0: the form) at (x, y) of its drawing area
  Press,    ///< `detail`: the button
  Release,  ///< the same
  Lose,     ///< the pointer capture is lost
  Click,    ///< `control` was clicked, by a pointer if it is a button, else by assistive technology
  Command,  ///< the image `control` shall do its command number `detail`
  Select,   ///< entry `detail` of the list `control` was selected
  Choose,   ///< the same, by a double click
  Enter,
  Escape,
  Function,   ///< key F`detail`
  AccessKey,  ///< Alt and the character `text`
  Focus,      ///< the focus moved within the window
  Close,
  BoxClosed,  ///< `window`: the box; `text`: what was typed; null: not OK
};

/// What the script reports.
struct PageEvent {
  PageEventKind kind = {};
  std::int32_t window = 0;
  std::int32_t control = 0;
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t detail = 0;
  std::int32_t shift = 0;
  char* text = nullptr;  ///< allocated, may be null
};

/// A file's bytes or a picture's pixels, allocated by the script.
struct PageData {
  void* bytes = nullptr;
  std::int32_t size = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
};

struct Freed {
  void operator()(void* allocated) const { std::free(allocated); }
};
template <class T>
using Allocated = std::unique_ptr<T, Freed>;

/// Links are labels and Presses are images that do something when they are clicked.
enum class ControlKind { Surface, Button, Label, Link, Image, Press, List, Line, Shape };
enum class PageText { Caption, ToolTip, Name, Entries, Picture, Cursor, Commands };

/// What is asked of the script that it cannot answer at once.
enum class PageRequest { NextEvent, OpenFile, Decode, ReplaceFile };
enum class Replaced : int { Done, ChangedMeanwhile, Full, Refused };

extern "C" {
/// Stops the program until the script has answered; the only function that does.
///   NextEvent: the next event in *`result` (PageEvent), for up to `size` milliseconds, at 0 those that the browser has
///     ready, below 0 without asking it; 1 or 0: there is none
///   OpenFile: the file named `data` in *`result` (PageData); 1 or 0: there is none
///   Decode: the picture file of `size` bytes at `data` in *`result`, its pixels in 0xAABBGGRR; 1 or 0: not readable
///   ReplaceFile: `data` is an array of three texts, the file's name, its new content of `size` bytes, and its content
///     until now of `result` bytes (-1: none); a Replaced
int PageAwait(PageRequest request, const void* data, int size, void* result);

void PageOpenWindow(int window, bool modal);
void PageCloseWindow(int window);
void PageSetCaption(int window, const char* caption);
void PageSetBackground(int window, Pixel color);
void PageSetSize(int window, int width, int height);
/// Of the button that Enter presses; 0: none.
void PageMark(int window, int control);
/// The control of the window that has or last had the focus, 0 if none.
int PageFocused(int window);

/// `container` is the surface that contains it, 0: the form; controls with a larger `depth` are in front.
void PageMake(int control, ControlKind kind, int window, int container, int depth, int tabIndex);
void PageRemove(int control);
void PagePlace(int control, int left, int top, int width, int height, bool visible);
/// Entries and commands are separated by line feeds, a command's name and its function key by a tab.
void PageSetText(int control, PageText which, const char* text);
/// `background` 0: transparent; `alignment` as in Alignment; `wraps` or ends with an ellipsis at `room` pixels, 0:
/// never.
void PageSetStyle(int control, Pixel color, Pixel background, int alignment, bool wraps, int room);
void PageSetFont(int control, const char* family, double pixels, int weight, bool underlined);
void PageSetFrame(int control, int width, Pixel background);
/// Shows `width` x `height` pixels in 0xAABBGGRR at (left, top) of the surface's drawing area.
void PagePaint(int control, const Pixel* pixels, int left, int top, int width, int height);
void PageSelect(int control, int entry);
void PageFocus(int control);

/// Returns the width in the upper and the height in the lower 16 bits.
unsigned PageMeasure(const char* text, const char* family, double pixels, int weight, int wrapWidth);
/// A modal box, with an entry field for `mostTyped` characters unless that is 0. `icon` as in BoxIcon.
void PageOpenBox(int box, const char* text, const char* title, int icon, int mostTyped);
void PageCloseBox(int box);
/// Where the pointer was last, x in the upper and y in the lower 16 bits.
unsigned PagePointer();
void PagePlayWave(const char* path);
/// `paths` are separated by line feeds.
void PagePrepareWaves(const char* paths);
void PageOpenAddress(const char* address);
/// Allocated.
char* PageShortDate();
}

/// A file's or built-in picture's pixels from the bytes of the file; empty if the browser cannot read them.
Bitmap DecodedByPage(const void* bytes, std::size_t size);

/// Pixels as the page takes and gives them, from or to 0xAARRGGBB.
constexpr Pixel Swapped(Pixel pixel) { return (pixel & 0xFF00FF00) | (pixel & 0xFF) << 16 | (pixel >> 16 & 0xFF); }

}  // namespace sorvex
