#include "paint/picture_file.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <array>
#include <cmath>

#include "core/numbers.h"
#include "core/safe_file.h"
#include "paint/painter_surface.h"

namespace branok {

namespace {

constexpr QLatin1StringView program("BRANOK");
constexpr double page_side = 200;  // mm
constexpr int page_resolution = 1200;
constexpr double most_pixels = 5e8;    // of a bitmap: 2 GB
constexpr int screen_resolution = 96;  // what viewers take a unit of an SVG drawing for

// In the order of Picture_Kind.
constexpr std::array<std::string_view, 4> suffixes = {".bmp", ".png", ".svg", ".pdf"};

[[noreturn]] void Fail(const std::filesystem::path& file, const std::string& why) {
  throw Run_Time_Error(file.string() + ": " + why);
}

QString Title_Of(const Picture_Page& page) { return QString::fromStdString(page.title); }

// Empty when there is no memory for it.
QImage Bitmap_Of(const Picture_Page& page) {
  const QSizeF pixels = QSizeF(page.size) * page.ratio;
  if (pixels.width() * pixels.height() > most_pixels) return {};
  QImage image(pixels.toSize(), QImage::Format_RGB32);
  if (image.isNull()) return image;
  image.setDevicePixelRatio(page.ratio);
  QPainter painter(&image);
  page.paint(painter);
  return image;
}

QByteArray Svg_Of(const Picture_Page& page) {
  QBuffer buffer;
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setResolution(screen_resolution);
  generator.setSize(page.size);
  generator.setViewBox(QRect(QPoint(0, 0), page.size));
  generator.setTitle(Title_Of(page));
  generator.setDescription(program);
  QPainter painter(&generator);
  page.paint(painter);
  painter.end();
  return buffer.data();
}

QByteArray Pdf_Of(const Picture_Page& page) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(page_resolution);
  const QSizeF paper = QSizeF(page.size).scaled(page_side, page_side, Qt::KeepAspectRatio);
  writer.setPageSize(QPageSize(paper, QPageSize::Millimeter));
  writer.setPageMargins({0, 0, 0, 0});
  writer.setTitle(Title_Of(page));
  writer.setCreator(program);
  QPainter painter(&writer);
  painter.setWindow(QRect(QPoint(0, 0), page.size));
  page.paint(painter);
  painter.end();
  return buffer.data();
}

void Write_Bytes(const std::filesystem::path& file, const QByteArray& bytes) {
  Write_Whole(file, {bytes.data(), static_cast<std::size_t>(bytes.size())});
}

void Write_Bitmap(const std::filesystem::path& file, const QImage& image, Picture_Kind kind) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  const char* format = kind == Picture_Kind::bmp ? "BMP" : "PNG";
  const bool done = image.convertToFormat(QImage::Format_RGB888).save(&buffer, format);
  if (!done) Fail(file, "not enough memory for the picture");
  Write_Bytes(file, buffer.data());
}

}  // namespace

Picture_Kind Picture_Kind_Of(const std::filesystem::path& file) {
  std::string suffix = file.extension().string();
  std::ranges::transform(suffix, suffix.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
  const auto* const found = std::ranges::find(suffixes, suffix);
  if (found == suffixes.end()) Fail(file, "a picture's name ends in .png, .svg, .pdf or .bmp");
  return static_cast<Picture_Kind>(found - suffixes.begin());
}

void Write_Page(const std::filesystem::path& file, const Picture_Page& page) {
  switch (const Picture_Kind kind = Picture_Kind_Of(file)) {
    case Picture_Kind::bmp:
    case Picture_Kind::png:
      return Write_Bitmap(file, Bitmap_Of(page), kind);
    case Picture_Kind::svg:
      return Write_Bytes(file, Svg_Of(page));
    case Picture_Kind::pdf:
      return Write_Bytes(file, Pdf_Of(page));
  }
}

void Write_Picture(const std::filesystem::path& file, const Painting& painting,
                   const Picture_Size& size) {
  const auto paint = [&](QPainter& painter) {
    const QRectF square(0, 0, size.units, size.units);
    painter.fillRect(square, Color_Of(painting.background));
    Painter_Surface surface(painter, square, size.ratio);
    painting.paint(surface);
  };
  Write_Page(file, {painting.title, {size.units, size.units}, size.ratio, paint});
}

}  // namespace branok
