// Pictures as files: what is in them when they are read back.
#include "paint/picture_file.h"

#include <gtest/gtest.h>

#include <QXmlStreamReader>

#include "core/numbers.h"
#include "core/safe_file.h"
#include "support/temporary_folder.h"

namespace branok {
namespace {

constexpr std::int32_t night = RGB(0, 0, 40);

// A red bar across the picture, a green circle and a number.
Painting Example() {
  return {"Mine A, plan", night, [](Surface& surface) {
            surface.PSet({0.1, 0.5}, RGB(255, 0, 0), 10);
            surface.Line({0.9, 0.5}, RGB(255, 0, 0), 10);
            surface.Circle({0.5, 0.5}, 0.2, RGB(0, 255, 0), 1);
            surface.Text({{0.2, 0.2}, 60, 0}, RGB(255, 255, 255), "42");
            surface.finish();
          }};
}

class Picture_File : public testing::Test {
 protected:
  [[nodiscard]] QImage read_back(const std::string& name) const {
    return QImage(QString::fromStdString((folder / name).string()));
  }
  Temporary_Folder folder;
};

TEST(Picture_Kinds, Come_From_The_Suffix_In_Any_Letters) {
  EXPECT_EQ(Picture_Kind_Of("a.bmp"), Picture_Kind::bmp);
  EXPECT_EQ(Picture_Kind_Of("dir.x/a.PNG"), Picture_Kind::png);
  EXPECT_EQ(Picture_Kind_Of("a.b.Svg"), Picture_Kind::svg);
  EXPECT_EQ(Picture_Kind_Of("/tmp/a.pdF"), Picture_Kind::pdf);
}

TEST(Picture_Kinds, Any_Other_Suffix_Is_Told_With_Those_That_There_Are) {
  for (const char* name : {"", "a", "a.", "png", ".png", "a.jpg", "a.png.", "a.pngx", "a.png/b"}) {
    try {
      Picture_Kind_Of(name);
      ADD_FAILURE() << name;
    } catch (const Run_Time_Error& error) {
      EXPECT_EQ(std::string(error.what()),
                std::string(name) + ": a picture's name ends in .png, .svg, .pdf or .bmp");
    }
  }
}

TEST_F(Picture_File, Bitmaps_Have_Their_Size_And_Pixels) {
  for (const char* name : {"a.bmp", "a.png"}) {
    Write_Picture(folder / name, Example());
    const QImage image = read_back(name);
    ASSERT_EQ(image.size(), QSize(2000, 2000)) << name;
    EXPECT_FALSE(image.hasAlphaChannel());
    EXPECT_EQ(image.pixelColor(0, 0), QColor(0, 0, 40));
    EXPECT_EQ(image.pixelColor(1999, 1999), QColor(0, 0, 40));
    EXPECT_EQ(image.pixelColor(1000, 1000), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(190, 1000), QColor(0, 0, 40));
    EXPECT_EQ(image.pixelColor(1000, 1009), QColor(255, 0, 0));  // ten units: twenty pixels
    EXPECT_EQ(image.pixelColor(1000, 1011), QColor(0, 0, 40));
    EXPECT_GT(image.pixelColor(1000, 600).green(), 200);
  }
}

TEST_F(Picture_File, A_Bmp_Has_24_Bits_A_Pixel) {
  Write_Picture(folder / "a.bmp", Example(), {.units = 100, .ratio = 1});
  const std::string bytes = Read_Whole(folder / "a.bmp");
  EXPECT_EQ(bytes.substr(0, 2), "BM");
  EXPECT_EQ(bytes[28], 24);
  EXPECT_EQ(bytes.size(), 54U + 100 * 300);
}

TEST_F(Picture_File, Size_And_Ratio_Are_The_Callers) {
  Write_Picture(folder / "a.png", Example(), {.units = 300, .ratio = 1.5});
  EXPECT_EQ(read_back("a.png").size(), QSize(450, 450));
}

TEST_F(Picture_File, The_Same_Picture_Is_The_Same_File) {
  for (const char* suffix : {".bmp", ".png", ".svg"}) {
    Write_Picture(folder / (std::string("a") + suffix), Example());
    Write_Picture(folder / (std::string("b") + suffix), Example());
    EXPECT_TRUE(Read_Whole(folder / (std::string("a") + suffix)) ==
                Read_Whole(folder / (std::string("b") + suffix)));
  }
}

TEST_F(Picture_File, An_Svg_Holds_Lines_Circles_And_Texts) {
  Write_Picture(folder / "a.svg", Example());
  QXmlStreamReader xml(QString::fromStdString(Read_Whole(folder / "a.svg")));
  QString title;
  QString view_box;
  QStringList lines;
  QStringList texts;
  int circles = 0;
  int bitmaps = 0;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    const auto name = xml.name();
    if (name == u"svg") view_box = xml.attributes().value("viewBox").toString();
    if (name == u"title") title = xml.readElementText();
    if (name == u"polyline") lines << xml.attributes().value("points").toString().trimmed();
    if (name == u"circle" || name == u"ellipse") ++circles;
    if (name == u"image") ++bitmaps;
    if (name == u"text") texts << xml.readElementText().trimmed();
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  EXPECT_EQ(title, "Mine A, plan");
  EXPECT_EQ(view_box, "0 0 1000 1000");
  EXPECT_EQ(lines, QStringList{"100,500 900,500"});
  EXPECT_EQ(texts, QStringList{"42"});
  EXPECT_EQ(circles, 1);
  EXPECT_EQ(bitmaps, 0);
}

TEST_F(Picture_File, A_Pdf_Is_One_Square_Page_Without_Bitmaps) {
  Write_Picture(folder / "a.pdf", Example());
  const std::string pdf = Read_Whole(folder / "a.pdf");
  EXPECT_TRUE(pdf.starts_with("%PDF"));
  EXPECT_NE(pdf.find("/MediaBox [0 0 567.000000 567.000000]"), std::string::npos);
  EXPECT_NE(pdf.find("/Count 1"), std::string::npos);
  EXPECT_EQ(pdf.find("/Subtype /Image"), std::string::npos);
  EXPECT_NE(pdf.find("/Title"), std::string::npos);
}

TEST_F(Picture_File, A_File_That_Cannot_Be_Written_Is_Told_With_The_Reason) {
  for (const char* name : {"none/a.bmp", "none/a.png", "none/a.svg", "none/a.pdf"}) {
    try {
      Write_Picture(folder / name, Example());
      ADD_FAILURE() << name;
    } catch (const Run_Time_Error& error) {
      EXPECT_EQ(std::string(error.what()),
                (folder / "none").string() + ": No such file or directory");
    }
  }
  EXPECT_EQ(folder.count(), 0);
}

TEST_F(Picture_File, A_Bitmap_Beyond_All_Memory_Is_Told) {
  EXPECT_THROW(Write_Picture(folder / "a.png", Example(), {.units = 1000000, .ratio = 2}),
               Run_Time_Error);
  EXPECT_EQ(folder.count(), 0);
}

TEST_F(Picture_File, An_Old_File_Is_Replaced_Whole) {
  Write_Whole(folder / "a.png", "old");
  EXPECT_THROW(Write_Picture(folder / "a.gif", Example()), Run_Time_Error);
  EXPECT_EQ(Read_Whole(folder / "a.png"), "old");
  Write_Picture(folder / "a.png", Example());
  EXPECT_FALSE(read_back("a.png").isNull());
  EXPECT_EQ(folder.count(), 1);
}

TEST_F(Picture_File, A_Page_Has_The_Proportions_Of_A_Window) {
  const auto paint = [](QPainter& painter) {
    painter.fillRect(0, 0, 300, 200, QColor(10, 20, 30));
    painter.fillRect(150, 100, 10, 10, QColor(200, 100, 50));
  };
  const Picture_Page page{"Mine A", {300, 200}, 2, paint};
  for (const char* name : {"a.bmp", "a.png"}) {
    Write_Page(folder / name, page);
    const QImage image = read_back(name);
    EXPECT_EQ(image.size(), QSize(600, 400)) << name;
    EXPECT_EQ(image.pixelColor(310, 210), QColor(200, 100, 50)) << name;
    EXPECT_EQ(image.pixelColor(599, 399), QColor(10, 20, 30)) << name;
  }
  Write_Page(folder / "a.svg", page);
  EXPECT_NE(Read_Whole(folder / "a.svg").find("viewBox=\"0 0 300 200\""), std::string::npos);
  Write_Page(folder / "a.pdf", page);
  EXPECT_NE(Read_Whole(folder / "a.pdf").find("/MediaBox [0 0 567.000000 378.000000]"),
            std::string::npos);
  EXPECT_THROW(Write_Page(folder / "a.jpg", page), Run_Time_Error);
  EXPECT_EQ(folder.count(), 4);
}

}  // namespace
}  // namespace branok
