// SPDX-License-Identifier: MIT
// Painting with GDI.
#include "platform/win32/painting.h"

#include <algorithm>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/win32/built_ins.h"
#include "platform/win32/text.h"

namespace sorvex {
namespace {

struct ObjectDeleter {
  void operator()(HGDIOBJ object) const { ::DeleteObject(object); }
};
struct ContextDeleter {
  void operator()(HDC context) const { ::DeleteDC(context); }
};
using GdiObject = std::unique_ptr<std::remove_pointer_t<HGDIOBJ>, ObjectDeleter>;
using MemoryContext = std::unique_ptr<std::remove_pointer_t<HDC>, ContextDeleter>;

RECT ToRect(const Rectangle& r) { return {r.left, r.top, r.right, r.bottom}; }

void Fill(HDC context, const RECT& part, Pixel pixel) {
  ::SetDCBrushColor(context, ToColorRef(pixel));
  ::FillRect(context, &part, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
}

// A 1-pixel border; the top-right and bottom-left corners have the lower color.
void PaintEdge(HDC context, const Rectangle& r, Pixel upper, Pixel lower) {
  Fill(context, {r.left, r.top, r.right - 1, r.top + 1}, upper);
  Fill(context, {r.left, r.top, r.left + 1, r.bottom - 1}, upper);
  Fill(context, {r.left, r.bottom - 1, r.right, r.bottom}, lower);
  Fill(context, {r.right - 1, r.top, r.right, r.bottom}, lower);
}

void PaintFrame(HDC context, Frame frame, const Rectangle& outer) {
  if (frame == Frame::Flat) PaintEdge(context, outer, kBlack, kBlack);
  if (frame != Frame::Sunken) return;
  PaintEdge(context, outer, 0xFF808080, 0xFFFFFFFF);
  PaintEdge(context, {outer.left + 1, outer.top + 1, outer.right - 1, outer.bottom - 1}, 0xFF404040, 0xFFDFDFDF);
}

void PaintImage(HDC context, const PictureBox& surface, Pixel background, Size window, const RECT& part) {
  const int frame = FrameWidth(surface.BorderStyle);
  const Rectangle inner{frame, frame, window.width - frame, window.height - frame};
  const Picture& picture = surface.PictureObject();
  const Bitmap* image = surface.AutoRedraw ? &surface.Image() : picture ? &picture->Pixels() : nullptr;
  const bool covers = image != nullptr && image->Extent() == Size{inner.Width(), inner.Height()};
  if (!covers) Fill(context, ToRect(inner), background);
  if (image == nullptr) return;
  const Rectangle wanted = Intersection({part.left, part.top, part.right, part.bottom}, inner).Moved(-frame, -frame);
  ShowPixels(context, *image, Intersection(wanted, image->Bounds()), frame, frame);
}

void PaintLabel(HDC context, Desktop& desktop, const Label& label, const Rectangle& bounds) {
  if (!label.Transparent) Fill(context, ToRect(bounds), desktop.ResolveColor(label.BackColor));
  ::SelectObject(context, FontFor(label.Font));
  ::SetBkMode(context, TRANSPARENT);
  ::SetTextColor(context, ToColorRef(desktop.ResolveColor(label.ForeColor)));
  const std::wstring text = ToWide(label.PaintedText());
  RECT place = ToRect(bounds);
  ::DrawTextW(context, text.data(), static_cast<int>(text.size()), &place, TextFormat(label.Align, label.WordWrap));
}

void PaintLine(HDC context, const Rectangle& bounds) {
  ::SelectObject(context, ::GetStockObject(BLACK_PEN));
  ::MoveToEx(context, bounds.left, bounds.top, nullptr);
  ::LineTo(context, bounds.right - 1, bounds.bottom - 1);
  ::SetPixel(context, bounds.right - 1, bounds.bottom - 1, RGB(0, 0, 0));  // LineTo excludes the end point
}

void PaintControl(HDC context, Desktop& desktop, const Control& control, const Rectangle& part) {
  const Rectangle bounds = PaintedBounds(control);
  if (Intersection(bounds, part).Empty()) return;
  if (const auto* label = dynamic_cast<const Label*>(&control)) PaintLabel(context, desktop, *label, bounds);
  if (const auto* image = dynamic_cast<const Image*>(&control))
    if (image->Picture != BuiltIn::None) PaintBuiltIn(context, bounds, image->Picture);
  if (dynamic_cast<const Line*>(&control) != nullptr) PaintLine(context, bounds);
  if (const auto* shape = dynamic_cast<const Shape*>(&control))
    Fill(context, ToRect(bounds), desktop.ResolveColor(shape->FillColor));
}

void PaintAll(HDC context, const FormContext& form, const PictureBox* surface, Size window, const RECT& part) {
  const Color back = surface == nullptr ? form.form.BackColor : surface->BackColor;
  const Pixel background = form.desktop.ResolveColor(back);
  if (surface == nullptr) {
    Fill(context, part, background);
    if (form.focused != nullptr) {
      const RECT ring = ToRect(FocusRing(*form.focused));
      ::DrawFocusRect(context, &ring);
    }
  } else {
    PaintFrame(context, surface->BorderStyle, Rectangle::At(0, 0, window));
    PaintImage(context, *surface, background, window, part);
  }
  const int frame = surface == nullptr ? 0 : FrameWidth(surface->BorderStyle);
  POINT origin{};
  ::OffsetViewportOrgEx(context, frame, frame, &origin);
  const std::vector<Control*>& controls = form.form.Controls;
  std::for_each(controls.rbegin(), controls.rend(), [&](const Control* control) {
    if (control->Container == surface && control->Visible && IsPainted(*control))
      PaintControl(context, form.desktop, *control,
                   Rectangle{part.left, part.top, part.right, part.bottom}.Moved(-frame, -frame));
  });
  ::SetViewportOrgEx(context, origin.x, origin.y, nullptr);
}

}  // namespace

void ShowPixels(HDC context, const Bitmap& image, const Rectangle& box, int x, int y) {
  if (box.Empty()) return;
  BITMAPINFO description{};
  description.bmiHeader.biSize = sizeof description.bmiHeader;
  description.bmiHeader.biWidth = image.Width();
  description.bmiHeader.biHeight = -box.Height();  // negative: top-down rows, starting with the box's first
  description.bmiHeader.biPlanes = 1;
  description.bmiHeader.biBitCount = 32;
  ::SetDIBitsToDevice(context, x + box.left, y + box.top, static_cast<DWORD>(box.Width()),
                      static_cast<DWORD>(box.Height()), box.left, 0, 0, static_cast<UINT>(box.Height()),
                      image.Row(box.top), &description, DIB_RGB_COLORS);
}

bool IsPainted(const Control& control) {
  return dynamic_cast<const Label*>(&control) != nullptr || dynamic_cast<const Image*>(&control) != nullptr ||
         dynamic_cast<const Line*>(&control) != nullptr || dynamic_cast<const Shape*>(&control) != nullptr;
}

Rectangle PaintedBounds(const Control& control) {
  Rectangle bounds = PixelBounds(control);
  if (dynamic_cast<const Line*>(&control) != nullptr)
    return {bounds.left, bounds.top, bounds.right + 1, bounds.bottom + 1};
  const auto* label = dynamic_cast<const Label*>(&control);
  if (label == nullptr || !label->AutoSize) return bounds;
  // An auto-size label shows its whole text even before it was resized to it.
  const Size text = TextSize(label->Font, label->PaintedText(), label->WordWrap ? bounds.Width() : 0);
  bounds.right = std::max(bounds.right, bounds.left + text.width);
  bounds.bottom = std::max(bounds.bottom, bounds.top + text.height);
  return bounds;
}

HBRUSH BackgroundBrush(HDC context, const FormContext& form, const PictureBox* surface) {
  const Color color = surface == nullptr ? form.form.BackColor : surface->BackColor;
  ::SetDCBrushColor(context, ToColorRef(form.desktop.ResolveColor(color)));
  return static_cast<HBRUSH>(::GetStockObject(DC_BRUSH));
}

void PaintArea(HDC screen, const FormContext& context, const PictureBox* surface, Size window, const RECT& part) {
  const int width = part.right - part.left;
  const int height = part.bottom - part.top;
  if (width <= 0 || height <= 0) return;
  // Double-buffered to avoid flicker.
  const MemoryContext memory(::CreateCompatibleDC(screen));
  const GdiObject pixels(::CreateCompatibleBitmap(screen, width, height));
  if (!memory || !pixels) return PaintAll(screen, context, surface, window, part);
  const HGDIOBJ before = ::SelectObject(memory.get(), pixels.get());
  ::SetViewportOrgEx(memory.get(), -part.left, -part.top, nullptr);
  PaintAll(memory.get(), context, surface, window, part);
  ::BitBlt(screen, part.left, part.top, width, height, memory.get(), part.left, part.top, SRCCOPY);
  ::SelectObject(memory.get(), before);
}

}  // namespace sorvex
