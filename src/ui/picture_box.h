// The list of the picture files of one thing: three names, each of which can be chosen and typed.
#pragma once

#include <QComboBox>
#include <array>
#include <string>

#include "core/database.h"

namespace branok {

class Picture_Box : public QComboBox {
  Q_OBJECT
 public:
  explicit Picture_Box(const QString& name, QWidget* parent = nullptr);

  using Names = std::array<std::string, max_pictures>;
  /// Lists the names of a thing; the chosen place of the three stays.
  void show_names(const Names& names);
  /// There is nothing whose pictures could be named.
  void show_none();

  /// Ends what is being typed, as leaving the box does.
  void finish();

 signals:
  /// The name of a picture, 1 to 3, has changed while it is typed.
  void renamed(int slot, const QString& name);
  /// A name that was changed is done.
  void edited();

 private:
  void take_text(const QString& text);

  bool typed_ = false;
};

}  // namespace branok
