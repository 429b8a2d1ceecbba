// SPDX-License-Identifier: MIT
// Reading icons, cursors and pictures from the program's resources.
#include "platform/qt/built_ins.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPixmap>
#include <algorithm>
#include <vector>

namespace sorvex {
namespace {

const char* FileOf(BuiltIn which) {
  switch (which) {
    case BuiltIn::None: return "";
    case BuiltIn::WindowIcon: return ":/window.ico";
    case BuiltIn::HighScoresPanel: return ":/highscores.jpg";
    case BuiltIn::Canvas: return ":/canvas.jpg";
    case BuiltIn::FolderIcon: return ":/folder.ico";
    case BuiltIn::AboutIcon: return ":/about.ico";
    case BuiltIn::InfoHandCursor: return ":/hand_info.cur";
    case BuiltIn::LinkHandCursor: return ":/hand_link.cur";
    case BuiltIn::Logo: return ":/logo.gif";
  }
  return "";
}

QByteArray BytesOf(BuiltIn which) {
  QFile file(QString::fromLatin1(FileOf(which)));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// All images of the file; among those of one size the one with most colors comes first.
std::vector<QImage> ImagesIn(QByteArray bytes) {
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer);
  std::vector<QImage> images;
  do {
    QImage image = reader.read();
    if (!image.isNull()) images.push_back(std::move(image));
  } while (reader.jumpToNextImage());
  std::ranges::stable_sort(images, std::ranges::greater{}, &QImage::depth);
  return images;
}

}  // namespace

QImage BuiltInImage(BuiltIn which, QSize size) {
  QImage chosen;
  for (const QImage& image : ImagesIn(BytesOf(which))) {
    const bool large = chosen.width() >= size.width() && chosen.height() >= size.height();
    const bool fits = image.width() >= size.width() && image.height() >= size.height();
    if (chosen.isNull() || (large ? fits && image.width() < chosen.width() : image.width() > chosen.width()))
      chosen = image;
  }
  return chosen;
}

QIcon BuiltInIcon(BuiltIn which) {
  QIcon icon;
  for (const QImage& image : ImagesIn(BytesOf(which))) icon.addPixmap(QPixmap::fromImage(image));
  return icon;
}

QCursor BuiltInCursor(BuiltIn which) {
  if (which == BuiltIn::None) return Qt::ArrowCursor;
  const QByteArray bytes = BytesOf(which);
  const std::vector<QImage> images = ImagesIn(bytes);
  if (images.empty()) return Qt::ArrowCursor;
  // The first directory entry starts at byte 6; in a cursor file it holds the hot spot where an icon file has the
  // planes.
  constexpr int kHotSpotX = 10;
  constexpr int kHotSpotY = 12;
  return QCursor(QPixmap::fromImage(images.front()), bytes.at(kHotSpotX), bytes.at(kHotSpotY));
}

}  // namespace sorvex
