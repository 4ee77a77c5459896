#include "ui/grid_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "ui/qt_text.h"

namespace branok {

namespace {

QString As_Text(const QList<QStringList>& rows) {
  QString text;
  for (const QStringList& cells : rows) text += cells.join('\t') + '\n';
  return text;
}

QString As_Table(const QList<QStringList>& rows) {
  QString table = "<meta charset=\"utf-8\"><table>\n";
  for (const QStringList& cells : rows) {
    table += "<tr>";
    for (const QString& cell : cells) table += "<td>" + cell.toHtmlEscaped() + "</td>";
    table += "</tr>\n";
  }
  return table + "</table>\n";
}

// A cell that holds what separates cells is quoted, its quotes doubled (RFC 4180).
QString Quoted(QString cell) {
  const bool plain =
      !cell.contains(',') && !cell.contains('"') && !cell.contains('\n') && cell == cell.trimmed();
  return plain ? cell : '"' + cell.replace('"', "\"\"") + '"';
}

QString As_Csv(const QList<QStringList>& rows) {
  QString csv;
  for (QStringList cells : rows) {
    for (QString& cell : cells) cell = Quoted(cell);
    csv += cells.join(',') + "\r\n";
  }
  return csv;
}

}  // namespace

std::unique_ptr<QMimeData> Clipboard_Form(std::string_view clip) {
  QList<QStringList> rows;
  for (const QString& row : To_Qt(clip).split('\r')) rows << row.split('\t');
  auto data = std::make_unique<QMimeData>();
  data->setText(As_Text(rows));
  data->setHtml(As_Table(rows));
  data->setData("text/csv", As_Csv(rows).toUtf8());
  return data;
}

void Copy_To_Clipboard(std::string_view clip) {
  QGuiApplication::clipboard()->setMimeData(Clipboard_Form(clip).release());
}

std::string Clipboard_Text() { return QGuiApplication::clipboard()->text().toStdString(); }

}  // namespace branok
