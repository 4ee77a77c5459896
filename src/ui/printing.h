// Printing with a preview: what is seen is what the printer or the PDF file gets.
#pragma once

#include <QPageLayout>
#include <QString>
#include <QWidget>
#include <functional>

class QPrinter;

namespace branok {

/// Shows the preview of what `paint` paints; from it the user prints to a printer or, where there
/// is none, to a PDF file. `paint` may be called several times, each time on a fresh printer; false
/// from it, when the printer or file cannot be written, is told in a message. The preview opens in
/// `orientation`; the user may turn the page.
void Print_With_Preview(QWidget* parent, const QString& document,
                        const std::function<bool(QPrinter&)>& paint,
                        QPageLayout::Orientation orientation = QPageLayout::Portrait);

}  // namespace branok
