#include "ui/status_bar.h"

#include <QLocale>
#include <QTime>
#include <QTimerEvent>

#include "ui/lock_keys.h"
#include "ui/qt_text.h"

namespace branok {

namespace {
constexpr int clock_period = 1000;  // ms
constexpr int longest_file = 40;    // characters
}  // namespace

std::string Results_Text(const Database& db, const std::string& outdated) {
  if (db.Node_Total == 0) return "No mine open";
  std::string text = "No results";
  if (db.Flag_Results != 0) {
    text = "Results: ";
    if (db.Flag_Annual == 1) {
      text += "Annual";
    } else if (db.Flag_Season == 1) {
      text += Trim(Season_Of(db));
    } else {
      text += "Flow";
    }
  }
  if (!outdated.empty()) text += ", out of date: " + outdated;
  return text;
}

Status_Bar::Status_Bar(QWidget* parent) : QStatusBar(parent) {
  setObjectName("stbBRANOK");
  remark_ = new QLabel(this);
  remark_->setObjectName("stbRemark");
  remark_->setTextFormat(Qt::PlainText);
  addWidget(remark_, 1);
  mine_ = field("stbMine", "Name of the mine");
  file_ = field("stbFile", "Data file of the mine");
  results_ = field("stbResults", "What the results are of");
  caps_ = field("stbCaps", "Caps Lock");
  num_ = field("stbNum", "Num Lock");
  time_ = field("stbTime", "Time");
  caps_->setText("CAPS");
  num_->setText("NUM");
  show_keyboard();
  show_time();
  clock_.start(clock_period, this);
}

QLabel* Status_Bar::field(const char* name, const QString& tip) {
  auto* const label = new QLabel(this);
  label->setObjectName(name);
  label->setToolTip(tip);
  label->setTextFormat(Qt::PlainText);
  label->setContentsMargins(4, 0, 4, 0);
  addPermanentWidget(label);
  return label;
}

void Status_Bar::show_remark(const QString& text) {
  if (text.isEmpty() || remarks_.contains(text)) return;
  remarks_ << text;
  remark_->setToolTip(remarks_.join('\n'));
  const QString more = remarks_.size() > 1 ? QString(" (+%1)").arg(remarks_.size() - 1) : QString();
  // A long remark is cut at the end; the tool tip has all of it.
  remark_->setMinimumWidth(1);
  remark_->setText(remarks_.first() + more);
}

void Status_Bar::clear_remarks() {
  remarks_.clear();
  remark_->clear();
  remark_->setToolTip({});
}

void Status_Bar::show_mine(const Database& db, const std::filesystem::path& file,
                           const std::string& outdated) {
  mine_->setText(To_Qt(Trim(db.Mine_Name)));
  file_name_ = file.empty() ? QString("not saved") : Name_To_Qt(file);
  file_->setToolTip(file_name_);
  fit_file();
  results_->setText(To_Qt(Results_Text(db, outdated)));
}

// The end of a long file name tells more than its beginning.
void Status_Bar::fit_file() {
  const int width = fontMetrics().averageCharWidth() * longest_file;
  file_->setText(
      fontMetrics().elidedText(file_name_, Qt::ElideLeft, std::min(width, this->width() / 3)));
}

void Status_Bar::show_keyboard() {
  const Lock_Keys keys = Read_Lock_Keys();
  caps_->setEnabled(keys.caps);
  num_->setEnabled(keys.num);
}

void Status_Bar::show_time() { time_->setText(QLocale().toString(QTime::currentTime(), "HH:mm")); }

void Status_Bar::timerEvent(QTimerEvent* event) {
  if (event->timerId() != clock_.timerId()) return;
  show_time();
  show_keyboard();
}

void Status_Bar::resizeEvent(QResizeEvent* event) {
  QStatusBar::resizeEvent(event);
  fit_file();
}

}  // namespace branok
