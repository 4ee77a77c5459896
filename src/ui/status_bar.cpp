#include "ui/status_bar.h"

#include <QLocale>
#include <QMouseEvent>
#include <QTime>
#include <QTimerEvent>
#include <QToolTip>

#include "thermal/result_basis.h"
#include "ui/lock_keys.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr int clock_period = 1000;  // ms

// A line end in a name must not make the bar higher.
QString One_Line(QString text) {
  for (QChar& c : text) {
    if (c < QChar(' ')) c = ' ';
  }
  return text;
}

std::string Kind_Of_Results(const Database& db, const std::string& season) {
  if (db.Flag_Annual != 1 && db.Flag_Season != 1) return "Flow";
  // The kind of the temperature run before stays with such results; it would mislead.
  if (Has_Constant_Temp(db)) return "Flow at constant temperature";
  return db.Flag_Annual == 1 ? "Annual" : season;
}

}  // namespace

// The first of the remarks, cut where there is no room, and how many more there are. All of them
// are in the tool tip, which a click brings up too.
class Remark_Label : public QLabel {
 public:
  explicit Remark_Label(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setMinimumWidth(1);
  }
  void show_remarks(const QStringList& remarks) {
    first_ = remarks.value(0);
    more_ = remarks.size() > 1 ? QString(" (+%1)").arg(remarks.size() - 1) : QString();
    setToolTip(remarks.join('\n'));
    fit();
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QLabel::resizeEvent(event);
    fit();
  }
  void mousePressEvent(QMouseEvent* event) override {
    QToolTip::showText(event->globalPosition().toPoint(), toolTip(), this);
  }

 private:
  void fit() {
    const int room = width() - fontMetrics().horizontalAdvance(more_);
    setText(fontMetrics().elidedText(first_, Qt::ElideRight, room) + more_);
  }
  QString first_, more_;
};

std::string Results_Text(const Database& db, const std::string& season,
                         const std::string& outdated) {
  if (db.Node_Total == 0) return "No mine open";
  if (db.Flag_Results == 0) return "No results";
  const std::string kind = Kind_Of_Results(db, season);
  if (outdated.empty()) return "Results: " + kind;
  return "Results out of date: " + kind + ", " + outdated;
}

Status_Bar::Status_Bar(QWidget* parent) : QStatusBar(parent) {
  setObjectName("stbBRANOK");
  remark_ = new Remark_Label(this);
  remark_->setObjectName("stbRemark");
  addWidget(remark_, 1);
  mine_ = field("stbMine", "Name of the mine");
  file_ = field("stbFile", "Data file of the mine");
  edits_ = field("stbEdits", "Edits that wait for Check and Fix Data");
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
  label->setMinimumWidth(1);  // its text must not hold the window wide
  addPermanentWidget(label);
  return label;
}

void Status_Bar::show_remark(const QString& text) {
  if (text.isEmpty() || remarks_.contains(text)) return;
  remarks_ << One_Line(text);
  show_remarks();
}

void Status_Bar::clear_remarks() {
  remarks_.clear();
  show_remarks();
}

void Status_Bar::show_hint(const QString& text) {
  hint_ = One_Line(text);
  show_remarks();
}

void Status_Bar::show_remarks() {
  remark_->show_remarks(hint_.isEmpty() ? remarks_ : QStringList(hint_));
  fit_fields();
}

void Status_Bar::show_mine(const Database& db, const std::filesystem::path& file,
                           const std::string& season, const std::string& outdated) {
  mine_name_ = One_Line(To_Qt(Trim(db.Mine_Name)));
  file_name_ = file.empty() ? QString("not saved") : One_Line(Name_To_Qt(file));
  if (db.Node_Total == 0) file_name_.clear();
  results_text_ = To_Qt(Results_Text(db, season, outdated));
  mine_->setToolTip(mine_name_);
  file_->setToolTip(file_name_);
  results_->setToolTip(results_text_);
  fit_fields();
}

void Status_Bar::show_unchecked(const QStringList& pages) {
  edits_->setText(pages.isEmpty() ? QString() : QString("Unchecked edits"));
  edits_->setToolTip("Check and Fix Data (F9) takes in the edits of: " + pages.join(", "));
}

// Long texts are cut, so that they never make the window wider; the tool tips have all of them. The
// end of a file name tells more than its beginning.
void Status_Bar::fit_fields() {
  const auto cut = [this](const QString& text, Qt::TextElideMode mode, int part) {
    return fontMetrics().elidedText(text, mode, this->width() / part);
  };
  const bool remark = !remarks_.isEmpty() || !hint_.isEmpty();  // it has the larger part
  mine_->setText(cut(mine_name_, Qt::ElideRight, remark ? 12 : 8));
  file_->setText(cut(file_name_, Qt::ElideLeft, remark ? 12 : 4));
  results_->setText(cut(results_text_, Qt::ElideRight, remark ? 3 : 2));
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
  fit_fields();
}

}  // namespace branok
