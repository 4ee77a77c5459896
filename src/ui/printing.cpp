#include "ui/printing.h"

#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include "core/messages.h"
#include "ui/qt_dialogue.h"

namespace branok {

void Print_With_Preview(QWidget* parent, const QString& document,
                        const std::function<bool(QPrinter&)>& paint,
                        QPageLayout::Orientation orientation) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(document);
  printer.setCreator("BRANOK");
  printer.setPageOrientation(orientation);
  if (QPrinterInfo::defaultPrinter().isNull()) printer.setOutputFormat(QPrinter::PdfFormat);
  QPrintPreviewDialog preview(&printer, parent);
  preview.setObjectName("dlgPreview");
  preview.setWindowTitle(QString("Print - ") + document);
  preview.resize(900, 700);
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, [&](QPrinter* device) {
    if (paint(*device)) return;
    Qt_Dialogue(&preview, [](const QString&) {}).show(messages::File_Error("'Printer Error'"));
  });
  preview.exec();
}

}  // namespace branok
