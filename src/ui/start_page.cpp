#include "ui/start_page.h"

#include <QCommandLinkButton>
#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>

#include "ui/icon.h"
#include "ui/qt_text.h"

namespace branok {

Start_Page::Start_Page(QWidget* parent) : QWidget(parent) {
  setObjectName("Start_Page");
  auto* const layout = new QVBoxLayout(this);
  auto* const column = new QWidget(this);
  column->setMaximumWidth(fontMetrics().averageCharWidth() * 70);
  layout->addStretch(1);
  layout->addWidget(column, 0, Qt::AlignHCenter);
  layout->addStretch(2);
  buttons_ = new QVBoxLayout(column);
  auto* const title = new QLabel("Ventilation of one mine at a time", column);
  QFont large = font();
  large.setPointSizeF(1.4 * large.pointSizeF());
  title->setFont(large);
  title->setContentsMargins(12, 0, 0, 8);
  buttons_->addWidget(title);
}

void Start_Page::add(const QString& caption, const char* icon, const char* name, const char* asked,
                     int index) {
  auto* const button = new QCommandLinkButton(caption, this);
  button->setObjectName(index < 0 ? QString(name) : name + QString::number(index));
  button->setIcon(Icon_Of(icon));
  button->setIconSize({24, 24});
  connect(button, &QCommandLinkButton::clicked, this,
          [this, asked, index] { emit command(asked, index); });
  buttons_->addWidget(button);
}

void Start_Page::show_recent(const Settings& settings) {
  // One of them may be the one whose click has led here.
  for (QCommandLinkButton* const old : findChildren<QCommandLinkButton*>()) {
    old->setObjectName({});
    old->hide();
    buttons_->removeWidget(old);
    old->deleteLater();
  }
  add("Open a mine (Ctrl+O)", "open", "cmdStartOpen", "mnuFileComOpen", -1);
  for (int row = 0; row < recent_rows; ++row) {
    const std::string& name = settings.Recent_File.at(static_cast<std::size_t>(row));
    if (name.empty()) continue;
    const QFileInfo file(QString::fromStdString(name));
    const auto cut = [this](const QString& text) {
      return fontMetrics().elidedText(text, Qt::ElideMiddle, fontMetrics().averageCharWidth() * 40);
    };
    add(QString("Open %1 again").arg(cut(file.fileName()).replace('&', "&&")), "open",
        "cmdStartRecent", "mnuFileComPrefile", row);
    auto* const button = findChild<QCommandLinkButton*>("cmdStartRecent" + QString::number(row));
    button->setDescription(cut(file.absolutePath()));
    button->setToolTip(file.filePath());
  }
  add("Edit the present mine (Ctrl+1)", "window-database", "cmdStartDatabase", "mnuWinSelCom", 0);
  add("Analyse the present mine (Ctrl+2)", "window-analysis", "cmdStartAnalysis", "mnuWinSelCom",
      1);
  add("Read the guide (F1)", "help", "cmdStartHelp", "mnuHelpComBRN", -1);
  if (isVisible()) findChild<QCommandLinkButton*>("cmdStartOpen")->setFocus();
}

// Behind a window the page must not ask for the keyboard.
void Start_Page::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (auto* const open = findChild<QCommandLinkButton*>("cmdStartOpen")) open->setFocus();
}

}  // namespace branok
