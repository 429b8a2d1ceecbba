// SPDX-License-Identifier: MIT
// The registry's map as an INI file. Each value is a byte array: its type in 4 bytes (little-endian), then its content.
#include "platform/qt/stored_registry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtEndian>
#include <algorithm>

#include "base/runtime_error.h"
#include "platform/map_registry.h"
#include "platform/posix/write_whole_file.h"

namespace sorvex {
namespace {

constexpr Long kAccessDenied = 5;
constexpr qsizetype kTypeSize = sizeof(std::uint32_t);

QString FilePath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/sorvex/registry.ini");
}

constexpr char kHive[] = "HKEY_LOCAL_MACHINE/";

// True if the file does not exist yet or contains only registry values. Large files and files that are not regular,
// which could block, are not ours.
bool IsOurs(const QFileInfo& file) {
  if (!file.exists()) return !file.isSymLink();
  if (!file.isFile() || file.size() > 1 << 20) return false;
  if (file.size() == 0) return true;
  const QSettings settings(file.filePath(), QSettings::IniFormat);
  const QStringList entries = settings.allKeys();
  return settings.status() == QSettings::NoError && !entries.empty() &&
         std::ranges::all_of(entries, [](const QString& entry) { return entry.startsWith(QLatin1String(kHive)); });
}

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

// The content in INI format. QSettings writes it in a temporary folder, because it would otherwise wait indefinitely
// for its lock file beside the real file.
std::string TextOf(const MapRegistry::Content& content) {
  const QTemporaryDir folder;
  QFile file(folder.filePath(QStringLiteral("registry.ini")));
  {
    QSettings settings(file.fileName(), QSettings::IniFormat);
    for (const auto& [key, values] : content) {
      for (const auto& [name, value] : values) {
        QByteArray stored(kTypeSize, '\0');
        qToLittleEndian(value.type, stored.data());
        settings.setValue(QString::fromStdString(key).replace(u'\\', u'/') + u'/' + QString::fromStdString(name),
                          stored + QByteArray::fromStdString(value.bytes));
      }
    }
  }
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

Long Store(const QString& path, const MapRegistry::Content& content) {
  const std::string text = TextOf(content);
  if (text.empty()) return kAccessDenied;
  try {
    QDir().mkpath(QFileInfo(path).path());
    WriteWholeFile(QFile::encodeName(path).toStdString(), text);
    return 0;
  } catch (const RuntimeError&) {
    return kAccessDenied;
  }
}

}  // namespace

std::unique_ptr<Registry> MakeStoredRegistry() {
  const QString path = FilePath();
  if (!IsOurs(QFileInfo(path)))
    return std::make_unique<MapRegistry>(MapRegistry::Content{}, [](const auto&) { return kAccessDenied; });
  const QSettings settings(path, QSettings::IniFormat);
  return std::make_unique<MapRegistry>(Load(settings),
                                       [path](const MapRegistry::Content& content) { return Store(path, content); });
}

}  // namespace sorvex
