// Texts between the tables and Qt.
#pragma once

#include <QString>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/text.h"

namespace branok {

/// A text of the tables or of a file as it is shown.
inline QString To_Qt(std::string_view text) { return QString::fromStdString(To_Utf8(text)); }

/// A file name; Qt and the file system agree on its bytes.
inline QString Name_To_Qt(const std::filesystem::path& path) {
  return QString::fromStdString(path.string());
}
inline std::filesystem::path To_Path(const QString& name) { return name.toStdString(); }

}  // namespace branok
