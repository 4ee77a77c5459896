// Pictures as files: bitmaps, and drawings (SVG, PDF) that stay sharp at every size.
#pragma once

#include <QPainter>
#include <QSize>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "drawing/surface.h"

namespace branok {

/// What a picture shows. Texts need a QGuiApplication, of whatever platform.
struct Painting {
  std::string title;            ///< UTF-8; drawings tell it to their viewer
  std::int32_t background = 0;  ///< 0x00BBGGRR
  std::function<void(Surface&)> paint;
};

/// The unit square's side in pen widths, and how many pixels of a bitmap stand for one of these:
/// large enough for numbers of nodes to be read.
struct Picture_Size {
  int units = 1000;
  double ratio = 2;
};

/// Anything that is painted: a picture's part as a window shows it, say.
struct Picture_Page {
  std::string title;  ///< UTF-8
  QSize size;         ///< in pen widths; the painter's coordinates go from 0 to it
  double ratio = 2;   ///< pixels of a bitmap for one of these
  std::function<void(QPainter&)> paint;
};

enum class Picture_Kind { bmp, png, svg, pdf };

/// What the file's suffix, in capitals or not, says. Raises Run_Time_Error, with the suffixes that
/// there are, for any other.
Picture_Kind Picture_Kind_Of(const std::filesystem::path& file);

/// Writes the picture in the kind of the file's suffix: a bitmap of 24 bits a pixel without
/// transparency, an SVG drawing, or a PDF page of 200 mm by 200 mm. Raises Run_Time_Error, with the
/// reason, when it cannot be written; an old file is then untouched.
void Write_Picture(const std::filesystem::path& file, const Painting& painting,
                   const Picture_Size& size = {});

/// The same for a page of any proportions; the longer side of a PDF page is 200 mm.
void Write_Page(const std::filesystem::path& file, const Picture_Page& page);

}  // namespace branok
