#include "ui/about_dialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/dialogue.h"
#include "ui/icon.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr int icon_size = 96;
constexpr int text_width = 44;  // characters

QLabel* Line(const QString& name, const QString& text, QWidget* parent) {
  auto* const label = new QLabel(text, parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setWordWrap(true);
  label->setMinimumWidth(text_width * label->fontMetrics().averageCharWidth());
  return label;
}

QLabel* Name_Line(QWidget* parent) {
  QLabel* const label = Line("lblName", "BRANOK", parent);
  QFont font = label->font();
  font.setPointSizeF(1.8 * font.pointSizeF());
  font.setBold(true);
  label->setFont(font);
  return label;
}

}  // namespace

DlgAbout::DlgAbout(QWidget* parent) : QDialog(parent) {
  setObjectName("DlgAbout");
  setWindowTitle(To_Qt(program_title));

  auto* const icon = new QLabel(this);
  icon->setObjectName("imgIcon");
  icon->setPixmap(Icon_Of("branok").pixmap(QSize(icon_size, icon_size), devicePixelRatioF()));
  icon->setAlignment(Qt::AlignTop);

  auto* const texts = new QVBoxLayout;
  texts->addWidget(Name_Line(this));
  texts->addWidget(Line("lblVersion", "Version " BRANOK_VERSION, this));
  texts->addSpacing(12);
  texts->addWidget(
      Line("lblPurpose",
           "Airflow, temperature and humidity in the ventilation of underground mines.", this));
  texts->addWidget(Line("lblLicence",
                        "Free software under the GNU General Public License, version 3 or later. "
                        "It comes without any warranty.",
                        this));
  texts->addStretch();

  auto* const head = new QHBoxLayout;
  head->setSpacing(20);
  head->addWidget(icon);
  head->addLayout(texts, 1);

  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  QPushButton* const ok = buttons->button(QDialogButtonBox::Ok);
  ok->setObjectName("cmdOK");
  ok->setDefault(true);
  ok->setFocus();
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(20, 20, 20, 16);
  layout->setSpacing(16);
  layout->addLayout(head);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace branok
