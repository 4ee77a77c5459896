#include "ui/icon.h"

#include <QFile>

// The icons are compiled into a static library, which the linker would leave out unasked. The macro
// must stand outside of any namespace.
static void Load_Icons() { Q_INIT_RESOURCE(ui); }

namespace branok {

QIcon Icon_Of(std::string_view name) {
  Load_Icons();
  const QString file =
      QString(":/icons/%1.svg")
          .arg(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
  return !name.empty() && QFile::exists(file) ? QIcon(file) : QIcon();
}

}  // namespace branok
