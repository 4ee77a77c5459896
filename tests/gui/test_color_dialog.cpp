// The colours of the pictures on the screen.
#include <QColorDialog>
#include <QComboBox>

#include "dialog_test.h"
#include "paint/painter_surface.h"
#include "ui/color_dialog.h"
#include "user.h"

namespace branok {
namespace {

class Color_Dialog : public Dialog_Test<DlgColor> {
 protected:
  Color_Dialog() {
    for (std::size_t k = 1; k < colors.size(); ++k) colors[k] = RGB(10 * static_cast<int>(k), 5, 9);
  }
  void open(Color_Set set = Color_Set::graphic) {
    user.reset();  // who would answer this dialog as well
    show(colors, set);
    user = std::make_unique<User>();
  }
  QComboBox& rows() { return control<QComboBox>("cboColor"); }
  // What a control shows in its middle.
  QColor seen(const QString& name) {
    const QImage image = control<QWidget>(name).grab().toImage();
    return image.pixelColor(image.width() / 2, image.height() / 2);
  }
  // The chooser that comes up is given a colour and answered.
  void choose_next(const QColor& color, bool ok = true) {
    user->dialogs.push_back([color, ok](QDialog& box) {
      auto& chooser = dynamic_cast<QColorDialog&>(box);
      chooser.setCurrentColor(color);
      if (ok) {
        chooser.accept();
      } else {
        chooser.reject();
      }
    });
  }

  std::unique_ptr<User> user;
  Color_Copy colors{};
};

TEST_F(Color_Dialog, Lists_The_Rows_Of_Its_Picture) {
  for (const Color_Set set : {Color_Set::graphic, Color_Set::cad}) {
    open(set);
    EXPECT_TRUE(dialog->isModal());
    QStringList captions;
    for (const auto caption : Color_Captions(set)) {
      captions << QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size()));
    }
    ASSERT_EQ(rows().count(), captions.size());
    for (int row = 0; row < rows().count(); ++row) EXPECT_EQ(rows().itemText(row), captions[row]);
    EXPECT_EQ(dialog->windowTitle(),
              set == Color_Set::cad ? "CAD Color Setting" : "Graphic Color Setting");
  }
  EXPECT_FALSE(rows().accessibleName().isEmpty());
  EXPECT_EQ(control<QAbstractButton>("cmdColor").text(), "Setting...");
  EXPECT_EQ(control<QAbstractButton>("cmdDefault").text(), "&Default");
  EXPECT_EQ(control<QAbstractButton>("cmdMono").text(), "&Mono");
}

TEST_F(Color_Dialog, Shows_The_Colour_Of_The_Row_That_The_Keyboard_Reaches) {
  open();
  rows().setFocus();
  for (int row = 0; row < rows().count(); ++row) {
    EXPECT_EQ(rows().currentIndex(), row);
    EXPECT_EQ(seen("lblColor"), Color_Of(colors.at(static_cast<std::size_t>(row) + 1)));
    key(Qt::Key_Down);
  }
}

TEST_F(Color_Dialog, Each_Colour_Can_Be_Set) {
  for (const Color_Set set : {Color_Set::graphic, Color_Set::cad}) {
    open(set);
    Color_Copy expected = colors;
    for (int row = 0; row < rows().count(); ++row) {
      rows().setCurrentIndex(row);
      choose_next(QColor(1, 2, 100 + row));
      press("cmdColor");
      expected.at(static_cast<std::size_t>(row) + 1) = RGB(1, 2, 100 + row);
      EXPECT_EQ(seen("lblColor"), QColor(1, 2, 100 + row));
    }
    EXPECT_EQ(user->dialogs_seen.back(), "cmmnClr");
    press("cmdOK");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(dialog->colors(), expected);
  }
}

TEST_F(Color_Dialog, The_Sample_Opens_The_Chooser_By_Click_And_By_Keyboard) {
  open();
  choose_next(Qt::red);
  press("lblColor");
  EXPECT_EQ(dialog->colors()[1], RGB(255, 0, 0));
  control<QWidget>("lblColor").setFocus();
  choose_next(Qt::green);
  key(Qt::Key_Space);
  EXPECT_EQ(dialog->colors()[1], RGB(0, 255, 0));
}

TEST_F(Color_Dialog, The_Chooser_Begins_With_The_Present_Colour_And_Its_Cancel_Keeps_It) {
  open();
  rows().setCurrentIndex(4);
  QColor first;
  user->look = [&](QWidget& box) { first = dynamic_cast<QColorDialog&>(box).currentColor(); };
  choose_next(Qt::red, false);
  press("cmdColor");
  EXPECT_EQ(first, Color_Of(colors[5]));
  EXPECT_EQ(dialog->colors(), colors);
}

TEST_F(Color_Dialog, Mono_Is_Black_On_White) {
  open();
  press("cmdMono");
  for (std::size_t k = 1; k < 14; ++k) {
    const std::int32_t expected = k == 10 || k == 13 ? RGB(255, 255, 255) : 0;
    EXPECT_EQ(dialog->colors().at(k), expected) << k;
  }
  EXPECT_EQ(seen("lblColor"), QColor(Qt::black));
}

TEST_F(Color_Dialog, Default_Comes_Back_By_Its_Key) {
  open();
  key(Qt::Key_M, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return dialog->colors() == Mono_Colors(); }));
  key(Qt::Key_D, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return dialog->colors() == Default_Colors(); }));
  EXPECT_EQ(seen("lblColor"), QColor(0, 255, 255));
  EXPECT_TRUE(dialog->isVisible());
}

TEST_F(Color_Dialog, Cancel_And_Escape_Say_So) {
  for (const bool escape : {false, true}) {
    open();
    press("cmdMono");
    if (escape) {
      key(Qt::Key_Escape);
    } else {
      press("cmdCancel");
    }
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(dialog->isVisible());
  }
}

TEST_F(Color_Dialog, The_Sample_Is_Drawn_In_The_Colours) {
  open();
  press("cmdDefault");
  const auto corner = [this] {
    const QImage image = control<QWidget>("picSample").grab().toImage();
    return image.pixelColor(2, 2);
  };
  EXPECT_EQ(corner(), QColor(0, 0, 0));
  rows().setCurrentIndex(12);
  EXPECT_EQ(corner(), QColor(128, 128, 128));
  press("cmdMono");
  EXPECT_EQ(corner(), QColor(255, 255, 255));
}

TEST_F(Color_Dialog, The_Keyboard_Goes_Through_All_Controls) {
  open();
  rows().setFocus();
  EXPECT_EQ(tab_order(), QStringList({"cboColor", "lblColor", "cmdColor", "cmdDefault", "cmdMono",
                                      "cmdOK", "cmdCancel"}));
  rows().setFocus();
  key(Qt::Key_Return);
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

}  // namespace
}  // namespace branok
