// Pictures from the command line: what is drawn, what is told, what stays as it was.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <QImage>
#include <filesystem>

#include "batch/commands.h"
#include "core/database.h"
#include "core/safe_file.h"
#include "files/ver6.h"
#include "run_batch.h"
#include "support/generated_mine.h"
#include "support/temporary_folder.h"

namespace branok {
namespace {

const std::string mine_a = BRANOK_TEST_DATA "/DATA/mine-a.abk";

class Batch_Pictures : public testing::Test {
 protected:
  // Nobody's wishes for a display matter here.
  static void SetUpTestSuite() { ::setenv("QT_QPA_PLATFORM", "no such platform", 1); }

  [[nodiscard]] std::string path(const std::string& name) const { return (folder / name).string(); }

  [[nodiscard]] QImage image(const std::string& name) const {
    return QImage(QString::fromStdString(path(name)));
  }

  // The picture that these steps, then a picture in that view, make of the mine.
  QImage drawn(std::vector<std::string> words, const std::string& view = "2dh") {
    words.insert(words.begin(), mine_a);
    words.insert(words.end(), {"--picture", view, path("drawn.bmp")});
    EXPECT_EQ(Batch(words).exit, Exit::done);
    return image("drawn.bmp");
  }

  std::string file_of(const Database& db) const {
    Write_Whole(path("mine.abk"), Ver6_Text(db, {}));
    return path("mine.abk");
  }

  Temporary_Folder folder;
};

// How many pixels of a bitmap have exactly this colour.
int Count(const QImage& image, QColor color) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == color ? 1 : 0;
  }
  return count;
}

TEST_F(Batch_Pictures, EveryViewAndEveryKind) {
  const Outcome o =
      Batch({mine_a, "--flow", "--picture", "2dh", path("a.png"), "--picture", "2dew",
             path("a.SVG"), "--picture", "2dns", path("a.pdf"), "--picture", "cad", path("a.bmp")});
  EXPECT_EQ(o.exit, Exit::done);
  EXPECT_NE(o.out.find("Wrote picture 2dh to " + path("a.png") + '\n'), std::string::npos) << o.out;
  EXPECT_NE(o.out.find("Wrote picture cad to " + path("a.bmp") + '\n'), std::string::npos);
  EXPECT_EQ(folder.count(), 4);
  for (const char* name : {"a.png", "a.bmp"}) {
    const QImage picture = image(name);
    EXPECT_EQ(picture.size(), QSize(2000, 2000)) << name;
    // Background, airways, circles of nodes, numbers.
    for (const QColor color : {QColor(0, 0, 0), QColor(255, 255, 255), QColor(0, 255, 255),
                               QColor(255, 255, 0), QColor(0, 0, 128)}) {
      EXPECT_GT(Count(picture, color), 50) << name << ' ' << color.name().toStdString();
    }
  }
  EXPECT_NE(Read_Whole(path("a.SVG")).find("<title>Mine A, E-W section</title>"),
            std::string::npos);
  EXPECT_TRUE(Read_Whole(path("a.pdf")).starts_with("%PDF"));
}

TEST_F(Batch_Pictures, NothingButThePicturesOwnMessagesComesOnStandardError) {
  EXPECT_EQ(Batch({mine_a, "--picture", "2dh", path("a.png")}).err, "");
}

TEST_F(Batch_Pictures, TheViewsDiffer) {
  const QImage plan = drawn({});
  EXPECT_NE(drawn({}, "2dew"), plan);
  EXPECT_NE(drawn({}, "2dns"), plan);
  EXPECT_NE(drawn({}, "2dns"), drawn({}, "2dew"));
  EXPECT_NE(drawn({}, "cad"), plan);
  EXPECT_EQ(drawn({}), plan);
}

TEST_F(Batch_Pictures, ResultsAreSeen) { EXPECT_NE(drawn({"--flow"}), drawn({})); }

TEST_F(Batch_Pictures, NodalInformation) {
  const QImage none = drawn({});
  EXPECT_EQ(drawn({"--info", "none"}), none);
  const QImage level = drawn({"--info", "level"});
  const QImage sn = drawn({"--info", "sn"});
  const QImage ew = drawn({"--info", "ew"});
  EXPECT_NE(level, none);
  EXPECT_NE(sn, none);
  EXPECT_NE(sn, level);
  EXPECT_NE(ew, sn);
  EXPECT_NE(ew, level);
  // A word of the other list leaves this one alone, and the last word of a list counts.
  EXPECT_EQ(drawn({"--info", "level", "--info", "flow"}), level);
  EXPECT_EQ(drawn({"--info", "flow"}), none);
  EXPECT_EQ(drawn({"--info", "level", "--info", "sn"}), sn);
  EXPECT_EQ(drawn({"--info", "level", "--info", "none"}), none);
}

TEST_F(Batch_Pictures, AirwayInformation) {
  const std::vector<std::string> runs = {"--flow", "--annual"};
  const auto cad = [&](std::vector<std::string> words) {
    words.insert(words.begin(), runs.begin(), runs.end());
    return drawn(words, "cad");
  };
  std::vector<QImage> pictures = {cad({})};
  for (const char* word : {"resistance", "flow", "temperature", "friction", "note"}) {
    pictures.push_back(cad({"--info", word}));
  }
  for (std::size_t a = 0; a < pictures.size(); ++a) {
    for (std::size_t b = 0; b < a; ++b) EXPECT_NE(pictures[a], pictures[b]) << a << ' ' << b;
  }
  EXPECT_EQ(cad({"--info", "level"}), pictures[0]);
  EXPECT_EQ(cad({"--info", "flow", "--info", "none"}), pictures[0]);
}

TEST_F(Batch_Pictures, InformationAndMarksHoldForThePicturesThatFollow) {
  EXPECT_EQ(
      Batch({mine_a,      "--picture", "2dh",         path("1.bmp"), "--info",      "level",
             "--picture", "2dh",       path("2.bmp"), "--picture",   "2dh",         path("3.bmp"),
             "--marks",   "off",       "--picture",   "2dh",         path("4.bmp"), "--marks",
             "on",        "--info",    "none",        "--picture",   "2dh",         path("5.bmp")})
          .exit,
      Exit::done);
  EXPECT_NE(image("1.bmp"), image("2.bmp"));
  EXPECT_EQ(image("2.bmp"), image("3.bmp"));
  EXPECT_NE(image("3.bmp"), image("4.bmp"));
  EXPECT_EQ(image("5.bmp"), image("1.bmp"));
}

TEST_F(Batch_Pictures, WithoutMarksThereAreAirwaysAndGridOnly) {
  for (const char* view : {"2dew", "cad"}) {
    const QImage picture = drawn({"--flow", "--marks", "off"}, view);
    EXPECT_GT(Count(picture, QColor(255, 255, 255)), 50) << view;
    for (const QColor color : {QColor(0, 255, 255), QColor(255, 255, 0), QColor(0, 255, 0)}) {
      EXPECT_EQ(Count(picture, color), 0) << view << ' ' << color.name().toStdString();
    }
  }
}

TEST_F(Batch_Pictures, APictureLeavesTheMineAsItIs) {
  Batch({mine_a, "--flow", "--save", path("without.abk")});
  Batch({mine_a, "--flow", "--picture", "cad", path("a.png"), "--picture", "2dns", path("b.png"),
         "--save", path("with.abk")});
  EXPECT_TRUE(Read_Whole(path("with.abk")) == Read_Whole(path("without.abk")));
}

TEST_F(Batch_Pictures, AMinesOwnDrawingIsShown) {
  Database db = Make_Mine({.nodes = 5, .inlets = 1});
  db.Flag_Cad = -1;
  for (int i = 1; i <= db.Node_Total; ++i) {
    db.Node_CadX[i] = i % 2 == 0 ? 0.1F : 0.9F;
    db.Node_CadY[i] = 0.1F + 0.2F * static_cast<float>(i - 1);
  }
  const std::string own = file_of(db);
  const Outcome o = Batch({own, "--picture", "cad", path("own.bmp")});
  EXPECT_EQ(o.exit, Exit::done);
  EXPECT_EQ(o.err, "");  // nothing is generated
  db.Flag_Cad = 0;
  EXPECT_EQ(Batch({file_of(db), "--picture", "cad", path("made.bmp")}).exit, Exit::done);
  EXPECT_NE(image("own.bmp"), image("made.bmp"));
}

TEST_F(Batch_Pictures, WrongWordsAreSeenBeforeAnythingRuns) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> wrong = {
      {{"--picture"}, "--picture needs two values: 2dh|2dew|2dns|cad FILE.(png|svg|pdf|bmp)"},
      {{"--picture", "2dh"}, "--picture needs two values"},
      {{"--picture", "3d", "x.png"}, "--picture takes 2dh, 2dew, 2dns or cad, not '3d'"},
      {{"--picture", "x.png", "2dh"}, "not 'x.png'"},
      {{"--picture", "2DH", "x.png"}, "not '2DH'"},
      {{"--picture", "2dh", "x.gif"},
       "--picture: x.gif: a picture's name ends in .png, .svg, .pdf or .bmp"},
      {{"--picture", "2dh", "x"}, "a picture's name ends in"},
      {{"--picture", "2dh", ""}, "a picture's name ends in"},
      {{"--picture", "2dh", "--quiet"}, "a picture's name ends in"},
      {{"--info"}, "--info needs a value: none|"},
      {{"--info", "flows"}, "not 'flows'"},
      {{"--info", ""}, "--info takes none, resistance,"},
      {{"--marks"}, "--marks needs a value: on|off"},
      {{"--marks", "yes"}, "--marks takes 'on' or 'off', not 'yes'"},
  };
  for (const auto& [words, told] : wrong) {
    std::vector<std::string> all = {mine_a, "--flow", "--save", path("saved.abk")};
    all.insert(all.end(), words.begin(), words.end());
    const Outcome o = Batch(all);
    EXPECT_EQ(o.exit, Exit::wrong_usage) << told;
    EXPECT_EQ(o.out, "");
    EXPECT_NE(o.err.find(told), std::string::npos) << o.err;
    EXPECT_NE(o.err.find("Try 'branok-batch --help'."), std::string::npos);
  }
  EXPECT_EQ(folder.count(), 0);
}

TEST_F(Batch_Pictures, AFileThatCannotBeWritten) {
  const std::string file = path("none/a.png");
  const Outcome o = Batch({mine_a, "--picture", "2dh", file, "--save", path("saved.abk")});
  EXPECT_EQ(o.exit, Exit::file_failed);
  EXPECT_NE(o.err.find("none: No such file or directory"), std::string::npos) << o.err;
  EXPECT_EQ(o.out, "");
  EXPECT_EQ(folder.count(), 0);
  std::filesystem::create_directory(folder / "a.svg");
  EXPECT_EQ(Batch({mine_a, "--picture", "2dh", path("a.svg")}).exit, Exit::file_failed);
}

TEST_F(Batch_Pictures, AMineAtOnePointHasNoPlan) {
  Database db = Make_Mine({.nodes = 5, .inlets = 1});
  for (int i = 1; i <= db.Node_Total; ++i) db.Node_EW[i] = db.Node_SN[i] = db.Node_Elev[i] = 70;
  const std::string mine = file_of(db);
  for (const char* view : {"2dh", "2dew", "2dns"}) {
    const Outcome o = Batch({mine, "--picture", view, path("a.png"), "--save", path("b.abk")});
    EXPECT_EQ(o.exit, Exit::run_failed) << view;
    EXPECT_EQ(o.err, std::string("branok-batch: no picture ") + view +
                         ": all connected nodes lie at one point\n");
    EXPECT_EQ(o.out, "");
  }
  EXPECT_EQ(folder.count(), 1);
  // A schematic of it can still be drawn.
  EXPECT_EQ(Batch({mine, "--picture", "cad", path("a.png")}).exit, Exit::done);
}

TEST_F(Batch_Pictures, AMineWithoutAirwaysHasNoPicture) {
  Database db;
  Reset_Database(db);
  const std::string mine = file_of(db);
  ASSERT_EQ(Batch({mine}).exit, Exit::done);
  for (const char* view : {"2dh", "cad"}) {
    const Outcome o = Batch({mine, "--picture", view, path("a.png")});
    EXPECT_EQ(o.exit, Exit::run_failed);
    EXPECT_NE(o.err.find("the mine has no airways"), std::string::npos) << o.err;
  }
}

}  // namespace
}  // namespace branok
