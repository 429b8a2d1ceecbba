// SPDX-License-Identifier: MIT
// Rendering with cairo, whose colors are multiplied by their alpha.
#include "platform/qt/svg.h"

#include <cairo.h>
#include <librsvg/rsvg.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "platform/decode_rgba.h"

namespace sorvex {
namespace {

constexpr double kDotsPerInch = 96;  // as CSS has it

struct Unreference {
  void operator()(RsvgHandle* handle) const { ::g_object_unref(handle); }
  void operator()(cairo_surface_t* surface) const { ::cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { ::cairo_destroy(context); }
};
template <class T>
using Handle = std::unique_ptr<T, Unreference>;

[[noreturn]] void ThrowUnrendered() { throw PictureError("not an SVG picture that can be drawn"); }

Handle<RsvgHandle> Load(std::string_view bytes) {
  Handle<RsvgHandle> svg(
      ::rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(bytes.data()), bytes.size(), nullptr));
  if (!svg) ThrowUnrendered();
  ::rsvg_handle_set_dpi(svg.get(), kDotsPerInch);
  return svg;
}

// Its width and height; when it names none in pixels, its view box's.
Size SizeOf(RsvgHandle* svg, std::int64_t mostPixels) {
  double width = 0;
  double height = 0;
  if (::rsvg_handle_get_intrinsic_size_in_pixels(svg, &width, &height) == FALSE) {
    gboolean hasBox = FALSE;
    RsvgRectangle box{};
    ::rsvg_handle_get_intrinsic_dimensions(svg, nullptr, nullptr, nullptr, nullptr, &hasBox, &box);
    if (hasBox == FALSE) throw PictureError("an SVG picture without a size; give it a width and a height in pixels");
    width = box.width;
    height = box.height;
  }
  constexpr double largest = 1e9;  // keeps the product an integer
  const auto whole = [largest](double side) { return std::llround(std::clamp(side, 0.0, largest)); };
  return AllowedSize(whole(width), whole(height), mostPixels);
}

Pixel Divided(Pixel pixel) {
  const Pixel alpha = pixel >> 24;
  if (alpha == 0) return 0;
  Pixel divided = alpha << 24;
  for (const int shift : {0, 8, 16})
    divided |= std::min<Pixel>(255, ((pixel >> shift & 0xFF) * 255 + alpha / 2) / alpha) << shift;
  return divided;
}

}  // namespace

Bitmap RenderSvg(std::string_view bytes, std::int64_t mostPixels) {
  const Handle<RsvgHandle> svg = Load(bytes);
  const Size size = SizeOf(svg.get(), mostPixels);
  Bitmap picture(size, 0);
  const Handle<cairo_surface_t> surface(
      ::cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(picture.Row(0)), CAIRO_FORMAT_ARGB32,
                                            size.width, size.height, size.width * static_cast<int>(sizeof(Pixel))));
  const Handle<cairo_t> context(::cairo_create(surface.get()));
  const RsvgRectangle whole{0, 0, static_cast<double>(size.width), static_cast<double>(size.height)};
  if (::rsvg_handle_render_document(svg.get(), context.get(), &whole, nullptr) == FALSE) ThrowUnrendered();
  ::cairo_surface_flush(surface.get());
  std::transform(picture.Row(0), picture.Row(0) + picture.Pixels().size(), picture.Row(0), Divided);
  return picture;
}

}  // namespace sorvex
