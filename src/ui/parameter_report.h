// The printed list of the calculation parameters.
#pragma once

#include <QPrinter>
#include <QString>
#include <vector>

namespace branok {

struct Report_Line {
  QString title;  ///< with the unit
  QString value;
};

/// Paints the list on one page of `width` by anything, in pixels of 1/96 inch: the heading, then a
/// line for each parameter.
void Paint_Parameters(QPainter& painter, double width, const std::vector<Report_Line>& lines);

/// The same on a printer's page; false when the printer or its file cannot be written.
bool Print_Parameters(QPrinter& printer, const std::vector<Report_Line>& lines);

}  // namespace branok
