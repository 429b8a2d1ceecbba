// SPDX-License-Identifier: MIT
// The player's eyes and hands, by XTest and the properties that window managers keep.
#include "window/player.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <stdexcept>

#include "window/process.h"

namespace sorvex {
namespace {

struct Freed {
  void operator()(void* memory) const { ::XFree(memory); }
};

struct Property {
  std::unique_ptr<unsigned char, Freed> data;
  unsigned long count = 0;
};

Property Read(Display* display, Window window, Atom name) {
  Property property;
  Atom type = 0;
  int format = 0;
  unsigned long left = 0;
  unsigned char* data = nullptr;
  if (::XGetWindowProperty(display, window, name, 0, 4096, False, AnyPropertyType, &type, &format, &property.count,
                           &left, &data) != Success)
    property.count = 0;
  property.data.reset(data);
  return property;
}

// Those that no window manager put into a frame, the newest last.
std::vector<Window> ShownOnTheRoot(Display* display) {
  Window root = 0;
  Window parent = 0;
  Window* children = nullptr;
  unsigned count = 0;
  ::XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count);
  const std::unique_ptr<Window, Freed> list(children);
  std::vector<Window> shown(children, children + count);
  std::erase_if(shown, [display](Window window) {
    XWindowAttributes attributes{};
    ::XGetWindowAttributes(display, window, &attributes);
    return attributes.map_state != IsViewable;
  });
  return shown;
}

// A window may vanish between two questions about it.
int Ignore(Display*, XErrorEvent*) { return 0; }

}  // namespace

Player::Player(const std::string& display, bool managed)
    : display_(::XOpenDisplay(display.c_str())), managed_(managed) {
  if (display_ == nullptr) throw std::runtime_error("no screen " + display);
  ::XSetErrorHandler(&Ignore);
  if (!managed) return;
  Await([this] { return Read(display_, DefaultRootWindow(display_), Atom("_NET_SUPPORTING_WM_CHECK")).count > 0; },
        [] { return std::string("no window manager"); });
}

Player::~Player() { ::XCloseDisplay(display_); }

unsigned long Player::Atom(const char* name) const { return ::XInternAtom(display_, name, False); }

std::vector<Player::WindowId> Player::Windows() const {
  if (!managed_) return ShownOnTheRoot(display_);
  const Property list = Read(display_, DefaultRootWindow(display_), Atom("_NET_CLIENT_LIST"));
  const auto* first = reinterpret_cast<const WindowId*>(list.data.get());
  return {first, first + list.count};
}

std::string Player::TitleOf(WindowId window) const {
  const Property title = Read(display_, window, Atom("_NET_WM_NAME"));
  return {reinterpret_cast<const char*>(title.data.get()), title.count};
}

std::vector<std::string> Player::Titles() const {
  std::vector<std::string> titles;
  for (const WindowId window : Windows()) titles.push_back(TitleOf(window));
  return titles;
}

Player::WindowId Player::Find(const std::string& title) const {
  const std::vector<WindowId> windows = Windows();
  const auto topmost =
      std::find_if(windows.rbegin(), windows.rend(), [&](WindowId window) { return TitleOf(window) == title; });
  return topmost == windows.rend() ? 0 : *topmost;
}

bool Player::HasFocus(WindowId window) const {
  WindowId focus = 0;
  int revert = 0;
  ::XGetInputFocus(display_, &focus, &revert);
  return focus == window || (!managed_ && focus == PointerRoot);  // keys go to the window under the pointer
}

Rectangle Player::ClientArea(WindowId window) const {
  XWindowAttributes attributes{};
  ::XGetWindowAttributes(display_, window, &attributes);
  int x = 0;
  int y = 0;
  Window child = 0;
  ::XTranslateCoordinates(display_, window, DefaultRootWindow(display_), 0, 0, &x, &y, &child);
  return Rectangle::At(x, y, {attributes.width, attributes.height});
}

Bitmap Player::Look(const Rectangle& part) const {
  Bitmap seen({part.Width(), part.Height()});
  XImage* image =
      ::XGetImage(display_, DefaultRootWindow(display_), part.left, part.top, static_cast<unsigned>(part.Width()),
                  static_cast<unsigned>(part.Height()), AllPlanes, ZPixmap);
  if (image == nullptr) throw std::runtime_error("no such part of the screen");
  for (int y = 0; y < part.Height(); ++y)
    for (int x = 0; x < part.Width(); ++x) seen.Row(y)[x] = kBlack | static_cast<Pixel>(XGetPixel(image, x, y));
  XDestroyImage(image);
  return seen;
}

void Player::Move(int x, int y) {
  ::XTestFakeMotionEvent(display_, DefaultScreen(display_), x, y, CurrentTime);
  ::XSync(display_, False);
}

void Player::Button(unsigned button, bool down) {
  ::XTestFakeButtonEvent(display_, button, down ? True : False, CurrentTime);
  ::XSync(display_, False);
}

void Player::Key(const std::string& key, bool down) {
  const KeyCode code = ::XKeysymToKeycode(display_, ::XStringToKeysym(key.c_str()));
  if (code == 0) throw std::runtime_error("no key " + key);
  ::XTestFakeKeyEvent(display_, code, down ? True : False, CurrentTime);
  ::XSync(display_, False);
}

void Player::Tap(const std::string& key, const std::string& modifier) {
  if (!modifier.empty()) Key(modifier, true);
  Key(key, true);
  Key(key, false);
  if (!modifier.empty()) Key(modifier, false);
}

void Player::Type(const std::string& text) {
  for (const char c : text) {
    const bool capital = std::isupper(static_cast<unsigned char>(c)) != 0;
    Tap(c == ' ' ? "space" : std::string(1, c), capital ? "Shift_L" : "");
  }
}

void Player::UseCloseBox(WindowId window) {
  XEvent message{};
  message.xclient.type = ClientMessage;
  message.xclient.window = window;
  message.xclient.format = 32;
  if (managed_) {
    constexpr long kFromUser = 2;
    message.xclient.message_type = Atom("_NET_CLOSE_WINDOW");
    message.xclient.data.l[1] = kFromUser;
    ::XSendEvent(display_, DefaultRootWindow(display_), False, SubstructureNotifyMask | SubstructureRedirectMask,
                 &message);
  } else {
    message.xclient.message_type = Atom("WM_PROTOCOLS");
    message.xclient.data.l[0] = static_cast<long>(Atom("WM_DELETE_WINDOW"));
    ::XSendEvent(display_, window, False, NoEventMask, &message);
  }
  ::XSync(display_, False);
}

}  // namespace sorvex
