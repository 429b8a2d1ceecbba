// SPDX-License-Identifier: MIT
// The registry's map in an INI file, a byte array for each value: its type in 4 bytes, then its own bytes.
#include "platform/qt/stored_registry.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QtEndian>

#include "platform/map_registry.h"

namespace sorvex {
namespace {

constexpr Long kAccessDenied = 5;
constexpr qsizetype kTypeSize = sizeof(std::uint32_t);

QString FilePath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/sorvex/registry.ini");
}

// What is no plain file would have to be waited for, and ours is small.
bool IsReadable(const QFileInfo& file) { return !file.exists() || (file.isFile() && file.size() <= 1 << 20); }

MapRegistry::Content Load(const QSettings& settings) {
  MapRegistry::Content content;
  for (const QString& entry : settings.allKeys()) {
    const QByteArray stored = settings.value(entry).toByteArray();
    const qsizetype slash = entry.lastIndexOf(u'/');
    if (slash < 0 || stored.size() < kTypeSize) continue;
    const std::string key = entry.left(slash).replace(u'/', u'\\').toStdString();
    content[key][entry.mid(slash + 1).toStdString()] = {qFromLittleEndian<std::uint32_t>(stored.constData()),
                                                        stored.mid(kTypeSize).toStdString()};
  }
  return content;
}

Long Store(const QString& path, const MapRegistry::Content& content) {
  QSettings settings(path, QSettings::IniFormat);
  for (const auto& [key, values] : content) {
    for (const auto& [name, value] : values) {
      QByteArray stored(kTypeSize, '\0');
      qToLittleEndian(value.type, stored.data());
      settings.setValue(QString::fromStdString(key).replace(u'\\', u'/') + u'/' + QString::fromStdString(name),
                        stored + QByteArray::fromStdString(value.bytes));
    }
  }
  settings.sync();
  return settings.status() == QSettings::NoError ? 0 : kAccessDenied;
}

}  // namespace

std::unique_ptr<Registry> MakeStoredRegistry() {
  const QString path = FilePath();
  const auto denied = [](const MapRegistry::Content&) { return kAccessDenied; };
  if (!IsReadable(QFileInfo(path))) return std::make_unique<MapRegistry>(MapRegistry::Content{}, denied);
  const QSettings settings(path, QSettings::IniFormat);
  if (settings.status() != QSettings::NoError) return std::make_unique<MapRegistry>(MapRegistry::Content{}, denied);
  return std::make_unique<MapRegistry>(Load(settings),
                                       [path](const MapRegistry::Content& content) { return Store(path, content); });
}

}  // namespace sorvex
